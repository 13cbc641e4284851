#pragma once

#include "platform/linux/Connection.h"

namespace tessel8::x11 {

/// Remembers who has the keyboard, to give it back later.
class FocusLoan {
  public:
    explicit FocusLoan(const Connection& theConnection)
        : connection(theConnection), lender(theConnection.focus()) {}

    /// `borrower` gives it back, unless somebody else has taken it meanwhile, who keeps it.
    void giveBack(xcb_window_t borrower) const {
        if (connection.focus() == borrower) {
            xcb_set_input_focus(connection.xcb(), XCB_INPUT_FOCUS_PARENT, lender, XCB_CURRENT_TIME);
        }
    }

  private:
    const Connection& connection;
    xcb_window_t lender;
};

}  // namespace tessel8::x11
