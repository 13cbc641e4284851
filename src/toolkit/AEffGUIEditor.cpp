#include "toolkit/AEffGUIEditor.h"

namespace tessel8 {

namespace {

constexpr uint32_t kPassEveryMs = 100;
constexpr uint32_t kWaitMs = 4;
constexpr uint32_t kTooEarlyMs = 50;

Relaxed<int32_t>& knobMode() {
    static Relaxed<int32_t> mode = kCircularMode;
    return mode;
}

}  // namespace

AEffGUIEditor::~AEffGUIEditor() {
    AEffGUIEditor::close();
}

bool AEffGUIEditor::getRect(ERect** answer) {
    *answer = &rect;
    return true;
}

bool AEffGUIEditor::open(void* parent) {
    systemWindow = parent;
    return true;
}

void AEffGUIEditor::close() {
    if (const Shared<CFrame> open = std::exchange(frame, {}); open) {
        open->close();
    }
    systemWindow = nullptr;
}

void AEffGUIEditor::idle() {
    if (!insideIdleStuff && frame) {
        frame->idle();
    }
}

bool AEffGUIEditor::onKeyDown(const VstKeyCode& key) {
    return frame && frame->onKeyDown(key);
}

bool AEffGUIEditor::onKeyUp(const VstKeyCode& key) {
    return frame && frame->onKeyUp(key);
}

bool AEffGUIEditor::onWheel(float distance) {
    return frame && frame->onWheel(frame->getCurrentMouseLocation(), distance,
                                   frame->getCurrentMouseButtons());
}

bool AEffGUIEditor::setKnobMode(int32_t mode) {
    knobMode() = mode;
    return true;
}

int32_t AEffGUIEditor::getKnobMode() const {
    return knobMode();
}

void AEffGUIEditor::draw(const ERect& part) {
    if (frame) {
        frame->invalidRect(
            {double(part.left), double(part.top), double(part.right), double(part.bottom)});
    }
}

void AEffGUIEditor::doIdleStuff() {
    uint32_t now = clock.now();
    // The stamp lies at most one period ahead; any other distance means that it has passed.
    const auto ahead = [&] { return nextPass - now <= kPassEveryMs ? nextPass - now : 0; };
    if (ahead() > 0) {
        clock.sleep(kWaitMs);
        now += kWaitMs;
        if (ahead() > kTooEarlyMs) {
            return;
        }
    }
    idle();
    if (const Shared<CFrame> open = frame; open) {
        open->processPaints();
    }
    nextPass = now + kPassEveryMs;
    insideIdleStuff = true;
    if (effect) {
        effect->masterIdle();
    }
    insideIdleStuff = false;
}

void AEffGUIEditor::beginEdit(int32_t index) {
    if (effect) {
        effect->beginEdit(index);
    }
}

void AEffGUIEditor::endEdit(int32_t index) {
    if (effect) {
        effect->endEdit(index);
    }
}

}  // namespace tessel8
