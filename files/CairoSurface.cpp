#include "files/CairoSurface.h"

#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <pango/pangocairo.h>

namespace metrisk {

namespace {

constexpr double unitsPerPoint = 96.0 / 72;

void setColour(cairo_t* context, Colour colour) {
    cairo_set_source_rgb(context, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
}

} // namespace

CairoSurface::CairoSurface(cairo_t* context, double width, double height)
    : DrawingSurface(black, white), context_(context), width_(width), height_(height),
      layout_(pango_cairo_create_layout(context), g_object_unref) {
    cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
    // Text taken out of a PDF would lose the letters of a ligature.
    PangoAttrList* plain = pango_attr_list_new();
    pango_attr_list_insert(plain, pango_attr_font_features_new("liga=0,clig=0"));
    pango_layout_set_attributes(layout_.get(), plain);
    pango_attr_list_unref(plain);
}

void CairoSurface::clear() {
    setColour(context_, BackColor);
    cairo_rectangle(context_, 0, 0, width_, height_);
    cairo_fill(context_);
}

void CairoSurface::drawLine(Point from, Point to, Colour colour) {
    const Point a = toDevice(from);
    const Point b = toDevice(to);
    setColour(context_, colour);
    cairo_set_line_width(context_, DrawWidth);
    cairo_move_to(context_, a.x, a.y);
    cairo_line_to(context_, b.x, b.y);
    cairo_stroke(context_);
}

void CairoSurface::drawBox(Point corner, Point opposite, Colour colour) {
    const Point a = toDevice(corner);
    const Point b = toDevice(opposite);
    setColour(context_, colour);
    cairo_rectangle(context_, std::min(a.x, b.x), std::min(a.y, b.y), std::abs(a.x - b.x),
                    std::abs(a.y - b.y));
    // Sharp edges: boxes beside each other would show their seams.
    cairo_set_antialias(context_, CAIRO_ANTIALIAS_NONE);
    cairo_fill(context_);
    cairo_set_antialias(context_, CAIRO_ANTIALIAS_DEFAULT);
}

PangoLayout* CairoSurface::laidOut(std::string_view text) const {
    if (!(shaped_ == Font)) {
        shaped_ = Font;
        PangoFontDescription* font = pango_font_description_new();
        const std::string family = Font.Family.empty() ? (Font.Fixed ? "Monospace" : "Sans") : Font.Family;
        pango_font_description_set_family(font, family.c_str());
        pango_font_description_set_style(font, Font.Italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
        pango_font_description_set_absolute_size(font, Font.Size * unitsPerPoint * PANGO_SCALE);
        pango_font_description_set_weight(font, Font.Bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
        pango_layout_set_font_description(layout_.get(), font);
        pango_font_description_free(font);
    }
    const std::string drawable = drawableText(text);
    pango_layout_set_text(layout_.get(), drawable.data(), static_cast<int>(drawable.size()));
    return layout_.get();
}

void CairoSurface::drawText(Point topLeft, std::string_view text) {
    const Point at = toDevice(topLeft);
    setColour(context_, ForeColor);
    cairo_move_to(context_, at.x, at.y);
    if (cairo_surface_get_type(cairo_get_target(context_)) != CAIRO_SURFACE_TYPE_SVG) {
        pango_cairo_show_layout(context_, laidOut(text));
        return;
    }
    // As outlines: not every reader of SVG, Qt's among them, knows the symbols that letters would be.
    pango_cairo_layout_path(context_, laidOut(text));
    cairo_fill(context_);
}

double CairoSurface::measureText(std::string_view text) const {
    int width = 0;
    pango_layout_get_size(laidOut(text), &width, nullptr);
    return static_cast<double>(width) / PANGO_SCALE;
}

double CairoSurface::measureLine() const {
    int height = 0;
    pango_layout_get_size(laidOut(""), nullptr, &height);
    return static_cast<double>(height) / PANGO_SCALE;
}

} // namespace metrisk
