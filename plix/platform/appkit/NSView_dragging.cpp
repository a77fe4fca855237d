#include <plix/platform/appkit/NSView.h>

#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/drag_operations.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>

namespace plix {

namespace {

/// A destination is asked again this often while the pointer rests.
constexpr NSTimeInterval updatePeriod = 0.1;
constexpr float imageAlpha = 0.7F;
constexpr unsigned draggingMask = NSLeftMouseDraggedMask | NSLeftMouseUpMask | NSRightMouseDraggedMask | NSRightMouseUpMask
    | NSOtherMouseDraggedMask | NSOtherMouseUpMask | NSKeyDownMask | NSFlagsChangedMask;

class DragImageView final : public NSView {
public:
    Ref<NSImage> image;
    void drawRect(Rect) override
    {
        if (image)
            image->compositeToPoint({}, NSCompositeSourceOver, 1);
    }
};

/// One drag, from the press to the release.
class DragSession final : public NSDraggingInfo {
public:
    void begin(NSView& view, NSImage*, Point at, Size initialOffset, NSEvent&, NSPasteboard&, NSView& source);
    void run(bool slideBack);

    // NSDraggingInfo:
    NSPasteboard& draggingPasteboard() const override { return *m_pasteboard; }
    NSView* draggingSource() const override { return m_source.get(); }
    unsigned draggingSourceOperationMask() const override { return m_mask; }
    Point draggingLocation() const override { return m_window ? m_window->convertScreenToBase(m_pointer) : m_pointer; }
    Point draggedImageLocation() const override { return m_window ? m_window->convertScreenToBase(imageOrigin()) : imageOrigin(); }
    NSImage* draggedImage() const override { return m_image.get(); }
    NSWindow* draggingDestinationWindow() const override { return m_window.get(); }
    long draggingSequenceNumber() const override { return m_number; }
    void slideDraggedImageTo(Point point) override
    {
        if (m_imageWindow)
            m_imageWindow->setFrameOrigin(m_window ? m_window->convertBaseToScreen(point) : point);
    }

private:
    Point imageOrigin() const { return { m_pointer.x + m_imageOffset.width, m_pointer.y + m_imageOffset.height }; }
    void moveTo(Point onScreen, unsigned modifierFlags);
    void findDestination(NSWindow*& window, NSView*& view) const;
    void drop();
    void leaveDestination();
    void showImage();
    void noteOperation(unsigned answered);

