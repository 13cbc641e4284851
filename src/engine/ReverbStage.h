#pragma once

// Spring and plate, a stretch at a time. Every line is longer than a stretch (`Reverb::shortest`
// sees to it), so what a stretch reads was written before it, and each step of the structure runs
// over all frames at once; only the one-pole and two-pole filters go frame by frame.

#include "engine/Engine.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// A circular line's frames from `position` on.
TESSEL8_INLINE void readLine(const AlignedBuffer& line, int32_t position, int32_t mask, int frames,
                             Row& row) {
    const float* const cells = line.data();
    if (position + frames <= mask + 1) {
        for (int i = 0; i < frames; ++i) {
            row[i] = cells[position + i];
        }
        return;
    }
    for (int i = 0; i < frames; ++i) {
        row[i] = cells[(position + i) & mask];
    }
}

TESSEL8_INLINE void writeLine(AlignedBuffer& line, int32_t position, int32_t mask, int frames,
                              const Row& row) {
    float* const cells = line.data();
    if (position + frames <= mask + 1) {
        for (int i = 0; i < frames; ++i) {
            cells[position + i] = row[i];
        }
        return;
    }
    for (int i = 0; i < frames; ++i) {
        cells[(position + i) & mask] = row[i];
    }
}

/// An allpass on one line: out = read - in * c, write in + out * c.
TESSEL8_INLINE void allpass(AlignedBuffer& line, int32_t read, int32_t write, int32_t mask,
                            int frames, float c, const Row& in, Row& out) {
    Row delayed;
    readLine(line, read, mask, frames, delayed);
    Row back;
    for (int i = 0; i < frames; ++i) {
        out[i] = delayed[i] - in[i] * c;
        back[i] = in[i] + out[i] * c;
    }
    writeLine(line, write, mask, frames, back);
}

/// y = b0 x + b2 x2 - a1 y1 - a2 y2, and the offset that keeps denormals away.
TESSEL8_INLINE void bandPass(Reverb::BandFilter& band, size_t channel, int frames, const Row& flip,
                             Row& signal) {
    float x1 = band.x1[channel], x2 = band.x2[channel];
    float y1 = band.y1[channel], y2 = band.y2[channel];
    for (int i = 0; i < frames; ++i) {
        const float x = signal[i];
        const float y = band.b0 * x + band.b2 * x2 - band.a1 * y1 - band.a2 * y2 + flip[i];
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        signal[i] = y;
    }
    band.x1[channel] = x1;
    band.x2[channel] = x2;
    band.y1[channel] = y1;
    band.y2[channel] = y2;
}

/// Spring: three pairs of lines in a ring with an allpass each, two allpasses behind each sum.
TESSEL8_INLINE void runSpring(Reverb& r, int frames, const Row& in, Row& left, Row& right) {
    constexpr float kAllpass = 0.7071f;
    constexpr float kPairDecay[] = {1.0f, 0.975f, 0.95f};
    const float f = r.decayA;
    const float g = r.decayB;
    const float d = r.dampCoef;
    const int32_t mask = r.mask;
    Row e[6];
    for (size_t k = 0; k < 6; ++k) {
        Row delayed;
        readLine(r.line[k], r.lineRead[k], mask, frames, delayed);
        if (k % 2 == 0) {
            float damp = r.damp[k];
            for (int i = 0; i < frames; ++i) {
                damp += (delayed[i] - damp) * d;
                delayed[i] = damp;
            }
        }
        r.damp[k] = delayed[frames - 1];
        allpass(r.allpass[k], r.apRead[k], r.apWrite, mask, frames, kAllpass, delayed, e[k]);
    }
    Row written[6];
    for (size_t k = 0; k < 6; k += 2) {
        const float decay = kPairDecay[k / 2];
        for (int i = 0; i < frames; ++i) {
            written[k][i] = in[i] + (e[k][i] + e[k + 1][i] * g) * f * decay;
            written[k + 1][i] = e[k][i] + e[k + 1][i] * f * decay;
        }
    }
    for (size_t k = 0; k < 6; ++k) {
        writeLine(r.line[k], r.lineWrite, mask, frames, written[k]);
    }
    Row line1;
    Row line3;
    readLine(r.line[1], r.lineRead[1], mask, frames, line1);
    readLine(r.line[3], r.lineRead[1], mask, frames, line3);
    for (int i = 0; i < frames; ++i) {
        left[i] = written[1][i] + line3[i] + written[5][i];
        right[i] = line1[i] + written[3][i] + written[5][i];
    }
    Row between;
    allpass(r.diffuser[0], r.diffRead[0], r.apWrite, mask, frames, kAllpass, left, between);
    allpass(r.diffuser[2], r.diffRead[2], r.apWrite, mask, frames, kAllpass, between, left);
    allpass(r.diffuser[1], r.diffRead[1], r.apWrite, mask, frames, kAllpass, right, between);
    allpass(r.diffuser[3], r.diffRead[3], r.apWrite, mask, frames, kAllpass, between, right);
}

