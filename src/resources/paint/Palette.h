#pragma once

#include <cstdint>

namespace tessel8::paint {

/// A colour with 8 bits a channel and an opacity of 0 to 1.
struct Colour {
    uint8_t red = 0, green = 0, blue = 0;
    double alpha = 1.0;

    constexpr Colour withAlpha(double opacity) const { return {red, green, blue, opacity}; }
};

/// The colour that lies `share` (0 to 1) of the way from `a` to `b`.
constexpr Colour mix(Colour a, Colour b, double share) {
    const auto blend = [share](uint8_t x, uint8_t y) {
        return uint8_t(x + (y - x) * share + 0.5);  // NOLINT: never negative
    };
    return {blend(a.red, b.red), blend(a.green, b.green), blend(a.blue, b.blue),
            a.alpha + (b.alpha - a.alpha) * share};
}

constexpr Colour kBlack = {0, 0, 0};
constexpr Colour kWhite = {255, 255, 255};

// The slate of the panel. The light falls from the top left.
constexpr Colour kPlate = {44, 50, 57};       ///< the plate
constexpr Colour kRow = {50, 57, 65};         ///< ground of the tap rows, flat
constexpr Colour kRowDark = {34, 39, 45};     ///< groove between two rows
constexpr Colour kRowLight = {60, 68, 77};    ///< lit edge under a groove
constexpr Colour kWell = {27, 31, 36};        ///< bottom of grooves, tracks and key gaps
constexpr Colour kKeyTop = {74, 83, 93};      ///< upper edge of a key that is off
constexpr Colour kKeyFoot = {54, 61, 69};     ///< its lower edge
constexpr Colour kRowLine = {112, 123, 132};  ///< rules and brackets on the plate
constexpr Colour kCaption = {222, 229, 233};
constexpr Colour kQuiet = {190, 200, 207};  ///< captions of second rank and labels of dark keys
constexpr Colour kInk = {20, 26, 28};       ///< labels on lit keys

// The display: ground and light are also the colours that the graph draws with at run time.
constexpr Colour kLcd = {62, 89, 78};
constexpr Colour kLcdLight = {142, 205, 177};
constexpr Colour kLcdText = {176, 233, 208};    ///< text and lit fields
constexpr Colour kLcdSoft = {151, 214, 187};    ///< words that are not lit, still readable
constexpr Colour kLcdDim = {84, 119, 104};      ///< dark segments, rules and frames
constexpr Colour kLcdDeep = {48, 70, 61};       ///< troughs
constexpr Colour kLcdInk = {29, 45, 38};        ///< text on a lit field
constexpr Colour kLcdMiddle = {103, 148, 128};  ///< ground of the graph, between both its colours

// The preset strip.
constexpr Colour kField = {189, 207, 218};
constexpr Colour kFieldInk = {36, 36, 32};

// One accent a section, of equal brightness.
constexpr Colour kMint = {142, 205, 177};    ///< level and delay
constexpr Colour kAmber = {232, 182, 104};   ///< feedback
constexpr Colour kIce = {136, 190, 232};     ///< filter
constexpr Colour kRose = {222, 154, 194};    ///< modulation
constexpr Colour kCoral = {240, 148, 116};   ///< drive
constexpr Colour kViolet = {180, 170, 238};  ///< reverb
constexpr Colour kAlarm = {236, 92, 78};     ///< clip and panic

}  // namespace tessel8::paint
