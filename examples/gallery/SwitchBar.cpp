#include "SwitchBar.h"
#include "bars.h"
#include "flow_layout.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/NSFont.h>

#include <array>
#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr FlowSpacing spacing { .margin = 10, .gap = 18, .rowHeight = 24, .rowGap = 8 };
constexpr float captionGap = 6;
constexpr float segmentPadding = 22;

/// The process may have been started as on a system that the switch does not have.
long segmentOf(std::uint32_t systemVersion)
{
    return systemVersion >= 0x1050 ? 1 : 0;
}

Ref<NSFont> smallFont()
{
    return NSFont::systemFontOfSize(NSFont::smallSystemFontSize());
}

void makeSmall(NSControl& control)
{
    control.cell()->setControlSize(NSSmallControlSize);
    control.setFont(smallFont());
}

Ref<NSTextField> captionOf(std::string_view text)
{
    auto label = NSTextField::labelWithString(text);
    label->setFont(smallFont());
    label->sizeToFit();
    return label;
}

}

SwitchBar::SwitchBar() = default;
SwitchBar::~SwitchBar() = default;

bool SwitchBar::init(float width)
{
    if (!NSView::init(Rect { 0, 0, width, barHeight }))
        return false;
    static constexpr std::array versions { "10.4", "10.5" };
    static constexpr std::array appearances { "Light", "Dark" };
    static constexpr std::array scales { "1\u00D7", "2\u00D7" };
    static constexpr std::array activities { "Key", "Inactive" };
    m_appearance = addSwitch("Look", appearances, "The colours of everything");
    m_scale = addSwitch("Scale", scales, "The size of the page");
    m_active = addSwitch("Window", activities, "As in the window with the keyboard, or in another");
    m_version = addSwitch("System", versions, "The system’s version, by which some looks differ");
    m_highlight = make<NSPopUpButton>(Rect { 0, 0, 110, 22 }, false);
    makeSmall(*m_highlight);
    m_highlight->addItemsWithTitles({ "As it is", "Rectangle", "Capsule", "Rounded" });
    m_highlight->setToolTip("The shape of selected rows in the library’s tables");
    m_highlight->setTarget(*this, &SwitchBar::changed);
    add("Highlight", *m_highlight);
    m_enabled = make<NSButton>(Rect { 0, 0, 90, 18 });
    m_enabled->setButtonType(NSSwitchButton);
    m_enabled->setTitle("Enabled");
    makeSmall(*m_enabled);
    m_enabled->sizeToFit();
    m_enabled->setToolTip("Whether the page’s controls can be used");
    m_enabled->setTarget(*this, &SwitchBar::changed);
    add("", *m_enabled);
    setSettings({});
    setFrameSize({ width, heightForWidth(width) });
    layOut();
    return true;
}

void SwitchBar::add(std::string_view caption, NSView& control)
{
    auto const group = make<NSView>(Rect { 0, 0, 0, spacing.rowHeight });
    float x = 0;
    if (!caption.empty()) {
        auto const label = captionOf(caption);
        label->setFrameOrigin({ 0, std::floor((spacing.rowHeight - label->frame().height) / 2) });
        group->addSubview(*label);
        x = std::ceil(label->frame().maxX()) + captionGap;
    }
    control.setFrameOrigin({ x, std::floor((spacing.rowHeight - control.frame().height) / 2) });
    group->addSubview(control);
    group->setFrameSize({ std::ceil(control.frame().maxX()), spacing.rowHeight });
    addSubview(*group);
    m_groups.push_back(group);
}

Ref<NSSegmentedControl> SwitchBar::addSwitch(std::string_view caption, std::span<char const* const> labels, char const* toolTip)
{
    auto control = make<NSSegmentedControl>(Rect { 0, 0, 0, 22 });
    makeSmall(*control);
    control->setSegmentCount(static_cast<long>(labels.size()));
    float width = 2;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        float const wanted = captionOf(labels[i])->frame().width + segmentPadding;
        control->setLabel(labels[i], static_cast<long>(i));
        control->setWidth(std::ceil(wanted), static_cast<long>(i));
        width += std::ceil(wanted) + 1;
    }
    control->setFrameSize({ width, 22 });
    control->setToolTip(toolTip);
    control->setTarget(*this, &SwitchBar::changed);
    add(caption, *control);
    return control;
}

void SwitchBar::setSettings(GallerySettings const& settings)
{
    m_settings = settings;
    m_highlight->selectItemAtIndex(settings.highlightStyle ? static_cast<long>(*settings.highlightStyle) + 1 : 0);
    m_version->setSelectedSegment(segmentOf(settings.systemVersion));
    m_appearance->setSelectedSegment(settings.appearance == Appearance::dark ? 1 : 0);
    m_scale->setSelectedSegment(settings.scale == 2 ? 1 : 0);
    m_active->setSelectedSegment(settings.looksActive ? 0 : 1);
    m_enabled->setState(settings.isEnabled ? NSOnState : NSOffState);
}

void SwitchBar::changed()
{
    long const style = m_highlight->indexOfSelectedItem() - 1;
    GallerySettings const settings { .highlightStyle
        = style >= 0 ? std::optional(static_cast<std::uint32_t>(style)) : std::optional<std::uint32_t>(),
        .systemVersion = segmentOf(m_settings.systemVersion) == m_version->selectedSegment() ? m_settings.systemVersion
            : m_version->selectedSegment() == 1                                              ? 0x1050U
                                                                                             : 0x1049U,
        .appearance = m_appearance->selectedSegment() == 1 ? Appearance::dark : Appearance::light,
        .scale = m_scale->selectedSegment() == 1 ? 2 : 1,
        .looksActive = m_active->selectedSegment() == 0,
        .isEnabled = m_enabled->state() == NSOnState };
    if (settings == m_settings)
        return;
    m_settings = settings;
    if (m_change)
        m_change(settings);
}

std::vector<float> SwitchBar::widths() const
{
    std::vector<float> all;
    for (auto const& group : m_groups)
        all.push_back(group->frame().width);
    return all;
}

float SwitchBar::heightForWidth(float width) const
{
    return flowHeight(widths(), width, spacing);
}

void SwitchBar::layOut()
{
    auto const places = flowLayout(widths(), bounds().width, spacing);
    for (std::size_t i = 0; i < places.size(); ++i)
        m_groups[i]->setFrameOrigin(places[i].origin());
    setNeedsDisplay(true);
}

void SwitchBar::drawRect(Rect)
{
    drawBar(bounds(), NSMinYEdge);
}

}
