#include "chiseled_page.h"

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/machine_identity.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

#include <array>
#include <cmath>
#include <utility>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 20;
constexpr float captionWidth = 120;
constexpr float columnWidth = 104;
constexpr float bandHeight = 36;
constexpr float labelHeight = 16;
constexpr float buttonHeight = 20;
// Engraved titles are dark whatever the appearance: their grounds stay light.
constexpr float plainGround = 0.93F;
constexpr float texturedGround = 0.8F;

enum class State { idle, hovered, pressed, disabled, inactive, inactiveDisabled };

constexpr std::pair<State, char const*> states[] {
    { State::idle, "Normal" },
    { State::hovered, "Hovered" },
    { State::pressed, "Pressed" },
    { State::disabled, "Disabled" },
    { State::inactive, "Inactive" },
    { State::inactiveDisabled, "Inactive, disabled" },
};
constexpr float pageWidth = 2 * margin + captionWidth + static_cast<float>(std::size(states)) * columnWidth;

/// Stays in the state that it was put in.
class Sample final : public PLIXChiseledTextPopUpButton {
public:
    using PLIXChiseledTextPopUpButton::init;
    void UpdateTrackingRect() override { }
    void viewDidMoveToWindow() override { }
    NSView* hitTest(Point) override { return nullptr; }
};

void putOn(State state, PLIXChiseledTextPopUpButton& button)
{
    if (state == State::inactive || state == State::inactiveDisabled)
        button.deactivate(nullptr);
    if (state == State::hovered)
        button.setImage(button.ConstructMouseOverImage());
    button.cell()->setHighlighted(state == State::pressed);
    button.setEnabled(state != State::disabled && state != State::inactiveDisabled);
}

/// A strip of a window's background.
class Ground final : public NSView {
public:
    bool init(Rect frame, float level)
    {
        m_level = level;
        return NSView::init(frame);
    }
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::colorWithCalibratedWhite(m_level, 1)->set();
        NSRectFill(dirty);
    }

private:
    float m_level { 1 };
};

class Page final : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(dirty);
    }
    void addLabel(std::string_view text, Rect frame, NSTextAlignment alignment, bool isHeading = false)
    {
        auto const label = NSTextField::labelWithString(text);
        label->setFont(isHeading ? NSFont::boldSystemFontOfSize(11) : NSFont::systemFontOfSize(11));
        label->setAlignment(alignment);
        label->setFrame(frame);
        addSubview(*label);
    }
    void addHeading(std::string_view text)
    {
        addLabel(text, { margin, m_y, 300, labelHeight }, NSLeftTextAlignment, true);
        m_y += labelHeight + 8;
    }
    /// A strip with its caption; what it shows goes on it.
    Ground& addBand(std::string_view caption, float level)
    {
        addLabel(caption, { margin, m_y + (bandHeight - labelHeight) / 2, captionWidth - 12, labelHeight }, NSRightTextAlignment);
        auto const band
            = make<Ground>(Rect { margin + captionWidth, m_y, pageWidth - 2 * margin - captionWidth, bandHeight }, level);
        addSubview(*band);
        m_y += bandHeight;
        return *band;
    }
    void skip(float distance) { m_y += distance; }
    void addStateNames()
    {
        float x = margin + captionWidth;
        for (auto const& [state, name] : states) {
            addLabel(name, { x, m_y, columnWidth, labelHeight }, NSCenterTextAlignment);
            x += columnWidth;
        }
        m_y += labelHeight + 6;
    }
    void end() { setFrameSize({ pageWidth, m_y + margin }); }

private:
    float m_y { margin };
};

