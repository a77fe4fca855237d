#include "page_parts.h"
#include "EngravedPage.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAffineTransform.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace gallery {

using namespace plix;

namespace {

constexpr float hintHeight = 18;

class Captioned final : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
};

Ref<NSColor> rgb(int red, int green, int blue)
{
    return NSColor::colorWithCalibratedRed(
        static_cast<float>(red) / 255, static_cast<float>(green) / 255, static_cast<float>(blue) / 255, 1);
}

// All are drawn in a square of 16 points.

void fillPath(std::initializer_list<Point> points, Ref<NSColor> const& fill, Ref<NSColor> const& edge)
{
    auto const path = NSBezierPath::bezierPath();
    for (auto const& point : points) {
        if (path->isEmpty())
            path->moveToPoint(point);
        else
            path->lineToPoint(point);
    }
    path->closePath();
    path->setLineWidth(1);
    path->setLineJoinStyle(NSRoundLineJoinStyle);
    fill->set();
    path->fill();
    edge->set();
    path->stroke();
}

void drawPaper()
{
    fillPath({ { 3.5F, 0.5F }, { 12.5F, 0.5F }, { 12.5F, 11.5F }, { 8.5F, 15.5F }, { 3.5F, 15.5F } }, rgb(252, 252, 252),
        rgb(130, 136, 148));
    fillPath({ { 8.5F, 15.5F }, { 8.5F, 11.5F }, { 12.5F, 11.5F } }, rgb(214, 219, 228), rgb(130, 136, 148));
    rgb(170, 176, 188)->set();
    for (float const y : { 3.0F, 5.0F, 7.0F, 9.0F })
        NSRectFill({ 5, y, 6, 1 });
}

void drawFolder()
{
    auto const edge = rgb(70, 120, 190);
    fillPath({ { 0.5F, 2.5F }, { 15.5F, 2.5F }, { 15.5F, 12.5F }, { 7.5F, 12.5F }, { 6.5F, 14.5F }, { 0.5F, 14.5F } },
        rgb(120, 172, 236), edge);
    fillPath({ { 0.5F, 2.5F }, { 15.5F, 2.5F }, { 15.5F, 10.5F }, { 0.5F, 10.5F } }, rgb(152, 196, 246), edge);
}

void drawStar()
{
    constexpr float pi = 3.14159265F;
    auto const path = NSBezierPath::bezierPath();
    for (int i = 0; i < 10; ++i) {
        float const angle = pi / 2 + static_cast<float>(i) * pi / 5;
        float const radius = i % 2 == 0 ? 7.1F : 3;
        Point const point { 8 + radius * std::cos(angle), 7.5F + radius * std::sin(angle) };
        if (i == 0)
            path->moveToPoint(point);
        else
            path->lineToPoint(point);
    }
    path->closePath();
    rgb(250, 196, 54)->set();
    path->fill();
    rgb(206, 146, 20)->set();
    path->setLineWidth(1);
    path->setLineJoinStyle(NSRoundLineJoinStyle);
    path->stroke();
}

void drawNote()
{
    rgb(150, 96, 200)->set();
    NSRectFill({ 6, 4, 1.5F, 10 });
    NSRectFill({ 12.5F, 3, 1.5F, 10 });
    fillPath({ { 6.5F, 13.5F }, { 13.5F, 12.5F }, { 13.5F, 10.5F }, { 6.5F, 11.5F } }, rgb(150, 96, 200), rgb(150, 96, 200));
    NSBezierPath::bezierPathWithOvalInRect({ 2.5F, 2, 5, 4 })->fill();
    NSBezierPath::bezierPathWithOvalInRect({ 9, 1, 5, 4 })->fill();
}

void drawDisc()
{
    rgb(96, 178, 110)->set();
    NSBezierPath::bezierPathWithOvalInRect({ 1, 1, 14, 14 })->fill();
    rgb(240, 250, 242)->set();
    NSBezierPath::bezierPathWithOvalInRect({ 6, 6, 4, 4 })->fill();
}

void drawWarning()
{
    fillPath({ { 1, 1.5F }, { 15, 1.5F }, { 8, 14.5F } }, rgb(250, 200, 30), rgb(204, 146, 10));
    rgb(40, 40, 40)->set();
    NSRectFill({ 7.25F, 5.5F, 1.5F, 5 });
    NSRectFill({ 7.25F, 3, 1.5F, 1.5F });
}

}

// MARK: controls

Ref<NSButton> pushButton(std::string_view title, std::function<void()> pressed)
{
    auto button = make<NSButton>(Rect { 0, 0, 80, 28 });
    button->setBezelStyle(NSRoundedBezelStyle);
    button->setTitle(title);
    button->sizeToFit();
    button->setFrameSize({ std::max(80.0F, std::ceil(button->frame().width)), 28 });
    if (pressed)
        button->setActionFunction([pressed = std::move(pressed)](NSObject*) { pressed(); });
    return button;
}

