#pragma once

#include <cstdint>

#include "toolkit/CBaseObject.h"

namespace tessel8 {

class CFrame;

/// Calls `notify` of its target at each period while it runs, as often as the frame's idle allows.
class CVSTGUITimer : public CBaseObject {
  public:
    /// `period` in milliseconds. The target outlives the timer or stops it.
    CVSTGUITimer(CFrame* owner, CBaseObject* notified, uint32_t period);
    ~CVSTGUITimer() override;
    CVSTGUITimer(const CVSTGUITimer&) = delete;
    CVSTGUITimer& operator=(const CVSTGUITimer&) = delete;
    bool isTypeOf(std::string_view name) const override;

    /// Begins a period; a running one begins anew. False if there is no frame.
    bool start();
    void stop();

  private:
    friend class CFrame;
    void fireIfDue();

    CFrame* frame;  ///< null once it is gone
    CBaseObject* target;
    uint32_t periodMs;
    uint32_t startedAt = 0;  ///< tick in milliseconds
};

}  // namespace tessel8
