#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace tessel8 {

using Bytes = std::vector<uint8_t>;

/// Writes chunks, images and files of programs word by word, in either byte order and whatever they
/// say of themselves.
struct ImageWriter {
    bool bigEndian = false;
    Bytes bytes{};

    ImageWriter& word(uint32_t value) {
        for (int i = 0; i < 4; ++i) {
            bytes.push_back(uint8_t(value >> 8 * (bigEndian ? 3 - i : i)));
        }
        return *this;
    }
    ImageWriter& number(float value) { return word(std::bit_cast<uint32_t>(value)); }
    ImageWriter& name(std::string text, size_t size = 24) {
        text.resize(size);
        bytes.insert(bytes.end(), text.begin(), text.end());
        return *this;
    }
    ImageWriter& zeros(size_t count) {
        bytes.insert(bytes.end(), count, 0);
        return *this;
    }
    ImageWriter& tagged(char tag) {
        word(0x54534C38).bytes.push_back(uint8_t(tag));
        return *this;
    }
    /// The head of an image.
    ImageWriter& image(char tag, uint32_t records, uint32_t current, uint32_t payload) {
        tagged(tag).word(0x02000000).word(215).word(records);
        return word(current).word(payload).zeros(16);
    }
    ImageWriter& program(uint32_t index, const std::string& text) {
        return word(0).word(156).word(index).name(text).zeros(132);
    }
    std::string text() const { return {bytes.begin(), bytes.end()}; }
    ImageWriter& value(uint32_t program, uint32_t index, float v) {
        return word(1).word(20).word(program).word(index).zeros(8).number(v).zeros(4);
    }
};

}  // namespace tessel8
