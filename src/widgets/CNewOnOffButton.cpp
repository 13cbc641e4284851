#include "widgets/CNewOnOffButton.h"

namespace tessel8 {

MouseResult COnOffButtonRight::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & (mouse::kLeft | mouse::kRight))) {
        return MouseResult::NotHandled;
    }
    toggle();
    tellAround(style);
    invalid();
    return MouseResult::DownHandledOnly;
}

}  // namespace tessel8
