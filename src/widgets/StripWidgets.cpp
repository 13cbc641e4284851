#include "widgets/StripWidgets.h"

namespace tessel8 {

MouseResult CMovieBitmapButton::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft)) {
        return MouseResult::NotHandled;
    }
    beginEdit();
    value = 0.0f;
    valueChanged();
    invalid();
    endEdit();
    return MouseResult::DownHandledOnly;
}

}  // namespace tessel8
