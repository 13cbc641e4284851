#include "LiveCommand.h"

#include <chrono>
#include <cstdio>

#include "Interruption.h"
#include "JackClient.h"
#include "LiveEffect.h"
#include "LiveStatus.h"
#include "Pace.h"
#include "Panel.h"
#include "PluginLocation.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

using Seconds = std::chrono::duration<double>;

void note(const std::string& message) {
    std::fprintf(stderr, "tessel8: %s\n", printable(message).c_str());
}

/// The panel beside the sound: the effect is heard whatever becomes of it.
class OptionalPanel {
  public:
    void open(const Plugin& plugin, const std::filesystem::path& file) {
        try {
            panel_.emplace(plugin, file);
        } catch (const UserError& error) {
            note(std::string("going on without the panel: ") + error.what());
        }
    }

    /// False once the user has closed the window.
    bool idle(LiveStatus& status) {
        try {
            return !panel_ || panel_->idle();
        } catch (const UserError& error) {
            status.wipe();
            note(std::string("going on without the panel: ") + error.what());
            panel_.reset();
            return true;
        }
    }

  private:
    std::optional<Panel> panel_;
};

/// Until the time is over, the window closed or a signal has come.
void run(const JackClient& client, LiveEffect& effect, OptionalPanel& panel, LiveStatus& status,
         Seconds duration) {
    const Pace::Clock::time_point start = Pace::Clock::now();
    try {
        for (Pace pace(Panel::kIdlePeriod); Pace::Clock::now() - start < duration; pace.wait()) {
            Interruption::check();
            if (client.isGone()) {
                throw UserError("the JACK server has gone away");
            }
            effect.keepTo(client.format());
            if (!panel.idle(status)) {
                return;
            }
            status.update();
        }
    } catch (const Interrupted&) {  // the usual way to end this command
    }
}

}  // namespace

void playLive(const LiveOptions& options) {
    const std::filesystem::path file = pluginFile(options.plugin);
    Transport transport(options.tempo ? std::optional<TempoMap>(*options.tempo) : std::nullopt);
    Plugin plugin(file, transport);
    const std::vector<Setting> settings = choose(options.choice, plugin);

    const Interruption interruption;
    reportLostDisplayAsError();
    LiveEffect effect(plugin, transport);
    JackClient client(options.name, effect);
    effect.start(client.format(), settings);
    client.activate();
    if (options.connect && !client.connectToHardware()) {
        note("not all ports could be connected");
    }
    OptionalPanel panel;
    if (options.panel) {
        panel.open(plugin, file);
    }
    LiveStatus status(client);
    run(client, effect, panel, status,
        options.seconds ? Seconds(*options.seconds) : Seconds::max());
    status.printSummary();
}

}  // namespace tessel8::host
