#pragma once

#include "engine/AlignedBuffer.h"

namespace tessel8 {

// Lookup tables in place of every transcendental function that a sample would need. Each is read
// with a truncated index and without interpolation. A function answers false where the memory is
// not to be had, and leaves the table empty.

constexpr int kOctaveEntries = 4001;
constexpr int kSineEntries = 1000;
constexpr int kSquareEntries = 20001;
constexpr int kFrequencyEntries = 40001;

/// Table index per unit of a modulation sum (0 to 2).
constexpr float kOctaveScale = 2000.0f;
/// Table index per radian.
constexpr float kSineScale = 999.0f / 6.283185307179586f;
/// Table index per unit (0 to 1).
constexpr float kSquareScale = 20000.0f;
/// Table index per hertz: half-hertz steps from 0 to 20000 Hz.
constexpr float kFrequencyScale = 2.0f;

/// Entry k: 2^(3 (k - 2000) / 2000), three octaves down to three octaves up.
bool buildOctaveTable(AlignedBuffer& table);
/// Entry i: sin(i / scale + pi), a cycle from -pi to pi.
bool buildSineTable(AlignedBuffer& table);
/// Entry n: (n / 20000)^2; entry 0 equals entry 1, so that a division by an entry is safe.
bool buildSquareTable(AlignedBuffer& table);
/// Entry i: tan(pi / rate * i / 2), the bilinear transform's warped frequency.
bool buildTanTable(AlignedBuffer& table, float sampleRate);
/// Entry i: 2 sin(pi i / (oversampling * 2 * rate)), the state-variable filter's tuning.
bool buildSvfTable(AlignedBuffer& table, float sampleRate);

/// Steps per sample for which `svfTable` is scaled: 4 below 80 kHz, 3 below 190 kHz, else 2.
int svfOversampling(float sampleRate);

}  // namespace tessel8
