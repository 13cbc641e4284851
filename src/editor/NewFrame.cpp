#include "editor/NewFrame.h"

namespace tessel8 {

void MyFrame::setKeyboardFocus(bool state) {
    keyboardFocus = state;
    if (state && getWindow()) {
        getWindow()->takeKeyboardFocus();
    }
}

void MyFrame::mouseDown(const MouseState& mouse) {
    if (keyboardFocus && getWindow()) {
        getWindow()->takeKeyboardFocus();
    }
    CFrame::mouseDown(mouse);
}

void NewFrame::mouseDown(const MouseState& mouse) {
    ++presses;
    isPressed = true;
    MyFrame::mouseDown(mouse);
}

void NewFrame::mouseUp(const MouseState& mouse) {
    MyFrame::mouseUp(mouse);
    isPressed = false;
}

void NewFrame::beginEdit(int32_t index) {
    CFrame::beginEdit(index);
    isEditing = true;
    tag = index;
}

void NewFrame::endEdit(int32_t index) {
    CFrame::endEdit(index);
    isEditing = false;
    tag = index;
}

}  // namespace tessel8
