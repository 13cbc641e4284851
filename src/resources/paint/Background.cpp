#include "resources/paint/Painters.h"

namespace tessel8::paint {

Picture paintBackground() {
    Picture panel(kPanelWidth, kPanelHeight);
    const Canvas canvas({0, 0, kPanelWidth, kPanelHeight});
    canvas.block(0, 0, kPanelWidth, kPanelHeight, kPlate);
    canvas.over(panel);
    return panel;
}

}  // namespace tessel8::paint
