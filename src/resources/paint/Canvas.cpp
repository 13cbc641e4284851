#include "resources/paint/Canvas.h"

#include <algorithm>
#include <numbers>

namespace tessel8::paint {

namespace {

constexpr int32_t kOversampling = 4;

void setSource(cairo_t* context, Colour colour) {
    cairo_set_source_rgba(context, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0,
                          colour.alpha);
}

}  // namespace

Canvas::Canvas(const Box& box)
    : box_(box),
      surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, box.width() * kOversampling,
                                          box.height() * kOversampling)),
      context_(cairo_create(surface_.get())) {
    cairo_scale(cairo(), kOversampling, kOversampling);
    cairo_translate(cairo(), -box.left, -box.top);
    cairo_set_line_cap(cairo(), CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cairo(), CAIRO_LINE_JOIN_ROUND);
}

void Canvas::over(Picture& ground) const {
    cairo_surface_flush(surface_.get());
    const unsigned char* bytes = cairo_image_surface_get_data(surface_.get());
    const int32_t stride = cairo_image_surface_get_stride(surface_.get());
    constexpr uint32_t kSamples = kOversampling * kOversampling;
    for (int32_t y = 0; y < ground.height; ++y) {
        for (int32_t x = 0; x < ground.width; ++x) {
            uint32_t sums[4] = {};  // blue, green, red, alpha, premultiplied
            for (int32_t row = 0; row < kOversampling; ++row) {
                const unsigned char* sample =
                    bytes + int64_t(y * kOversampling + row) * stride + x * kOversampling * 4;
                for (int32_t i = 0; i < kOversampling * 4; ++i) {
                    sums[i % 4] += sample[i];
                }
            }
            uint32_t& pixel = ground.at(x, y);
            const uint32_t through = 255 * kSamples - sums[3];
            uint32_t result = 0;
            for (int32_t channel = 0; channel < 3; ++channel) {
                const uint32_t below = pixel >> (8 * channel) & 255;
                const uint32_t sum = sums[channel] + (below * through + 127) / 255;
                result |= std::min(255u, (sum + kSamples / 2) / kSamples) << (8 * channel);
            }
            pixel = result;
        }
    }
}

void Canvas::fill(Colour colour) const {
    setSource(cairo(), colour);
    cairo_fill(cairo());
}

void Canvas::stroke(Colour colour, double width) const {
    setSource(cairo(), colour);
    cairo_set_line_width(cairo(), width);
    cairo_stroke(cairo());
}

void Canvas::fillBetween(double x0, double y0, Colour from, double x1, double y1, Colour to) const {
    cairo_pattern_t* pattern = cairo_pattern_create_linear(x0, y0, x1, y1);
    cairo_pattern_add_color_stop_rgba(pattern, 0, from.red / 255.0, from.green / 255.0,
                                      from.blue / 255.0, from.alpha);
    cairo_pattern_add_color_stop_rgba(pattern, 1, to.red / 255.0, to.green / 255.0, to.blue / 255.0,
                                      to.alpha);
    cairo_set_source(cairo(), pattern);
    cairo_fill(cairo());
    cairo_pattern_destroy(pattern);
}

void Canvas::rectangle(double left, double top, double width, double height) const {
    cairo_rectangle(cairo(), left, top, width, height);
}

void Canvas::rounded(double left, double top, double width, double height, double radius) const {
    constexpr double kQuarter = std::numbers::pi / 2;
    const double right = left + width - radius, bottom = top + height - radius;
    cairo_new_sub_path(cairo());
    cairo_arc(cairo(), right, top + radius, radius, -kQuarter, 0);
    cairo_arc(cairo(), right, bottom, radius, 0, kQuarter);
    cairo_arc(cairo(), left + radius, bottom, radius, kQuarter, 2 * kQuarter);
    cairo_arc(cairo(), left + radius, top + radius, radius, 2 * kQuarter, 3 * kQuarter);
    cairo_close_path(cairo());
}

void Canvas::circle(double x, double y, double radius) const {
    cairo_new_sub_path(cairo());
    cairo_arc(cairo(), x, y, radius, 0, 2 * std::numbers::pi);
    cairo_close_path(cairo());
}

void Canvas::line(double x0, double y0, double x1, double y1) const {
    cairo_move_to(cairo(), x0, y0);
    cairo_line_to(cairo(), x1, y1);
}

void Canvas::triangle(double x0, double y0, double x1, double y1, double x2, double y2) const {
    cairo_move_to(cairo(), x0, y0);
    cairo_line_to(cairo(), x1, y1);
    cairo_line_to(cairo(), x2, y2);
    cairo_close_path(cairo());
}

void Canvas::block(double left, double top, double width, double height, Colour colour) const {
    rectangle(left, top, width, height);
    fill(colour);
}

}  // namespace tessel8::paint
