#pragma once

// Spring and plate, a stretch at a time. Every line is longer than a stretch (`Reverb::shortest`
// sees to it), so what a stretch reads was written before it, and each step of the structure runs
// over all frames at once; only the one-pole and two-pole filters go frame by frame.

#include "engine/Engine.h"
#include "engine/Lines.h"
#include "engine/Stretch.h"

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// A circular line's frames from `position` on; where it can, a whole row at once, of which only
/// `frames` count.
inline void readCircle(const AlignedBuffer& line, int32_t position, int32_t mask, int frames,
                       Row& row) {
    const float* const cells = line.data();
    if (position + kStretch <= mask + 1) {
        __builtin_memcpy(row.v, cells + position, sizeof row.v);
        prefetchRow<0>(cells + ((position + kStretch) & mask));
        return;
    }
    for (int i = 0; i < frames; ++i) {
        row[i] = cells[(position + i) & mask];
    }
}

inline void writeCircle(AlignedBuffer& line, int32_t position, int32_t mask, int frames,
                        const Row& row) {
    float* const cells = line.data();
    if (frames == kStretch && position + kStretch <= mask + 1) {
        __builtin_memcpy(cells + position, row.v, sizeof row.v);
        prefetchRow<1>(cells + ((position + kStretch) & mask));
        return;
    }
    for (int i = 0; i < frames; ++i) {
        cells[(position + i) & mask] = row[i];
    }
}

/// An allpass on one line: out = read - in * c, write in + out * c.
inline void allpass(AlignedBuffer& line, int32_t read, int32_t write, int32_t mask, int frames,
                    float c, const Row& in, Row& out) {
    const RowPack factor = RowPack::all(c);
    Row delayed;
    readCircle(line, read, mask, frames, delayed);
    Row back;
    inPacks(frames, [&](int i) {
        const RowPack x = in.at(i);
        const RowPack y = delayed.at(i) - x * factor;
        out.set(i, y);
        back.set(i, x + y * factor);
    });
    writeCircle(line, write, mask, frames, back);
}

/// y = b0 x + b2 x2 - a1 y1 - a2 y2 on both channels, and the offset that keeps denormals away.
inline void bandPass(Reverb::BandFilter& band, int frames, const Row& flip, Row& left, Row& right) {
    Reverb::BandFilter f = band;
    Row* const signals[] = {&left, &right};
    for (int i = 0; i < frames; ++i) {
        // Side by side: each channel waits for its own last output.
        for (size_t channel = 0; channel < 2; ++channel) {
            const float x = (*signals[channel])[i];
            const float y = f.b0 * x + f.b2 * f.x2[channel] - f.a1 * f.y1[channel] -
                            f.a2 * f.y2[channel] + flip[i];
            f.x2[channel] = f.x1[channel];
            f.x1[channel] = x;
            f.y2[channel] = f.y1[channel];
            f.y1[channel] = y;
            (*signals[channel])[i] = y;
        }
    }
    band.x1 = f.x1;
    band.x2 = f.x2;
    band.y1 = f.y1;
    band.y2 = f.y2;
}

/// Spring: three pairs of lines in a ring with an allpass each, two allpasses behind each sum.
inline void runSpring(Reverb& r, int frames, const Row& in, Row& left, Row& right) {
    constexpr float kAllpass = 0.7071f;
    constexpr float kPairDecay[] = {1.0f, 0.975f, 0.95f};
    const float f = r.decayA;
    const float g = r.decayB;
    const float d = r.dampCoef;
    const int32_t mask = r.mask;
    Row e[6];
    for (size_t k = 0; k < 6; ++k) {
        Row delayed;
        readCircle(r.line[k], r.lineRead[k], mask, frames, delayed);
        float damp = r.damp[k];
        for (int i = 0; i < frames; ++i) {
            damp = k % 2 == 0 ? damp + (delayed[i] - damp) * d : delayed[i];
            delayed[i] = damp;
        }
        r.damp[k] = damp;
        allpass(r.allpass[k], r.apRead[k], r.apWrite, mask, frames, kAllpass, delayed, e[k]);
    }
    Row written[6];
    for (size_t k = 0; k < 6; k += 2) {
        const RowPack decay = RowPack::all(kPairDecay[k / 2]);
        const RowPack across = RowPack::all(g);
        const RowPack around = RowPack::all(f);
        inPacks(frames, [&](int i) {
            const RowPack first = e[k].at(i);
            const RowPack second = e[k + 1].at(i);
            written[k].set(i, in.at(i) + (first + second * across) * around * decay);
            written[k + 1].set(i, first + second * around * decay);
        });
    }
    for (size_t k = 0; k < 6; ++k) {
        writeCircle(r.line[k], r.lineWrite, mask, frames, written[k]);
    }
    Row line1;
    Row line3;
    readCircle(r.line[1], r.lineRead[1], mask, frames, line1);
    readCircle(r.line[3], r.lineRead[1], mask, frames, line3);
    inPacks(frames, [&](int i) {
        left.set(i, written[1].at(i) + line3.at(i) + written[5].at(i));
        right.set(i, line1.at(i) + written[3].at(i) + written[5].at(i));
    });
    Row between;
    allpass(r.diffuser[0], r.diffRead[0], r.apWrite, mask, frames, kAllpass, left, between);
    allpass(r.diffuser[2], r.diffRead[2], r.apWrite, mask, frames, kAllpass, between, left);
    allpass(r.diffuser[1], r.diffRead[1], r.apWrite, mask, frames, kAllpass, right, between);
    allpass(r.diffuser[3], r.diffRead[3], r.apWrite, mask, frames, kAllpass, between, right);
}

