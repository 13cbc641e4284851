#include "platform/linux/MessagePane.h"

#include <sstream>
#include <utility>

#include "platform/TextPainter.h"

namespace tessel8::x11 {

namespace {

constexpr int32_t kWidth = 400;    // pixels
constexpr int32_t kLineSpace = 4;  // between lines

int32_t lineStep() {
    return lineHeight(DialogPane::kFontSize) + kLineSpace;
}

/// Breaks text at line ends and between words.
std::vector<std::string> wrapped(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream paragraphs(text);
    for (std::string paragraph; std::getline(paragraphs, paragraph);) {
        std::istringstream words(paragraph);
        std::string line;
        for (std::string word; words >> word;) {
            std::string longer = line;
            longer.append(line.empty() ? "" : " ").append(word);
            if (!line.empty() &&
                textWidth(longer, DialogPane::kFontSize) > kWidth - 2 * DialogPane::kMargin) {
                lines.push_back(std::exchange(line, word));
            } else {
                line = std::move(longer);
            }
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

MessagePane::MessagePane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                         const std::string& title, const std::string& text,
                         std::function<void()> whenEnded)
    : MessagePane(theSession, panel, title, wrapped(text), std::move(whenEnded)) {}

MessagePane::MessagePane(const std::shared_ptr<Session>& theSession, const Pane& panel,
                         const std::string& title, std::vector<std::string> theLines,
                         std::function<void()> whenEnded)
    : DialogPane(theSession, panel, title, kWidth,
                 3 * kMargin + int32_t(theLines.size()) * lineStep() + kButtonHeight),
      lines(std::move(theLines)),
      ended(std::move(whenEnded)) {
    addButton("OK", [this] { accepted(); });
}

void MessagePane::accepted() {
    close();
    answerWith(ended);
}

void MessagePane::paint(const Surface& surface, const PixelRect& damaged) {
    DialogPane::paint(surface, damaged);
    for (size_t i = 0; i < lines.size(); ++i) {
        const int32_t top = kMargin + int32_t(i) * lineStep();
        drawText(surface, damaged, kMargin, centredBaseline(top, top + lineStep(), kFontSize),
                 lines[i], kFontSize, kText);
    }
}

}  // namespace tessel8::x11
