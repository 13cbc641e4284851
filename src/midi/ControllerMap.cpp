#include "midi/ControllerMap.h"

#include <atomic>

#include "parameters/ParameterTable.h"

namespace tessel8 {

namespace {

using enum Family;

struct Row {
    uint8_t controller;
    Family family;
    int32_t tap = 0;
};

// Controller 20 drives the resonance of tap 2: so it has been from the start, and users' sessions
// rest on it.
constexpr Row kDefaults[] = {
    {1, Input},    {2, Output},     {3, Mix},      {4, Power},    {5, ActTap},   {6, GainT},
    {7, WidthT},   {8, PanTap},     {9, Tempo},    {10, Note},    {11, DelayT},  {12, ActDrvT},
    {13, PreDrvT}, {14, DriveT},    {15, ActRevT}, {16, RevTap},  {17, ActFltT}, {18, TypeFT},
    {19, FreqFT},  {20, ResoFT, 1}, {21, GainFT},  {22, SourceF}, {23, DepthFT},
};

}  // namespace

uint8_t ControllerMap::entry(int32_t controller) const {
    return std::atomic_ref(const_cast<uint8_t&>(entries[size_t(controller)]))
        .load(std::memory_order_relaxed);
}

void ControllerMap::setEntry(int32_t controller, uint8_t entry) {
    std::atomic_ref(entries[size_t(controller)]).store(entry, std::memory_order_relaxed);
}

void ControllerMap::clear() {
    for (int32_t i = 0; i < kMidiControllers; ++i) {
        setEntry(i, kNotAssigned);
    }
}

void ControllerMap::reset() {
    clear();
    for (const Row& row : kDefaults) {
        setEntry(row.controller, uint8_t(parameterIndex(row.family, row.tap)));
    }
}

int32_t ControllerMap::controllerFor(int32_t parameter) const {
    for (int32_t i = kFirstLearnt; i <= kLastLearnt; ++i) {
        if (entry(i) == parameter) {
            return i;
        }
    }
    return kNoController;
}

void ControllerMap::assign(int32_t controller, int32_t parameter) {
    for (int32_t i = kFirstLearnt; i <= kLastLearnt; ++i) {
        if (entry(i) == parameter) {
            setEntry(i, kNotAssigned);
        }
        if (i == controller && parameter < kNotAssigned) {
            setEntry(i, uint8_t(parameter));
        }
    }
}

}  // namespace tessel8
