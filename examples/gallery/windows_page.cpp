#include "windows_page.h"
#include "Desk.h"
#include "WindowCopy.h"
#include "picture_samples.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/windows/PLIXProgressWindow.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQAlert.h>
#include <plix/windows/background_plan.h>

#include <array>
#include <string_view>
#include <utility>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 20;
constexpr float captionHeight = 20;

void addCaption(Desk& desk, std::string_view text, Point place)
{
    auto const label = NSTextField::labelWithString(text);
    label->setFont(NSFont::boldSystemFontOfSize(12));
    label->setFrame({ place.x, place.y, 300, 16 });
    desk.addSubview(*label);
}

/// Answers what it takes, with its caption.
Size addWindow(Desk& desk, Ref<NSWindow> const& window, Point place)
{
    addCaption(desk, window->title(), place);
    auto const copy = make<WindowCopy>(window, Point { place.x, place.y + captionHeight });
    desk.addSubview(*copy);
    return { copy->frame().width, copy->frame().height + captionHeight };
}

Ref<NSButton> opener(std::string_view title, Rect frame, NSCell::ActionFunction opens)
{
    auto button = make<NSButton>(frame);
    button->setBezelStyle(NSRoundedBezelStyle);
    button->setTitle(title);
    button->setActionFunction(std::move(opens));
    return button;
}

Ref<NSImage> warningIcon()
{
    auto icon = make<NSImage>(Size { 64, 64 });
    FocusLock const focus(icon);
    auto const sign = NSBezierPath::bezierPath();
    sign->moveToPoint({ 4, 6 });
    sign->lineToPoint({ 60, 6 });
    sign->lineToPoint({ 32, 58 });
    sign->closePath();
    sign->setLineWidth(6);
    sign->setLineJoinStyle(NSRoundLineJoinStyle);
    NSColor::colorWithCalibratedRed(0.98F, 0.78F, 0.1F, 1)->set();
    sign->fill();
    sign->stroke();
    NSColor::colorWithCalibratedWhite(0.15F, 1)->set();
    NSRectFill({ 29, 22, 6, 22 });
    NSRectFill({ 29, 11, 6, 6 });
    return icon;
}

struct AlertSample {
    char const* title;
    char const* statement;
    char const* message;
    std::array<char const*, 3> buttons;
};

constexpr AlertSample alertSamples[] {
    { "Three buttons", "Save the changes to “Score for winds”?", "Changes that are not saved are lost.",
        { "Save", "Cancel", "Don’t Save" } },
    { "Long texts", "The disk “Archive 2004” can’t be read from, and what was being copied to it is not complete.",
        "Connect the disk again and wait until it is found. If that does not help, copy the files somewhere else; "
        "what has arrived there already stays as it is.\n\nNothing was deleted.",
        { "Try Again", "Stop", "" } },
    { "One button", "The file is empty.", "", { "OK", "", "" } },
    { "Wide buttons", "Two items have the same name.", "Which one shall stay?", { "Keep Both", "Keep Newer", "Keep Older" } },
};

Ref<TQAlert> alertFor(AlertSample const& sample, Ref<NSImage> const& icon)
{
    return make<TQAlert>(
        sample.title, sample.statement, sample.message, icon, sample.buttons[0], sample.buttons[1], sample.buttons[2]);
}

}

// MARK: alerts

Ref<NSView> makeAlertsPage()
{
    auto desk = make<Desk>(Rect { 0, 0, 1024, 460 });
    auto const icon = warningIcon();
    Point place { margin, margin };
    for (auto const& sample : alertSamples) {
        auto const size = addWindow(*desk, Ref<NSWindow>(alertFor(sample, icon)->window()), place);
        place = &sample == &alertSamples[1] ? Point { margin + size.width + margin, margin }
                                            : Point { place.x, place.y + size.height + margin };
    }
    auto const running = [icon] { return alertFor(alertSamples[0], icon); };
    desk->addSubview(*opener("Run as a Window", { 522, 400, 160, 26 }, [running](NSObject*) { running()->runModal(); }));
    desk->addSubview(*opener("Run as a Sheet", { 698, 400, 160, 26 }, [running](NSObject* sender) {
        if (auto* const window = static_cast<NSView*>(sender)->window())
            running()->runAsSheetForWindow(*window);
    }));
    return desk;
}

// MARK: progress windows

