#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/FileBrowser.h"
#include "platform/Window.h"
#include "platform/linux/DialogPane.h"
#include "platform/linux/FieldControl.h"

namespace tessel8::x11 {

/// The built-in file dialog: the folder, its entries, a field for a name or path, two buttons.
/// What is pointed at in the list stands in the field, and Return goes where the field leads.
class FileDialogPane : public DialogPane {
  public:
    FileDialogPane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                   const FileDialogSettings& settings,
                   std::function<void(const std::string&)> whenEnded);

    void mouseDown(const MouseState& mouse) override;
    void mouseMoved(const MouseState& mouse) override { field.mouseMoved(mouse); }
    void mouseUp(const MouseState& mouse) override;
    void wheel(const MouseState& mouse, float distance) override;
    void keyPressed(const KeyPress& key) override;
    void tick(uint32_t now) override;

  protected:
    void accepted() override;
    void cancelled() override;
    void paint(const Surface& surface, const PixelRect& damaged) override;

  private:
    PixelRect rowPlace(int32_t row) const;
    void select(int32_t entry);
    void scrollTo(int32_t first);
    void paintList(const Surface& surface, const PixelRect& damaged) const;

    FileBrowser browser;
    FieldControl field;
    std::string fileName;  ///< what stood in the field before a folder did
    std::string remark;
    std::function<void(const std::string&)> ended;
    int32_t selected = -1, firstShown = 0;
};

}  // namespace tessel8::x11
