#pragma once

#include "vst/Vst24.h"

/// What the host's editor opcodes reach. Everything answers false until an editor overrides it.
class AEffEditor {
  public:
    AEffEditor() = default;
    AEffEditor(const AEffEditor&) = delete;
    AEffEditor& operator=(const AEffEditor&) = delete;
    virtual ~AEffEditor() = default;

    /// Writes a pointer to the editor's own rectangle; valid before the window is open, too.
    virtual bool getRect(ERect** /*rect*/) { return false; }
    /// `parent` is the host's window; the answer is whether an editor window now stands in it.
    virtual bool open(void* /*parent*/) { return false; }
    virtual void close() {}
    virtual void idle() {}
    virtual bool onKeyDown(const VstKeyCode& /*key*/) { return false; }
    virtual bool onKeyUp(const VstKeyCode& /*key*/) { return false; }
    virtual bool setKnobMode(int32_t /*mode*/) { return false; }
};
