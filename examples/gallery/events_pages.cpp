#include "events_pages.h"
#include "Form.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/attribute_names.h>

#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

std::string pointText(Point point)
{
    return "(" + std::to_string(std::lround(point.x)) + ", " + std::to_string(std::lround(point.y)) + ")";
}

void drawCentered(std::string_view text, Rect rect, Ref<NSColor> const& color)
{
    auto const drawn = make<NSAttributedString>(
        text, Attributes { { NSFontAttributeName, NSFont::systemFontOfSize(12) }, { NSForegroundColorAttributeName, color } });
    auto const size = drawn->size();
    drawn->drawAtPoint({ std::floor(rect.midX() - size.width / 2), std::floor(rect.midY() - size.height / 2) });
}

/// A log as wide as the page, of so many lines.
Ref<Transcript> logOf(Form& form, long lines)
{
    auto log = make<Transcript>(Transcript::usualWidth);
    log->setLimit(lines);
    log->addNote("What happens is written here.");
    form.addView(log);
    log->setFrameOrigin({ 0, log->frame().y });
    return log;
}

/// A place with a sentence in it, for the mouse and the keyboard.
class Pad : public NSView {
public:
    bool init(Size size, std::string text)
    {
        m_text = std::move(text);
        return NSView::init(rectWith({}, size));
    }
    bool isFlipped() const override { return true; }
    bool acceptsFirstResponder() const override { return true; }
    bool mouseDownCanMoveWindow() const override { return false; }
    void drawRect(Rect) override
    {
        auto const& theme = Theme::current();
        theme.drawFieldBezel(bounds(), FieldShape::square, Theme::lookOfView(*this), NSColor::controlBackgroundColor().get());
        if (window() && window()->firstResponder() == this)
            theme.drawFocusRing(bounds(), FieldShape::square);
        drawCentered(m_text, bounds(), NSColor::controlTextColor());
    }
    bool becomeFirstResponder() override { return redrawn(); }
    bool resignFirstResponder() override { return redrawn(); }

private:
    bool redrawn()
    {
        setNeedsDisplay(true);
        return true;
    }

    std::string m_text;
};

// MARK: views and events

