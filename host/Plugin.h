#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "Transport.h"
#include "vst/Vst24.h"

namespace tessel8::host {

/// One effect out of a VST 2.4 file, from `effOpen` to `effClose`; the file is unloaded last.
class Plugin {
  public:
    /// `transport` must outlive the plug-in.
    Plugin(const std::filesystem::path& file, Transport& transport);
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    const AEffect& record() const { return *effect_; }

    intptr_t dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0) const;

    /// What the effect writes for a text opcode, without characters that could upset a terminal.
    std::string text(int32_t opcode, int32_t index = 0) const;

    /// The same where the effect says with its answer whether there is such a text.
    std::optional<std::string> textIfAny(int32_t opcode, int32_t index, intptr_t value) const;

    float parameter(int32_t index) const { return effect_->getParameter(effect_.get(), index); }
    void setParameter(int32_t index, float value) {
        effect_->setParameter(effect_.get(), index, value);
    }

    /// Tells rate and block size; throws where the effect is not one for stereo.
    void prepare(float sampleRate, int32_t blockFrames);

    /// Switches it on; the destructor switches it off where `stop` has not.
    void start();
    void stop();

    /// Two channels each way. Only after `start`.
    void process(float** inputs, float** outputs, int32_t frames) {
        effect_->processReplacing(effect_.get(), inputs, outputs, frames);
    }

  private:
    struct Unload {
        void operator()(void* library) const;
    };
    struct Close {
        void operator()(AEffect* effect) const;
    };

    std::unique_ptr<void, Unload> library_;
    std::unique_ptr<AEffect, Close> effect_;
    bool running_ = false;
};

}  // namespace tessel8::host
