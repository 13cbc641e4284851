#include "reference/ScalarReverb.h"

#include <cmath>

namespace tessel8::reference {

namespace {

constexpr float kSpringLine[6] = {32767.0f, 32767.0f, 39513.066f, 39513.066f, 47647.92f, 47647.92f};
constexpr float kSpringAllpass[6] = {515.4479f,  515.4479f, 427.44635f,
                                     427.44635f, 389.2502f, 389.2502f};
constexpr float kSpringDiffuser[4] = {2606.0168f, 2568.4248f, 2129.1135f, 2160.0713f};
constexpr float kPlateAllpass[6] = {3182331.25f, 2662541.5f,  3295698.5f,
                                    2506079.0f,  3064032.25f, 2924268.0f};
constexpr float kPlateDiffuser[4] = {417287.72f, 156341.19f, 304978.84f, 117807.195f};

}  // namespace

void ScalarReverb::allocate(float rate) {
    mask = rate < 50000.0f ? 32767u : rate < 100000.0f ? 65535u : 131071u;
    clearLines();
}

void ScalarReverb::clearLines() {
    for (auto* bank : {&line, &allpass}) {
        bank->fill(Line(mask + 1, 0.0f));
    }
    diffuser.fill(Line(mask + 1, 0.0f));
}

void ScalarReverb::reset() {
    damp.fill(0.0f);
    bandL = bandR = {};
}

void ScalarReverb::build(bool toPlate, float rate) {
    plate = toPlate;
    const float scale = plate ? rate * 44.1f * 5.0f / 1445024640.0f : rate / 303187.5f;
    const auto behind = [&](float units, float factor) {
        return uint32_t(float(mask) - units * scale * factor) & mask;
    };
    lineWrite = apWrite = mask;
    for (size_t k = 0; k < 6; ++k) {
        lineRead[k] = behind(kSpringLine[k], 0.5f);
        apRead[k] = plate ? behind(kPlateAllpass[k], 0.5f) : behind(kSpringAllpass[k], 1.0f);
    }
    for (size_t k = 0; k < 4; ++k) {
        diffRead[k] = plate ? behind(kPlateDiffuser[k], 0.75f) : behind(kSpringDiffuser[k], 1.0f);
    }
    const double w = (plate ? 12566.0 : 5026.4) / double(rate);
    const double alpha = std::sin(w) / (plate ? 0.12 : 0.2);
    b0 = float(alpha / (1.0 + alpha));
    b2 = float(-alpha / (1.0 + alpha));
    a1 = float(-2.0 * std::cos(w) / (1.0 + alpha));
    a2 = float((1.0 - alpha) / (1.0 + alpha));
}

float ScalarReverb::band(Band& s, float x, float dcFlip) const {
    const float y = b0 * x + b2 * s.x2 - a1 * s.y1 - a2 * s.y2 + dcFlip;
    s = {x, s.x1, y, s.y1};
    return y;
}

void ScalarReverb::spring(const Engine& e, float in, float& left, float& right) {
    constexpr float c = 0.7071f;
    const float F = e.reverb.decayA;
    const float G = e.reverb.decayB;
    const float D = e.reverb.dampCoef;
    const uint32_t w = lineWrite;
    const uint32_t v = apWrite;
    std::array<float, 6> ends;
    for (size_t k = 0; k < 6; ++k) {
        const float read = line[k][lineRead[k]];
        damp[k] = k % 2 == 0 ? damp[k] + (read - damp[k]) * D : read;
        const float d = damp[k];
        ends[k] = allpass[k][apRead[k]] - d * c;
        allpass[k][v] = d + ends[k] * c;
    }
    line[0][w] = in + (ends[0] + ends[1] * G) * F;
    line[1][w] = ends[0] + ends[1] * F;
    line[2][w] = in + (ends[2] + ends[3] * G) * F * 0.975f;
    line[3][w] = ends[2] + ends[3] * F * 0.975f;
    line[4][w] = in + (ends[4] + ends[5] * G) * F * 0.95f;
    line[5][w] = ends[4] + ends[5] * F * 0.95f;
    const float sumL = line[1][w] + line[3][lineRead[1]] + line[5][w];
    const float sumR = line[1][lineRead[1]] + line[3][w] + line[5][w];
    springOutput(0, sumL, left);
    springOutput(1, sumR, right);
}

/// Two allpasses in series: `first` and the diffuser two further on.
void ScalarReverb::springOutput(size_t first, float sum, float& out) {
    constexpr float c = 0.7071f;
    out = sum;
    for (const size_t k : {first, first + 2}) {
        const float u = diffuser[k][diffRead[k]] - out * c;
        diffuser[k][apWrite] = out + u * c;
        out = u;
    }
}

void ScalarReverb::plateStructure(const Engine& e, float in, float& left, float& right) {
    const float F = e.reverb.decayA;
    const float G = e.reverb.decayB;
    const float D = e.reverb.dampCoef;
    const uint32_t v = apWrite;
    const float p0 = diffuser[0][diffRead[0]] - in * 0.7f * G;
    diffuser[0][v] = in + p0 * 0.7f * G;
    const float p1 = diffuser[1][diffRead[1]] + p0 * 0.7f * G;
    diffuser[1][v] = p0 - p1 * 0.7f * G;
    const float p2 = diffuser[2][diffRead[2]] - p1 * 0.7f * G;
    diffuser[2][v] = p1 + p2 * 0.7f * G;
    const float p3 = diffuser[3][diffRead[3]] + p2 * 0.7f * G;
    diffuser[3][v] = p2 - p3 * 0.7f * G;
    const float q = p3 * 0.7f * F;
    for (size_t k = 0; k < 6; ++k) {
        damp[k] = damp[k] + (allpass[k][apRead[k]] - damp[k]) * D;
        allpass[k][v] = k % 2 == 0 ? p3 - (damp[k] + q) * 0.7f * F : p3 + (damp[k] - q) * 0.7f * F;
    }
    left = allpass[0][diffRead[0]] + allpass[3][diffRead[2]] + allpass[4][v];
    right = allpass[1][diffRead[1]] + allpass[2][diffRead[3]] + allpass[5][v];
}

void ScalarReverb::advance(const Engine& e, float& left, float& right, float dcFlip) {
    const float l = left + dcFlip;
    const float r = right + dcFlip;
    const float in = l + r;
    float outL, outR;
    if (plate) {
        plateStructure(e, in, outL, outR);
    } else {
        spring(e, in, outL, outR);
    }
    outL = band(bandL, outL, dcFlip);
    outR = band(bandR, outR, dcFlip);
    const float k = plate ? 0.3f : 0.1625f;
    const float A = e.reverb.amount;
    left = l + (outL * k - l) * A;
    right = r + (outR * k - r) * A;
    const auto advanceAll = [this](auto& indices) {
        for (uint32_t& index : indices) {
            index = (index + 1) & mask;
        }
    };
    advanceAll(lineRead);
    advanceAll(apRead);
    advanceAll(diffRead);
    lineWrite = (lineWrite + 1) & mask;
    apWrite = (apWrite + 1) & mask;
}

}  // namespace tessel8::reference
