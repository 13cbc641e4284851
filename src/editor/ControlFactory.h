#pragma once

#include <functional>

#include "resources/PanelLayout.h"
#include "toolkit/CControl.h"
#include "widgets/CNewControlListener.h"

namespace tessel8 {

/// Gives a picture by its number, null for 0; whoever asks does not own it.
using PictureSource = std::function<CBitmap*(int32_t)>;

/// The tap that the i-th of the graph's views belongs to: the last tap is made first and so lies
/// under the others.
int32_t tapOfView(int32_t i);

/// Makes the i-th control of a row of the panel's table.
Shared<CControl> makeControl(const PanelRow& row, int32_t i, CNewControlListener& listener,
                             const PictureSource& picture);

}  // namespace tessel8
