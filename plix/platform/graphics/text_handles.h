#pragma once

#include <plix/platform/graphics/handles.h>

#include <fontconfig/fontconfig.h>
#include <hb.h>
#include <pango/pangocairo.h>

// Private to plix/platform/graphics.

namespace plix {

template <> struct HandleDeleter<cairo_scaled_font_t> {
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
};
template <> struct HandleDeleter<PangoFontMap> {
    void operator()(PangoFontMap* map) const { g_object_unref(map); }
};
template <> struct HandleDeleter<PangoContext> {
    void operator()(PangoContext* context) const { g_object_unref(context); }
};
template <> struct HandleDeleter<PangoFont> {
    void operator()(PangoFont* font) const { g_object_unref(font); }
};
template <> struct HandleDeleter<PangoLayout> {
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};
template <> struct HandleDeleter<PangoFontDescription> {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
template <> struct HandleDeleter<PangoAttrList> {
    void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
};
template <> struct HandleDeleter<PangoTabArray> {
    void operator()(PangoTabArray* tabs) const { pango_tab_array_free(tabs); }
};
template <> struct HandleDeleter<PangoGlyphString> {
    void operator()(PangoGlyphString* glyphs) const { pango_glyph_string_free(glyphs); }
};
template <> struct HandleDeleter<FcConfig> {
    void operator()(FcConfig* configuration) const { FcConfigDestroy(configuration); }
};
template <> struct HandleDeleter<hb_buffer_t> {
    void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
};
template <> struct HandleDeleter<hb_set_t> {
    void operator()(hb_set_t* set) const { hb_set_destroy(set); }
};
template <> struct HandleDeleter<hb_blob_t> {
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
};

}
