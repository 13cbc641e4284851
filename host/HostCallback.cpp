#include "HostCallback.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "Transport.h"

namespace tessel8::host {

namespace {

constexpr std::array<std::string_view, 3> kAbilities = {
    "sendVstEvents",
    "sendVstMidiEvent",
    "sendVstTimeInfo",
};

bool canDo(const char* ability) {
    return ability != nullptr &&
           std::find(kAbilities.begin(), kAbilities.end(), ability) != kAbilities.end();
}

/// Null while the effect is still being made: it has no record that we know of then.
intptr_t timeOf(AEffect* effect) {
    if (effect == nullptr || effect->reservedForHost1 == 0) {
        return 0;
    }
    auto* transport = reinterpret_cast<Transport*>(effect->reservedForHost1);
    return reinterpret_cast<intptr_t>(&transport->time());
}

}  // namespace

intptr_t VST_CALL hostCallback(AEffect* effect, int32_t opcode, int32_t /*index*/,
                               intptr_t /*value*/, void* ptr, float /*opt*/) {
    switch (opcode) {
        case audioMasterVersion:
            return kVstVersion;
        case audioMasterGetTime:
            return timeOf(effect);
        case audioMasterWantMidi:
            return 1;
        case audioMasterCanDo:
            return canDo(static_cast<const char*>(ptr)) ? 1 : 0;
        default:
            return 0;
    }
}

void attachTransport(AEffect& effect, Transport& transport) {
    effect.reservedForHost1 = reinterpret_cast<intptr_t>(&transport);
}

}  // namespace tessel8::host
