#pragma once

#include "resources/paint/Painters.h"

/// The painters, one for each family of strips.
namespace tessel8::paint {

// Knob.cpp, Slider.cpp
void paintKnob(const Canvas& canvas, const Image& image);
void paintSlider(const Canvas& canvas, const Image& image);
void paintStepKey(const Canvas& canvas, const Image& image);

// Keys.cpp
void paintToggle(const Canvas& canvas, const Image& image);
void paintTapSwitch(const Canvas& canvas, const Image& image);
void paintTwoWay(const Canvas& canvas, const Image& image);
void paintPanic(const Canvas& canvas, const Image& image);
void paintPower(const Canvas& canvas, const Image& image);
void paintTapPad(const Canvas& canvas, const Image& image);

// Lcd.cpp
void paintLcdArrow(const Canvas& canvas, const Image& image);
void paintFractionKey(const Canvas& canvas, const Image& image);
void paintMidiKey(const Canvas& canvas, const Image& image);
void paintBar(const Canvas& canvas, const Image& image);
void paintBarScale(const Canvas& canvas, const Image& image);
void paintWideBar(const Canvas& canvas, const Image& image);
void paintMeter(const Canvas& canvas, const Image& image);
void paintClipLamp(const Canvas& canvas, const Image& image);
void paintTapLamp(const Canvas& canvas, const Image& image);
void paintGraphSwitch(const Canvas& canvas, const Image& image);

// Words.cpp
void paintWord(const Canvas& canvas, const Image& image);
void paintSource(const Canvas& canvas, const Image& image);
void paintRange(const Canvas& canvas, const Image& image);
void paintSwitchWord(const Canvas& canvas, const Image& image);
void paintTimeMode(const Canvas& canvas, const Image& image);
void paintMeterMode(const Canvas& canvas, const Image& image);
void paintDigit(const Canvas& canvas, const Image& image);
void paintSmallGlyph(const Canvas& canvas, const Image& image);
void paintBigGlyph(const Canvas& canvas, const Image& image);
void paintMark(const Canvas& canvas, const Image& image);
void paintFeedbackMode(const Canvas& canvas, const Image& image);
void paintFeedbackTap(const Canvas& canvas, const Image& image);

// FilterCurves.cpp
void paintFilterType(const Canvas& canvas, const Image& image);
void paintWaves(const Canvas& canvas, const Image& image);

// Graph.cpp
void paintGraphGround(const Canvas& canvas, const Image& image);
void paintRuler(const Canvas& canvas, const Image& image);
void paintLevelScale(const Canvas& canvas, const Image& image);
void paintMeterScale(const Canvas& canvas, const Image& image);

// PresetStrip.cpp
void paintLoadKey(const Canvas& canvas, const Image& image);
void paintSaveKey(const Canvas& canvas, const Image& image);
void paintStripLabel(const Canvas& canvas, const Image& image);
void paintRocker(const Canvas& canvas, const Image& image);
void paintFocusSwitch(const Canvas& canvas, const Image& image);
void paintManualKey(const Canvas& canvas, const Image& image);

// Logo.cpp
void paintLogo(const Canvas& canvas, const Image& image);

// Parts of the background. Captions.cpp, DisplayGround.cpp.
void paintCaptions(const Canvas& canvas);
void paintDisplayGround(const Canvas& canvas);

}  // namespace tessel8::paint
