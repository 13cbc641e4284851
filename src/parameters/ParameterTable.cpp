#include "parameters/ParameterTable.h"

#include "engine/Blocks.h"

namespace tessel8 {

namespace {

/// One name is not quite regular, and projects rely on it.
constexpr int32_t kNameWithSmallB = 42;

constexpr bool rowsAreInOrder() {
    int32_t next = 0;
    for (size_t row = 0; row < kFamilies.size(); ++row) {
        if (size_t(kFamilies[row].family) != row || kFamilies[row].first != next) {
            return false;
        }
        next += kFamilies[row].count;
    }
    return next == kParameterCount;
}
static_assert(rowsAreInOrder());

constexpr auto kRowOfIndex = [] {
    std::array<uint8_t, kParameterCount> rows{};
    for (size_t row = 0; row < kFamilies.size(); ++row) {
        for (int32_t i = 0; i < kFamilies[row].count; ++i) {
            const int32_t index = kFamilies[row].first + i;
            rows[size_t(index)] = uint8_t(row);
        }
    }
    return rows;
}();

using NameText = std::array<char, 12>;
constexpr auto kNames = [] {
    std::array<NameText, kParameterCount> names{};
    for (size_t index = 0; index < names.size(); ++index) {
        const ParameterFamily& row = kFamilies[kRowOfIndex[index]];
        size_t length = 0;
        for (; row.name[length]; ++length) {
            names[index][length] = row.name[length];
        }
        if (row.count == kTaps) {
            names[index][length] = char('1' + int32_t(index) - row.first);
        }
    }
    names[kNameWithSmallB][1] = 'b';
    return names;
}();

bool isParameter(int32_t index) {
    return index >= 0 && index < kParameterCount;
}

}  // namespace

const ParameterFamily& familyOf(int32_t index) {
    return kFamilies[kRowOfIndex[size_t(index)]];
}

const char* parameterName(int32_t index) {
    return isParameter(index) ? kNames[size_t(index)].data() : "";
}

const char* parameterLabel(int32_t index) {
    return isParameter(index) ? familyOf(index).label : "";
}

float parameterDefault(int32_t index) {
    return index == kTapThatStartsOn ? 1.0f : familyOf(index).initial;
}

}  // namespace tessel8
