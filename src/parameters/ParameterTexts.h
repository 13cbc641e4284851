#pragma once

#include <cstdint>

namespace tessel8 {

class Parameters;

/// Room that every text of this file fits into, its terminating zero included.
constexpr int32_t kTextBytes = 32;

/// The text of a parameter's value; empty outside 0 to 214. If `text` begins with the bytes "1EAD",
/// the float in its next four bytes (held within 0 and 1) is printed in place of the applied value.
void writeDisplayText(const Parameters& parameters, int32_t index, char* text);

/// Sign, whole digits, point and as many further digits as make up eight characters; cut, not
/// rounded, then cut to `length` characters (8 at most).
void float2string(double value, char* text, int32_t length);

/// A linear gain in decibels through `float2string`; "-oo" for 0 and below.
void dB2string(double gain, char* text, int32_t length);

}  // namespace tessel8
