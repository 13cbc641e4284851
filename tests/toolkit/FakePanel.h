#pragma once

// A panel without a display, and a log of all that the controls tell.

#include <gtest/gtest.h>

#include <sstream>

#include "support/FakeWindow.h"
#include "toolkit/CControl.h"
#include "toolkit/CFrame.h"
#include "widgets/CNewControlListener.h"

namespace tessel8 {

/// A frame in a fake window. The log reads "(7" for a gesture that begins on tag 7, "7)" for its
/// end, "7=0.5" for a reported value and "~" for an idle pass during a gesture.
class FakePanel : public VSTGUIEditorInterface, public CNewControlListener {
  public:
    explicit FakePanel(const CRect& rect = {0, 0, 100, 100}) {
        const auto makeWindow = [this](WindowListener& listener) {
            auto made = std::make_unique<FakeWindow>(listener);
            window = made.get();
            return made;
        };
        frame = makeShared<CFrame>(rect, makeWindow, this, clock);
    }
    ~FakePanel() override { frame->close(); }

    template <typename View, typename... Arguments>
    Shared<View> add(Arguments&&... arguments) {
        auto view = makeShared<View>(std::forward<Arguments>(arguments)...);
        frame->addView(view.get());
        return view;
    }
    /// Does what a script says, and gives what was told since the last one. A word is a letter (d
    /// press, m move, u release, + and - wheel, l leave the window), the buttons and the place:
    /// "d2@30,20", which is what "d" alone means.
    std::string act(const std::string& script) {
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            MouseState at{30, 20, mouse::kLeft};
            std::sscanf(word.c_str() + 1, "%u@%d,%d", &at.buttons, &at.x, &at.y);
            WindowListener& to = window->listener;
            word[0] == 'd'   ? to.mouseDown(at)
            : word[0] == 'm' ? to.mouseMoved(at)
            : word[0] == 'u' ? to.mouseUp(at)
            : word[0] == 'l' ? to.mouseLeft()
                             : to.wheel(at, word[0] == '+' ? 1.0f : -1.0f);
        }
        const std::string told = log.str();
        log.str("");
        return told.substr(told.empty() ? 0 : 1);
    }
    /// Paints everything and gives one pixel of it.
    uint32_t pixelAt(int32_t x, int32_t y) {
        const PixelRect all = frame->getViewSize().toPixels();
        std::vector<uint32_t> pixels(size_t(all.width()) * size_t(all.height()), 0xabcdef);
        const Surface surface{pixels.data(), all.width(), all.height()};
        window->listener.paint(surface, all);
        return surface.row(y)[x];
    }
    void say(const std::string& word) { log << ' ' << word; }

    void doIdleStuff() override { say("~"); }
    int32_t getKnobMode() const override { return kLinearMode; }
    void beginEdit(int32_t index) override { log << " (" << index; }
    void endEdit(int32_t index) override { log << ' ' << index << ')'; }
    void valueChanged(CControl* control) override {
        log << ' ' << control->getTag() << '=' << control->getValue();
    }

    FakeClock clock;
    FakeWindow* window = nullptr;
    Shared<CFrame> frame;

  private:
    std::ostringstream log;
};

/// The first bytes of a bitmap file whose pixels begin at `start`.
inline std::vector<uint8_t> bitmapHead(int32_t start, uint8_t width, int32_t height, uint8_t bits) {
    std::vector<uint8_t> file(size_t(start), 0);
    file[0] = 'B', file[1] = 'M', file[10] = uint8_t(start), file[11] = uint8_t(start >> 8);
    file[14] = 40, file[18] = width, file[22] = uint8_t(height), file[23] = uint8_t(height >> 8);
    file[26] = 1, file[28] = bits;
    return file;
}

/// A strip of images in 8 bits: all pixels of image n have the value n.
struct FakeStrip {
    FakeStrip(int32_t images, int32_t imageHeight, uint8_t width = 4)
        : file(bitmapHead(54 + 4 * 256, width, images * imageHeight, 8)) {
        for (size_t colour = 0; colour < 256; ++colour) {
            file[54 + 4 * colour] = uint8_t(colour);
        }
        for (int32_t image = images - 1; image >= 0; --image) {
            file.insert(file.end(), size_t(width) * size_t(imageHeight), uint8_t(image));
        }
        bitmap = makeShared<CBitmap>(std::span<const uint8_t>(file));
    }
    CBitmap* get() const { return bitmap.get(); }

    std::vector<uint8_t> file;
    Shared<CBitmap> bitmap;
};

}  // namespace tessel8
