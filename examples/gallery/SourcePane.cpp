#include "SourcePane.h"
#include "bars.h"
#include "source_tint.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSTextStorage.h>
#include <plix/platform/graphics/appearance.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float copyWidth = 64;
constexpr float fontSize = 11;

Ref<NSColor> colorOf(Tint tint)
{
    bool const isDark = currentAppearance() == Appearance::dark;
    auto const color = [](int red, int green, int blue) {
        return NSColor::colorWithCalibratedRed(
            static_cast<float>(red) / 255, static_cast<float>(green) / 255, static_cast<float>(blue) / 255, 1);
    };
    switch (tint) {
    case Tint::comment:
        return isDark ? color(140, 150, 140) : color(100, 112, 100);
    case Tint::text:
        return isDark ? color(240, 150, 120) : color(168, 50, 30);
    case Tint::number:
        return isDark ? color(200, 170, 255) : color(110, 50, 170);
    case Tint::keyword:
        return isDark ? color(255, 140, 190) : color(160, 20, 110);
    case Tint::type:
        return isDark ? color(130, 200, 235) : color(20, 90, 140);
    }
    return NSColor::textColor();
}

}

SourcePane::SourcePane() = default;
SourcePane::~SourcePane() = default;

bool SourcePane::init(Rect frame)
{
    if (!NSView::init(frame))
        return false;
    m_fileLabel = NSTextField::labelWithString("");
    m_fileLabel->setFont(NSFont::systemFontOfSize(11));
    m_fileLabel->cell()->setLineBreakMode(NSLineBreakByTruncatingMiddle);
    m_fileLabel->setFrame({ 12, 14, frame.width - copyWidth - 32, 16 });
    m_fileLabel->setAutoresizingMask(NSViewWidthSizable);
    addSubview(*m_fileLabel);

    m_copyButton = make<NSButton>(Rect { frame.width - copyWidth - 10, 10, copyWidth, 24 });
    m_copyButton->setBezelStyle(NSRoundedBezelStyle);
    m_copyButton->cell()->setControlSize(NSSmallControlSize);
    m_copyButton->setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    m_copyButton->setTitle("Copy");
    m_copyButton->setToolTip("Copies the whole function");
    m_copyButton->setAutoresizingMask(NSViewMinXMargin);
    m_copyButton->setTarget(*this, &SourcePane::copyToPasteboard);
    addSubview(*m_copyButton);

    auto const scroll = make<NSScrollView>(Rect { 0, barHeight, frame.width, frame.height - barHeight });
    scroll->setHasVerticalScroller(true);
    scroll->setHasHorizontalScroller(true);
    scroll->setAutohidesScrollers(true);
    scroll->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_textView = make<NSTextView>(Rect { 0, 0, 10, 10 });
    m_textView->setEditable(false);
    m_textView->setSelectable(true);
    m_textView->setTextContainerInset({ 10, 10 });
    m_textView->setHorizontallyResizable(true);
    m_textView->setFont(NSFont::userFixedPitchFontOfSize(fontSize));
    scroll->setBackgroundColor(NSColor::textBackgroundColor());
    scroll->setDocumentView(m_textView);
    addSubview(*scroll);
    return true;
}

void SourcePane::showSource(std::string_view file, std::string text)
{
    m_text = std::move(text);
    m_fileLabel->setStringValue(file);
    m_copyButton->setEnabled(!m_text.empty());
    m_textView->setString(m_text.empty() ? "The source is not here." : m_text);
    m_textView->setSelectedRange({ 0, 0 });
    m_textView->scrollPoint({});
    tint();
}

void SourcePane::tint()
{
    auto& storage = *m_textView->textStorage();
    storage.beginEditing();
    NSRange const all { 0, storage.length() };
    storage.addAttribute(NSFontAttributeName, NSFont::userFixedPitchFontOfSize(fontSize), all);
    storage.addAttribute(
        NSForegroundColorAttributeName, m_text.empty() ? NSColor::disabledControlTextColor() : NSColor::textColor(), all);
    for (auto const& [range, tint] : tintedRanges(m_text))
        storage.addAttribute(NSForegroundColorAttributeName, colorOf(tint), range);
    storage.endEditing();
    m_textView->setNeedsDisplay(true);
    setNeedsDisplay(true);
}

void SourcePane::copyToPasteboard()
{
    auto& pasteboard = NSPasteboard::generalPasteboard();
    pasteboard.declareTypes({ NSStringPboardType }, nullptr);
    pasteboard.setString(m_text, NSStringPboardType);
}

void SourcePane::drawRect(Rect)
{
    drawBar({ 0, 0, bounds().width, barHeight }, NSMaxYEdge);
}

}