/// Plate: four diffusers in a row feed six damped lines.
TESSEL8_INLINE void runPlate(Reverb& r, int frames, const Row& in, Row& left, Row& right) {
    constexpr float kSpread = 0.7f;
    const float f = r.decayA;
    const float g = r.decayB;
    const float d = r.dampCoef;
    const int32_t mask = r.mask;
    Row p = in;
    for (size_t k = 0; k < 4; ++k) {
        // The diffusers alternate in sign.
        const float sign = k % 2 == 0 ? 1.0f : -1.0f;
        Row delayed;
        readLine(r.diffuser[k], r.diffRead[k], mask, frames, delayed);
        Row back;
        for (int i = 0; i < frames; ++i) {
            const float out = delayed[i] - sign * (p[i] * kSpread * g);
            back[i] = p[i] + sign * (out * kSpread * g);
            p[i] = out;
        }
        writeLine(r.diffuser[k], r.apWrite, mask, frames, back);
    }
    Row lines[6];
    for (size_t k = 0; k < 6; ++k) {
        readLine(r.allpass[k], r.apRead[k], mask, frames, lines[k]);
    }
    float damp[6];
    for (size_t k = 0; k < 6; ++k) {
        damp[k] = r.damp[k];
    }
    for (int i = 0; i < frames; ++i) {
        for (size_t k = 0; k < 6; ++k) {
            damp[k] += (lines[k][i] - damp[k]) * d;
            lines[k][i] = damp[k];
        }
    }
    for (size_t k = 0; k < 6; ++k) {
        r.damp[k] = damp[k];
        for (int i = 0; i < frames; ++i) {
            const float q = p[i] * kSpread * f;
            lines[k][i] = k % 2 == 0 ? p[i] - (lines[k][i] + q) * kSpread * f
                                     : p[i] + (lines[k][i] - q) * kSpread * f;
        }
        writeLine(r.allpass[k], r.apWrite, mask, frames, lines[k]);
    }
    // The diffusers' distances serve as output taps of the lines, too.
    Row a0, a1, a2, a3;
    readLine(r.allpass[0], r.diffRead[0], mask, frames, a0);
    readLine(r.allpass[1], r.diffRead[1], mask, frames, a1);
    readLine(r.allpass[2], r.diffRead[3], mask, frames, a2);
    readLine(r.allpass[3], r.diffRead[2], mask, frames, a3);
    for (int i = 0; i < frames; ++i) {
        left[i] = a0[i] + a3[i] + lines[4][i];
        right[i] = a1[i] + a2[i] + lines[5][i];
    }
}

TESSEL8_INLINE void advanceReverb(Reverb& r, int frames) {
    const auto advance = [&](int32_t& index) { index = (index + frames) & r.mask; };
    advance(r.lineWrite);
    advance(r.apWrite);
    for (int32_t& index : r.lineRead) {
        advance(index);
    }
    for (int32_t& index : r.apRead) {
        advance(index);
    }
    for (int32_t& index : r.diffRead) {
        advance(index);
    }
}

/// Takes the reverb's input in `left` and `right` and leaves there the crossfade to its output.
/// `flip` is an alternating offset of 1e-18 that keeps the structure out of denormals.
TESSEL8_INLINE void runReverb(Reverb& r, int frames, const Row& flip, Row& left, Row& right) {
    constexpr float kSpringReturn = 0.1625f;
    constexpr float kPlateReturn = 0.3f;
    Row in;
    for (int i = 0; i < frames; ++i) {
        left[i] += flip[i];
        right[i] += flip[i];
        in[i] = left[i] + right[i];
    }
    Row outL;
    Row outR;
    if (r.plate) {
        runPlate(r, frames, in, outL, outR);
    } else {
        runSpring(r, frames, in, outL, outR);
    }
    bandPass(r.band, 0, frames, flip, outL);
    bandPass(r.band, 1, frames, flip, outR);
    const float gain = r.plate ? kPlateReturn : kSpringReturn;
    const float amount = r.amount;
    for (int i = 0; i < frames; ++i) {
        left[i] += (outL[i] * gain - left[i]) * amount;
        right[i] += (outR[i] * gain - right[i]) * amount;
    }
    advanceReverb(r, frames);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
