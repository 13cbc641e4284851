#pragma once

#include "parameters/Links.h"
#include "parameters/ParameterTable.h"
#include "vst/AEffEditor.h"

namespace tessel8 {

/// The effect's editor as far as it lives without a window: it has the panel's size and takes
/// what the effect tells it.
class Tessel8Editor : public AEffEditor, public EditorLink {
  public:
    bool getRect(ERect** rect) override {
        *rect = &panel;
        return true;
    }

    void setParameter(int32_t /*index*/, float /*value*/) override {}
    void showTempo(float /*tempo*/) override {}
    void showLfoFrequency(float /*freqMod*/) override {}
    int32_t editedParameter() override { return kParameterCount; }
    void markMidiChange() override {}
    uint32_t tick() const override { return 0; }

  private:
    ERect panel{0, 0, 565, 870};
};

}  // namespace tessel8
