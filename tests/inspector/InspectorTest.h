#pragma once

#include <plix/app/PLIXApplication.h>
#include <plix/inspector/InspectorPanel.h>
#include <plix/inspector/InspectorSession.h>
#include <plix/inspector/TextTable.h>
#include <plix/inspector/ViewOutline.h>
#include <plix/inspector/inspector.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/WindowWatcher.h>
#include <plix/platform/graphics/NSColor.h>

#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

namespace plix {

/// A window with a view of two halves, left and right, and the inspector's keys in the application.
class InspectorTest : public HeadlessTest {
protected:
    void makeApplication() override { PLIXApplication::sharedApplication(); }
    void SetUp() override
    {
        HeadlessTest::SetUp();
        content = make<CountingView>(Rect { 0, 0, 400, 300 });
        content->color = NSColor::whiteColor();
        content->opaque = true;
        left = make<CountingView>(Rect { 20, 30, 100, 80 });
        right = make<CountingView>(Rect { 200, 30, 100, 80 });
        left->takesKeyboard = right->takesKeyboard = true;
        content->addSubview(*left);
        content->addSubview(*right);
        window = showWindowWith(content);
        window->setTitle("Halves");
        window->makeFirstResponder(left.get());
        pump();
        forget();
    }
    void TearDown() override
    {
        closeInspector();
        WindowWatcher::setKeyCatcher(nullptr);
    }

    static constexpr unsigned openingModifiers = NSControlKeyMask | NSShiftKeyMask;
    void pressOpeningKeys() { key(U'I', openingModifiers); }
    void open()
    {
        pressOpeningKeys();
        ASSERT_TRUE(isInspectorOpen());
        forget();
    }
    void forget()
    {
        for (auto const& view : { content, left, right })
            view->forget();
    }
    InspectorSession& session() { return *InspectorSession::current(); }
    InspectorPanel& panel() { return session().panel(); }
    /// A person clicks in the middle of it.
    void press(NSView const& view) { clickCenter(view); }
    std::string field(std::string const& name)
    {
        for (auto const& row : panel().fields().rows()) {
            if (row[0] == name)
                return row[1];
        }
        return "none";
    }
    Ref<NSBitmapImageRep> shown() { return window->snapshot(); }
    /// The colour of a point of the content.
    ColorComponents colorAt(Point place)
    {
        return Pixels(shown()).colorAt(static_cast<int>(place.x), 299 - static_cast<int>(place.y));
    }
    bool isTinted(Point place)
    {
        auto const color = colorAt(place);
        return std::min({ color.red, color.green, color.blue }) < 0.95F;
    }

    Ref<CountingView> content;
    Ref<CountingView> left;
    Ref<CountingView> right;
    Ref<NSWindow> window;
};

}
