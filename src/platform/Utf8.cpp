#include "platform/Utf8.h"

#include <cstdint>

namespace tessel8::utf8 {

namespace {

/// What the first byte of a sequence says: its length, its own bits and the lowest code point that
/// needs this length.
struct Lead {
    uint8_t mask, pattern, bits;
    size_t length;
    char32_t lowest;
};

constexpr Lead kLeads[] = {
    {0x80, 0x00, 0x7f, 1, 0},
    {0xe0, 0xc0, 0x1f, 2, 0x80},
    {0xf0, 0xe0, 0x0f, 3, 0x800},
    {0xf8, 0xf0, 0x07, 4, 0x10000},
};

bool isContinuation(char byte) {
    return (uint8_t(byte) & 0xc0) == 0x80;
}

/// The length of the well-formed sequence that `text` starts with and its code point; 0 if broken.
size_t sequence(std::string_view text, char32_t& code) {
    const auto first = uint8_t(text.front());
    for (const Lead& lead : kLeads) {
        if ((first & lead.mask) != lead.pattern) {
            continue;
        }
        if (text.size() < lead.length) {
            return 0;
        }
        code = first & lead.bits;
        for (size_t i = 1; i < lead.length; ++i) {
            if (!isContinuation(text[i])) {
                return 0;
            }
            code = code << 6 | (uint8_t(text[i]) & 0x3f);
        }
        const bool surrogate = code >= 0xd800 && code < 0xe000;
        return code < lead.lowest || surrogate || code > 0x10ffff ? 0 : lead.length;
    }
    return 0;
}

}  // namespace

char32_t takeFirst(std::string_view& text) {
    char32_t code = kReplacement;
    const size_t length = sequence(text, code);
    text.remove_prefix(length ? length : 1);
    return length ? code : kReplacement;
}

void append(std::string& text, char32_t code) {
    if (code < 0x80) {
        text += char(code);
        return;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    text += char(kLeads[more].pattern | code >> (6 * more));
    for (int i = more - 1; i >= 0; --i) {
        text += char(0x80 | (code >> (6 * i) & 0x3f));
    }
}

size_t next(std::string_view text, size_t offset) {
    if (offset >= text.size()) {
        return text.size();
    }
    std::string_view rest = text.substr(offset);
    takeFirst(rest);
    return text.size() - rest.size();
}

size_t previous(std::string_view text, size_t offset) {
    // At most three continuation bytes back lies the start of the sequence that ends here.
    for (size_t back = 1; back <= 4 && back <= offset; ++back) {
        char32_t code = 0;
        if (sequence(text.substr(offset - back), code) == back) {
            return offset - back;
        }
    }
    return offset > 0 ? offset - 1 : 0;
}

std::string singleLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const char32_t code = takeFirst(text);
        if (code == '\n' || code == '\t') {
            line += ' ';
        } else if (code >= ' ' && (code < 0x7f || code > 0x9f)) {
            append(line, code);
        }
    }
    return line;
}

}  // namespace tessel8::utf8
