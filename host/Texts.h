#pragma once

#include <string>
#include <string_view>

namespace tessel8::host {

/// The text with every control character as '?': names of files and plug-ins come from outside,
/// and a message must stay one line on any terminal.
inline std::string printable(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            c = '?';
        }
    }
    return result;
}

/// The text between double quotes, for messages.
inline std::string inQuotes(std::string_view text) {
    std::string result(1, '"');
    result += text;
    result += '"';
    return result;
}

}  // namespace tessel8::host
