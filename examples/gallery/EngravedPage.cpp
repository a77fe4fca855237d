#include "EngravedPage.h"

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/machine_identity.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float labelHeight = 16;

std::array<Global<NSColor>*, 5> const globals { &PLIXChiseledTextField_ActiveColor, &PLIXChiseledTextField_ShadowActiveColor,
    &PLIXChiseledTextField_InactiveColor, &PLIXChiseledTextField_ShadowInactiveColor, &PLIXChiseledTextField_DisabledColor };

}

void EngravedGround::drawRect(Rect dirty)
{
    NSColor::colorWithCalibratedWhite(m_level, 1)->set();
    NSRectFill(dirty);
}

bool EngravedPage::init(long columns, float columnWidth)
{
    m_columnWidth = columnWidth;
    return NSView::init({ 0, 0, 2 * margin + captionWidth + static_cast<float>(columns) * columnWidth, 100 });
}

void EngravedPage::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
}

void EngravedPage::addLabel(std::string_view text, Rect frame, NSTextAlignment alignment, bool isHeading)
{
    auto const label = NSTextField::labelWithString(text);
    label->setFont(isHeading ? NSFont::boldSystemFontOfSize(11) : NSFont::systemFontOfSize(11));
    label->setAlignment(alignment);
    label->setFrame(frame);
    addSubview(*label);
}

void EngravedPage::addHeading(std::string_view text)
{
    addLabel(text, { margin, m_y, 300, labelHeight }, NSLeftTextAlignment, true);
    m_y += labelHeight + 8;
}

void EngravedPage::addColumnNames(std::span<char const* const> names)
{
    float x = margin + captionWidth;
    for (char const* name : names) {
        addLabel(name, { x, m_y, m_columnWidth, labelHeight }, NSCenterTextAlignment, false);
        x += m_columnWidth;
    }
    m_y += labelHeight + 6;
}

EngravedGround& EngravedPage::addBand(std::string_view caption, float level, float height)
{
    addLabel(caption, { margin, m_y + (height - labelHeight) / 2, captionWidth - 12, labelHeight }, NSRightTextAlignment, false);
    auto const band = make<EngravedGround>(Rect { margin + captionWidth, m_y, width() - 2 * margin - captionWidth, height }, level);
    addSubview(*band);
    m_y += height;
    return *band;
}

void EngravedPage::addSystems(void (*addStrip)(EngravedPage&, std::string_view caption, float level))
{
    constexpr std::pair<char const*, std::uint32_t> systems[] { { "10.4", 0x1049 }, { "10.5", 0x1050 } };
    for (auto const& [name, version] : systems) {
        SystemColors const colors(version);
        addStrip(*this, std::string(name) + ", plain", plainGround);
        addStrip(*this, std::string(name) + ", textured", texturedGround);
        skip(12);
    }
}

void EngravedPage::sizeToBands()
{
    setFrameSize({ width(), m_y + margin });
}

void forgetLabelColors()
{
    for (auto* global : globals)
        *global = nullptr;
}

SystemColors::SystemColors(std::uint32_t version)
    : m_version(machineIdentity().systemVersion())
{
    machineIdentity().setSystemVersion(version);
    for (std::size_t i = 0; i < globals.size(); ++i) {
        m_colors[i] = globals[i]->ref();
        *globals[i] = nullptr;
    }
}

SystemColors::~SystemColors()
{
    machineIdentity().setSystemVersion(m_version);
    for (std::size_t i = 0; i < globals.size(); ++i)
        *globals[i] = m_colors[i];
}

}
