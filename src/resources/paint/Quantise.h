#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "resources/paint/Picture.h"

namespace tessel8::paint {

/// At most 256 colours, and which of them stands for each colour of the picture.
struct Palette {
    std::vector<uint32_t> colours;
    std::unordered_map<uint32_t, uint8_t> indexOf;
};

/// The palette of a picture by median cut, or none if a channel would be off by more than a few
/// steps somewhere. The commonest colours, grounds above all, are always kept exactly.
std::optional<Palette> paletteOf(const Picture& picture);

}  // namespace tessel8::paint
