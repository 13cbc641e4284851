#include "resources/paint/Text.h"

#include <pango/pangocairo.h>

#include <algorithm>

namespace tessel8::paint {

namespace {

constexpr double kCapShare = 1409.0 / 2048;  // of the em, in Liberation Sans

}  // namespace

double drawText(const Canvas& canvas, const std::string& text, double x, double y,
                const TextStyle& style) {
    cairo_t* cairo = canvas.cairo();
    PangoLayout* layout = pango_cairo_create_layout(cairo);
    PangoFontDescription* face = pango_font_description_new();
    pango_font_description_set_family(face, "Liberation Sans, DejaVu Sans");
    pango_font_description_set_weight(face, style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(face, style.capHeight / kCapShare * PANGO_SCALE);
    pango_layout_set_font_description(layout, face);

    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(pango_layout_get_context(layout), options);

    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes,
                           pango_attr_letter_spacing_new(int(style.spacing * PANGO_SCALE)));
    pango_layout_set_attributes(layout, attributes);
    pango_layout_set_text(layout, text.c_str(), int(text.size()));

    PangoRectangle ink, logical;
    pango_layout_get_extents(layout, &ink, &logical);
    const double natural = double(ink.width) / PANGO_SCALE;
    const double stretch =
        style.maxWidth > 0 && natural > style.maxWidth ? style.maxWidth / natural : 1.0;
    const double width = natural * stretch;
    const double left = style.align == Align::kLeft     ? x
                        : style.align == Align::kCentre ? x - width / 2
                                                        : x - width;

    cairo_save(cairo);
    cairo_translate(cairo, left, y);
    cairo_scale(cairo, stretch, 1);
    cairo_translate(cairo, -double(ink.x) / PANGO_SCALE,
                    -double(pango_layout_get_baseline(layout)) / PANGO_SCALE);
    cairo_new_path(cairo);
    cairo_move_to(cairo, 0, 0);
    pango_cairo_layout_path(cairo, layout);
    cairo_restore(cairo);
    canvas.fill(style.colour);

    pango_attr_list_unref(attributes);
    cairo_font_options_destroy(options);
    pango_font_description_free(face);
    g_object_unref(layout);
    return width;
}

void drawJustified(const Canvas& canvas, const std::string& text, double left, double right,
                   double y, TextStyle style) {
    // Measured far outside of the panel, without spacing.
    style.align = Align::kLeft;
    style.spacing = 0;
    style.maxWidth = 0;
    const double natural = drawText(canvas, text, left, -1000, style);
    style.spacing = (right - left - natural) / (double(text.size()) - 1);
    drawText(canvas, text, left, y, style);
}

}  // namespace tessel8::paint
