#pragma once

#include <cstdint>

namespace tessel8 {

class Parameters;

/// Room that every text of this file fits into, its terminating zero included.
constexpr int32_t kTextBytes = 32;

/// The text of a parameter's value; empty outside 0 to 214. If `text` begins with the bytes "1EAD",
/// the float in its next four bytes (held within 0 and 1) is printed in place of the applied value.
void writeDisplayText(const Parameters& parameters, int32_t index, char* text);

// Texts for the panel's display, each cut to `decimals` digits behind the point, 0 at the point.

/// A delay as a fraction of the delay memory, in milliseconds to the nearest.
void writeDelayMs(const Parameters& parameters, float value, char* text, int32_t decimals);
/// A delay in samples, with the unit.
void writeSamplesAsMs(const Parameters& parameters, float value, char* text, int32_t decimals);
/// A linear gain; "-100.0" from 0.0001 down.
void writeDecibels(float gain, char* text, int32_t decimals);
/// The same with the unit; "-100dB" from 0.0001 down.
void writeDecibelsWithUnit(float gain, char* text, int32_t decimals);

/// Sign, whole digits, point and as many further digits as make up eight characters; cut, not
/// rounded, then cut to `length` characters (8 at most).
void float2string(double value, char* text, int32_t length);

/// A linear gain in decibels through `float2string`; "-oo" for 0 and below.
void dB2string(double gain, char* text, int32_t length);

}  // namespace tessel8