namespace {

Ref<PLIXProgressWindow> progressSample(std::string_view title, std::string_view step, double share)
{
    auto window = make<PLIXProgressWindow>();
    window->setTitle(share < 0 ? "Indeterminate" : "Determinate");
    window->titleField()->setStringValue(title);
    window->stepField()->setStringValue(step);
    window->iconView()->setImage(PictureSamples::make().folder);
    window->progressIndicator()->setIndeterminate(share < 0);
    window->progressIndicator()->setDoubleValue(share);
    window->progressIndicator()->startAnimation(nullptr);
    return window;
}

void openProgress()
{
    auto const window = progressSample("Waiting for nothing", "Cancel closes this window.", -1);
    struct Closer : NSObject {
        void progressWindowCanceled(PLIXProgressWindow& canceled) { canceled.close(); }
    };
    window->setDelegate(make<Closer>());
    window->center();
    window->makeKeyAndOrderFront(nullptr);
}

}

Ref<NSView> makeProgressPage()
{
    auto desk = make<Desk>(Rect { 0, 0, 514, 460 });
    Point place { margin, margin };
    auto const add = [&](Ref<PLIXProgressWindow> const& window) { place.y += addWindow(*desk, window, place).height + margin; };
    add(progressSample("Looking for files…", "", -1));
    add(progressSample(
        "Copying 2,000 files to “Backup”", "A file with a name that is a good deal too long for the room there is.tiff", 40));
    auto const silent = progressSample("Emptying the cache", "About half a minute", 75);
    silent->setTitle("Without Cancel");
    silent->setCancelHidden(true);
    add(silent);
    desk->addSubview(*opener("Open", { 410, 384, 84, 26 }, [](NSObject*) { openProgress(); }));
    return desk;
}

// MARK: backgrounds

namespace {

/// Rings in the upper half, stripes in the lower one, and a red line between.
Ref<NSImage> tallPicture()
{
    constexpr float width = 20;
    constexpr float height = 160;
    auto picture = make<NSImage>(Size { width, height });
    FocusLock const focus(picture);
    for (float y = 0; y < height; ++y) {
        bool const isUpper = y >= height / 2;
        float const along = isUpper ? (y - height / 2) / (height / 2) : y / (height / 2);
        (isUpper ? NSColor::colorWithCalibratedRed(0.5F + 0.45F * along, 0.7F + 0.28F * along, 1, 1)
                 : NSColor::colorWithCalibratedRed(1, 0.75F + 0.2F * along, 0.5F + 0.4F * along, 1))
            ->set();
        NSRectFill({ 0, y, width, 1 });
    }
    NSColor::colorWithCalibratedWhite(1, 0.6F)->set();
    for (float const y : { 100.0F, 140.0F }) {
        auto const ring = NSBezierPath::bezierPathWithOvalInRect({ 3, y, 14, 14 });
        ring->setLineWidth(1);
        ring->stroke();
    }
    for (float y = 8; y < 72; y += 8)
        NSRectFillUsingOperation({ 0, y, width, 2 }, NSCompositeSourceOver);
    return picture;
}

struct BackgroundSample {
    char const* title;
    int mode;
    Rect frame;
};

constexpr BackgroundSample backgroundSamples[] {
    { "Short", PLIXBackgroundHalves, { 20, 20, 140, 60 } },
    { "In between", PLIXBackgroundHalves, { 180, 20, 140, 120 } },
    { "Tall", PLIXBackgroundHalves, { 340, 20, 140, 240 } },
    { "Upper half", PLIXBackgroundUpperHalf, { 500, 20, 140, 120 } },
    { "No pattern", PLIXBackgroundNone, { 180, 180, 140, 80 } },
};

}

Ref<NSView> makeBackgroundsPage()
{
    auto desk = make<Desk>(Rect { 0, 0, 660, 520 });
    Ref<NSImage> const before = PLIXWindow_BackgroundImage.ref();
    PLIXWindow_BackgroundImage = tallPicture();
    for (auto const& sample : backgroundSamples) {
        auto const window
            = make<PLIXWindow>(rectWith({}, sample.frame.size()), NSResizableWindowMask, NSBackingStoreBuffered, false);
        window->setTitle(sample.title);
        window->setBackgroundMode(sample.mode);
        addWindow(*desk, window, sample.frame.origin());
    }
    PLIXWindow_BackgroundImage = before;
    auto const usual = make<PLIXWindow>(Rect { 0, 0, 300, 180 }, NSResizableWindowMask, NSBackingStoreBuffered, false);
    usual->setTitle("The library’s own");
    usual->display();
    addWindow(*desk, usual, { 20, 290 });
    auto const whole = make<PLIXWindow>();
    whole->setContentSize({ 300, 180 });
    whole->setTitle("The whole picture");
    whole->updateBackgroundColor();
    addWindow(*desk, whole, { 340, 290 });
    return desk;
}

}