/// A view has a frame in its superview and coordinates of its own, which may be turned, scaled and upside down.
Ref<NSView> makeNSViewPage()
{
    class Tile : public NSView {
    public:
        using NSView::init;
        std::function<void(std::string const&)> tells;
        bool flips { false };
        bool isFlipped() const override { return flips; }
        void drawRect(Rect) override
        {
            NSColor::colorWithCalibratedRed(0.4F, 0.6F, 0.9F, m_isEntered ? 0.7F : 0.35F)->set();
            NSRectFillUsingOperation(bounds(), NSCompositeSourceOver);
            NSColor::colorWithCalibratedRed(0.2F, 0.4F, 0.8F, 1)->set();
            NSFrameRect(bounds());
            NSRectFill({ 0, 0, 30, 3 });
            NSRectFill({ 0, 0, 3, 30 });
        }
        void mouseDown(NSEvent& event) override
        {
            auto const own = convertPointFromView(event.locationInWindow(), nullptr);
            tells("Clicked at " + pointText(own) + " of its own, " + pointText(convertPointToView(own, superview())) + " outside");
        }
        void viewDidMoveToWindow() override { addTrackingRect(bounds(), this, nullptr, false); }
        void mouseEntered(NSEvent&) override { enter(true); }
        void mouseExited(NSEvent&) override { enter(false); }

    private:
        void enter(bool isEntered)
        {
            m_isEntered = isEntered;
            setNeedsDisplay(true);
        }
        bool m_isEntered { false };
    };
    auto const form = Form::page();
    auto const ground = make<NSView>(Rect { 0, 0, 400, 150 });
    auto const add = [&](Rect frame) {
        auto const tile = make<Tile>(frame);
        tile->tells = [page = form.get()](std::string const& text) { page->setStatus(text); };
        ground->addSubview(*tile);
        return tile;
    };
    add({ 0, 30, 90, 90 });
    add({ 105, 30, 90, 90 })->flips = true;
    add({ 262, 12, 90, 90 })->setFrameRotation(30);
    add({ 350, 30, 50, 90 })->setBoundsSize({ 25, 45 });
    form->addRow("Coordinates", { ground });
    form->addNote("The origin is where the thick lines meet: as usual, flipped, turned, and scaled to twice the size.");
    auto const frame = make<NSBox>(Rect { 0, 0, 200, 60 });
    frame->setTitlePosition(NSNoTitle);
    auto const inside = checkBox("Keeps its distances");
    inside->setFrameOrigin({ 10, 10 });
    inside->setAutoresizingMask(NSViewMinXMargin | NSViewMinYMargin);
    frame->addSubview(*inside);
    form->addRow("Autoresizing", { frame });
    form->addRow("", { pushButton("Resize", [frame] {
        frame->setFrameSize({ frame->frame().width == 200 ? 380.0F : 200.0F, 60 });
    }) });
    form->addStatus("Click into the coloured views.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSEventPage()
{
    class Listening : public Pad {
    public:
        using Pad::init;
        Ref<Transcript> log;
        void mouseDown(NSEvent& event) override
        {
            window()->makeFirstResponder(this);
            press("Left button down", event);
        }
        void mouseUp(NSEvent& event) override { press("Left button up", event); }
        void mouseDragged(NSEvent& event) override { log->add("Dragged", "by " + pointText({ event.deltaX(), event.deltaY() })); }
        void rightMouseDown(NSEvent& event) override { press("Right button down", event); }
        void otherMouseDown(NSEvent& event) override { press("Another button down", event); }
        void scrollWheel(NSEvent& event) override { log->add("Wheel", "by " + pointText({ event.deltaX(), event.deltaY() })); }
        void keyDown(NSEvent& event) override { key("Key down", event); }
        void keyUp(NSEvent& event) override { key("Key up", event); }
        void flagsChanged(NSEvent& event) override { log->show("modifierFlags()", event.modifierFlags()); }

    private:
        void press(char const* what, NSEvent& event)
        {
            log->add(what, "at " + pointText(event.locationInWindow()) + ", clickCount() " + std::to_string(event.clickCount()));
        }
        void key(char const* what, NSEvent& event)
        {
            log->add(what, "characters() " + valueText(event.characters()) + (event.isARepeat() ? ", repeated" : ""));
        }
    };
    auto const form = Form::page();
    auto const pad = make<Listening>(Size { 520, 90 }, "Click, drag, scroll and type here");
    form->addView(pad);
    pad->log = logOf(*form, 8);
    form->sizeToRows();
    return form;
}

/// Keys become commands and text; what a responder does not do goes on to the next one.
Ref<NSView> makeNSResponderPage()
{
    class Keys : public Pad {
    public:
        using Pad::init;
        Ref<Transcript> log;
        void mouseDown(NSEvent&) override { window()->makeFirstResponder(this); }
        void keyDown(NSEvent& event) override { interpretKeyEvents({ &event }); }
        void insertText(std::string_view text) override { log->add("insertText()", valueText(text)); }
        void doCommandBySelector(Selector command) override { log->show("doCommandBySelector()", command.name()); }
    };
    auto const form = Form::page();
    auto const keys = make<Keys>(Size { 520, 70 }, "Click here, then type: letters, arrows, Ctrl+A, Shift+End, Return");
    form->addView(keys);
    form->addRow("The chain", { pushButton("Show", [pad = keys.get()] {
        std::string chain;
        for (NSResponder* responder = pad; responder; responder = responder->nextResponder())
            chain += (chain.empty() ? "" : " → ") + responder->describedClass().name();
        pad->log->add("nextResponder() …", chain);
    }) });
    keys->log = logOf(*form, 8);
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSCursorPage()
{
    class Place : public Pad {
    public:
        using Pad::init;
        Ref<NSCursor> cursor;
        void resetCursorRects() override { addCursorRect(bounds(), *cursor); }
    };
    auto const form = Form::page();
    std::vector<Ref<NSView>> row;
    auto const star = make<NSCursor>(icon(Icon::star), Point { 8, 8 });
    for (auto const& [name, cursor] :
        { std::pair<char const*, NSCursor*> { "arrow", &NSCursor::arrowCursor() }, { "text", &NSCursor::IBeamCursor() },
            { "crosshair", &NSCursor::crosshairCursor() }, { "pointing hand", &NSCursor::pointingHandCursor() },
            { "open hand", &NSCursor::openHandCursor() }, { "closed hand", &NSCursor::closedHandCursor() },
            { "left and right", &NSCursor::resizeLeftRightCursor() }, { "up and down", &NSCursor::resizeUpDownCursor() },
            { "not allowed", &NSCursor::operationNotAllowedCursor() }, { "one’s own", star.get() } }) {
        auto const place = make<Place>(Size { 120, 40 }, name);
        place->cursor = cursor;
        row.emplace_back(place);
        if (row.size() == 3 || name == std::string_view("one’s own"))
            form->addRow("", std::exchange(row, {}));
    }
    form->addNote("Cursor rectangles say which cursor the pointer has over a part of a view. Move it over these.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSPasteboardPage()
{
    auto const form = Form::page();
    auto const log = make<Transcript>(Transcript::usualWidth);
    auto const board = form->keep(NSPasteboard::pasteboardWithUniqueName());
    board->declareTypes({ NSStringPboardType, NSColorPboardType });
    log->show("board.setString(\"A tune\", string)", board->setString("A tune", NSStringPboardType));
    log->show("board.types()", board->types());
    log->show(
        "board.availableTypeFromArray({ TIFF, string })", board->availableTypeFromArray({ NSTIFFPboardType, NSStringPboardType }));
    log->show("board.stringForType(string)", board->stringForType(NSStringPboardType));
    log->show("board.dataForType(TIFF) == nullptr", board->dataForType(NSTIFFPboardType) == nullptr);
    form->addView(log);
    log->setFrameOrigin({});
    auto const field = textField("Text for other programs", 200);
    form->addRow("The clipboard",
        { field,
            pushButton("Copy",
                [field, page = form.get()] {
                    auto& general = NSPasteboard::generalPasteboard();
                    general.declareTypes({ NSStringPboardType });
                    general.setString(field->stringValue(), NSStringPboardType);
                    page->setStatus("Copied; every program can paste it now.");
                }),
            pushButton("Paste", [field, page = form.get()] {
                auto const text = NSPasteboard::generalPasteboard().stringForType(NSStringPboardType);
                field->setStringValue(text.value_or(""));
                page->setStatus(text ? "Pasted." : "There is no text on the clipboard.");
            }) });
    form->addStatus("Copy, then paste here or elsewhere.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSScreenPage()
{
    auto const transcript = make<Transcript>();
    transcript->addHeading("The screens that are there");
    for (long index = 0; auto const& screen : NSScreen::screens()) {
        auto const name = "screens()[" + std::to_string(index++) + "]->";
        transcript->show(name + "frame()", screen->frame());
        transcript->show(name + "visibleFrame()", screen->visibleFrame());
        transcript->show(name + "backingScaleFactor()", screen->backingScaleFactor());
        transcript->show(name + "depth()", screen->depth());
    }
    transcript->show("mainScreen() == *screens()[0]", NSScreen::mainScreen().isEqual(NSScreen::screens()[0].get()));
    transcript->show("screenForRect({ 10, 10, 50, 50 }) != nullptr", NSScreen::screenForRect({ 10, 10, 50, 50 }) != nullptr);
    transcript->addNote("Coordinates of screens begin at the lower left corner of the first one; y goes upwards.");
    return transcript;
}

// MARK: the application

Ref<NSView> makeNSApplicationPage()
{
    auto const form = Form::page();
    auto const say = [page = form.get()](std::string const& text) { return [page, text] { page->setStatus(text); }; };
    form->addRow(
        "Attention", { pushButton("Beep", NSBeep), pushButton("Ask for It", [say] {
                          auto const request = NSApp->requestUserAttention(NSInformationalRequest);
                          say(request ? "Asked for; it ends when the application is active." : "The application is active.")();
                      }) });
    auto const sheet = [] {
        auto made = make<NSPanel>(Rect { 0, 0, 280, 90 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        auto const label = NSTextField::labelWithString("A sheet belongs to its window.");
        label->setFrameOrigin({ 20, 56 });
        auto const done = pushButton("Done", [window = made.get()] { NSApp->endSheet(*window, 7); });
        done->setKeyEquivalent("\r");
        done->setFrameOrigin({ 180, 14 });
        made->contentView()->addSubview(*label);
        made->contentView()->addSubview(*done);
        return made;
    };
    form->addRow("A sheet", { pushButton("Begin", [sheet, page = form.get()] {
        NSApp->beginSheet(*sheet(), *page->window(), [page = Weak<Form>(page)](NSWindow& ended, long code) {
            ended.orderOut(nullptr);
            if (page)
                page->setStatus("The sheet ended with " + std::to_string(code) + ".");
        });
    }) });
    form->addRow("Windows", { pushButton("Count", [page = form.get()] {
        auto const* const key = NSApp->keyWindow();
        page->setStatus(
            "Windows: " + std::to_string(NSApp->windows().size()) + "; the keyboard is in “" + (key ? key->title() : "") + "”.");
    }) });
    form->addStatus("NSApp handles events, windows, sheets and the end.");
    form->sizeToRows();
    return form;
}

/// Announces what a person does before it is dispatched.
Ref<NSView> makePLIXApplicationPage()
{
    auto const form = Form::page();
    form->addView(make<Pad>(Size { 520, 70 }, "Click and type anywhere in this window"));
    auto const log = logOf(*form, 6);
    auto& center = NSNotificationCenter::defaultCenter();
    for (auto const* name : { PLIXApplicationMouseDownNotification, PLIXApplicationUserInputNotification })
        form->keep(center.addObserver(
            [log = log.get(), name](NSNotification const& notification) {
                auto const& application = *static_cast<PLIXApplication*>(notification.object.get());
                log->add(
                    std::string(name).substr(15), application.lastEventTimestamp() > 0 ? "after another event" : "the first event");
            },
            name));
    form->addRow("Attention", { checkBox("Requests are kept harmless", [](bool isOn) {
        if (auto* const application = dynamic_cast<PLIXApplication*>(NSApp.ref().get()))
            application->setShortCircuitRequestUserAttention(isOn);
    }) });
    form->sizeToRows();
    return form;
}

// MARK: documents

/// A document that is one window.
class Score : public NSDocument {
public:
    void makeWindowControllers() override
    {
        auto const window
            = make<NSWindow>(Rect { 0, 0, 300, 120 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
        window->center();
        auto const controller = make<NSWindowController>(window);
        controller->setShouldCloseDocument(true);
        addWindowController(*controller);
        controller->synchronizeWindowTitleWithDocumentName();
    }
};

Ref<NSView> makeNSDocumentPage()
{
    auto const form = Form::page();
    auto const score = form->keep(make<Score>());
    score->setFileName("/music/Score for winds.score");
    auto const tell = [score, page = form.get()] {
        page->setStatus("“" + score->displayName() + "” " + (score->isDocumentEdited() ? "has changes" : "has no changes") + " and "
            + (score->windowControllers().empty() ? "no window." : "a window."));
    };
    form->addRow("Its window",
        { pushButton("Show",
              [score, tell] {
                  NSDocumentController::sharedDocumentController().addDocument(*score);
                  if (score->windowControllers().empty())
                      score->makeWindowControllers();
                  score->showWindows();
                  tell();
              }),
            pushButton("Close", [score, tell] {
                score->close();
                tell();
            }) });
    auto const change = [score, tell](NSDocumentChangeType type) {
        return [score, tell, type] {
            score->updateChangeCount(type);
            tell();
        };
    };
    form->addRow("Changes",
        { pushButton("One Done", change(NSChangeDone)), pushButton("One Undone", change(NSChangeUndone)),
            pushButton("Saved", change(NSChangeCleared)) });
    form->addRow("Name", { pushButton("Rename", [score, tell] {
        score->setFileName("/music/Octet.score");
        tell();
    }) });
    form->addStatus("“" + score->displayName() + "” has no changes and no window.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSDocumentControllerPage()
{
    auto const form = Form::page();
    auto const tell = [page = form.get()] {
        auto& controller = NSDocumentController::sharedDocumentController();
        auto const* const current = controller.currentDocument();
        page->setStatus(std::to_string(controller.documents().size()) + " open; "
            + (current ? "“" + current->displayName() + "” is the current one." : "none is current."));
    };
    form->addRow("Documents",
        { pushButton("New",
              [tell] {
                  auto& controller = NSDocumentController::sharedDocumentController();
                  auto const score = make<Score>();
                  score->setFileName("/music/Score " + std::to_string(controller.documents().size() + 1) + ".score");
                  controller.addDocument(*score);
                  score->makeWindowControllers();
                  score->showWindows();
                  tell();
              }),
            pushButton("Close All",
                [tell] {
                    for (auto const& document : std::vector(NSDocumentController::sharedDocumentController().documents()))
                        document->close();
                    tell();
                }),
            pushButton("Current", tell) });
    form->addNote(
        "The current document is that of the main window. When an application ends, what is being edited is taken over first.");
    form->addStatus("0 open; none is current.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "events_pages.cpp";
constexpr Page familyPages[] {
    { "NSView", "View", eventsSection, source, makeNSViewPage },
    { "NSEvent", "Event", eventsSection, source, makeNSEventPage },
    { "NSResponder", "Responder", eventsSection, source, makeNSResponderPage },
    { "NSCursor", "Cursor", eventsSection, source, makeNSCursorPage },
    { "NSPasteboard", "Pasteboard", eventsSection, source, makeNSPasteboardPage },
    { "NSScreen", "Screen", eventsSection, source, makeNSScreenPage },
    { "NSApplication", "Application", eventsSection, source, makeNSApplicationPage },
    { "PLIXApplication", "Application that announces input", eventsSection, source, makePLIXApplicationPage },
    { "NSDocument", "Document", eventsSection, source, makeNSDocumentPage },
    { "NSDocumentController", "Document controller", eventsSection, source, makeNSDocumentControllerPage },
};

}

std::span<Page const> eventsPages()
{
    return familyPages;
}

}
