#pragma once

#include <cairo.h>

#include <memory>

#include "resources/paint/Palette.h"
#include "resources/paint/Picture.h"

namespace tessel8::paint {

/// A transparent drawing over one rectangle of the panel, four times as large as it will be shown
/// so that edges come out clean. One unit is one pixel of the panel, counted from its top left.
class Canvas {
  public:
    explicit Canvas(const Box& box);

    cairo_t* cairo() const { return context_.get(); }
    const Box& box() const { return box_; }
    /// Lays the reduced drawing over `ground`, a picture of the canvas's box.
    void over(Picture& ground) const;

    void fill(Colour colour) const;
    void stroke(Colour colour, double width) const;
    /// Fills the path between two colours from (x0, y0) to (x1, y1), and keeps none of it.
    void fillBetween(double x0, double y0, Colour from, double x1, double y1, Colour to) const;

    // Paths.
    void rectangle(double left, double top, double width, double height) const;
    void rounded(double left, double top, double width, double height, double radius) const;
    void circle(double x, double y, double radius) const;
    void line(double x0, double y0, double x1, double y1) const;
    void triangle(double x0, double y0, double x1, double y1, double x2, double y2) const;

    /// A filled rectangle in one call, on whole pixels for LCD work.
    void block(double left, double top, double width, double height, Colour colour) const;

  private:
    struct Free {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    Box box_;
    std::unique_ptr<cairo_surface_t, Free> surface_;
    std::unique_ptr<cairo_t, Free> context_;
};

}  // namespace tessel8::paint
