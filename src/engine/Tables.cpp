#include "engine/Tables.h"

#include <cmath>
#include <numbers>

namespace tessel8 {

namespace {

constexpr double kPi = std::numbers::pi;

template <typename Law>
bool fill(AlignedBuffer& table, int entries, Law law) {
    if (!table.allocate(size_t(entries))) {
        return false;
    }
    for (int i = 0; i < entries; ++i) {
        table[size_t(i)] = float(law(i));
    }
    return true;
}

}  // namespace

bool buildOctaveTable(AlignedBuffer& table) {
    return fill(table, kOctaveEntries, [](int k) { return std::exp2(3.0 * (k - 2000) / 2000.0); });
}

bool buildSineTable(AlignedBuffer& table) {
    const double scale = 999.0 / (2.0 * kPi);
    return fill(table, kSineEntries, [=](int i) { return std::sin(i / scale + kPi); });
}

bool buildSquareTable(AlignedBuffer& table) {
    return fill(table, kSquareEntries, [](int n) {
        const double x = (n == 0 ? 1 : n) / 20000.0;
        return x * x;
    });
}

bool buildTanTable(AlignedBuffer& table, float sampleRate) {
    return fill(table, kFrequencyEntries,
                [=](int i) { return std::tan(kPi / double(sampleRate) * i / 2.0); });
}

bool buildSvfTable(AlignedBuffer& table, float sampleRate) {
    const double steps = svfOversampling(sampleRate);
    return fill(table, kFrequencyEntries, [=](int i) {
        return 2.0 * std::sin(kPi * i / (steps * 2.0 * double(sampleRate)));
    });
}

int svfOversampling(float sampleRate) {
    if (sampleRate < 80000.0f) {
        return 4;
    }
    return sampleRate < 190000.0f ? 3 : 2;
}

}  // namespace tessel8
