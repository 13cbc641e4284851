#include "PanelCommand.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <utility>

#include "AudioReader.h"
#include "Chain.h"
#include "Interruption.h"
#include "LiveAudio.h"
#include "Numbers.h"
#include "PendingFile.h"
#include "Plugin.h"
#include "PluginLocation.h"
#include "Png.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr Range kCoordinate{0, 32767};  // pixels
constexpr int kSilenceRate = 48000;     // Hz
constexpr int kBlockFrames = 512;

constexpr std::chrono::milliseconds kIdlePeriod{20};
constexpr Seconds kBeforeClick{0.5};  // the panel stands, and two clicks are no double click
constexpr Seconds kButtonHeld{0.1};
constexpr Seconds kBeforePicture{1};  // everything is painted

/// The effect's panel within the window, from opening to closing.
class Panel {
  public:
    Panel(const Plugin& plugin, PanelWindow& window) : plugin_(plugin) {
        if (plugin.dispatch(effEditOpen, 0, 0, window.handle()) == 0) {
            throw UserError("the plug-in cannot open its panel");
        }
    }
    ~Panel() { plugin_.dispatch(effEditClose); }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    void idle() const { plugin_.dispatch(effEditIdle); }

    /// Only an open panel is sure to know its size.
    ERect rect() const {
        ERect* rect = nullptr;
        plugin_.dispatch(effEditGetRect, 0, 0, &rect);
        if (rect == nullptr || rect->right <= rect->left || rect->bottom <= rect->top) {
            throw UserError("the plug-in does not tell the size of its panel");
        }
        return *rect;
    }

  private:
    const Plugin& plugin_;
};

/// What runs while the panel is open.
struct Session {
    PanelWindow& window;
    const Panel& panel;
    LiveAudio& audio;

    /// Keeps everything going; false once the window is closed.
    bool runFor(Seconds duration) const {
        const Clock::time_point start = Clock::now();
        for (Clock::time_point due = start; due - start < duration;) {
            Interruption::check();
            audio.check();
            if (!window.processEvents()) {
                return false;
            }
            panel.idle();
            due = std::max(due, Clock::now() - kIdlePeriod) + kIdlePeriod;
            std::this_thread::sleep_until(due);
        }
        return true;
    }

    bool click(const std::vector<Point>& places) const {
        for (const Point place : places) {
            if (!runFor(kBeforeClick)) {
                return false;
            }
            window.press(place);
            if (!runFor(kButtonHeld)) {
                return false;
            }
            window.release();
        }
        return true;
    }
};

std::string titleFor(const Plugin& plugin, const std::filesystem::path& file) {
    const std::string name = plugin.text(effGetEffectName);
    return name.empty() ? printable(file.filename().string()) : name;
}

void takePicture(const PanelWindow& window, PendingFile& file) {
    const Picture picture = window.picture();
    writePng(file, picture);
    std::printf("%s: %u x %u pixels\n", printable(file.name()).c_str(), picture.width,
                picture.height);
}

}  // namespace

Point parseClick(std::string_view text) {
    const size_t comma = text.find(',');
    if (comma == std::string_view::npos) {
        throw UserError("--click " + std::string(text) + ": expected X,Y");
    }
    const auto coordinate = [](std::string_view digits) {
        return int16_t(parseWholeNumber(digits, kCoordinate, "--click"));
    };
    return {coordinate(text.substr(0, comma)), coordinate(text.substr(comma + 1))};
}

void showPanel(const PanelOptions& options) {
    std::optional<AudioReader> input;
    if (!options.input.empty()) {
        input.emplace(options.input);
    }
    const int rate = input ? input->sampleRate() : kSilenceRate;
    const std::filesystem::path file = pluginFile(options.plugin);
    Transport transport;
    Plugin plugin(file, transport);
    if ((plugin.record().flags & effFlagsHasEditor) == 0) {
        throw UserError("the plug-in " + file.string() + " has no panel");
    }
    const std::vector<Setting> settings = choose(options.choice, plugin);

    const Interruption interruption;
    reportLostDisplayAsError();
    PanelWindow window(titleFor(plugin, file));
    std::optional<PendingFile> screenshot;
    if (!options.screenshot.empty()) {
        screenshot.emplace(options.screenshot);
    }
    Chain chain(plugin, transport, {}, rate, kBlockFrames);
    chain.startWith(settings);
    const Panel panel(plugin, window);
    const ERect rect = panel.rect();
    window.show(uint16_t(rect.right - rect.left), uint16_t(rect.bottom - rect.top));
    LiveAudio audio(chain, std::move(input));

    const Session session{window, panel, audio};
    const Seconds rest = options.seconds ? Seconds(*options.seconds)
                         : screenshot    ? kBeforePicture
                                         : Seconds::max();
    const bool stillOpen = session.click(options.clicks) && session.runFor(rest);
    if (screenshot && !stillOpen) {
        throw UserError("no picture: the window was closed");
    }
    if (screenshot) {
        takePicture(window, *screenshot);
    }
}

}  // namespace tessel8::host
