#pragma once

#include <string>
#include <vector>

#include "toolkit/CFrame.h"
#include "toolkit/COptionMenu.h"
#include "toolkit/CTextEdit.h"
#include "widgets/CNewControlListener.h"
#include "widgets/PresetButtons.h"

namespace tessel8 {

/// Tags of the strip's controls, as the panel's layout has them.
namespace strip_tag {
constexpr int32_t kName = 428, kRocker = 429, kLoadBank = 430, kSaveBank = 431, kLoadPreset = 432,
                  kSavePreset = 433, kProgramList = 440, kBankLabel = 441, kPresetLabel = 442,
                  kStoreMemoA = 443, kStoreMemoB = 444, kRecallMemoA = 445, kRecallMemoB = 446,
                  kFocus = 447, kManual = 448;
}

/// The controls along the panel's foot, made from the layout's table.
class PresetStrip {
  public:
    /// Makes them and puts them onto the frame.
    PresetStrip(CFrame& frame, CNewControlListener& listener);

    CTextEdit* nameField() const { return find<CTextEdit>(strip_tag::kName); }
    COptionMenu* programList() const { return find<COptionMenu>(strip_tag::kProgramList); }
    CVTOnOffButton* focusButton() const { return find<CVTOnOffButton>(strip_tag::kFocus); }
    CVTKickButton* manualButton() const { return find<CVTKickButton>(strip_tag::kManual); }

    /// Gives the list its titles in the order of the programs.
    void showTitles(const std::vector<std::string>& titles);

  private:
    /// Null only if the layout lacks the control.
    template <typename Control>
    Control* find(int32_t tag) const {
        for (const auto& control : controls) {
            if (control->getTag() == tag) {
                return dynamic_cast<Control*>(control.get());
            }
        }
        return nullptr;
    }

    std::vector<Shared<CControl>> controls;
};

}  // namespace tessel8
