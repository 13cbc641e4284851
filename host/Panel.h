#pragma once

#include <chrono>
#include <filesystem>

#include "PanelWindow.h"
#include "Plugin.h"

namespace tessel8::host {

/// The effect's panel in a window of its own, from opening to closing. All of it belongs to one
/// thread.
class Panel {
  public:
    /// How often an effect expects to be idled.
    static constexpr std::chrono::milliseconds kIdlePeriod{20};

    /// `file` is the plug-in's, for messages and for the title of an effect without a name. Throws
    /// UserError without a display and where the effect has no panel.
    Panel(const Plugin& plugin, const std::filesystem::path& file);

    /// Gives the effect time for its panel; false once the user has closed the window. Throws
    /// UserError once the display has gone away.
    bool idle();

    PanelWindow& window() { return window_; }

  private:
    /// What the effect has opened, to be closed before the window.
    class Opened {
      public:
        Opened(const Plugin& plugin, const PanelWindow& window);
        ~Opened() { plugin_.dispatch(effEditClose); }
        Opened(const Opened&) = delete;
        Opened& operator=(const Opened&) = delete;

        void idle() const { plugin_.dispatch(effEditIdle); }
        ERect rect() const;

      private:
        const Plugin& plugin_;
    };

    PanelWindow window_;
    Opened opened_;
};

}  // namespace tessel8::host
