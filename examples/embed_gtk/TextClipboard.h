#pragma once

#include <plix/hosting.h>

#include <gtk/gtk.h>

namespace embed_gtk {

class GLibLoop;

/// GDK's clipboard, which both sides share.
class TextClipboard final : public plix::Clipboard {
public:
    explicit TextClipboard(GLibLoop&);

    // plix::Clipboard:
    std::optional<std::string> text() override;
    void setText(std::string_view) override;
    bool hasText() override;
    long changeCount() override { return m_changeCount; }

private:
    GLibLoop& m_loop;
    GdkClipboard* m_clipboard { nullptr };
    long m_changeCount { 0 };
};

}
