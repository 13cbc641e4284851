// The two exported functions. Everything else of this library is hidden.

#include <new>

#include "shell/Tessel8.h"

namespace {

bool hostAnswersVersion(audioMasterCallback audioMaster) {
    return audioMaster && audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) != 0;
}

/// Null where the host is none or there is no memory; nothing is thrown at a host.
AudioEffect* createEffectInstance(audioMasterCallback audioMaster) {
    if (!hostAnswersVersion(audioMaster)) {
        return nullptr;
    }
    try {
        return new tessel8::Tessel8(audioMaster);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace

extern "C" {

VST_EXPORT AEffect* VST_CALL VSTPluginMain(audioMasterCallback audioMaster) {
    if (!hostAnswersVersion(audioMaster)) {
        return nullptr;
    }
    AudioEffect* const effect = createEffectInstance(audioMaster);
    return effect ? effect->getAeffect() : nullptr;
}

/// The same under the name that older hosts look for; C++ reserves it, the linker does not.
VST_EXPORT AEffect* VST_CALL mainEntry(audioMasterCallback audioMaster) __asm__("main");
AEffect* VST_CALL mainEntry(audioMasterCallback audioMaster) {
    return VSTPluginMain(audioMaster);
}
}
