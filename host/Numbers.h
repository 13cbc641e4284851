#pragma once

#include <string>
#include <string_view>

namespace tessel8::host {

/// Bounds of a value, both of them allowed.
struct Range {
    double low;
    double high;
};

/// Reads the whole of `text` as a number within `range`, with a point whatever the locale.
/// `subject` names the value in the error, e.g. "--tempo".
double parseNumber(std::string_view text, Range range, const std::string& subject);

/// The same for a whole number.
int parseWholeNumber(std::string_view text, Range range, const std::string& subject);

/// The shortest decimal text that reads back as the same value.
std::string shortest(double value);
std::string shortest(float value);

}  // namespace tessel8::host