/// Plate: four diffusers in a row feed six damped lines.
inline void runPlate(Reverb& r, int frames, const Row& in, Row& left, Row& right) {
    const RowPack spread = RowPack::all(0.7f);
    const float f = r.decayA;
    const float g = r.decayB;
    const float d = r.dampCoef;
    const int32_t mask = r.mask;
    Row p = in;
    for (size_t k = 0; k < 4; ++k) {
        // The diffusers alternate in sign.
        const RowPack sign = RowPack::all(k % 2 == 0 ? 1.0f : -1.0f);
        Row delayed;
        readCircle(r.diffuser[k], r.diffRead[k], mask, frames, delayed);
        Row back;
        inPacks(frames, [&](int i) {
            const RowPack x = p.at(i);
            const RowPack out = delayed.at(i) - sign * (x * spread * RowPack::all(g));
            back.set(i, x + sign * (out * spread * RowPack::all(g)));
            p.set(i, out);
        });
        writeCircle(r.diffuser[k], r.apWrite, mask, frames, back);
    }
    Row lines[6];
    for (size_t k = 0; k < 6; ++k) {
        readCircle(r.allpass[k], r.apRead[k], mask, frames, lines[k]);
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
        inPacks(frames, [&](int i) {
            const RowPack x = p.at(i);
            const RowPack line = lines[k].at(i);
            const RowPack q = x * spread * RowPack::all(f);
            lines[k].set(i, k % 2 == 0 ? x - (line + q) * spread * RowPack::all(f)
                                       : x + (line - q) * spread * RowPack::all(f));
        });
        writeCircle(r.allpass[k], r.apWrite, mask, frames, lines[k]);
    }
    // The diffusers' distances serve as output taps of the lines, too.
    Row a0, a1, a2, a3;
    readCircle(r.allpass[0], r.diffRead[0], mask, frames, a0);
    readCircle(r.allpass[1], r.diffRead[1], mask, frames, a1);
    readCircle(r.allpass[2], r.diffRead[3], mask, frames, a2);
    readCircle(r.allpass[3], r.diffRead[2], mask, frames, a3);
    inPacks(frames, [&](int i) {
        left.set(i, a0.at(i) + a3.at(i) + lines[4].at(i));
        right.set(i, a1.at(i) + a2.at(i) + lines[5].at(i));
    });
}

inline void advanceReverb(Reverb& r, int frames) {
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
inline void runReverb(Reverb& r, int frames, const Row& flip, Row& left, Row& right) {
    constexpr float kSpringReturn = 0.1625f;
    constexpr float kPlateReturn = 0.3f;
    Row in;
    inPacks(frames, [&](int i) {
        left.set(i, left.at(i) + flip.at(i));
        right.set(i, right.at(i) + flip.at(i));
        in.set(i, left.at(i) + right.at(i));
    });
    Row outL;
    Row outR;
    if (r.plate) {
        runPlate(r, frames, in, outL, outR);
    } else {
        runSpring(r, frames, in, outL, outR);
    }
    bandPass(r.band, frames, flip, outL, outR);
    const RowPack gain = RowPack::all(r.plate ? kPlateReturn : kSpringReturn);
    const RowPack amount = RowPack::all(r.amount);
    inPacks(frames, [&](int i) {
        left.set(i, left.at(i) + (outL.at(i) * gain - left.at(i)) * amount);
        right.set(i, right.at(i) + (outR.at(i) * gain - right.at(i)) * amount);
    });
    advanceReverb(r, frames);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
