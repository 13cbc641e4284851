#pragma once

// Vectors of four or eight floats on the compiler's own vector types. The one place that knows
// how wide the processor's registers are: eight lanes are one register where the build has AVX
// and two where it has not. All operations work lane by lane in the order they are written, so
// every build gives the same bits.
//
// The sample loops are compiled once per instruction set from the same source. The inline
// namespace keeps those builds apart: without it the linker would be free to keep the widest
// version of an inline function and hand it to a processor that lacks it.

#include <cstdint>

#ifndef TESSEL8_ISA
#define TESSEL8_ISA baseline
#endif

#define TESSEL8_INLINE inline __attribute__((always_inline))

namespace tessel8 {
inline namespace TESSEL8_ISA {

/// Stands in a branch that the compiler shall not turn into a selection: a branch that is nearly
/// never taken costs a chain of dependent steps nothing, a selection is one step more.
TESSEL8_INLINE void keepBranch() {
    asm volatile("");
}

using F4 = float __attribute__((vector_size(16), may_alias));
using I4 = int32_t __attribute__((vector_size(16), may_alias));
using F8 = float __attribute__((vector_size(32), may_alias));
using I8 = int32_t __attribute__((vector_size(32), may_alias));
using L2 = int64_t __attribute__((vector_size(16), may_alias));
using L4 = int64_t __attribute__((vector_size(32), may_alias));

#ifdef __AVX__
constexpr int kRegisterLanes = 8;
#else
constexpr int kRegisterLanes = 4;
#endif

template <int Lanes>
struct Registers {
    static constexpr int kWidth = Lanes < kRegisterLanes ? Lanes : kRegisterLanes;
    static constexpr int kCount = Lanes / kWidth;
};

template <int Width>
struct RegisterTypes;
template <>
struct RegisterTypes<4> {
    using Float = F4;
    using Int = I4;
    using Words = L2;
};
template <>
struct RegisterTypes<8> {
    using Float = F8;
    using Int = I8;
    using Words = L4;
};

/// Lane masks: every lane all ones or all zeros.
template <int Lanes>
struct Mask {
    static constexpr int kWidth = Registers<Lanes>::kWidth;
    static constexpr int kCount = Registers<Lanes>::kCount;
    typename RegisterTypes<kWidth>::Int part[kCount];
};

/// `Lanes` floats, lane k of a tap group being tap k of that group.
template <int Lanes>
struct Pack {
    static constexpr int kWidth = Registers<Lanes>::kWidth;
    static constexpr int kCount = Registers<Lanes>::kCount;
    using Float = typename RegisterTypes<kWidth>::Float;
    using Int = typename RegisterTypes<kWidth>::Int;
    Float part[kCount];

    /// `from` is aligned to the pack's size.
    static TESSEL8_INLINE Pack load(const float* from) {
        Pack p;
        for (int i = 0; i < kCount; ++i) {
            p.part[i] = *reinterpret_cast<const Float*>(from + i * kWidth);
        }
        return p;
    }
    static TESSEL8_INLINE Pack all(float value) {
        Pack p;
        for (int i = 0; i < kCount; ++i) {
            p.part[i] = Float{} + value;
        }
        return p;
    }
    TESSEL8_INLINE void store(float* to) const {
        for (int i = 0; i < kCount; ++i) {
            *reinterpret_cast<Float*>(to + i * kWidth) = part[i];
        }
    }
};

#define TESSEL8_LANEWISE(op)                                                 \
    template <int L>                                                         \
    TESSEL8_INLINE Pack<L> operator op(const Pack<L>& a, const Pack<L>& b) { \
        Pack<L> r;                                                           \
        for (int i = 0; i < Pack<L>::kCount; ++i) {                          \
            r.part[i] = a.part[i] op b.part[i];                              \
        }                                                                    \
        return r;                                                            \
    }
TESSEL8_LANEWISE(+)
TESSEL8_LANEWISE(-)
TESSEL8_LANEWISE(*)
TESSEL8_LANEWISE(/)
#undef TESSEL8_LANEWISE

#define TESSEL8_COMPARE(op)                                                  \
    template <int L>                                                         \
    TESSEL8_INLINE Mask<L> operator op(const Pack<L>& a, const Pack<L>& b) { \
        Mask<L> r;                                                           \
        for (int i = 0; i < Pack<L>::kCount; ++i) {                          \
            r.part[i] = a.part[i] op b.part[i];                              \
        }                                                                    \
        return r;                                                            \
    }
TESSEL8_COMPARE(<)
TESSEL8_COMPARE(>)
TESSEL8_COMPARE(==)
TESSEL8_COMPARE(!=)
#undef TESSEL8_COMPARE

/// Lane by lane `a` where the mask is set, else `b`. Nothing of the other side comes through,
/// not even a NaN.
template <int L>
TESSEL8_INLINE Pack<L> select(const Mask<L>& m, const Pack<L>& a, const Pack<L>& b) {
    using Float = typename Pack<L>::Float;
    using Int = typename Pack<L>::Int;
    Pack<L> r;
    for (int i = 0; i < Pack<L>::kCount; ++i) {
        r.part[i] = Float((Int(a.part[i]) & m.part[i]) | (Int(b.part[i]) & ~m.part[i]));
    }
    return r;
}

/// The smaller of two; `b` where either is not a number.
template <int L>
TESSEL8_INLINE Pack<L> min(const Pack<L>& a, const Pack<L>& b) {
    Pack<L> r;
    for (int i = 0; i < Pack<L>::kCount; ++i) {
        r.part[i] = a.part[i] < b.part[i] ? a.part[i] : b.part[i];
    }
    return r;
}

/// The larger of two; `b` where either is not a number.
template <int L>
TESSEL8_INLINE Pack<L> max(const Pack<L>& a, const Pack<L>& b) {
    Pack<L> r;
    for (int i = 0; i < Pack<L>::kCount; ++i) {
        r.part[i] = a.part[i] > b.part[i] ? a.part[i] : b.part[i];
    }
    return r;
}

template <int L>
TESSEL8_INLINE Pack<L> abs(const Pack<L>& a) {
    using Float = typename Pack<L>::Float;
    using Int = typename Pack<L>::Int;
    Pack<L> r;
    for (int i = 0; i < Pack<L>::kCount; ++i) {
        r.part[i] = Float(Int(a.part[i]) & (Int{} + 0x7fffffff));
    }
    return r;
}

/// Held within `low` and `high`; a NaN becomes `low`.
template <int L>
TESSEL8_INLINE Pack<L> clamp(const Pack<L>& a, const Pack<L>& low, const Pack<L>& high) {
    return min(max(a, low), high);
}

TESSEL8_INLINE float clampScalar(float a, float low, float high) {
    a = a > low ? a : low;
    return a < high ? a : high;
}

template <int L>
TESSEL8_INLINE bool anyLane(const Mask<L>& m) {
    using Words = typename RegisterTypes<Mask<L>::kWidth>::Words;
    Words any{};
    for (int i = 0; i < Mask<L>::kCount; ++i) {
        any |= Words(m.part[i]);
    }
    int64_t bits = 0;
    for (int k = 0; k < Mask<L>::kWidth / 2; ++k) {
        bits |= any[k];
    }
    return bits != 0;
}

template <int L>
TESSEL8_INLINE bool everyLane(const Mask<L>& m) {
    Mask<L> others;
    for (int i = 0; i < Mask<L>::kCount; ++i) {
        others.part[i] = ~m.part[i];
    }
    return !anyLane(others);
}

/// Turns four vectors of four into their transpose: lane j of vector i becomes lane i of vector j.
TESSEL8_INLINE void transpose(F4& a, F4& b, F4& c, F4& d) {
    const F4 ab01 = __builtin_shufflevector(a, b, 0, 4, 1, 5);
    const F4 ab23 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const F4 cd01 = __builtin_shufflevector(c, d, 0, 4, 1, 5);
    const F4 cd23 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    a = __builtin_shufflevector(ab01, cd01, 0, 1, 4, 5);
    b = __builtin_shufflevector(ab01, cd01, 2, 3, 6, 7);
    c = __builtin_shufflevector(ab23, cd23, 0, 1, 4, 5);
    d = __builtin_shufflevector(ab23, cd23, 2, 3, 6, 7);
}

/// Four floats from or to any address.
TESSEL8_INLINE F4 loadUnaligned(const float* from) {
    F4 r;
    __builtin_memcpy(&r, from, sizeof r);
    return r;
}
TESSEL8_INLINE void storeUnaligned(float* to, F4 value) {
    __builtin_memcpy(to, &value, sizeof value);
}

/// Index of `scaled` in a table, truncated and kept inside it whatever comes in.
TESSEL8_INLINE int32_t tableIndex(float scaled, int32_t entries) {
    return int32_t(clampScalar(scaled, 0.0f, float(entries - 1)));
}

TESSEL8_INLINE F4 entriesAt(const float* table, I4 index) {
    return F4{table[index[0]], table[index[1]], table[index[2]], table[index[3]]};
}
TESSEL8_INLINE F8 entriesAt(const float* table, I8 index) {
    const F4 low = entriesAt(table, I4{index[0], index[1], index[2], index[3]});
    const F4 high = entriesAt(table, I4{index[4], index[5], index[6], index[7]});
    return F8{low[0], low[1], low[2], low[3], high[0], high[1], high[2], high[3]};
}

/// Lane by lane the table's entry at the truncated value * scale, kept inside the table.
template <int L>
TESSEL8_INLINE Pack<L> lookUp(const float* table, const Pack<L>& value, float scale,
                              int32_t entries) {
    const Pack<L> inside =
        clamp(value * Pack<L>::all(scale), Pack<L>::all(0.0f), Pack<L>::all(float(entries - 1)));
    Pack<L> r;
    for (int i = 0; i < Pack<L>::kCount; ++i) {
        r.part[i] =
            entriesAt(table, __builtin_convertvector(inside.part[i], typename Pack<L>::Int));
    }
    return r;
}

/// Four lanes, the second group of four added to the first.
TESSEL8_INLINE Pack<4> foldToFour(const Pack<4>& a) {
    return a;
}
TESSEL8_INLINE Pack<4> foldToFour(const Pack<8>& a) {
    Pack<4> r;
#ifdef __AVX__
    const F8 v = a.part[0];
    r.part[0] = F4{v[0], v[1], v[2], v[3]} + F4{v[4], v[5], v[6], v[7]};
#else
    r.part[0] = a.part[0] + a.part[1];
#endif
    return r;
}

/// Sum of all lanes: groups of four are added lane by lane, then (0 + 2) + (1 + 3).
template <int L>
TESSEL8_INLINE float sumOfLanes(const Pack<L>& a) {
    alignas(32) float v[L];
    a.store(v);
    float four[4];
    for (int k = 0; k < 4; ++k) {
        four[k] = L == 8 ? v[k] + v[k + L - 4] : v[k];
    }
    return (four[0] + four[2]) + (four[1] + four[3]);
}

}  // namespace TESSEL8_ISA
}  // namespace tessel8
