#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessel8 {

enum class EditKey : uint8_t { Left, Right, Home, End, Backspace, Delete };

/// One line of text under a cursor and a selection. Offsets are bytes and always lie between
/// characters; the text is always well-formed UTF-8.
class TextEditing {
  public:
    /// Starts with the whole text selected.
    explicit TextEditing(std::string_view text);

    const std::string& text() const { return content; }
    size_t cursor() const { return caret; }
    size_t selectionStart() const { return caret < anchor ? caret : anchor; }
    size_t selectionEnd() const { return caret < anchor ? anchor : caret; }
    std::string selected() const;

    void selectAll();
    void selectWordAt(size_t offset);
    /// Moves the cursor; with `extend`, the selection goes on from where it began.
    void moveCursor(size_t offset, bool extend);
    /// Puts text in the selection's place and the cursor behind it.
    void insert(std::string_view text);
    /// `extend` as with Shift; `byWord` as with Control.
    void press(EditKey key, bool extend, bool byWord);

  private:
    bool hasSelection() const { return caret != anchor; }
    size_t leftOf(size_t offset, bool byWord) const;
    size_t rightOf(size_t offset, bool byWord) const;

    std::string content;
    size_t caret = 0, anchor = 0;
};

}  // namespace tessel8
