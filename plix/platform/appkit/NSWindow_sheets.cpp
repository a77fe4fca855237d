#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/window_animation.h>
#include <plix/platform/appkit/window_sizing.h>

#include <algorithm>
#include <cmath>

namespace plix {

// Hanging.

void NSWindow::Internals::placeSheet()
{
    Ref<NSWindow> const attached(sheet);
    Rect top { contentOffset().x, contentOffset().y + content.height, content.width, 0 };
    if (hooks.windowWillPositionSheet)
        top = hooks.windowWillPositionSheet(self, *attached, top);
    auto const* const onScreen = self.screen();
    Rect const area = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    Point const edge = self.convertBaseToScreen({ top.midX(), top.y });
    attached->setFrameOrigin(sheetOrigin(attached->frame().size(), edge, area.y));
}

NSWindow* NSWindow::attachedSheet() const
{
    return m->sheet.get();
}

bool NSWindow::isSheet() const
{
    return m->isSheet();
}

// Sliding. The host's window grows and shrinks below its upper edge and shows the lowest part of the content, whose rectangle
// stays.

Rect NSWindow::Internals::shownContent() const
{
    return isSliding() ? slidingSheetRect(content, shownShare) : content;
}

void NSWindow::Internals::slide(FunctionRef<float(float progress)> shareAt)
{
    Ref<NSWindow> const protector(self);
    runWindowAnimation(windowAnimationUnit(), [&](float progress) {
        if (!canDraw())
            return false;
        host->setSizeLimits({}, {});
        shownShare = shareAt(progress);
        placeHost();
        contentView->setNeedsDisplay(true);
        self.displayIfNeeded();
        return canDraw();
    });
}

void NSWindow::Internals::slideIn()
{
    Ref<NSWindow> const protector(self);
    shownShare = windowAnimationUnit() > 0 ? 0 : 1;
    self.makeKeyAndOrderFront(nullptr);
    if (isSliding())
        slide([](float progress) { return progress; });
    shownShare = 1;
    applySizeLimits();
    placeHost();
    contentView->setNeedsDisplay(true);
    self.displayIfNeeded();
}

void NSWindow::Internals::slideOut()
{
    slide([](float progress) { return 1 - progress; });
    shownShare = 1;
}

// Sheets.

void NSApplication::beginSheet(NSWindow& sheet, NSWindow& modalForWindow, SheetEnded ended)
{
    Ref<NSApplication> const protector(this);
    Ref<NSWindow> const attached(sheet);
    auto& parent = modalForWindow.internals().frontmostSheet();
    if (&parent == &sheet || sheet.isSheet())
        return;
    Ref<NSWindow> const parentProtector(parent);
    auto& above = parent.internals();
    auto& internals = sheet.internals();
    above.post(NSWindowWillBeginSheetNotification, &NSWindowDelegate::windowWillBeginSheet);
    internals.orderOut();
    internals.sheetParent = parent;
    internals.sheetEnded = std::move(ended);
    internals.dropHost();
    above.sheet = attached;
    above.placeSheet();
    if (parent.isVisible())
        internals.slideIn();
}

void NSApplication::endSheet(NSWindow& sheet, long returnCode)
{
    Ref<NSApplication> const protector(this);
    Ref<NSWindow> const attached(sheet);
    auto& internals = sheet.internals();
    Ref<NSWindow> const parent(internals.sheetParent.get());
    if (!parent)
        return;
    bool const wasKey = sheet.isKeyWindow();
    internals.sheetParent = nullptr;
    parent->internals().sheet = nullptr;
    if (!internals.isOrderedIn)
        internals.dropHost();
    auto const ended = std::exchange(internals.sheetEnded, {});
    if (ended)
        ended(sheet, returnCode);
    parent->internals().post(NSWindowDidEndSheetNotification, &NSWindowDelegate::windowDidEndSheet);
    if (wasKey && parent->isVisible())
        parent->makeKeyWindow();
}

}
