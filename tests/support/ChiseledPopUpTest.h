#pragma once

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <tests/support/MenuTest.h>
#include <tests/support/SystemVersion.h>

#include <string>
#include <vector>

namespace plix {

/// Notes what is asked of it.
class WatchedPopUp : public PLIXChiseledTextPopUpButton {
public:
    using PLIXChiseledTextPopUpButton::init;
    void InitBackgroundImages() override
    {
        log.emplace_back("slices");
        PLIXChiseledTextPopUpButton::InitBackgroundImages();
    }
    void SetFrameAnchorMask(long mask) override
    {
        log.push_back("anchor " + std::to_string(mask));
        PLIXChiseledTextPopUpButton::SetFrameAnchorMask(mask);
    }
    void SetIdleImage(Ref<NSImage> const& image) override
    {
        log.emplace_back("idle");
        idle = image;
        PLIXChiseledTextPopUpButton::SetIdleImage(image);
    }
    void SetMouseOverImage(Ref<NSImage> const& image) override
    {
        log.emplace_back("over");
        over = image;
        PLIXChiseledTextPopUpButton::SetMouseOverImage(image);
    }
    void SetMouseDownImage(Ref<NSImage> const& image) override
    {
        log.emplace_back("down");
        down = image;
        PLIXChiseledTextPopUpButton::SetMouseDownImage(image);
    }
    void UpdateTrackingRect() override
    {
        log.emplace_back("track");
        PLIXChiseledTextPopUpButton::UpdateTrackingRect();
    }
    void activate(NSNotification const* sender) override
    {
        log.emplace_back("activate");
        PLIXChiseledTextPopUpButton::activate(sender);
    }
    void deactivate(NSNotification const* sender) override
    {
        log.emplace_back("deactivate");
        PLIXChiseledTextPopUpButton::deactivate(sender);
    }
    void display() override
    {
        log.emplace_back("display");
        PLIXChiseledTextPopUpButton::display();
    }
    NSTrackingRectTag addTrackingRect(Rect rect, NSObject* owner, void* userData, bool assumeInside) override
    {
        isTrackedPlainly = owner == this && !userData && !assumeInside;
        auto const tag = PLIXChiseledTextPopUpButton::addTrackingRect(rect, owner, userData, assumeInside);
        added.push_back({ tag, rect });
        return tag;
    }
    void removeTrackingRect(NSTrackingRectTag tag) override
    {
        removed.push_back(tag);
        PLIXChiseledTextPopUpButton::removeTrackingRect(tag);
    }
    /// Which of its images it shows while it is not pressed.
    std::string shown() const { return image() == idle.get() ? "idle" : image() == over.get() ? "over" : "another"; }
    /// What was noted since this was asked last.
    Strings news() { return std::exchange(log, {}); }

    struct Tracked {
        NSTrackingRectTag tag;
        Rect rect;
    };
    Strings log;
    Ref<NSImage> idle;
    Ref<NSImage> over;
    Ref<NSImage> down;
    std::vector<Tracked> added;
    std::vector<NSTrackingRectTag> removed;
    bool isTrackedPlainly { false };
};

/// How large the title's field is with a text.
inline Size sizeOfTitle(std::string_view text, float fontSize = 11)
{
    auto const field = make<PLIXChiseledTextField>(Rect { 0, 0, 100, 20 });
    field->setFont(NSFont::boldSystemFontOfSize(fontSize));
    field->setAlignment(NSCenterTextAlignment);
    field->setStringValue(text);
    field->sizeToFit();
    return field->frame().size();
}

/// A window of the host's own class.
class OwnWindow : public NSWindow {
public:
    using NSWindow::init;
};

/// A button with a menu in a window that has the keyboard, and what a person does to them.
class ChiseledPopUpTest : public MenuTest {
protected:
    void SetUp() override
    {
        MenuTest::SetUp();
        view->setMenu(nullptr);
        button = addButton(*view);
        pump();
        button->news();
    }
    Ref<WatchedPopUp> addButton(NSView& to)
    {
        auto added = make<WatchedPopUp>(Rect { 100, 200, 140, 20 });
        for (auto const* title : { "Day", "Week", "Month" })
            add(*added->menu(), title);
        added->setTitle("Week");
        to.addSubview(*added);
        return added;
    }
    template <typename T> static Ref<T> show(Rect content)
    {
        auto shown = make<T>(content, usualStyle, NSBackingStoreBuffered, false);
        shown->makeKeyAndOrderFront(nullptr);
        return shown;
    }
    /// The same button in a window that follows the application.
    void moveToOwnWindow()
    {
        ownWindow = show<OwnWindow>({ 600, 200, 400, 300 });
        button = addButton(*ownWindow->contentView());
        pump();
        button->news();
    }
    void enter() { moveMouse(*button, { button->bounds().midX(), button->bounds().midY() }); }
    void leave() { moveMouse(*button, { -30, -30 }); }

    SystemVersion system { 0x1049 };
    Ref<OwnWindow> ownWindow;
    Ref<WatchedPopUp> button;
};

}
