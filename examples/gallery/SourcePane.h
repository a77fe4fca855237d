#pragma once

#include <plix/platform/appkit/NSView.h>

#include <string>
#include <string_view>

namespace plix {

class NSButton;
class NSTextField;
class NSTextView;

}

namespace gallery {

/// A function's text with the name of its file above it, and a button that copies it.
class SourcePane final : public plix::NSView {
public:
    SourcePane();
    ~SourcePane() override;
    bool init(plix::Rect frame);

    /// An empty text says that it was not found.
    void showSource(std::string_view file, std::string text);
    /// Colours follow the appearance when they are set anew.
    void tint();

    std::string const& text() const { return m_text; }
    plix::NSTextView& textView() const { return *m_textView; }
    plix::NSButton& copyButton() const { return *m_copyButton; }
    plix::NSTextField& fileLabel() const { return *m_fileLabel; }
    void copyToPasteboard();

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    std::string m_text;
    plix::Ref<plix::NSTextField> m_fileLabel;
    plix::Ref<plix::NSButton> m_copyButton;
    plix::Ref<plix::NSTextView> m_textView;
};

}
