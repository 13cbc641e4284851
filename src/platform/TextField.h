#pragma once

#include <cstdint>
#include <string>

#include "platform/TextEditing.h"

namespace tessel8 {

struct PixelRect;
struct Surface;

struct TextFieldLook {
    uint32_t textColour = 0, groundColour = 0xffffff, frameColour = 0x808080;
    int32_t fontSize = 12;
};

/// The picture of a line of text that is being edited. A text that is longer than the field is
/// moved so that the cursor shows; what is selected has its colours exchanged.
class TextField {
  public:
    TextField(std::string_view text, const TextFieldLook& theLook);

    TextEditing editing;

    /// The offset between characters that is nearest to a point of the field at `place`.
    size_t offsetAt(const PixelRect& place, int32_t x) const;
    void paint(const Surface& surface, const PixelRect& clip, const PixelRect& place,
               bool showsCursor);

  private:
    int32_t widthTo(size_t offset) const;

    TextFieldLook look;
    int32_t scrolled = 0;  ///< pixels of text that lie left of the field
};

}  // namespace tessel8
