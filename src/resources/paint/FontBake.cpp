#include "resources/paint/FontBake.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "resources/Pack.h"

namespace tessel8::paint {

namespace {

struct Range {
    uint32_t first, last;
};

// Latin, Latin-1, Extended-A and a little of B, Greek, Cyrillic, punctuation, arrows, signs.
constexpr Range kRanges[] = {{0x20, 0x7E},     {0xA0, 0x17F},    {0x192, 0x192},   {0x218, 0x21B},
                             {0x2C6, 0x2DD},   {0x386, 0x3CE},   {0x400, 0x45F},   {0x490, 0x491},
                             {0x2010, 0x2026}, {0x2030, 0x203A}, {0x20AC, 0x20AC}, {0x2116, 0x2122},
                             {0x2190, 0x2193}, {0x221E, 0x221E}, {0x2260, 0x2265}};

// Capitals of 8 and 10 pixels: the smallest that are read with ease, and on whole pixel rows.
constexpr double emOf(int32_t size) {
    return size <= 9 ? 11.0 : 14.0;
}

struct Free {
    void operator()(void* object) const { g_object_unref(object); }
    void operator()(PangoFontDescription* face) const { pango_font_description_free(face); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

class Baker {
  public:
    explicit Baker(int32_t size)
        : size_(size),
          map_(pango_cairo_font_map_new()),
          context_(pango_font_map_create_context(map_.get())),
          layout_(pango_layout_new(context_.get())) {
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
        pango_cairo_context_set_font_options(context_.get(), options);
        cairo_font_options_destroy(options);
        const std::unique_ptr<PangoFontDescription, Free> face(pango_font_description_new());
        pango_font_description_set_family(face.get(), "Liberation Sans, DejaVu Sans");
        pango_font_description_set_absolute_size(face.get(), emOf(size) * PANGO_SCALE);
        pango_layout_set_font_description(layout_.get(), face.get());
    }

    std::vector<uint8_t> bake() {
        for (const Range& range : kRanges) {
            for (uint32_t code = range.first; code <= range.last; ++code) {
                addGlyph(code);
            }
        }
        addBox();
        return packed();
    }

  private:
    bool inOwnFonts(uint32_t code) const {
        (void)code;
        if (pango_layout_get_unknown_glyphs_count(layout_.get()) > 0) {
            return false;
        }
        const std::unique_ptr<PangoLayoutIter, void (*)(PangoLayoutIter*)> run(
            pango_layout_get_iter(layout_.get()), pango_layout_iter_free);
        const PangoLayoutRun* item = pango_layout_iter_get_run_readonly(run.get());
        if (item == nullptr) {
            return true;  // a blank
        }
        const std::unique_ptr<PangoFontDescription, Free> face(
            pango_font_describe(item->item->analysis.font));
        const std::string family = pango_font_description_get_family(face.get());
        return family == "Liberation Sans" || family == "DejaVu Sans";
    }

    void addGlyph(uint32_t code) {
        char text[6] = {};
        const int32_t bytes = g_unichar_to_utf8(code, text);
        pango_layout_set_text(layout_.get(), text, bytes);
        if (!inOwnFonts(code)) {
            return;
        }
        PangoRectangle ink, logical;
        pango_layout_get_pixel_extents(layout_.get(), &ink, &logical);
        const int32_t baseline = pango_layout_get_baseline(layout_.get()) / PANGO_SCALE;
        // One pixel of room around: smoothing may reach beyond the extents.
        const int32_t width = ink.width + 2, height = ink.height + 2;
        const std::unique_ptr<cairo_surface_t, Free> surface(
            cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
        const std::unique_ptr<cairo_t, Free> cairo(cairo_create(surface.get()));
        cairo_move_to(cairo.get(), 1 - ink.x, 1 - ink.y);
        pango_cairo_show_layout(cairo.get(), layout_.get());
        cairo_surface_flush(surface.get());

        const bool blank = ink.width == 0 || ink.height == 0;
        resources::Glyph glyph = {};
        glyph.width = uint16_t(blank ? 0 : width);
        glyph.height = uint16_t(blank ? 0 : height);
        glyph.left = int16_t(ink.x - 1);
        glyph.top = int16_t(baseline - ink.y + 1);
        glyph.advance = uint16_t(logical.width);
        glyph.offset = uint32_t(coverage_.size());
        const unsigned char* data = cairo_image_surface_get_data(surface.get());
        const int32_t stride = cairo_image_surface_get_stride(surface.get());
        for (int32_t y = 0; y < glyph.height; ++y) {
            const unsigned char* row = data + int64_t(y) * stride;
            coverage_.insert(coverage_.end(), row, row + glyph.width);
        }
        codes_.push_back(code);
        glyphs_.push_back(glyph);
        ascent_ = std::max(ascent_, baseline);
        descent_ = std::max(descent_, logical.height - baseline);
    }

    /// Stands for every character that the font has not.
    void addBox() {
        const auto height = uint16_t(std::lround(emOf(size_) * 0.7));
        const auto width = uint16_t(std::lround(emOf(size_) * 0.5));
        glyphs_.push_back(
            {width, height, 1, int16_t(height), uint16_t(width + 2), uint32_t(coverage_.size())});
        for (int32_t y = 0; y < height; ++y) {
            for (int32_t x = 0; x < width; ++x) {
                const bool rim = x == 0 || y == 0 || x == width - 1 || y == height - 1;
                coverage_.push_back(rim ? 255 : 0);
            }
        }
    }

    std::vector<uint8_t> packed() const {
        const resources::FontHead head = {size_, ascent_, descent_, uint32_t(codes_.size())};
        std::vector<uint8_t> bytes;
        const auto append = [&bytes](const void* data, size_t count) {
            const auto* from = static_cast<const uint8_t*>(data);
            bytes.insert(bytes.end(), from, from + count);
        };
        append(&head, sizeof head);
        append(codes_.data(), codes_.size() * sizeof codes_[0]);
        for (const resources::Glyph& glyph : glyphs_) {
            uint8_t raw[sizeof glyph] = {};  // no chance bytes in the padding
            std::memcpy(raw + offsetof(resources::Glyph, width), &glyph.width, 2);
            std::memcpy(raw + offsetof(resources::Glyph, height), &glyph.height, 2);
            std::memcpy(raw + offsetof(resources::Glyph, left), &glyph.left, 2);
            std::memcpy(raw + offsetof(resources::Glyph, top), &glyph.top, 2);
            std::memcpy(raw + offsetof(resources::Glyph, advance), &glyph.advance, 2);
            std::memcpy(raw + offsetof(resources::Glyph, offset), &glyph.offset, 4);
            append(raw, sizeof raw);
        }
        append(coverage_.data(), coverage_.size());
        return bytes;
    }

    int32_t size_;
    std::unique_ptr<PangoFontMap, Free> map_;
    std::unique_ptr<PangoContext, Free> context_;
    std::unique_ptr<PangoLayout, Free> layout_;
    std::vector<uint32_t> codes_;
    std::vector<resources::Glyph> glyphs_;
    std::vector<uint8_t> coverage_;
    int32_t ascent_ = 0, descent_ = 0;
};

}  // namespace

std::vector<uint8_t> bakeFont(int32_t size) {
    return Baker(size).bake();
}

}  // namespace tessel8::paint
