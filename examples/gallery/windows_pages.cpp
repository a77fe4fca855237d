#include "windows_pages.h"
#include "Form.h"
#include "WindowCopy.h"
#include "page_parts.h"

#include <plix/inspector/inspector.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/PLIXProgressWindow.h>
#include <plix/windows/PLIXProgressWindowNIBLoader.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQAlert.h>
#include <plix/windows/TQDateRangePanel.h>
#include <plix/windows/TQLegacyDatePicker.h>
#include <plix/windows/background_plan.h>
#include <plix/windows/date_entry.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

/// What is in the window, as a picture.
Ref<NSView> picture(Ref<NSWindow> const& window)
{
    return still(make<WindowCopy>(window, Point {}));
}

// MARK: windows

class WindowListener : public NSObject {
public:
    void windowDidMove(NSNotification const& notification) { tell("Moved", notification); }
    void windowDidResize(NSNotification const& notification) { tell("Resized", notification); }
    void windowDidBecomeKey(NSNotification const& notification) { tell("Has the keyboard", notification); }
    void windowWillClose(NSNotification const&)
    {
        if (form)
            form->setStatus("Closed");
    }
    Size windowWillResize(NSWindow&, Size proposed) { return { proposed.width, std::max(proposed.height, 140.0F) }; }
    void tell(std::string const& what, NSNotification const& notification) const
    {
        auto const frame = static_cast<NSWindow*>(notification.object.get())->frame();
        if (form)
            form->setStatus(
                what + ": " + std::to_string(std::lround(frame.width)) + " × " + std::to_string(std::lround(frame.height)));
    }
    Weak<Form> form; // the page may go first
};

