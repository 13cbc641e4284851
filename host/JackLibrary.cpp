#include "JackLibrary.h"

#include <dlfcn.h>

#include <string>

#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr const char* kLibraryName = "libjack.so.0";

}  // namespace

void* JackLibrary::load() {
    void* const library = dlopen(kLibraryName, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) {
        throw UserError("there is no JACK server: " + std::string(kLibraryName) +
                        " is not installed");
    }
    return library;
}

JackLibrary::Symbol JackLibrary::find(const char* name) const {
    void* const address = dlsym(library_, name);
    if (address == nullptr) {
        throw UserError(std::string(kLibraryName) + " is too old: it has no " + name);
    }
    return {address};
}

}  // namespace tessel8::host