Ref<NSButton> checkBox(std::string_view title, std::function<void(bool)> switched)
{
    auto box = make<NSButton>(Rect { 0, 0, 80, 18 });
    box->setButtonType(NSSwitchButton);
    box->setTitle(title);
    box->sizeToFit();
    box->setFrameSize({ std::ceil(box->frame().width) + 4, 18 });
    if (switched)
        box->setActionFunction(
            [switched = std::move(switched)](NSObject* sender) { switched(static_cast<NSButton*>(sender)->state() == NSOnState); });
    return box;
}

Ref<NSTextField> hint(std::string_view text)
{
    auto label = NSTextField::labelWithString(text);
    label->setFont(NSFont::systemFontOfSize(11));
    label->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    label->sizeToFit();
    return label;
}

Ref<NSTextField> textField(std::string_view text, float width)
{
    auto field = make<NSTextField>(Rect { 0, 0, width, 22 });
    field->cell()->setScrollable(true);
    field->setStringValue(text);
    return field;
}

Ref<NSView> captioned(std::string_view caption, Ref<NSView> const& view, float height)
{
    auto const label = hint(caption);
    label->setAlignment(NSCenterTextAlignment);
    auto const size = view->frame().size();
    float const width = std::max(size.width, std::ceil(label->frame().width));
    float const place = std::max(size.height, height);
    auto both = make<Captioned>(Rect { 0, 0, width, place + hintHeight });
    view->setFrameOrigin({ std::floor((width - size.width) / 2), std::floor((place - size.height) / 2) });
    label->setFrame({ 0, place + 3, width, 15 });
    both->addSubview(*view);
    both->addSubview(*label);
    return both;
}

float heightAboveCaption(NSView const& view)
{
    float const height = view.frame().height;
    return dynamic_cast<Captioned const*>(&view) ? height - hintHeight : height;
}

static void refuseKeyboard(NSView& view)
{
    if (auto* const control = dynamic_cast<NSControl*>(&view))
        control->setRefusesFirstResponder(true);
    for (auto const& subview : view.subviews())
        refuseKeyboard(*subview);
}

Ref<NSView> still(Ref<NSView> const& view)
{
    class Still : public NSView {
    public:
        using NSView::init;
        NSView* hitTest(Point) override { return nullptr; }
        bool performKeyEquivalent(NSEvent&) override { return false; }
    };
    refuseKeyboard(*view);
    auto picture = make<Still>(rectWith({}, view->frame().size()));
    view->setFrameOrigin({});
    picture->addSubview(*view);
    return picture;
}

Ref<NSView> onLightGround(Ref<NSView> const& view, float width)
{
    auto ground = make<EngravedGround>(Rect { 0, 0, width, view->frame().height + 12 }, plainGround);
    ground->setAppearance(Appearance::light);
    view->setFrameOrigin({ 8, 6 });
    ground->addSubview(*view);
    return ground;
}

Ref<NSScrollView> scrolled(Ref<NSView> const& document, Size size)
{
    auto scrollView = make<NSScrollView>(rectWith({}, size));
    scrollView->setBorderType(NSBezelBorder);
    scrollView->setHasVerticalScroller(true);
    scrollView->setAutohidesScrollers(true);
    scrollView->setDocumentView(document);
    return scrollView;
}

Ref<NSTableColumn> addColumn(NSTableView& table, std::string_view identifier, std::string_view title, float width)
{
    auto column = make<NSTableColumn>(ObjectValue(identifier));
    column->headerCell()->setStringValue(title);
    column->dataCell()->setLineBreakMode(NSLineBreakByTruncatingTail);
    column->setWidth(width);
    table.addTableColumn(*column);
    return column;
}

// MARK: icons

Ref<NSImage> icon(Icon which, float side)
{
    auto image = make<NSImage>(Size { side, side });
    FocusLock const focus(image);
    auto const larger = NSAffineTransform::transform();
    larger->scaleBy(side / 16);
    larger->concat();
    switch (which) {
    case Icon::paper:
        drawPaper();
        break;
    case Icon::folder:
        drawFolder();
        break;
    case Icon::star:
        drawStar();
        break;
    case Icon::note:
        drawNote();
        break;
    case Icon::disc:
        drawDisc();
        break;
    case Icon::warning:
        drawWarning();
        break;
    }
    return image;
}

Ref<NSImage> sortTriangle(bool isAscending)
{
    constexpr float width = 9;
    constexpr float height = 5;
    auto image = make<NSImage>(Size { width, height });
    FocusLock const focus(image);
    auto const path = NSBezierPath::bezierPath();
    float const base = isAscending ? 0 : height;
    path->moveToPoint({ 0, base });
    path->lineToPoint({ width, base });
    path->lineToPoint({ width / 2, height - base });
    path->closePath();
    NSColor::colorWithCalibratedWhite(0.5F, 1)->set();
    path->fill();
    return image;
}

}
