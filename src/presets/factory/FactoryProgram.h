#pragma once

#include <array>
#include <initializer_list>
#include <span>

#include "parameters/ParameterTable.h"

namespace tessel8::factory {

/// Keeps the neutral value of one tap in a list of values: {DelayT, ms(40), same, ms(90)}.
constexpr double same = -1.0;

constexpr size_t kMostValues = 8;

/// One value for all eight taps of a family.
struct each {
    double value;
};

/// How a program differs from the neutral one in one family: the family's value, or the values of
/// taps 1, 2, 3 and so on as far as given.
struct Difference {
    Family family;
    std::array<double, kMostValues> values;

    template <typename... Values>
    constexpr Difference(Family of, Values... given) : family(of), values{double(given)...} {
        static_assert(sizeof...(given) >= 1 && sizeof...(given) <= kMostValues);
        for (size_t i = sizeof...(given); i < kMostValues; ++i) {
            values[i] = same;
        }
    }
    constexpr Difference(Family of, each all) : family(of), values{} { values.fill(all.value); }
};

/// A program of the factory bank: its name and all 215 values, completed when it is compiled.
struct FactoryProgram {
    const char* name;
    std::array<double, kParameterCount> values{};

    constexpr FactoryProgram(const char* title, std::initializer_list<Difference> differences)
        : name(title) {
        for (const ParameterFamily& row : kFamilies) {
            for (int32_t i = row.first; i < row.first + row.count; ++i) {
                values[size_t(i)] = double(row.initial);
            }
        }
        values[size_t(kTapThatStartsOn)] = 1.0;
        for (const Difference& difference : differences) {
            const ParameterFamily& row = familyRow(difference.family);
            double* const family = &values[size_t(row.first)];
            for (size_t i = 0; i < size_t(row.count); ++i) {
                if (difference.values[i] != same) {
                    family[i] = difference.values[i];
                }
            }
        }
    }
};

// The bank from row 2 to row 131, in order, by the files that hold them. Rows 0 and 1 and the last
// eight are the neutral program.
extern const std::span<const FactoryProgram> kTemplates;        // 2 to 9
extern const std::span<const FactoryProgram> kCalls;            // 10 to 22
extern const std::span<const FactoryProgram> kVoicesAndWashes;  // 23 to 35
extern const std::span<const FactoryProgram> kEchoes;           // 36 to 48
extern const std::span<const FactoryProgram> kLiquids;          // 49 to 61
extern const std::span<const FactoryProgram> kGrooves;          // 62 to 71
extern const std::span<const FactoryProgram> kRhythms;          // 72 to 81
extern const std::span<const FactoryProgram> kPlaces;           // 82 to 91
extern const std::span<const FactoryProgram> kJourneys;         // 92 to 103
extern const std::span<const FactoryProgram> kMachines;         // 104 to 116
extern const std::span<const FactoryProgram> kVisions;          // 117 to 126
extern const std::span<const FactoryProgram> kRefrains;         // 127 to 131

}  // namespace tessel8::factory
