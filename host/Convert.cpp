#include "Convert.h"

#include <strings.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "PendingFile.h"
#include "ProgramFile.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

/// The programs of a file of either kind; a preset has one.
struct FilePrograms {
    explicit FilePrograms(const ProgramFile& file)
        : programs(size_t(file.isBank() ? kProgramCount : 1), neutralProgram()) {
        if (file.isBank()) {
            file.readBank(std::span<ProgramRecord, kProgramCount>(programs), current);
        } else {
            file.readPreset(programs.front());
        }
    }
    std::vector<uint8_t> image() const {
        const bool isBank = programs.size() > 1;
        std::vector<uint8_t> bytes(isBank ? kBankImageSize : kPresetImageSize);
        if (isBank) {
            writeBankImage(std::span<const ProgramRecord, kProgramCount>(programs), current,
                           bytes.data());
        } else {
            writePresetImage(programs.front(), bytes.data());
        }
        return bytes;
    }

    std::vector<ProgramRecord> programs;
    int32_t current = 0;
};

void checkEnding(const ProgramFile& file, const std::filesystem::path& output) {
    const char* const wanted = file.isBank() ? ".vtb" : ".vtp";
    if (strcasecmp(output.extension().c_str(), wanted) != 0) {
        throw UserError(file.name() + " holds " + (file.isBank() ? "a bank" : "a preset") +
                        ": the name of the new file has to end in " + wanted + ", not as " +
                        inQuotes(output.filename().string()) + " does");
    }
}

}  // namespace

void convert(const std::filesystem::path& input, const std::filesystem::path& output) {
    const ProgramFile file(input);
    checkEnding(file, output);
    const std::vector<uint8_t> bytes = FilePrograms(file).image();
    PendingFile pending(output);
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t written =
            write(pending.descriptor(), bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno != EINTR) {
            throw UserError("cannot write " + pending.name() + ": " + std::strerror(errno));
        }
        done += written > 0 ? size_t(written) : 0;
    }
    pending.commit();
}

void listFilePrograms(const std::filesystem::path& name) {
    const FilePrograms file{ProgramFile(name)};
    std::printf("%6s  %s\n", "number", "name");
    for (size_t i = 0; i < file.programs.size(); ++i) {
        const auto& text = file.programs[i].name;
        const std::string whole(text.data(), strnlen(text.data(), text.size()));
        std::printf("%6zu  %s\n", i, printable(whole).c_str());
    }
}

}  // namespace tessel8::host
