#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Surface.h"

namespace tessel8 {

enum class MenuStep : uint8_t { Up, Down, Left, Right, First, Last };

/// Where the entries of a popup menu lie: in columns from the left, each filled from the top.
class MenuLayout {
  public:
    static constexpr int32_t kFontSize = 12;
    /// Pixels from an entry's left to its text; the mark of the current one goes there.
    static constexpr int32_t kTextLeft = 18;

    /// A menu that wants its top left at a point of the screen and is moved to stay on it.
    /// `perColumn` entries make a column, 0 for all in one; as many as the screen's height holds.
    MenuLayout(const std::vector<std::string>& entries, int32_t perColumn, const PixelRect& screen,
               int32_t x, int32_t y);

    /// On the screen.
    const PixelRect& place() const { return onScreen; }
    int32_t rowsPerColumn() const { return rows; }
    /// An entry's place within the menu.
    PixelRect entry(int32_t index) const;
    /// The entry at a point of the menu, or -1.
    int32_t entryAt(int32_t x, int32_t y) const;
    /// The entry that a key leads to. Up and Down go round; `from` may be -1 for none.
    int32_t stepped(int32_t from, MenuStep step) const;

  private:
    PixelRect onScreen;
    int32_t count, rows, rowHeight;
    std::vector<int32_t> columnLefts;  ///< and the last one's right
};

}  // namespace tessel8
