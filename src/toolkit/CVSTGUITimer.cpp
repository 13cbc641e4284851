#include "toolkit/CVSTGUITimer.h"

#include <algorithm>

#include "toolkit/CFrame.h"

namespace tessel8 {

CVSTGUITimer::CVSTGUITimer(CFrame* owner, CBaseObject* notified, uint32_t period)
    : frame(owner), target(notified), periodMs(period) {}

CVSTGUITimer::~CVSTGUITimer() {
    stop();
}

bool CVSTGUITimer::isTypeOf(std::string_view name) const {
    return name == "CVSTGUITimer" || CBaseObject::isTypeOf(name);
}

bool CVSTGUITimer::start() {
    if (!frame) {
        return false;
    }
    stop();
    startedAt = frame->clock.now();
    frame->timers.push_back(this);
    return true;
}

void CVSTGUITimer::stop() {
    if (frame) {
        std::erase(frame->timers, this);
    }
}

void CVSTGUITimer::fireIfDue() {
    const bool running =
        frame && std::find(frame->timers.begin(), frame->timers.end(), this) != frame->timers.end();
    if (running && frame->clock.now() - startedAt >= periodMs) {
        startedAt = frame->clock.now();
        target->notify(this);
    }
}

}  // namespace tessel8
