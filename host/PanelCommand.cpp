#include "PanelCommand.h"

#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

#include "AudioReader.h"
#include "Chain.h"
#include "Interruption.h"
#include "LiveAudio.h"
#include "Numbers.h"
#include "Pace.h"
#include "Panel.h"
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

constexpr Seconds kBeforeClick{0.5};  // the panel stands, and two clicks are no double click
constexpr Seconds kButtonHeld{0.1};
constexpr Seconds kBeforePicture{1};  // everything is painted

/// What runs while the panel is open.
struct Session {
    Panel& panel;
    LiveAudio& audio;

    /// Keeps everything going; false once the window is closed.
    bool runFor(Seconds duration) const {
        const Clock::time_point start = Clock::now();
        for (Pace pace(Panel::kIdlePeriod); Clock::now() - start < duration; pace.wait()) {
            Interruption::check();
            audio.check();
            if (!panel.idle()) {
                return false;
            }
        }
        return true;
    }

    bool click(const std::vector<Point>& places) const {
        for (const Point place : places) {
            if (!runFor(kBeforeClick)) {
                return false;
            }
            panel.window().press(place);
            if (!runFor(kButtonHeld)) {
                return false;
            }
            panel.window().release();
        }
        return true;
    }
};

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
    const std::vector<Setting> settings = choose(options.choice, plugin);

    const Interruption interruption;
    reportLostDisplayAsError();
    std::optional<PendingFile> screenshot;
    if (!options.screenshot.empty()) {
        screenshot.emplace(options.screenshot);
    }
    Chain chain(plugin, transport, {}, rate, kBlockFrames);
    chain.startWith(settings);
    Panel panel(plugin, file);
    LiveAudio audio(chain, std::move(input));

    const Session session{panel, audio};
    const Seconds rest = options.seconds ? Seconds(*options.seconds)
                         : screenshot    ? kBeforePicture
                                         : Seconds::max();
    const bool stillOpen = session.click(options.clicks) && session.runFor(rest);
    if (screenshot && !stillOpen) {
        throw UserError("no picture: the window was closed");
    }
    if (screenshot) {
        takePicture(panel.window(), *screenshot);
    }
}

}  // namespace tessel8::host
