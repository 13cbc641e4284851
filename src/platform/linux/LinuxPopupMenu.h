#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/MenuLayout.h"
#include "platform/Window.h"
#include "platform/linux/Pane.h"

namespace tessel8::x11 {

/// A popup menu: a window over everything that has pointer and keyboard while it is open.
class LinuxPopupMenu : public PopupMenu, public Pane {
  public:
    /// `panel` is the pane whose pixels the settings' place is in.
    LinuxPopupMenu(const std::shared_ptr<Session>& theSession, const Pane& panel,
                   const PopupMenuSettings& theSettings, std::function<void(int32_t)> whenEnded);
    ~LinuxPopupMenu() override;

    void mouseDown(const MouseState& mouse) override;
    void mouseMoved(const MouseState& mouse) override;
    void mouseUp(const MouseState& mouse) override;
    void keyPressed(const KeyPress& key) override;
    void tick(uint32_t now) override;
    void pressedOutside() override { end(-1); }
    void close() final;

  protected:
    void paint(const Surface& surface, const PixelRect& damaged) override;

  private:
    LinuxPopupMenu(const std::shared_ptr<Session>& theSession, const MenuLayout& theLayout,
                   const PopupMenuSettings& theSettings, std::function<void(int32_t)> whenEnded);
    static MenuLayout layoutFor(const Session& session, const Pane& panel,
                                const PopupMenuSettings& settings);
    bool grab();
    void highlight(int32_t entry);
    void end(int32_t choice);

    MenuLayout layout;
    PopupMenuSettings settings;
    std::function<void(int32_t)> ended;
    std::optional<ModalHold> hold;
    uint32_t openedAt;
    int32_t highlighted;
    bool open = true, grabbed = false;
    bool armed = false;  ///< a release chooses; not the one of the press that opened the menu
};

}  // namespace tessel8::x11
