#include "resources/paint/Sheets.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

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
