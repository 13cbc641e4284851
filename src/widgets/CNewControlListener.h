#pragma once

#include "toolkit/CControlListener.h"

namespace tessel8 {

/// A listener that the controls tell which of them lies under the pointer.
class CNewControlListener : public CControlListener {
  public:
    int32_t hoverTag = -1;  ///< -1: none of them
};

}  // namespace tessel8