/// The default colours of labels are those of another system as long as this lives.
class SystemColors {
public:
    explicit SystemColors(std::uint32_t version)
    {
        machineIdentity().setSystemVersion(version);
        for (std::size_t i = 0; i < m_globals.size(); ++i) {
            m_colors[i] = m_globals[i]->ref();
            *m_globals[i] = nullptr;
        }
    }
    ~SystemColors()
    {
        machineIdentity().setSystemVersion(m_version);
        for (std::size_t i = 0; i < m_globals.size(); ++i)
            *m_globals[i] = m_colors[i];
    }
    SystemColors(SystemColors const&) = delete;
    SystemColors& operator=(SystemColors const&) = delete;

private:
    std::uint32_t m_version { machineIdentity().systemVersion() };
    std::array<Global<NSColor>*, 5> m_globals { &PLIXChiseledTextField_ActiveColor, &PLIXChiseledTextField_ShadowActiveColor,
        &PLIXChiseledTextField_InactiveColor, &PLIXChiseledTextField_ShadowInactiveColor, &PLIXChiseledTextField_DisabledColor };
    std::array<Ref<NSColor>, 5> m_colors;
};

void center(PLIXChiseledTextPopUpButton& button, float x)
{
    auto const size = button.frame().size();
    button.setFrameOrigin({ std::floor(x + (columnWidth - size.width) / 2), std::floor((bandHeight - size.height) / 2) });
}

void addStates(Page& page, std::string_view caption, float level, std::uint32_t version)
{
    SystemColors const colors(version);
    auto& band = page.addBand(caption, level);
    float x = 0;
    for (auto const& [state, name] : states) {
        auto const button = make<Sample>(Rect { 0, 0, 80, buttonHeight });
        button->setTitle("Options");
        center(*button, x);
        putOn(state, *button);
        band.addSubview(*button);
        x += columnWidth;
    }
}

void addTitles(Page& page)
{
    constexpr std::pair<char const*, State> titles[] {
        { "A", State::hovered },
        { "Longer title", State::hovered },
        { "Ärger über", State::hovered },
        { "Сегодня", State::hovered },
        { "", State::hovered },
        { "", State::pressed },
    };
    auto& band = page.addBand("Titles", plainGround);
    float x = 0;
    for (auto const& [title, state] : titles) {
        auto const button = make<Sample>(Rect { 0, 0, 80, buttonHeight });
        button->setTitle(title);
        center(*button, x);
        putOn(state, *button);
        band.addSubview(*button);
        x += columnWidth;
    }
}

void addSizes(Page& page)
{
    auto& band = page.addBand("Height to fit", plainGround);
    float x = 0;
    for (float const size : { 9.0F, 11.0F, 13.0F, 15.0F, 18.0F }) {
        auto const button = make<Sample>(Rect { 0, 0, 80, buttonHeight });
        button->SetSizeHeightToFit(true);
        button->setFont(NSFont::boldSystemFontOfSize(size));
        button->setTitle("Size");
        center(*button, x);
        putOn(State::hovered, *button);
        band.addSubview(*button);
        x += columnWidth;
    }
}

/// With a menu; the title becomes that of the chosen item.
void addLive(Ground& band, float x, long anchor)
{
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { x, (bandHeight - buttonHeight) / 2, 80, buttonHeight });
    button->SetFrameAnchorMask(anchor);
    for (auto const* title : { "Today", "This week", "In the last twelve months" }) {
        auto const item = button->addItemWithTitle(title);
        item->setActionFunction([weak = Weak<PLIXChiseledTextPopUpButton>(button)](NSObject* sender) {
            if (auto const live = weak.ref())
                live->selectItemAtIndex(live->menu()->indexOfItem(static_cast<NSMenuItem&>(*sender)));
        });
    }
    button->selectItemAtIndex(1);
    band.addSubview(*button);
}

}

Ref<NSView> makeChiseledPage()
{
    auto page = make<Page>(Rect { 0, 0, pageWidth, 100 });
    page->addHeading("Pop-up buttons with engraved titles");
    page->addStateNames();
    addStates(*page, "10.4, plain", plainGround, 0x1049);
    addStates(*page, "10.4, textured", texturedGround, 0x1049);
    page->skip(12);
    addStates(*page, "10.5, plain", plainGround, 0x1050);
    addStates(*page, "10.5, textured", texturedGround, 0x1050);
    page->skip(12);
    addTitles(*page);
    addSizes(*page);
    page->skip(20);
    page->addHeading("To be tried");
    auto& band = page->addBand("Right, left edge", plainGround);
    addLive(band, 180, 1);
    addLive(band, 360, 0);
    page->end();
    return page;
}

}
