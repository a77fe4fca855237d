#include <plix/inspector/InspectorPanel.h>

#include <plix/inspector/TextTable.h>
#include <plix/inspector/ViewOutline.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <array>

namespace plix {

namespace {

constexpr Size panelSize { 460, 680 };
constexpr Size smallestPanel { 400, 400 };
constexpr float margin = 12;
constexpr float barHeight = 44;
constexpr float buttonHeight = 24;
constexpr float gapBesideWindow = 8;
/// Of the room for all three.
constexpr std::array paneShares { 0.42F, 0.33F, 0.25F };

/// Looks the same whether the panel has the keyboard or not: it is never key.
class InspectorContent final : public NSView {
public:
    bool looksActive() const override { return true; }
};

}

PLIX_DESCRIBE(InspectorPanel)
{
}

InspectorPanel::InspectorPanel() = default;
InspectorPanel::~InspectorPanel() = default;

bool InspectorPanel::init()
{
    if (!NSPanel::init(rectWith({}, panelSize), NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask,
            NSBackingStoreBuffered, true))
        return false;
    setTitle("Inspector");
    setHidesOnDeactivate(false);
    setWorksWhenModal(true);
    setContentMinSize(smallestPanel);
    auto const content = make<InspectorContent>();
    setContentView(content);
    makeControls(*content);
    makeTables(*content);
    setAutorecalculatesKeyViewLoop(true);
    return true;
}

Ref<NSButton> InspectorPanel::makeButton(NSView& content, char const* title, Rect frame, unsigned autoresizingMask)
{
    auto button = make<NSButton>(frame);
    button->setTitle(title);
    button->setAutoresizingMask(autoresizingMask);
    button->setBezelStyle(NSRoundedBezelStyle);
    content.addSubview(*button);
    return button;
}

void InspectorPanel::makeControls(NSView& content)
{
    float const top = panelSize.height - (barHeight + buttonHeight) / 2;
    float const bottom = (barHeight - buttonHeight) / 2;
    m_pick = makeButton(content, "Pick", { margin, top, 80, buttonHeight }, NSViewMinYMargin);
    m_pick->setButtonType(NSPushOnPushOffButton);
    m_pick->setToolTip("Selects the view that is clicked next.");
    m_frames = makeButton(content, "All frames", { margin + 100, top, 110, buttonHeight }, NSViewMinYMargin);
    m_frames->setButtonType(NSSwitchButton);
    m_frames->setToolTip("Shows the frames of all views.");
    m_flashes = makeButton(content, "Dirty areas", { margin + 220, top, 120, buttonHeight }, NSViewMinYMargin);
    m_flashes->setButtonType(NSSwitchButton);
    m_flashes->setToolTip("Tints each area that is drawn.");
    m_copy = makeButton(content, "Copy as Test", { panelSize.width - margin - 120, bottom, 120, buttonHeight },
        NSViewMinXMargin | NSViewMaxYMargin);
    m_copy->setToolTip("Copies the events as the source of a test.");
    m_clear = makeButton(
        content, "Clear", { panelSize.width - margin - 208, bottom, 80, buttonHeight }, NSViewMinXMargin | NSViewMaxYMargin);
    m_clear->setToolTip("Forgets the events.");
    m_status = NSTextField::labelWithString("");
    m_status->setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    m_status->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    m_status->setFrame({ margin, bottom + 4, panelSize.width - 2 * margin - 220, 16 });
    m_status->setAutoresizingMask(NSViewWidthSizable | NSViewMaxYMargin);
    content.addSubview(*m_status);
}

void InspectorPanel::makeTables(NSView& content)
{
    m_views = make<ViewOutline>();
    static constexpr std::array fieldColumns { TextColumn { "field", "Field", 110 }, TextColumn { "value", "Value", 300 } };
    m_fields = make<TextTable>(fieldColumns);
    static constexpr std::array eventColumns { TextColumn { "event", "Event", 80 }, TextColumn { "place", "Place", 80 },
        TextColumn { "keys", "Keys", 110 }, TextColumn { "view", "View", 130 } };
    m_events = make<TextTable>(eventColumns);
    m_events->setFollowsLastRow(true);
    Rect const area { margin, barHeight, panelSize.width - 2 * margin, panelSize.height - 2 * barHeight };
    auto const split = make<NSSplitView>(area);
    split->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    std::array const panes { &m_views->scrollView(), &m_fields->scrollView(), &m_events->scrollView() };
    float const room = area.height - 2 * split->dividerThickness();
    float y = 0;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        float const height = room * paneShares[i];
        panes[i]->setFrame({ 0, y, area.width, height });
        y += height + split->dividerThickness();
        split->addSubview(*panes[i]);
    }
    split->adjustSubviews();
    content.addSubview(*split);
    m_views->outline().sizeLastColumnToFit();
    m_fields->table().sizeLastColumnToFit();
    m_events->table().sizeLastColumnToFit();
    setInitialFirstResponder(&m_views->outline());
}

void InspectorPanel::showFields(std::vector<FieldRow> const& fields)
{
    TextTable::Rows rows;
    for (auto const& field : fields)
        rows.push_back({ field.name, field.value });
    m_fields->setRows(std::move(rows));
}

void InspectorPanel::showEvents(std::vector<RecordedEvent> const& events)
{
    TextTable::Rows rows;
    for (auto const& event : events) {
        auto const row = eventRow(event);
        rows.push_back({ row.what, row.place, row.keys, row.view });
    }
    m_events->setRows(std::move(rows));
    m_copy->setEnabled(!events.empty());
    m_clear->setEnabled(!events.empty());
}

void InspectorPanel::showStatus(std::string const& text)
{
    if (m_status->stringValue() != text)
        m_status->setStringValue(text);
}

void InspectorPanel::placeBeside(NSWindow const& window)
{
    auto* const onScreen = window.screen();
    Rect const area = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    Rect const beside = window.frame();
    auto const size = frame().size();
    setFrameTopLeftPoint({ std::max(std::min(beside.maxX() + gapBesideWindow, area.maxX() - size.width), area.x),
        std::clamp(beside.maxY(), std::min(area.y + size.height, area.maxY()), area.maxY()) });
}

void InspectorPanel::takeKey(NSEvent& event)
{
    Ref<InspectorPanel> const protector(this);
    // Tables have no use for it, and keep it.
    if (event.characterIgnoringModifiers() == NSEscapeCharacter)
        performClose(nullptr);
    else if (!event.hasShortcutModifier() || !performKeyEquivalent(event))
        sendEvent(event);
}

}
