#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/Window.h"
#include "toolkit/CBaseObject.h"
#include "toolkit/Shared.h"

namespace tessel8 {

class CFrame;

/// A kind of file that a selector offers.
class CFileExtension : public CBaseObject {
  public:
    /// The extension comes without its dot.
    CFileExtension(std::string text, std::string fileExtension)
        : description(std::move(text)), extension(std::move(fileExtension)) {}
    bool isTypeOf(std::string_view name) const override;

    const std::string& getDescription() const { return description; }
    const std::string& getExtension() const { return extension; }

  private:
    std::string description, extension;
};

/// Asks the user for a file, in a dialog that stands beside the panel while that goes on working:
/// nothing blocks the host's thread. All paths and texts are UTF-8.
class CNewFileSelector : public CBaseObject {
  public:
    /// None without a frame.
    static Shared<CNewFileSelector> create(CFrame* frame, FileDialogKind kind);
    bool isTypeOf(std::string_view name) const override;

    void setTitle(const std::string& text) { settings.title = text; }
    void setInitialDirectory(const std::string& path) { settings.folder = path; }
    void setDefaultSaveName(const std::string& name) { settings.defaultName = name; }
    /// The kind of files that is offered; a dialog knows one, the last given.
    void addFileExtension(const CFileExtension& extension);
    /// The kind whose extension a saved name gets that has none.
    void setDefaultExtension(const CFileExtension& extension) { addFileExtension(extension); }

    /// Opens the dialog. `ended` is called once, with the selector, when the user is through; not
    /// at all if the frame closes before. The frame has to be there still when this is called.
    void run(std::function<void(CNewFileSelector&)> ended);

    /// 1, or 0 when cancelled.
    int32_t getNumSelectedFiles() const { return selected.empty() ? 0 : 1; }
    /// Null for another index than that of a selected file.
    const std::string* getSelectedFile(int32_t index) const;

  private:
    CNewFileSelector(CFrame* owner, FileDialogKind kind) : frame(owner) { settings.kind = kind; }

    CFrame* frame;
    FileDialogSettings settings;
    std::string selected;
};

}  // namespace tessel8