    Ref<NSPasteboard> m_pasteboard;
    Ref<NSView> m_source;
    Ref<NSImage> m_image;
    Ref<NSWindow> m_imageWindow;
    Weak<NSWindow> m_window;
    Weak<NSView> m_destination;
    Point m_start;
    Point m_pointer;
    Size m_imageOffset;
    unsigned m_mask { 0 };
    unsigned m_operation { NSDragOperationNone };
    long m_number { 0 };
    long m_windowNumber { 0 };
};

}

void DragSession::begin(
    NSView& view, NSImage* image, Point at, Size initialOffset, NSEvent& event, NSPasteboard& pasteboard, NSView& source)
{
    static long s_sequence = 0;
    m_number = ++s_sequence;
    m_pasteboard = Ref<NSPasteboard>(pasteboard);
    m_source = Ref<NSView>(source);
    m_image = Ref<NSImage>(image);
    m_windowNumber = event.windowNumber();
    auto* const window = event.window();
    m_pointer = window ? window->convertBaseToScreen(event.locationInWindow()) : event.locationInWindow();
    Point const origin = view.window()->convertBaseToScreen(view.convertPointToView(at, nullptr));
    m_start = { m_pointer.x - initialOffset.width, m_pointer.y - initialOffset.height };
    m_imageOffset = { origin.x - m_start.x, origin.y - m_start.y };
    showImage();
}

void DragSession::showImage()
{
    if (!m_image || m_image->size().width <= 0 || m_image->size().height <= 0)
        return;
    m_imageWindow = make<NSWindow>(rectWith(imageOrigin(), m_image->size()), NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    auto const content = make<DragImageView>();
    content->image = m_image;
    m_imageWindow->setContentView(content);
    m_imageWindow->setLevel(NSPopUpMenuWindowLevel);
    m_imageWindow->setIgnoresMouseEvents(true);
    m_imageWindow->setOpaque(false);
    m_imageWindow->setAlphaValue(imageAlpha);
    m_imageWindow->orderFront(nullptr);
}

void DragSession::findDestination(NSWindow*& foundWindow, NSView*& foundView) const
{
    foundWindow = nullptr;
    foundView = nullptr;
    auto& application = NSApp->internals();
    for (auto* window : application.order) {
        if (window == m_imageWindow.get() || !window->isVisible() || window->ignoresMouseEvents()
            || !NSPointInRect(m_pointer, window->frame()))
            continue;
        if (application.isBlocked(*window))
            return;
        auto const wanted = [this](NSView const& view) {
            auto const& types = view.registeredDraggedTypes();
            return !types.empty() && m_pasteboard->availableTypeFromArray(types).has_value();
        };
        auto* view = window->internals().viewAt(window->convertScreenToBase(m_pointer));
        while (view && !wanted(*view))
            view = view->superview();
        foundWindow = window;
        foundView = view;
        return;
    }
}

void DragSession::noteOperation(unsigned answered)
{
    if (auto* const destination = m_destination.get())
        NSView::Access::extras(*destination).lastDragOperation = answered;
    m_operation = chosenDragOperation(answered, m_mask);
    auto& cursor = m_operation == NSDragOperationNone ? NSCursor::operationNotAllowedCursor() : NSCursor::arrowCursor();
    cursor.set();
}

void DragSession::leaveDestination()
{
    Ref<NSView> const left(std::exchange(m_destination, nullptr).get());
    m_operation = NSDragOperationNone;
    if (left)
        left->draggingExited(this);
}

void DragSession::moveTo(Point onScreen, unsigned modifierFlags)
{
    m_pointer = onScreen;
    if (m_imageWindow)
        m_imageWindow->setFrameOrigin(imageOrigin());
    m_source->draggedImageMovedTo(m_image.get(), imageOrigin());
    bool const isModified = !m_source->ignoreModifierKeysWhileDragging();
    m_mask = dragOperationMask(m_source->draggingSourceOperationMaskForLocal(true), isModified ? modifierFlags : 0);
    NSWindow* window = nullptr;
    NSView* view = nullptr;
    findDestination(window, view);
    Ref<NSView> const next(view);
    if (m_destination != view)
        leaveDestination();
    m_window = window;
    if (!next) {
        noteOperation(NSDragOperationNone);
        return;
    }
    bool const isNew = !m_destination;
    m_destination = next;
    noteOperation(isNew ? next->draggingEntered(*this) : next->draggingUpdated(*this));
}

void DragSession::drop()
{
    Ref<NSView> const destination(m_destination.get());
    if (!destination || m_operation == NSDragOperationNone) {
        leaveDestination();
        return;
    }
    auto const operation = m_operation;
    bool const isDone = destination->prepareForDragOperation(*this) && destination->performDragOperation(*this);
    if (isDone)
        destination->concludeDragOperation(this);
    m_operation = isDone ? operation : static_cast<unsigned>(NSDragOperationNone);
}

void DragSession::run(bool slideBack)
{
    auto& application = *NSApp;
    Ref<NSCursor> const cursorBefore(NSCursor::currentCursor());
    m_source->draggedImageBeganAt(m_image.get(), imageOrigin());
    unsigned modifierFlags = NSEvent::currentModifierFlags();
    moveTo(m_pointer, modifierFlags);
    for (bool isDragging = true; isDragging;) {
        auto const event = application.nextEventMatchingMask(
            draggingMask, NSDate::dateWithTimeIntervalSinceNow(updatePeriod), NSEventTrackingRunLoopMode, true);
        if (application.isTerminating()) {
            leaveDestination();
            break;
        }
        if (event)
            modifierFlags = event->modifierFlags();
        auto* const window = event && event->isMouseEvent() ? event->window() : nullptr;
        moveTo(window ? window->convertBaseToScreen(event->locationInWindow()) : m_pointer, modifierFlags);
        if (!event)
            continue;
        bool const isRelease = event->type() == NSLeftMouseUp || event->type() == NSRightMouseUp || event->type() == NSOtherMouseUp;
        if ((event->type() == NSKeyDown && event->character() == NSEscapeCharacter) || (isRelease && isAbandoned(*event))) {
            leaveDestination();
            isDragging = false;
        } else if (isRelease) {
            drop();
            isDragging = false;
        }
    }
    if (m_imageWindow && slideBack && m_operation == NSDragOperationNone) {
        Rect const home = rectWith({ m_start.x + m_imageOffset.width, m_start.y + m_imageOffset.height }, m_image->size());
        m_imageWindow->setFrame(home, true, true);
    }
    if (m_imageWindow)
        m_imageWindow->close();
    cursorBefore->set();
    if (Ref<NSView> const last = m_destination.get())
        last->draggingEnded(*this);
    m_source->draggedImage(m_image.get(), imageOrigin(), m_operation);
    if (auto* const window = NSWindow::windowWithNumber(m_windowNumber))
        window->internals().pressedView = nullptr;
}

void NSView::dragImage(
    NSImage* image, Point at, Size initialOffset, NSEvent& event, NSPasteboard& pasteboard, NSView& source, bool slideBack)
{
    if (!m_window)
        return;
    Ref<NSView> const protector(this);
    auto const session = make<DragSession>();
    session->begin(*this, image, at, initialOffset, event, pasteboard, source);
    session->run(slideBack);
}

// What views answer.

void NSView::registerForDraggedTypes(std::vector<std::string> types)
{
    extras().draggedTypes = std::move(types);
}

void NSView::unregisterDraggedTypes()
{
    if (m_extras)
        m_extras->draggedTypes.clear();
}

std::vector<std::string> const& NSView::registeredDraggedTypes() const
{
    static std::vector<std::string> const s_none;
    return m_extras ? m_extras->draggedTypes : s_none;
}

unsigned NSView::draggingUpdated(NSDraggingInfo&)
{
    return m_extras ? m_extras->lastDragOperation : static_cast<unsigned>(NSDragOperationNone);
}

unsigned NSView::draggingSourceOperationMaskForLocal(bool isLocal)
{
    return isLocal ? static_cast<unsigned>(NSDragOperationEvery) : static_cast<unsigned>(NSDragOperationCopy);
}

}
