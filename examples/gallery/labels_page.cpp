#include "labels_page.h"
#include "EngravedPage.h"

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextAttachmentCell.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>

#include <cmath>
#include <string>

namespace gallery {

using namespace plix;

namespace {

constexpr float columnWidth = 104;
constexpr char const* columnNames[] { "Active", "Inactive", "Disabled", "Active", "Inactive", "Disabled" };
constexpr long columns = std::size(columnNames);

/// Stays in the state that it was put in.
class Sample final : public PLIXChiseledTextField {
public:
    using PLIXChiseledTextField::init;
    void viewDidMoveToWindow() override { }
};

void putOn(long state, PLIXChiseledTextField& label)
{
    if (state == 1)
        label.deactivate(nullptr);
    if (state == 2)
        label.setEnabled(false);
}

Ref<Sample> sample(std::string_view text, Ref<NSFont> const& font)
{
    auto made = make<Sample>(Rect { 0, 0, columnWidth - 8, 20 });
    made->setFont(font);
    made->setAlignment(NSCenterTextAlignment);
    made->setStringValue(text);
    return made;
}

/// As high as its text, in the middle of the strip.
void put(PLIXChiseledTextField& label, EngravedGround& band, long column)
{
    float const height = label.cell()->cellSize().height;
    label.setFrame(
        { static_cast<float>(column) * columnWidth + 4, std::floor((band.bounds().height - height) / 2), columnWidth - 8, height });
    band.addSubview(label);
}

Ref<NSFont> fontOf(long column)
{
    return column < columns / 2 ? NSFont::systemFontOfSize(13) : NSFont::boldSystemFontOfSize(11);
}

void addStates(EngravedPage& page, std::string_view caption, float level)
{
    auto& band = page.addBand(caption, level);
    for (long column = 0; column < columns; ++column) {
        auto const label = sample("Engraved", fontOf(column));
        putOn(column % 3, *label);
        put(*label, band, column);
    }
}

void addTexts(EngravedPage& page)
{
    constexpr std::pair<char const*, NSTextAlignment> texts[] {
        { "Left", NSLeftTextAlignment },
        { "Centre", NSCenterTextAlignment },
        { "Right", NSRightTextAlignment },
        { "Ärger über", NSCenterTextAlignment },
        { "Сегодня", NSCenterTextAlignment },
        { "שלום", NSCenterTextAlignment },
    };
    auto& band = page.addBand("Texts", texturedGround);
    for (long column = 0; auto const& [text, alignment] : texts) {
        auto const label = sample(text, NSFont::systemFontOfSize(13));
        label->setAlignment(alignment);
        put(*label, band, column++);
    }
}

void addSizes(EngravedPage& page)
{
    auto& band = page.addBand("Sizes", texturedGround, 48);
    for (long column = 0; float const size : { 9.0F, 11.0F, 13.0F, 16.0F, 20.0F, 26.0F })
        put(*sample("Size", NSFont::systemFontOfSize(size)), band, column++);
}

Ref<NSImage> dot()
{
    auto image = make<NSImage>(Size { 10, 10 });
    FocusLock const focus(*image);
    NSColor::colorWithCalibratedRed(0.2F, 0.55F, 0.25F, 1)->set();
    NSBezierPath::bezierPathWithOvalInRect({ 0.5F, 0.5F, 9, 9 })->fill();
    return image;
}

/// An image in the text is no part of the engraving.
void addImages(EngravedPage& page)
{
    auto& band = page.addBand("With an image", texturedGround);
    auto const style = make<NSMutableParagraphStyle>();
    style->setAlignment(NSCenterTextAlignment);
    for (long column = 0; column < columns; ++column) {
        auto const label = sample({}, fontOf(column));
        auto const attachment = make<NSTextAttachment>();
        attachment->attachmentCell()->setImage(dot());
        auto const text = make<NSMutableAttributedString>(
            "  Online", Attributes { { NSFontAttributeName, fontOf(column) }, { NSParagraphStyleAttributeName, style } });
        text->insertAttributedString(*NSTextAttachment::attributedStringWithAttachment(*attachment), 0);
        text->addAttribute(NSParagraphStyleAttributeName, style, { 0, text->length() });
        putOn(column % 3, *label);
        label->setAttributedStringValue(text);
        put(*label, band, column);
    }
}

void addOwnColors(EngravedPage& page)
{
    auto& band = page.addBand("Own colours", texturedGround);
    for (long column = 0; column < columns; ++column) {
        auto const label = sample("Engraved", fontOf(column));
        bool const isBlue = column < columns / 2;
        label->setActiveColor(NSColor::colorWithCalibratedRed(isBlue ? 0.05F : 0.45F, 0.1F, isBlue ? 0.5F : 0.1F, 1));
        label->setInactiveColor(label->activeColor()->colorWithAlphaComponent(0.6F));
        label->setDisabledColor(NSColor::colorWithCalibratedWhite(0.6F, 1));
        label->setShadowActiveColor(NSColor::colorWithCalibratedWhite(1, 0.9F));
        label->activate(nullptr);
        putOn(column % 3, *label);
        put(*label, band, column);
    }
}

void addLive(EngravedPage& page)
{
    auto& band = page.addBand("This window", texturedGround);
    auto const label = make<PLIXChiseledTextField>(Rect { 10, 9, 200, 18 });
    label->setFont(NSFont::boldSystemFontOfSize(13));
    label->setStringValue("Active with its window");
    band.addSubview(*label);
    auto const enabled = make<NSButton>(Rect { band.frame().x + 8, band.frame().maxY() + 10, 100, 18 });
    enabled->setButtonType(NSSwitchButton);
    enabled->setTitle("Enabled");
    enabled->setState(NSOnState);
    enabled->setActionFunction([weak = Weak<PLIXChiseledTextField>(label.get())](NSObject* sender) {
        if (auto const live = weak.ref())
            live->setEnabled(static_cast<NSButton&>(*sender).state() == NSOnState);
    });
    page.addSubview(*enabled);
    page.skip(28);
}

}

Ref<NSView> makeLabelsPage()
{
    auto page = make<EngravedPage>(columns, columnWidth);
    page->addHeading("Engraved labels");
    page->addColumnNames(columnNames);
    page->addSystems(addStates);
    addOwnColors(*page);
    addImages(*page);
    page->skip(12);
    addTexts(*page);
    addSizes(*page);
    page->skip(20);
    page->addHeading("To be tried");
    addLive(*page);
    page->sizeToBands();
    return page;
}

Ref<NSView> makeManyLabelsPage()
{
    constexpr int across = 10;
    constexpr int down = 30;
    constexpr Size cell { 84, 18 };
    constexpr float edge = 12;
    auto ground
        = make<EngravedGround>(Rect { 0, 0, across * cell.width + 2 * edge, down * cell.height + 2 * edge }, texturedGround);
    for (int i = 0; i < across * down; ++i) {
        Point const origin { edge + cell.width * static_cast<float>(i % across),
            edge + cell.height * static_cast<float>(i / across) };
        auto const label = make<PLIXChiseledTextField>(rectWith(origin, { cell.width - 4, cell.height }));
        label->setFont(i % 2 == 0 ? NSFont::systemFontOfSize(11) : NSFont::boldSystemFontOfSize(11));
        label->setStringValue("Label " + std::to_string(i + 1));
        ground->addSubview(*label);
    }
    return ground;
}

}
