#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessel8::utf8 {

/// Stands for every byte that is not part of a well-formed sequence.
constexpr char32_t kReplacement = 0xfffd;

/// Takes the first character off `text`, which must not be empty. A broken sequence (cut off,
/// overlong, a surrogate, above U+10FFFF) costs one byte and gives `kReplacement`.
char32_t takeFirst(std::string_view& text);

void append(std::string& text, char32_t code);

/// The offset behind the character at `offset`; the end stays the end.
size_t next(std::string_view text, size_t offset);
/// The offset of the character before `offset`; the start stays the start.
size_t previous(std::string_view text, size_t offset);

/// Well-formed text of one line: control characters are dropped, line ends and tabs become
/// spaces, broken bytes `kReplacement`.
std::string singleLine(std::string_view text);

}  // namespace tessel8::utf8
