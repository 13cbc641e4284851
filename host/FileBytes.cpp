#include "FileBytes.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "UserError.h"

namespace tessel8::host {

namespace {

struct Close {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

}  // namespace

std::vector<uint8_t> readFile(const std::filesystem::path& file, size_t most) {
    constexpr size_t kPieceBytes = 65536;
    const std::unique_ptr<std::FILE, Close> stream(std::fopen(file.c_str(), "rb"));
    if (!stream) {
        throw UserError(file.string() + ": " + std::strerror(errno));
    }
    std::vector<uint8_t> bytes;
    // Piece by piece, since what is no regular file tells no length and may never end.
    for (size_t got = kPieceBytes; got == kPieceBytes;) {
        const size_t before = bytes.size();
        bytes.resize(before + kPieceBytes);
        got = std::fread(bytes.data() + before, 1, kPieceBytes, stream.get());
        bytes.resize(before + got);
        if (bytes.size() > most) {
            throw UserError(file.string() + " is too large: more than " + std::to_string(most) +
                            " bytes");
        }
    }
    if (std::ferror(stream.get()) != 0) {
        throw UserError("cannot read " + file.string() + ": " + std::strerror(errno));
    }
    return bytes;
}

}  // namespace tessel8::host
