#include "Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

template <typename Value>
std::string shortestText(Value value) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

}  // namespace

double parseNumber(std::string_view text, Range range, const std::string& subject) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc::invalid_argument || stop != end || std::isnan(value)) {
        throw UserError(subject + ": " + inQuotes(text) + " is not a number");
    }
    // An exponent too large for a double ends here too: it lies outside every range.
    if (error != std::errc() || !(value >= range.low && value <= range.high)) {
        throw UserError(subject + ": " + std::string(text) + " is outside the range " +
                        shortest(range.low) + " to " + shortest(range.high));
    }
    return value;
}

int parseWholeNumber(std::string_view text, Range range, const std::string& subject) {
    const double value = parseNumber(text, range, subject);
    if (value != std::floor(value)) {
        throw UserError(subject + ": " + inQuotes(text) + " is not a whole number");
    }
    return int(value);
}

std::string shortest(double value) {
    return shortestText(value);
}

std::string shortest(float value) {
    return shortestText(value);
}

}  // namespace tessel8::host
