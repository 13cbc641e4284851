#include "toolkit/CTextEdit.h"

#include <utility>

#include "toolkit/CFrame.h"

namespace tessel8 {

CTextEdit::CTextEdit(const CRect& rect, CControlListener* hearer, int32_t identity,
                     std::string initialText, CBitmap* bitmap, int32_t displayStyle)
    : CParamDisplay(rect, hearer, identity, bitmap, displayStyle), text(std::move(initialText)) {}

bool CTextEdit::isTypeOf(std::string_view name) const {
    return name == "CTextEdit" || CParamDisplay::isTypeOf(name);
}

void CTextEdit::setText(const std::string& newText) {
    if (newText != text) {
        text = newText;
        setDirty();
    }
}

void CTextEdit::draw(CDrawContext& context) {
    setDirty(false);
    drawDisplay(context, text);
}

MouseResult CTextEdit::onMouseDown(const CPoint& /*where*/, uint32_t buttons) {
    if (!(buttons & mouse::kLeft) || !getFrame() || getFrame()->getFocusView() == this) {
        return MouseResult::NotHandled;
    }
    LineEditSettings settings;
    settings.place = size.toPixels();
    settings.text = text;
    settings.textColour = fontColour.toPixel();
    settings.groundColour = backColour.toPixel();
    settings.frameColour = frameColour.toPixel();
    settings.fontSize = fontSize;
    getFrame()->setFocusView(this);
    getFrame()->openLineEdit(settings, [self = Shared<CTextEdit>(this)](const std::string& edited) {
        self->endEditing(edited);
    });
    return MouseResult::DownHandledOnly;
}

void CTextEdit::endEditing(const std::string& newText) {
    if (!getFrame()) {
        return;
    }
    if (getFrame()->getFocusView() == this) {
        getFrame()->setFocusView(nullptr);
    }
    setText(newText);
    valueChanged();
}

}  // namespace tessel8
