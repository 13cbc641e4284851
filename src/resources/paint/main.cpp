// Paints the panel: every numbered bitmap, the fonts and the pack of them all, and a sheet of
// the strips for whoever looks at the result.

#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <vector>

#include "resources/Pack.h"
#include "resources/paint/BmpWriter.h"
#include "resources/paint/FontBake.h"
#include "resources/paint/Painters.h"
#include "resources/paint/Sheets.h"

namespace {

namespace fs = std::filesystem;
using namespace tessel8;

using Parts = std::map<int32_t, std::vector<uint8_t>>;

void writeFile(const fs::path& path, const std::vector<uint8_t>& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

std::vector<uint8_t> packOf(const Parts& parts) {
    const auto aligned = [](size_t size) { return (size + 15) / 16 * 16; };
    const size_t directory =
        sizeof(resources::PackHead) + parts.size() * sizeof(resources::PackEntry);
    std::vector<uint8_t> bytes(directory);
    auto* head = reinterpret_cast<resources::PackHead*>(bytes.data());
    *head = {uint32_t(parts.size()), {}};
    size_t at = sizeof *head;
    for (const auto& [number, part] : parts) {
        const resources::PackEntry entry = {number, uint32_t(bytes.size()), uint32_t(part.size()),
                                            0};
        std::memcpy(bytes.data() + at, &entry, sizeof entry);
        at += sizeof entry;
        bytes.insert(bytes.end(), part.begin(), part.end());
        bytes.resize(aligned(bytes.size()));
    }
    return bytes;
}

paint::Pictures paintAll() {
    paint::Pictures pictures;
    const paint::Picture background = paint::paintBackground();
    pictures[kBackgroundPicture] = background;
    for (const paint::Strip& strip : paint::stripTable()) {
        pictures[strip.number] = paint::paintStrip(strip, background);
    }
    return pictures;
}

void run(const fs::path& folder) {
    fs::create_directories(folder);
    const paint::Pictures pictures = paintAll();
    Parts parts;
    for (const auto& [number, picture] : pictures) {
        parts[number] = paint::bitmapFileOf(picture);
        writeFile(folder / (std::to_string(number) + ".bmp"), parts[number]);
    }
    for (const int32_t size : {9, 12}) {
        parts[resources::kFontNumber - size] = paint::bakeFont(size);
    }
    writeContactSheet(pictures, folder / "contact_sheet.png");
    writeFile(folder / "resources.pack", packOf(parts));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    try {
        run(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
    return 0;
}
