#include "resources/paint/Painters.h"

#include "resources/paint/Families.h"

namespace tessel8::paint {

namespace {

struct Row {
    int32_t first, last;  // numbers of the strips
    Painter painter;
};

// The display's ground 170 and the big line's 244 are bare: parts of the background.
const Row kRows[] = {
    {129, 129, paintLogo},        {131, 134, paintKnob},         {135, 135, paintSlider},
    {137, 138, paintStepKey},     {141, 142, paintToggle},       {143, 144, paintFilterType},
    {145, 152, paintTapLamp},     {153, 153, paintBarScale},     {157, 157, paintRange},
    {158, 158, paintFractionKey}, {159, 159, paintGraphGround},  {160, 160, paintGraphSwitch},
    {161, 161, paintLevelScale},  {162, 162, paintRuler},        {163, 163, paintMeterMode},
    {164, 166, paintWord},        {167, 168, paintLcdArrow},     {169, 169, paintSwitchWord},
    {171, 172, paintSwitchWord},  {173, 175, paintMidiKey},      {176, 177, paintLcdArrow},
    {178, 178, paintClipLamp},    {179, 179, paintWord},         {180, 181, paintBar},
    {182, 183, paintWideBar},     {184, 184, paintBar},          {185, 185, paintDigit},
    {186, 186, paintSource},      {187, 187, paintSwitchWord},   {188, 188, paintTimeMode},
    {189, 189, paintFractionKey}, {190, 190, paintMeterScale},   {191, 191, paintWaves},
    {192, 192, paintMeter},       {193, 194, paintToggle},       {195, 196, paintKnob},
    {197, 197, paintPower},       {198, 199, paintToggle},       {201, 201, paintToggle},
    {203, 204, paintToggle},      {205, 206, paintKnob},         {207, 207, paintTwoWay},
    {208, 208, paintToggle},      {209, 209, paintTwoWay},       {210, 210, paintToggle},
    {211, 218, paintTapSwitch},   {219, 220, paintTapPad},       {221, 221, paintTwoWay},
    {222, 229, paintKnob},        {231, 238, paintKnob},         {240, 240, paintToggle},
    {241, 241, paintFeedbackTap}, {242, 242, paintFeedbackMode}, {243, 243, paintPanic},
    {245, 245, paintBigGlyph},    {246, 246, paintMark},         {247, 247, paintSmallGlyph},
    {988, 988, paintFocusSwitch}, {989, 989, paintManualKey},    {990, 990, paintLoadKey},
    {991, 991, paintSaveKey},     {992, 993, paintStripLabel},   {995, 995, paintRocker},
};

}  // namespace

Painter painterOf(int32_t number) {
    for (const Row& row : kRows) {
        if (number >= row.first && number <= row.last) {
            return row.painter;
        }
    }
    return nullptr;
}

Picture paintStrip(const Strip& strip, const Picture& background) {
    const Painter painter = painterOf(strip.number);
    const Box box = strip.firstBox();
    Picture ground =
        strip.places.empty() ? Picture(strip.width, strip.height) : background.crop(box);
    Picture whole(strip.width, strip.height * strip.images);
    for (int32_t index = 0; index < strip.images; ++index) {
        Picture image = ground;
        if (painter != nullptr) {
            const Canvas canvas(box);
            painter(canvas, {strip, index, box});
            canvas.over(image);
        }
        whole.put(image, 0, strip.height * index);
    }
    return whole;
}

}  // namespace tessel8::paint
