#include "platform/TextEditing.h"

#include <algorithm>

#include "platform/Utf8.h"

namespace tessel8 {

namespace {

/// Letters and digits make words; characters beyond ASCII count as letters.
bool isInWord(char byte) {
    const auto c = uint8_t(byte);
    return c >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

TextEditing::TextEditing(std::string_view text) : content(utf8::singleLine(text)) {
    selectAll();
}

std::string TextEditing::selected() const {
    return content.substr(selectionStart(), selectionEnd() - selectionStart());
}

void TextEditing::selectAll() {
    anchor = 0;
    caret = content.size();
}

void TextEditing::selectWordAt(size_t offset) {
    anchor = caret = std::min(offset, content.size());
    while (anchor > 0 && isInWord(content[anchor - 1])) {
        --anchor;
    }
    while (caret < content.size() && isInWord(content[caret])) {
        ++caret;
    }
}

void TextEditing::moveCursor(size_t offset, bool extend) {
    caret = std::min(offset, content.size());
    if (!extend) {
        anchor = caret;
    }
}

void TextEditing::insert(std::string_view text) {
    const std::string line = utf8::singleLine(text);
    const size_t start = selectionStart();
    content.replace(start, selectionEnd() - start, line);
    moveCursor(start + line.size(), false);
}

size_t TextEditing::leftOf(size_t offset, bool byWord) const {
    if (!byWord) {
        return utf8::previous(content, offset);
    }
    while (offset > 0 && !isInWord(content[offset - 1])) {
        --offset;
    }
    while (offset > 0 && isInWord(content[offset - 1])) {
        --offset;
    }
    return offset;
}

size_t TextEditing::rightOf(size_t offset, bool byWord) const {
    if (!byWord) {
        return utf8::next(content, offset);
    }
    while (offset < content.size() && isInWord(content[offset])) {
        ++offset;
    }
    while (offset < content.size() && !isInWord(content[offset])) {
        ++offset;
    }
    return offset;
}

void TextEditing::press(EditKey key, bool extend, bool byWord) {
    const bool collapses = hasSelection() && !extend && !byWord;
    switch (key) {
        case EditKey::Left:
            moveCursor(collapses ? selectionStart() : leftOf(caret, byWord), extend);
            break;
        case EditKey::Right:
            moveCursor(collapses ? selectionEnd() : rightOf(caret, byWord), extend);
            break;
        case EditKey::Home:
            moveCursor(0, extend);
            break;
        case EditKey::End:
            moveCursor(content.size(), extend);
            break;
        case EditKey::Backspace:
        case EditKey::Delete:
            if (!hasSelection()) {
                anchor = key == EditKey::Backspace ? leftOf(caret, byWord) : rightOf(caret, byWord);
            }
            insert({});
            break;
    }
}

}  // namespace tessel8
