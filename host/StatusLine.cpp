#include "StatusLine.h"

#include <unistd.h>

#include <cstdio>

namespace tessel8::host {

namespace {

constexpr const char* kWipeLine = "\r\033[K";

}  // namespace

StatusLine::StatusLine() : onTerminal_(isatty(STDERR_FILENO) != 0) {}

void StatusLine::draw(const std::string& text) {
    if (onTerminal_) {
        std::fprintf(stderr, "%s%s", kWipeLine, text.c_str());
        drawn_ = true;
    }
}

void StatusLine::wipe() {
    if (drawn_) {
        std::fputs(kWipeLine, stderr);
        drawn_ = false;
    }
}

}  // namespace tessel8::host
