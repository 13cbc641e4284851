#include "shell/Version.h"

#include <cstdlib>
#include <cstring>
#include <string>

namespace tessel8 {

namespace {

constexpr int32_t kFallbackNumber = 0x01060100;
constexpr size_t kLongestText = 34;

}  // namespace

int32_t versionNumber(const char* literal, char* text) {
    std::string readable;
    std::string digits;
    int32_t number = 0;
    int points = 0;
    for (const char* c = literal; *c; ++c) {
        if (*c != '.') {
            digits += *c;
            readable += *c;
            continue;
        }
        ++points;
        if (points <= 3) {
            number |= std::atoi(digits.c_str()) << (32 - 8 * points);
        }
        readable += points < 3 ? "." : " build ";
        digits.clear();
    }
    number |= std::atoi(digits.c_str());
    if (points != 3 || readable.size() > kLongestText) {
        number = kFallbackNumber;
        readable.assign(literal, strnlen(literal, kLongestText));
    }
    if (text) {
        std::memcpy(text, readable.c_str(), readable.size() + 1);
    }
    return number;
}

}  // namespace tessel8
