#pragma once

#include <string>

namespace tessel8::host {

/// One line on stderr that is written over and over, if that is a terminal; the destructor wipes
/// it, so that whatever is printed next stands on a clean line.
class StatusLine {
  public:
    StatusLine();
    ~StatusLine() { wipe(); }
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    bool isOnTerminal() const { return onTerminal_; }

    /// Only on a terminal.
    void draw(const std::string& text);
    void wipe();

  private:
    bool onTerminal_;
    bool drawn_ = false;
};

}  // namespace tessel8::host
