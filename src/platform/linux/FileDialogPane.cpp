#include "platform/linux/FileDialogPane.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <utility>

#include "platform/Fill.h"
#include "platform/TextPainter.h"

namespace tessel8::x11 {

namespace {

// Pixels.
constexpr int32_t kWidth = 480, kHeight = 376, kRowHeight = 18, kRows = 13;
constexpr PixelRect kFolder{10, 8, 470, 28};
constexpr PixelRect kList{10, 30, 470, 30 + 2 + kRows* kRowHeight};
constexpr PixelRect kField{10, 276, 470, 300};
constexpr PixelRect kRemark{10, 304, 470, 324};
constexpr int32_t kTextInset = 6, kWheelRows = 3;

void drawLine(const Surface& surface, const PixelRect& damaged, const PixelRect& place,
              const std::string& text, uint32_t colour) {
    // Of a long path the end tells most.
    const int32_t tooWide = std::max(0, textWidth(text, DialogPane::kFontSize) - place.width());
    drawText(surface, damaged.intersected(place), place.left - tooWide,
             centredBaseline(place.top, place.bottom, DialogPane::kFontSize), text,
             DialogPane::kFontSize, colour);
}

}  // namespace

FileDialogPane::FileDialogPane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                               const FileDialogSettings& settings,
                               std::function<void(const std::string&)> whenEnded)
    : DialogPane(theSession, panel, settings.title, kWidth, kHeight),
      browser(settings),
      field(session(), *this, kField, settings.defaultName, {}, [this] { invalidate(kField); }),
      fileName(settings.defaultName),
      ended(std::move(whenEnded)) {
    addButton("Cancel", [this] { cancelled(); });
    addButton(settings.kind == FileDialogKind::Save ? "Save" : "Open", [this] { accepted(); });
}

PixelRect FileDialogPane::rowPlace(int32_t row) const {
    const int32_t top = kList.top + 1 + row * kRowHeight;
    return {kList.left + 1, top, kList.right - 1, top + kRowHeight};
}

void FileDialogPane::scrollTo(int32_t first) {
    const auto last = std::max(0, int32_t(browser.entries().size()) - kRows);
    firstShown = std::clamp(first, 0, last);
    invalidate(kList);
}

void FileDialogPane::select(int32_t entry) {
    const auto count = int32_t(browser.entries().size());
    if (count == 0) {
        return;
    }
    selected = std::clamp(entry, 0, count - 1);
    field.setText(browser.entries()[size_t(selected)].text());
    scrollTo(std::clamp(firstShown, selected - kRows + 1, selected));
}

void FileDialogPane::mouseDown(const MouseState& mouse) {
    if (kField.contains(mouse.x, mouse.y)) {
        field.mouseDown(mouse);
    } else if (kList.contains(mouse.x, mouse.y)) {
        const int32_t entry = firstShown + (mouse.y - kList.top - 1) / kRowHeight;
        if (entry < int32_t(browser.entries().size())) {
            select(entry);
            if (mouse.buttons & mouse::kDoubleClick) {
                accepted();
            }
        }
    } else {
        DialogPane::mouseDown(mouse);
    }
}

void FileDialogPane::mouseUp(const MouseState& mouse) {
    field.mouseUp(mouse);
    DialogPane::mouseUp(mouse);
}

void FileDialogPane::wheel(const MouseState& /*mouse*/, float distance) {
    scrollTo(firstShown - int32_t(distance) * kWheelRows);
}

void FileDialogPane::keyPressed(const KeyPress& key) {
    switch (key.symbol) {
        case XKB_KEY_Up:
            return select(selected - 1);
        case XKB_KEY_Down:
            return select(selected + 1);
        case XKB_KEY_Page_Up:
            return select(selected - kRows);
        case XKB_KEY_Page_Down:
            return select(selected + kRows);
        default:
            break;
    }
    if (!field.keyPressed(key)) {
        DialogPane::keyPressed(key);
    }
}

void FileDialogPane::tick(uint32_t now) {
    if (isOpen()) {
        field.tick(now);
    }
}

void FileDialogPane::accepted() {
    remark.clear();
    switch (browser.open(field.text())) {
        case FileBrowser::Outcome::Nothing:
            break;
        case FileBrowser::Outcome::Entered:
            selected = -1;
            scrollTo(0);
            field.setText(fileName);
            break;
        case FileBrowser::Outcome::NotThere:
            remark = "There is no such file or folder.";
            break;
        case FileBrowser::Outcome::Exists:
            remark = "This file exists. Once more to replace it.";
            break;
        case FileBrowser::Outcome::Chosen:
            close();
            answerWith([call = ended, path = browser.chosen()] { call(path); });
            break;
    }
    invalidate();
}

void FileDialogPane::cancelled() {
    close();
    answerWith([call = ended] { call({}); });
}

void FileDialogPane::paint(const Surface& surface, const PixelRect& damaged) {
    DialogPane::paint(surface, damaged);
    drawLine(surface, damaged, kFolder, browser.folder(), kText);
    paintList(surface, damaged);
    field.paint(surface, damaged);
    drawLine(surface, damaged, kRemark, remark, kText);
}

void FileDialogPane::paintList(const Surface& surface, const PixelRect& damaged) const {
    fillRect(surface, damaged, kList, 0xffffff);
    drawFrame(surface, damaged, kList, kFrame);
    const auto count = int32_t(browser.entries().size());
    for (int32_t row = 0; row < kRows && firstShown + row < count; ++row) {
        const int32_t index = firstShown + row;
        const bool lit = index == selected;
        PixelRect place = rowPlace(row);
        if (lit) {
            fillRect(surface, damaged, place, kLitGround);
        }
        place.left += kTextInset;
        drawText(surface, damaged.intersected(place), place.left,
                 centredBaseline(place.top, place.bottom, kFontSize),
                 browser.entries()[size_t(index)].text(), kFontSize, lit ? kLitText : kText);
    }
}

}  // namespace tessel8::x11
