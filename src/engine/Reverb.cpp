#include "engine/Reverb.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tessel8 {

namespace {

/// Lengths in the structure's own units; the scale to samples is the structure's, too.
struct Structure {
    std::array<float, 6> line;
    std::array<float, 6> allpass;
    std::array<float, 4> diffuser;
    float lineFactor;
    float allpassFactor;
    float diffuserFactor;
    double bandRadians;    ///< 2 pi times the band's centre in Hz
    double bandSharpness;  ///< alpha = sin(w) / sharpness
};

constexpr Structure kSpring{{32767.0f, 32767.0f, 39513.066f, 39513.066f, 47647.92f, 47647.92f},
                            {515.4479f, 515.4479f, 427.44635f, 427.44635f, 389.2502f, 389.2502f},
                            {2606.0168f, 2568.4248f, 2129.1135f, 2160.0713f},
                            0.5f,
                            1.0f,
                            1.0f,
                            5026.4,
                            0.2};

constexpr Structure kPlate{
    {},  // the plate has no lines of its own
    {3182331.25f, 2662541.5f, 3295698.5f, 2506079.0f, 3064032.25f, 2924268.0f},
    {417287.72f, 156341.19f, 304978.84f, 117807.195f},
    0.0f,
    0.5f,
    0.75f,
    12566.0,
    0.12};

float springScale(float rate) {
    return rate / 303187.5f;
}
float plateScale(float rate) {
    return rate * 44.1f * 5.0f / 1445024640.0f;
}

template <typename Bank>
bool allocate(Bank& bank, size_t entries) {
    return std::all_of(bank.begin(), bank.end(),
                       [=](AlignedBuffer& part) { return part.allocate(entries); });
}

template <typename Bank>
bool present(const Bank& bank) {
    return std::all_of(bank.begin(), bank.end(),
                       [](const AlignedBuffer& part) { return bool(part); });
}

}  // namespace

bool Reverb::allocateForRate(float rate) {
    mask = rate < 50000.0f ? 32767 : rate < 100000.0f ? 65535 : 131071;
    release();
    const size_t entries = size_t(mask) + 1;
    return allocate(line, entries) && allocate(allpass, entries) && allocate(diffuser, entries);
}

bool Reverb::hasMemory() const {
    return present(line) && present(allpass) && present(diffuser);
}

void Reverb::release() {
    const auto drop = [](AlignedBuffer& part) { part.release(); };
    std::for_each(line.begin(), line.end(), drop);
    std::for_each(allpass.begin(), allpass.end(), drop);
    std::for_each(diffuser.begin(), diffuser.end(), drop);
}

void Reverb::clearLines() {
    const auto clear = [](AlignedBuffer& part) { part.clear(); };
    std::for_each(line.begin(), line.end(), clear);
    std::for_each(allpass.begin(), allpass.end(), clear);
    std::for_each(diffuser.begin(), diffuser.end(), clear);
}

void Reverb::resetState() {
    damp.fill(0.0f);
    for (auto* memory : {&band.x1, &band.x2, &band.y1, &band.y2}) {
        memory->fill(0.0f);
    }
}

void Reverb::build(float rate) {
    const Structure& s = plate ? kPlate : kSpring;
    const float scale = plate ? plateScale(rate) : springScale(rate);
    const auto distance = [&](float units, float factor) {
        return int32_t(float(mask) - units * scale * factor) & mask;
    };
    lineWrite = apWrite = mask;
    for (size_t k = 0; k < 6; ++k) {
        lineRead[k] = distance(s.line[k], s.lineFactor);
        apRead[k] = distance(s.allpass[k], s.allpassFactor);
    }
    for (size_t k = 0; k < 4; ++k) {
        diffRead[k] = distance(s.diffuser[k], s.diffuserFactor);
    }
    const auto distanceBehind = [this](int32_t write) {
        return [=, this](int32_t nearest, int32_t read) {
            return std::min(nearest, (write - read) & mask);
        };
    };
    shortest = mask;
    if (!plate) {
        shortest =
            std::accumulate(lineRead.begin(), lineRead.end(), shortest, distanceBehind(lineWrite));
    }
    shortest = std::accumulate(apRead.begin(), apRead.end(), shortest, distanceBehind(apWrite));
    shortest = std::accumulate(diffRead.begin(), diffRead.end(), shortest, distanceBehind(apWrite));
    shortest = std::max(shortest, 1);
    const double w = s.bandRadians / double(rate);
    const double alpha = std::sin(w) / s.bandSharpness;
    band.b0 = float(alpha / (1.0 + alpha));
    band.b2 = float(-alpha / (1.0 + alpha));
    band.a1 = float(-2.0 * std::cos(w) / (1.0 + alpha));
    band.a2 = float((1.0 - alpha) / (1.0 + alpha));
}

}  // namespace tessel8
