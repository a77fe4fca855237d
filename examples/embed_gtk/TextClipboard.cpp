#include "TextClipboard.h"
#include "GLibLoop.h"
#include "gtk_translation.h"

#include <memory>

namespace embed_gtk {

namespace {

/// How long another application may take to hand its text out, in seconds.
constexpr double s_patience = 1;

struct Reading {
    bool isDone { false };
    std::optional<std::string> text;
};

void readingDone(GObject* clipboard, GAsyncResult* result, gpointer data)
{
    std::unique_ptr<std::shared_ptr<Reading>> const reading(static_cast<std::shared_ptr<Reading>*>(data));
    auto* const text = gdk_clipboard_read_text_finish(instanceOf<GdkClipboard>(clipboard, GDK_TYPE_CLIPBOARD), result, nullptr);
    (*reading)->isDone = true;
    if (text)
        (*reading)->text = text;
    g_free(text);
}

}

TextClipboard::TextClipboard(GLibLoop& loop)
    : m_loop(loop)
    , m_clipboard(gdk_display_get_clipboard(gdk_display_get_default()))
{
    auto const changed = +[](GdkClipboard*, TextClipboard* self) { ++self->m_changeCount; };
    g_signal_connect(m_clipboard, "changed", reinterpret_cast<GCallback>(changed), this);
}

std::optional<std::string> TextClipboard::text()
{
    if (!hasText())
        return {};
    // GDK answers later; it may do that after the patience is over.
    auto const reading = std::make_shared<Reading>();
    gdk_clipboard_read_text_async(m_clipboard, nullptr, readingDone, new std::shared_ptr<Reading>(reading));
    m_loop.runWithoutTurns(s_patience, [&reading] { return reading->isDone; });
    return reading->text;
}

void TextClipboard::setText(std::string_view text)
{
    gdk_clipboard_set_text(m_clipboard, std::string(text).c_str());
}

bool TextClipboard::hasText()
{
    auto* const formats = gdk_clipboard_get_formats(m_clipboard);
    return gdk_content_formats_contain_gtype(formats, G_TYPE_STRING) != 0
        || gdk_content_formats_contain_mime_type(formats, "text/plain;charset=utf-8") != 0
        || gdk_content_formats_contain_mime_type(formats, "text/plain") != 0;
}

}
