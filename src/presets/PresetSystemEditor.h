#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "presets/PresetStrip.h"
#include "presets/ProgramStoreLink.h"
#include "toolkit/AEffGUIEditor.h"
#include "toolkit/CNewFileSelector.h"
#include "widgets/CNewControlListener.h"

namespace tessel8 {

/// The editor's part that deals with programs: the strip of controls along the panel's foot, and
/// what stands behind them: files, defaults and memos. All but the strip works without a window.
class CPresetSystemEditor : public AEffGUIEditor, public CNewControlListener {
  public:
    /// Without a store there is no strip and nothing here does anything.
    CPresetSystemEditor(ProgramStoreLink* programStore, AudioEffectX* edited,
                        TickClock& tickClock = TickClock::system());
    ~CPresetSystemEditor() override;

    void close() override;
    /// Also shows what has become of the store on other threads.
    void idle() override;
    void valueChanged(CControl* control) override;

    /// In the name field and the list.
    virtual void showProgramName(const std::string& name);
    /// Last step of construction: the user's default bank and preset.
    virtual void restoreDefaults();

    // Files, which the user chooses in a dialog that the panel does not wait for. `reversed`: in
    // the byte order that the file does not claim. What cannot be used changes nothing.
    virtual void loadBank(bool reversed);
    virtual void saveBank();
    virtual void loadPreset(bool reversed);
    virtual void savePreset();

    // What every new instance starts with.
    virtual void storeDefaultBank();
    virtual void clearDefaultBank();
    virtual void loadDefaultBank();
    virtual void storeDefaultPreset();
    virtual void clearDefaultPreset();
    virtual void loadDefaultPreset();

    // The current program, held aside for all instances.
    virtual void storeMemoA();
    virtual void storeMemoB();
    virtual void recallMemoA();
    virtual void recallMemoB();

    /// Where the last files were.
    virtual void writePathSettings();
    virtual void readPathSettings();

  protected:
    /// Puts the strip onto the frame; false without a frame or a store.
    bool openStrip();
    /// The keyboard focus switch has changed, or the window opens.
    virtual void setKeyboardFocus(bool /*takesFocus*/) {}

    struct FileQuestion {
        FileDialogKind kind;
        const char* title;
        const char* typeName;
        const char* extension;
        std::string folder;
        std::string defaultName;  ///< of a file to save
    };
    /// Asks for a file unless a question stands already. `chosen` gets the path, unless the user
    /// cancels or the window closes.
    void askForFile(const FileQuestion& question, std::function<void(const std::string&)> chosen);
    /// Asks for a repaint of the whole panel.
    void redraw();
    /// Parts a path behind its last separator; without one both stay as they are.
    static void splitPath(const std::string& path, std::string& fileName, std::string& directory);

    /// The most that a file is read of: programs of ours have 1 MB, others may have longer records.
    static constexpr size_t kMostFileBytes = size_t(16) << 20;

  private:
    void commitProgramName(const std::string& name);
    void refreshPrograms();
    void chooseFromList(float value);
    void stepProgram(float direction);
    void switchKeyboardFocus(bool takesFocus);
    void openManual();
    std::string programName(int32_t index);
    std::optional<std::vector<uint8_t>> readProgramFile(const std::string& path);
    void applyPresetValue(const char* name);

    ProgramStoreLink* const store;
    std::unique_ptr<PresetStrip> presetStrip;  ///< while the window is open
    uint32_t seenRevision = 0;
    bool isAsking = false;
    std::string currDir, currBank, currPreset;
};

}  // namespace tessel8
