#include "Plugin.h"

#include <dlfcn.h>

#include <array>

#include "HostCallback.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

namespace fs = std::filesystem;

using EntryPoint = AEffect*(VST_CALL*)(audioMasterCallback);

/// The interface defines 8 to 64 characters; effects write more, so there is room to spare.
constexpr size_t kTextBytes = 256;

void* loadLibrary(const fs::path& file) {
    std::error_code ignored;
    if (!fs::exists(file, ignored)) {
        throw UserError("plug-in " + file.string() + ": no such file");
    }
    if (!fs::is_regular_file(file, ignored)) {
        throw UserError("plug-in " + file.string() + ": not a file");
    }
    // Absolute, since the loader would look for a bare name in the system's folders only.
    void* const library = dlopen(fs::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        throw UserError("cannot load the plug-in: " + std::string(dlerror()));
    }
    return library;
}

AEffect* makeEffect(void* library, const fs::path& file) {
    const auto entry = reinterpret_cast<EntryPoint>(dlsym(library, "VSTPluginMain"));
    if (entry == nullptr) {
        throw UserError(file.string() + " is not a VST 2.4 plug-in: it has no VSTPluginMain");
    }
    AEffect* const effect = entry(hostCallback);
    if (effect == nullptr) {
        throw UserError("the plug-in " + file.string() + " refuses to start");
    }
    if (effect->magic != kEffectMagic || effect->dispatcher == nullptr ||
        effect->setParameter == nullptr || effect->getParameter == nullptr) {
        throw UserError(file.string() + " is not a VST 2.4 plug-in: its record is damaged");
    }
    return effect;
}

}  // namespace

void Plugin::Unload::operator()(void* library) const {
    dlclose(library);
}

void Plugin::Close::operator()(AEffect* effect) const {
    effect->dispatcher(effect, effClose, 0, 0, nullptr, 0);
}

Plugin::Plugin(const fs::path& file, Transport& transport)
    : library_(loadLibrary(file)), effect_(makeEffect(library_.get(), file)) {
    attachTransport(*effect_, transport);
    dispatch(effOpen);
}

Plugin::~Plugin() {
    if (running_) {
        stop();
    }
}

intptr_t Plugin::dispatch(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                          float opt) const {
    return effect_->dispatcher(effect_.get(), opcode, index, value, ptr, opt);
}

std::string Plugin::text(int32_t opcode, int32_t index) const {
    std::array<char, kTextBytes> buffer{};
    dispatch(opcode, index, 0, buffer.data());
    buffer.back() = 0;
    return printable(buffer.data());
}

std::optional<std::string> Plugin::textIfAny(int32_t opcode, int32_t index, intptr_t value) const {
    std::array<char, kTextBytes> buffer{};
    if (dispatch(opcode, index, value, buffer.data()) == 0) {
        return std::nullopt;
    }
    buffer.back() = 0;
    return printable(buffer.data());
}

void Plugin::prepare(float sampleRate, int32_t blockFrames) {
    if ((effect_->flags & effFlagsCanReplacing) == 0 || effect_->processReplacing == nullptr ||
        effect_->numInputs != 2 || effect_->numOutputs != 2) {
        throw UserError("the plug-in is not an effect with two inputs and two outputs");
    }
    dispatch(effSetSampleRate, 0, 0, nullptr, sampleRate);
    dispatch(effSetBlockSize, 0, blockFrames);
}

void Plugin::start() {
    dispatch(effMainsChanged, 0, 1);
    running_ = true;
}

void Plugin::stop() {
    dispatch(effMainsChanged, 0, 0);
    running_ = false;
}

}  // namespace tessel8::host