Ref<NSView> makeNSWindowPage()
{
    auto const form = Form::page();
    auto const listener = form->keep(make<WindowListener>());
    listener->form = form;
    auto const open = [listener](std::string title, unsigned style, auto change) {
        return pushButton(title, [listener, title, style, change] {
            auto const window = make<NSWindow>(Rect { 0, 0, 320, 160 }, style, NSBackingStoreBuffered, false);
            window->setTitle(title);
            window->setDelegate(listener);
            window->center();
            change(*window);
            window->makeKeyAndOrderFront(nullptr);
        });
    };
    constexpr unsigned usual = NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;
    form->addRow("Open",
        { open("Resizable", usual, [](NSWindow&) {}),
            open("Fixed Size", NSTitledWindowMask | NSClosableWindowMask, [](NSWindow&) {}),
            open("Utility", usual | NSUtilityWindowMask, [](NSWindow&) {}) });
    form->addRow("",
        { open("Limited", usual,
              [](NSWindow& window) {
                  window.setMaxSize({ 500, 300 });
              }),
            open("3 : 2", usual, [](NSWindow& window) {
                window.setAspectRatio({ 3, 2 });
            }) });
    auto const shown = make<NSWindow>(Rect { 0, 0, 320, 110 }, usual, NSBackingStoreBuffered, false);
    shown->setBackgroundColor(NSColor::colorWithCalibratedRed(0.93F, 0.89F, 0.78F, 1));
    shown->setAppearance(Appearance::light);
    auto const content = textField("Its content is a view", 280);
    content->setFrameOrigin({ 20, 68 });
    shown->contentView()->addSubview(*content);
    form->addRow("Content", { picture(shown) });
    form->addRow("Grows", { pushButton("This Window, Animated", [page = form.get()] {
        auto& window = *page->window();
        auto frame = window.frame();
        frame.height += 60;
        frame.y -= 60;
        window.setFrame(frame, true, true);
    }) });
    form->addNote(
        "A delegate is told of moves, sizes and the keyboard, and has its say in sizes: here no window becomes lower than 140.");
    form->addStatus("Open a window, then move and resize it.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSPanelPage()
{
    auto const form = Form::page();
    auto const panel = [] {
        auto made = make<NSPanel>(Rect { 0, 0, 220, 110 }, NSTitledWindowMask | NSClosableWindowMask | NSUtilityWindowMask,
            NSBackingStoreBuffered, false);
        made->setTitle("Colours");
        float x = 20;
        for (auto const& color : { NSColor::redColor(), NSColor::orangeColor(), NSColor::greenColor(), NSColor::blueColor() }) {
            auto const well = NSTextField::labelWithString("");
            well->setDrawsBackground(true);
            well->setBackgroundColor(color);
            well->setFrame({ x, 60, 30, 30 });
            made->contentView()->addSubview(*well);
            x += 40;
        }
        auto const name = textField("Name", 180);
        name->setFrameOrigin({ 20, 20 });
        made->contentView()->addSubview(*name);
        return made;
    };
    form->addRow("A panel", { picture(panel()) });
    form->addRow("Open",
        { pushButton("Floating",
              [panel] {
                  auto const floating = panel();
                  floating->setFloatingPanel(true);
                  floating->setBecomesKeyOnlyIfNeeded(true);
                  floating->center();
                  floating->orderFront(nullptr);
              }),
            pushButton("Works While Modal", [panel] {
                auto const working = panel();
                working->setWorksWhenModal(true);
                working->center();
                working->makeKeyAndOrderFront(nullptr);
            }) });
    form->addNote(
        "A panel is never the main window, closes with Escape, may float above other windows, and may leave the keyboard to "
        "them until a field of it is clicked.");
    form->sizeToRows();
    return form;
}

/// Loads its window when that is first asked for.
Ref<NSView> makeNSWindowControllerPage()
{
    class Letter : public NSWindowController {
    public:
        void loadWindow() override
        {
            auto const letter
                = make<NSWindow>(Rect { 0, 0, 300, 140 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
            letter->setTitle("A letter");
            auto const text = textField("Dear reader,", 260);
            text->cell()->setWraps(true);
            text->setFrame({ 20, 20, 260, 100 });
            letter->contentView()->addSubview(*text);
            letter->center();
            setWindow(letter);
        }
        void windowDidLoad() override
        {
            if (form)
                form->setStatus("The window was loaded.");
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const letter = form->keep(make<Letter>());
    letter->form = form;
    auto const say = [letter, page = form.get()](std::string const& what) {
        page->setStatus(what + (letter->isWindowLoaded() ? " There is a window." : " There is no window yet."));
    };
    auto const other = make<Letter>();
    other->form = form;
    form->addRow("Its window", { picture(Ref<NSWindow>(other->window())) });
    form->addRow("",
        { pushButton("Show",
              [letter, say] {
                  letter->showWindow(nullptr);
                  say("Shown.");
              }),
            pushButton("Close", [letter, say] {
                letter->close();
                say("Closed.");
            }) });
    form->addStatus("There is no window yet.");
    form->sizeToRows();
    return form;
}

/// A window waits for an answer while the program goes on working.
Ref<NSView> makeNSModalSessionPage()
{
    auto const form = Form::page();
    auto const countingPanel = [](NSProgressIndicator& bar) {
        auto panel = make<NSPanel>(Rect { 0, 0, 300, 90 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        panel->setTitle("Counting");
        auto const stop = pushButton("Stop", [] { NSApp->stopModal(); });
        stop->setFrameOrigin({ 200, 14 });
        bar.setFrame({ 20, 56, 260, 14 });
        bar.setIndeterminate(false);
        panel->contentView()->addSubview(bar);
        panel->contentView()->addSubview(*stop);
        return panel;
    };
    auto const half = make<NSProgressIndicator>(Rect {});
    half->setDoubleValue(50);
    form->addRow("Its panel", { picture(countingPanel(*half)) });
    form->addRow("Count", { pushButton("To a Hundred", [countingPanel, page = Weak<Form>(form)] {
        auto const bar = make<NSProgressIndicator>(Rect {});
        auto const panel = countingPanel(*bar);
        panel->center();
        auto const tick = NSTimer::timerWithTimeInterval(
            0.05, [](NSTimer&) {}, true);
        NSRunLoop::currentRunLoop().addTimer(*tick, NSModalPanelRunLoopMode); // each of its turns is a step
        auto const session = NSApp->beginModalSessionForWindow(*panel);
        while (bar->doubleValue() < 100 && NSApp->runModalSession(*session) == NSRunContinuesResponse)
            bar->incrementBy(1);
        NSApp->endModalSession(*session);
        tick->invalidate();
        panel->close();
        if (page)
            page->setStatus("Counted to " + std::to_string(std::lround(bar->doubleValue())));
    }) });
    form->addNote("Each step of the session handles what waits and answers; meanwhile events of other windows are held back.");
    form->addStatus("Start, and stop it before it is done.");
    form->sizeToRows();
    return form;
}

// MARK: interface files

constexpr std::string_view letterDocument = R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0"><objects>
  <customObject id="-2" userLabel="File's Owner"/>
  <window title="From a document" id="1">
    <windowStyleMask key="styleMask" titled="YES" closable="YES"/>
    <rect key="contentRect" x="200" y="200" width="300" height="96"/>
    <view key="contentView" id="2">
      <rect key="frame" x="0" y="0" width="300" height="96"/>
      <subviews>
        <textField id="3"><rect key="frame" x="20" y="54" width="260" height="22"/>
          <textFieldCell key="cell" editable="YES" borderStyle="bezel" title="Laid out in a file" drawsBackground="YES" id="4"/></textField>
        <button id="5"><rect key="frame" x="20" y="22" width="120" height="18"/>
          <buttonCell key="cell" type="check" title="Remember" imagePosition="left" state="on" id="6"/></button>
        <button id="7"><rect key="frame" x="190" y="16" width="90" height="28"/>
          <buttonCell key="cell" type="push" title="Send" bezelStyle="rounded" alignment="center" borderStyle="border" id="8"/></button>
      </subviews>
    </view>
  </window>
</objects></document>)";

Ref<NSView> makeNSNibPage()
{
    auto const form = Form::page();
    auto const loadWindow = [] {
        auto const nib = make<NSNib>(*make<NSData>(std::vector<std::uint8_t>(letterDocument.begin(), letterDocument.end())),
            static_cast<NSBundle*>(nullptr));
        std::vector<Ref<NSObject>> objects;
        nib->instantiateNibWithOwner(nullptr, &objects);
        for (auto const& object : objects) {
            if (auto* const window = dynamic_cast<NSWindow*>(object.get()))
                return Ref<NSWindow>(window);
        }
        return Ref<NSWindow>();
    };
    form->addRow("Its window", { picture(loadWindow()) });
    form->addRow("", { pushButton("Open Another", [loadWindow] {
        auto const window = loadWindow();
        window->center();
        window->makeKeyAndOrderFront(nullptr);
    }) });
    form->addNote(
        "The document is XML, and may be instantiated as often as wanted. Here it stands beside the page; mostly it is a file "
        "that loadNibNamed() finds, for an owner with outlets and actions.");
    form->sizeToRows();
    return form;
}

// MARK: the library's windows

/// Blue in the upper half, yellow in the lower one, with a line every eight points.
Ref<NSImage> twoHalves()
{
    constexpr float half = 40;
    auto image = make<NSImage>(Size { 8, 2 * half });
    FocusLock const focus(image);
    for (float y = 0; y < 2 * half; y += 8) {
        float const along = std::fmod(y, half) / half;
        auto const color = y < half ? NSColor::colorWithCalibratedRed(1, 0.85F + along / 10, 0.6F + along / 4, 1)
                                    : NSColor::colorWithCalibratedRed(0.85F - along / 5, 0.92F - along / 10, 1, 1);
        color->set();
        NSRectFill({ 0, y, 8, 7 });
        NSColor::whiteColor()->set();
        NSRectFill({ 0, y + 7, 8, 1 });
    }
    return image;
}

Ref<NSView> makePLIXWindowPage()
{
    auto const form = Form::page();
    auto const window = [](int mode, Size size) {
        auto const before = PLIXWindow_BackgroundImage.ref();
        PLIXWindow_BackgroundImage = twoHalves();
        auto made = make<PLIXWindow>(
            rectWith({}, size), NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask, NSBackingStoreBuffered, false);
        made->setBackgroundMode(mode);
        PLIXWindow_BackgroundImage = before;
        return made;
    };
    form->addRow("Backgrounds",
        { captioned("halves", picture(window(PLIXBackgroundHalves, { 120, 130 }))),
            captioned("upper half", picture(window(PLIXBackgroundUpperHalf, { 120, 130 }))),
            captioned("none", picture(window(PLIXBackgroundNone, { 120, 130 }))) });
    auto const usual = make<PLIXWindow>(Rect { 0, 0, 250, 90 }, NSResizableWindowMask, NSBackingStoreBuffered, false);
    usual->display();
    form->addRow("The usual one", { picture(usual) });
    auto const open = [window](int mode) {
        return [window, mode] {
            auto const opened = window(mode, { 360, 240 });
            opened->setTitle("Resize me");
            opened->center();
            opened->makeKeyAndOrderFront(nullptr);
        };
    };
    form->addRow(
        "Open", { pushButton("Halves", open(PLIXBackgroundHalves)), pushButton("Upper Half", open(PLIXBackgroundUpperHalf)) });
    form->addNote("A mode says how the background image is fitted to the window’s height while it is resized.");
    form->sizeToRows();
    return form;
}

Ref<PLIXProgressWindow> progressWindow(double share)
{
    auto window = make<PLIXProgressWindow>();
    window->titleField()->setStringValue("Copying 2,000 files to “Backup”");
    window->stepField()->setStringValue("Score for winds.pdf");
    window->iconView()->setImage(icon(Icon::folder, 48));
    window->progressIndicator()->setIndeterminate(false);
    window->progressIndicator()->setDoubleValue(share);
    return window;
}

Ref<NSView> makePLIXProgressWindowPage()
{
    class Canceller : public NSObject {
    public:
        void progressWindowCanceled(PLIXProgressWindow& window)
        {
            if (form)
                form->setStatus("Cancelled at " + std::to_string(std::lround(window.progressIndicator()->doubleValue())) + " %");
            window.close();
        }
        Weak<Form> form; // the window may stay longer
    };
    auto const form = Form::page();
    auto const canceller = form->keep(make<Canceller>());
    canceller->form = form;
    form->addView(picture(progressWindow(40)));
    form->addRow("Open", { pushButton("One That Runs", [canceller] {
        auto const window = progressWindow(0);
        window->setDelegate(canceller);
        window->center();
        window->makeKeyAndOrderFront(nullptr);
        NSTimer::scheduledTimerWithTimeInterval(
            0.1,
            [window](NSTimer& timer) {
                window->progressIndicator()->incrementBy(1);
                if (!window->isVisible() || window->progressIndicator()->doubleValue() >= 100) {
                    window->close();
                    timer.invalidate();
                }
            },
            true);
    }) });
    form->addStatus("Cancel tells the delegate.");
    form->sizeToRows();
    return form;
}

/// The owner of the interface file that progress windows come from.
Ref<NSView> makePLIXProgressWindowNIBLoaderPage()
{
    auto const form = Form::page();
    auto const loader = form->keep(make<PLIXProgressWindowNIBLoader>());
    bool const wasThere = loader->progressWindow() != nullptr;
    bool const isLoaded = loadNibNamed("ProgressWindow", loader.get());
    form->addRow("Before", { NSTextField::labelWithString(wasThere ? "a window" : "progressWindow() is nil") });
    form->addRow("Loading",
        { NSTextField::labelWithString(isLoaded ? "loadNibNamed(\"ProgressWindow\", loader) is true" : "The file is not there.") });
    if (auto* const window = loader->progressWindow()) {
        window->titleField()->setStringValue("This is what it has loaded");
        form->addView(picture(Ref<NSWindow>(window)));
    }
    form->sizeToRows();
    return form;
}

Ref<NSView> makeTQAlertPage()
{
    auto const form = Form::page();
    auto const alert = [] {
        return make<TQAlert>("Save", "Save the changes to “Score for winds”?", "Changes that are not saved are lost.",
            icon(Icon::warning, 64), "Save", "Cancel", "Don’t Save");
    };
    auto const tell = [page = Weak<Form>(form)](int tag) {
        if (!page)
            return; // it was closed while the alert was open
        page->setStatus(tag == 1 ? "Save" : tag == 0 ? "Cancel" : tag == -1 ? "Don’t Save" : "The window was closed.");
    };
    form->addView(picture(Ref<NSWindow>(alert()->window())));
    form->addRow("Run",
        { pushButton("As a Window", [alert, tell] { tell(alert()->runModal()); }),
            pushButton("As a Sheet", [alert, tell, page = form.get()] {
                if (auto* const window = page->window())
                    tell(alert()->runAsSheetForWindow(*window));
            }) });
    form->addStatus("The answer is the button’s tag: 1, 0 or -1.");
    form->sizeToRows();
    return form;
}

// MARK: dates

Ref<NSView> makeTQDateRangePanelPage()
{
    auto const form = Form::page();
    auto const panel = [] {
        auto made = make<TQDateRangePanel>(
            Point {}, NSCalendarDate::dateWithYear(2027, 3, 14, 12, 0, 0), NSCalendarDate::dateWithYear(2027, 12, 28, 12, 0, 0));
        if (auto* const from = dynamic_cast<DateEntry*>(made->fromObject()))
            from->setDateValue(made->fromDate());
        if (auto* const to = dynamic_cast<DateEntry*>(made->toObject()))
            to->setDateValue(made->toDate());
        return made;
    };
    form->addView(picture(panel()));
    form->addRow("", { pushButton("Enter Dates", [panel, page = Weak<Form>(form)] {
        auto const asking = panel();
        asking->run();
        if (!page)
            return;
        page->setStatus("From " + asking->fromDate().descriptionWithCalendarFormat("%Y-%m-%d") + " to "
            + asking->toDate().descriptionWithCalendarFormat("%Y-%m-%d"));
    }) });
    form->addStatus("Two dates, asked for in a modal window.");
    form->sizeToRows();
    return form;
}

/// What a plug-in’s view must be besides to serve the panel: here the one that comes with the library.
Ref<NSView> makeDateEntryPage()
{
    auto const form = Form::page();
    auto const panel = make<TQDateRangePanel>();
    Ref<NSView> const view(dynamic_cast<NSView*>(panel->fromObject()));
    auto* const entry = dynamic_cast<DateEntry*>(view.get());
    if (!entry) {
        form->addNote("The plug-in “DatePicker” is not beside the program.");
        form->sizeToRows();
        return form;
    }
    view->removeFromSuperview();
    view->setFrame({ 0, 0, 132, 22 });
    entry->setDateValue(NSCalendarDate::dateWithYear(2027, 12, 28, 12, 0, 0));
    form->addRow("An entry", { view, pushButton("Read", [view, entry, page = form.get()] {
                                  page->setStatus(NSCalendarDate(entry->dateValue()).descriptionWithCalendarFormat("%Y-%m-%d"));
                              }) });
    auto const opens
        = checkBox("Has a button that opens a calendar", [view, entry](bool isOn) { entry->setShowsDatePickerButton(isOn); });
    opens->setState(NSOnState);
    entry->setShowsDatePickerButton(true);
    form->addRow("", { opens });
    form->addStatus("Type a date, or open the calendar.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeTQLegacyDatePickerPage()
{
    auto const form = Form::page();
    auto const picker = make<TQLegacyDatePicker>(Rect { 0, 0, 268, 64 });
    picker->setDate(NSCalendarDate::dateWithYear(2027, 12, 28, 12, 0, 0));
    picker->setDateFormat("%m/%d/%Y");
    form->addRow("Date", { picker });
    auto const order = make<NSPopUpButton>(Rect { 0, 0, 180, 26 }, false);
    order->addItemsWithTitles({ "%m/%d/%Y", "%d/%m/%Y", "%Y/%m/%d" });
    order->setActionFunction(
        [picker](NSObject* sender) { picker->setDateFormat(static_cast<NSPopUpButton*>(sender)->titleOfSelectedItem()); });
    form->addRow("Format", { order, hint("says the order of the fields") });
    form->addRow("", { pushButton("Read Fields", [picker, page = form.get()] {
        page->setStatus("Month " + picker->month_Field()->stringValue() + ", day " + picker->day_Field()->stringValue() + ", year "
            + picker->year_Field()->stringValue());
    }) });
    form->addStatus("What is typed is read from the fields.");
    form->sizeToRows();
    return form;
}

// MARK: the inspector

Ref<NSView> makeInspectorPage()
{
    auto const form = Form::page();
    form->addNote(
        "Ctrl+Shift+I in any application built with it: the view tree of the key window, the fields of the view that is "
        "chosen, frames and flashes of what is drawn over the window, and the last events, which can be copied as a test.");
    auto const say
        = [page = form.get()] { page->setStatus(isInspectorOpen() ? "The inspector is open." : "The inspector is closed."); };
    form->addRow("Inspector",
        { pushButton("Open",
              [say] {
                  openInspector();
                  say();
              }),
            pushButton("Close", [say] {
                closeInspector();
                say();
            }) });
    form->addRow("Something", { textField("to look into", 140), checkBox("A box"), pushButton("A Button") });
    form->addStatus("The inspector is closed.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "windows_pages.cpp";
constexpr Page familyPages[] {
    { "NSWindow", "Window", windowsSection, source, makeNSWindowPage },
    { "NSPanel", "Panel", windowsSection, source, makeNSPanelPage },
    { "NSWindowController", "Window controller", windowsSection, source, makeNSWindowControllerPage },
    { "NSModalSession", "Modal session", windowsSection, source, makeNSModalSessionPage },
    { "NSNib", "Interface file", windowsSection, source, makeNSNibPage },
    { "PLIXWindow", "Window with a background", windowsSection, source, makePLIXWindowPage },
    { "PLIXProgressWindow", "Progress window", windowsSection, source, makePLIXProgressWindowPage },
    { "PLIXProgressWindowNIBLoader", "Loader of progress windows", windowsSection, source, makePLIXProgressWindowNIBLoaderPage },
    { "TQAlert", "Alert", windowsSection, source, makeTQAlertPage },
    { "TQDateRangePanel", "Range of dates", windowsSection, source, makeTQDateRangePanelPage },
    { "DateEntry", "Field for a date", windowsSection, source, makeDateEntryPage },
    { "TQLegacyDatePicker", "Month, day and year", windowsSection, source, makeTQLegacyDatePickerPage },
    { "inspector", "Inspector", windowsSection, source, makeInspectorPage },
};

}

std::span<Page const> windowsPages()
{
    return familyPages;
}

}
