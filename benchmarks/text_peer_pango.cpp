#include "text_peer.h"

#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

namespace plix::bench {

namespace {

constexpr char configuration[] = R"(<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd"><fontconfig>
<dir>/usr/share/fonts/opentype/inter</dir><dir>/usr/share/fonts/truetype/dejavu</dir>
<cachedir>/var/cache/fontconfig</cachedir><cachedir prefix="xdg">fontconfig</cachedir></fontconfig>)";
constexpr int fontSize = 13;

}

struct PangoPeer::Parts {
    FcConfig* fonts { FcConfigCreate() };
    PangoFontMap* map { pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT) };
    PangoContext* context { nullptr };
    PangoFontDescription* font { pango_font_description_from_string("Inter,DejaVu Sans") };
    cairo_surface_t* surface { cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1000, 800) };
    cairo_t* cairo { cairo_create(surface) };

    PangoLayout* layout(std::string_view text) const
    {
        auto* layout = pango_layout_new(context);
        pango_layout_set_font_description(layout, font);
        pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
        return layout;
    }
};

PangoPeer::PangoPeer()
    : m_parts(std::make_unique<Parts>())
{
    auto& parts = *m_parts;
    FcConfigParseAndLoadFromMemory(parts.fonts, reinterpret_cast<FcChar8 const*>(configuration), FcTrue);
    FcConfigBuildFonts(parts.fonts);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(parts.map), parts.fonts);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(parts.map), 72);
    parts.context = pango_font_map_create_context(parts.map);
    auto* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(parts.context, options);
    cairo_font_options_destroy(options);
    pango_font_description_set_absolute_size(parts.font, fontSize * PANGO_SCALE);
}

PangoPeer::~PangoPeer()
{
    cairo_destroy(m_parts->cairo);
    cairo_surface_destroy(m_parts->surface);
    pango_font_description_free(m_parts->font);
    g_object_unref(m_parts->context);
    g_object_unref(m_parts->map);
    FcConfigDestroy(m_parts->fonts);
}

void PangoPeer::clear()
{
    cairo_set_source_rgb(m_parts->cairo, 1, 1, 1);
    cairo_paint(m_parts->cairo);
    cairo_set_source_rgb(m_parts->cairo, 0, 0, 0);
}

void PangoPeer::draw(std::string_view text, double x, double y)
{
    auto* layout = m_parts->layout(text);
    cairo_move_to(m_parts->cairo, x, y);
    pango_cairo_show_layout(m_parts->cairo, layout);
    g_object_unref(layout);
}

int PangoPeer::measure(std::string_view text)
{
    auto* layout = m_parts->layout(text);
    int width = 0;
    int height = 0;
    pango_layout_get_pixel_size(layout, &width, &height);
    g_object_unref(layout);
    return width;
}

}
