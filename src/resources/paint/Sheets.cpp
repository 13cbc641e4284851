#include "resources/paint/Sheets.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "resources/paint/PixelFont.h"
#include "resources/paint/Text.h"

namespace tessel8::paint {

namespace {

constexpr int32_t kSheetWidth = 1200, kMagnified = 2, kGap = 10, kLegend = 12;

void writePng(const Picture& picture, const std::string& path) {
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, picture.width, picture.height);
    unsigned char* data = cairo_image_surface_get_data(surface);
    const int32_t stride = cairo_image_surface_get_stride(surface);
    for (int32_t y = 0; y < picture.height; ++y) {
        std::memcpy(data + int64_t(y) * stride, &picture.pixels[size_t(y) * picture.width],
                    size_t(picture.width) * 4);
    }
    cairo_surface_mark_dirty(surface);
    const cairo_status_t status = cairo_surface_write_to_png(surface, path.c_str());
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error("cannot write " + path);
    }
}

Picture imageOf(const Strip& strip, const Picture& whole, int32_t index) {
    const int32_t image = std::clamp(index, 0, strip.images - 1);
    return whole.crop({0, strip.height * image, strip.width, strip.height * (image + 1)});
}

void putText(Picture& panel, const Picture& sheet, const Strip& strip, const std::string& text,
             int32_t left, int32_t top, int32_t pitch) {
    for (size_t i = 0; i < text.size(); ++i) {
        panel.put(imageOf(strip, sheet, text[i]), left + int32_t(i) * pitch, top);
    }
}

const Strip& stripOf(int32_t number) {
    const auto& table = stripTable();
    return *std::find_if(table.begin(), table.end(),
                         [number](const Strip& strip) { return strip.number == number; });
}

/// Stems and flags about as the graph draws them: the preview would be empty without.
void putStems(Picture& panel) {
    const Canvas canvas({0, 0, panel.width, panel.height});
    for (int32_t tap = 0; tap < kTaps; ++tap) {
        const int32_t x = 225 + 36 * (tap + 1), y = 75, top = 45 + 5 * tap;
        const bool on = tap != 5;
        canvas.block(x, std::min(y, top), 3, std::abs(y - top) + 1, kLcd);
        if (tap % 2 == 0) {
            canvas.block(x + 1, std::min(y, top) + 1, 1, std::abs(y - top) - 1, kLcdLight);
        }
        canvas.block(x + 3, y - 10, 9, 11, on ? kLcd : kLcdLight);
        drawPixels(canvas, std::to_string(tap + 1), x + 5, y - 8, on ? kLcdLight : kLcd);
    }
    canvas.over(panel);
}

Picture magnified(const Picture& picture, int32_t times) {
    Picture large(picture.width * times, picture.height * times);
    for (int32_t y = 0; y < large.height; ++y) {
        for (int32_t x = 0; x < large.width; ++x) {
            large.at(x, y) = picture.at(x / times, y / times);
        }
    }
    return large;
}

}  // namespace

void writePreview(const Pictures& pictures, Mode mode, const std::string& path) {
    Picture panel = pictures.at(kBackground);
    for (const Strip& strip : stripTable()) {
        for (const Place& place : strip.places) {
            if (place.mode != Mode::kBoth && place.mode != mode) {
                continue;
            }
            for (int32_t i = 0; i < place.count; ++i) {
                int32_t image = place.shown + i * place.shownStep;
                if (strip.number == 161 && mode == Mode::kGraph) {
                    image += 11;
                }
                panel.put(imageOf(strip, pictures.at(strip.number), image),
                          place.left + i * place.stepX, place.top + i * place.stepY);
            }
        }
    }
    if (mode == Mode::kPanel) {
        putText(panel, pictures.at(245), stripOf(245), "DEL2:16 T.16", 225, 80, 18);
        putText(panel, pictures.at(247), stripOf(247), "Tap 2 Delay Time: Value        Note", 225,
                98, 6);
    }
    if (mode == Mode::kGraph) {
        putStems(panel);
    }
    const Canvas words({0, 0, panel.width, panel.height});
    TextStyle style;
    style.capHeight = 8;
    style.bold = false;
    style.colour = kFieldInk;
    drawText(words, "Dotted Tessellation", 273, 561, style);
    words.over(panel);
    writePng(panel, path);
}

void writeContactSheet(const Pictures& pictures, const std::string& path) {
    Picture sheet(kSheetWidth, 6000);
    std::fill(sheet.pixels.begin(), sheet.pixels.end(), 0x808080u);
    const Canvas legends({0, 0, sheet.width, sheet.height});
    int32_t x = kGap, y = kGap, rowHeight = 0;
    for (const Strip& strip : stripTable()) {
        std::vector<int32_t> shown;
        for (int32_t i = 0; i < strip.images; ++i) {
            // Everything of a short strip, a few steps of a long one.
            if (strip.images <= 22 || i % std::max(1, (strip.images - 1) / 8) == 0) {
                shown.push_back(i);
            }
        }
        if (strip.width > 100 && shown.size() > 5) {
            shown = {0, strip.images / 4, strip.images / 2, strip.images - 1};
        }
        const int32_t height = strip.height * kMagnified;
        for (size_t i = 0; i < shown.size(); ++i) {
            const int32_t width = strip.width * kMagnified;
            if (x + width > sheet.width - kGap) {
                x = kGap;
                y += rowHeight + kGap + kLegend;
                rowHeight = 0;
            }
            if (y + height + kLegend > sheet.height) {
                break;
            }
            sheet.put(magnified(imageOf(strip, pictures.at(strip.number), shown[i]), kMagnified), x,
                      y + kLegend);
            if (i == 0) {
                TextStyle style;
                style.colour = kBlack;
                style.align = Align::kLeft;
                drawText(legends, std::to_string(strip.number), x, y + kLegend - 3, style);
            }
            x += width + 2;
            rowHeight = std::max(rowHeight, height);
        }
        x += kGap;
    }
    legends.over(sheet);
    writePng(sheet.crop({0, 0, sheet.width, std::min(sheet.height, y + rowHeight + 40)}), path);
}

}  // namespace tessel8::paint
