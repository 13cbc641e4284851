#pragma once

#include "toolkit/AEffGUIEditor.h"
#include "widgets/CNewControlListener.h"

namespace tessel8 {

/// The editor's part that deals with programs: the strip of controls along the panel's foot.
class CPresetSystemEditor : public AEffGUIEditor, public CNewControlListener {
  public:
    using AEffGUIEditor::AEffGUIEditor;

    void valueChanged(CControl* /*control*/) override {}
};

}  // namespace tessel8
