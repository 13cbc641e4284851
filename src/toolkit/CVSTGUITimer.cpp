#include "toolkit/CVSTGUITimer.h"

#include "toolkit/CFrame.h"

namespace tessel8 {

CVSTGUITimer::CVSTGUITimer(CFrame* owner, CBaseObject* notified, uint32_t period)
    : frame(owner), target(notified), periodMs(period) {
    if (frame) {
        frame->timers.push_back(this);
    }
}

CVSTGUITimer::~CVSTGUITimer() {
    if (frame) {
        std::erase(frame->timers, this);
    }
}

bool CVSTGUITimer::isTypeOf(std::string_view name) const {
    return name == "CVSTGUITimer" || CBaseObject::isTypeOf(name);
}

bool CVSTGUITimer::start() {
    isRunning = frame != nullptr;
    if (isRunning) {
        startedAt = frame->clock.now();
    }
    return isRunning;
}

void CVSTGUITimer::stop() {
    isRunning = false;
}

void CVSTGUITimer::fireIfDue() {
    if (frame && isRunning && frame->clock.now() - startedAt >= periodMs) {
        startedAt = frame->clock.now();
        target->notify(this);
    }
}

}  // namespace tessel8
