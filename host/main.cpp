// tessel8: renders files through the effect, plays it live, shows its panel and tells what it says
// about itself.

#include <cstdio>
#include <exception>
#include <new>
#include <string>

#include "CommandLine.h"
#include "Interruption.h"
#include "Texts.h"
#include "UserError.h"

namespace {

using namespace tessel8::host;

constexpr int kExitFailure = 1;
constexpr int kExitUserError = 2;
constexpr int kExitSignalBase = 128;  // as shells count

int report(const std::string& message, int exitCode) {
    std::fprintf(stderr, "tessel8: %s\n", printable(message).c_str());
    return exitCode;
}

}  // namespace

int main(int argc, char** argv) {
    reportFileSizeLimitAsError();
    try {
        return runCommandLine(argc, argv);
    } catch (const UserError& error) {
        return report(error.what(), kExitUserError);
    } catch (const Interrupted& interrupted) {
        return report("interrupted", kExitSignalBase + interrupted.signal);
    } catch (const std::bad_alloc&) {
        return report("out of memory", kExitFailure);
    } catch (const std::exception& error) {
        return report(error.what(), kExitFailure);
    }
}
