#include "widgets/PresetButtons.h"

#include "toolkit/Strips.h"

namespace tessel8 {

namespace {

constexpr int32_t kAtRest = 0, kUnderPointer = 1, kPressed = 2;  // images

int32_t imageFor(bool isPressed, bool isUnderPointer) {
    return isPressed ? kPressed : isUnderPointer ? kUnderPointer : kAtRest;
}

}  // namespace

void CVTKickButton::draw(CDrawContext& context) {
    drawImage(context, imageFor(isPressed, isUnderPointer()));
}

MouseResult CVTKickButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft) || (isDoubleClickKind && !(buttons & mouse::kDoubleClick))) {
        return MouseResult::DownHandledOnly;
    }
    isPressed = true;
    value = isDoubleClickKind && buttons & mouse::kControl ? 0.5f : 1.0f;
    valueChanged();
    invalid();
    return MouseResult::Handled;
}

MouseResult CVTKickButton::onMouseUp(const CPoint& /*where*/, uint32_t /*buttons*/) {
    release();
    invalid();
    return MouseResult::Handled;
}

void CVTKickButton::release() {
    value = 0.0f;
    isPressed = false;
    setDirty();
}

void CVTOnOffButton::draw(CDrawContext& context) {
    setDirty(false);
    const int32_t heightOfOne = background ? background->getHeight() / 3 : 0;
    const bool isUnpressed = value == 0.0f;
    drawBackground(
        context, stripImage(imageFor(value == 1.0f, isUnderPointer() && isUnpressed), heightOfOne));
}

MouseResult CVTOnOffButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    value = 1.0f - value;
    valueChanged();
    invalid();
    return MouseResult::DownHandledOnly;
}

void CSaveLoadButton::draw(CDrawContext& context) {
    drawImage(context, imageFor(value != 0.0f, isUnderPointer()));
}

MouseResult CSaveLoadButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & (mouse::kLeft | mouse::kRight)) || !getListener()) {
        return MouseResult::NotHandled;
    }
    value = buttons == mouse::kRight ? 0.5f : 1.0f;
    valueChanged();
    value = 0.0f;
    invalid();
    return MouseResult::DownHandledOnly;
}

}  // namespace tessel8
