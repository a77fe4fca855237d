#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/key_views.h>

#include <utility>

namespace plix {

namespace {

/// Sets a value for the scope that it lives in.
template <typename T> class ValueWhile {
public:
    ValueWhile(T& variable, T value)
        : m_variable(variable)
        , m_before(std::exchange(variable, value))
    {
    }
    ~ValueWhile() { m_variable = m_before; }
    ValueWhile(ValueWhile const&) = delete;
    ValueWhile& operator=(ValueWhile const&) = delete;

private:
    T& m_variable;
    T m_before;
};

}

NSResponder* NSWindow::firstResponder() const
{
    auto* const responder = m->firstResponder.get();
    return responder ? responder : const_cast<NSWindow*>(this);
}

bool NSWindow::makeFirstResponder(NSResponder* wanted)
{
    Ref<NSWindow> const protector(this);
    Ref<NSResponder> const next(wanted ? wanted : this);
    Ref<NSResponder> const before(firstResponder());
    if (next == before)
        return true;
    if (next != this && !next->acceptsFirstResponder())
        return false;
    auto const changes = m->responderChanges;
    if (!before->resignFirstResponder())
        return false;
    // Who resigned may have handed the keyboard on: a field that Tab ends.
    if (m->responderChanges != changes && m->firstResponder)
        return next == this || m->firstResponder == next.get();
    ++m->responderChanges;
    m->firstResponder = next == this ? nullptr : next.get();
    if (next->becomeFirstResponder())
        return true;
    if (firstResponder() == next.get())
        m->firstResponder = nullptr;
    return true;
}

NSView* NSWindow::initialFirstResponder() const
{
    return m->initialFirstResponder.get();
}

void NSWindow::setInitialFirstResponder(NSView* view)
{
    m->initialFirstResponder = view;
}

NSView* NSWindow::Internals::firstKeyView() const
{
    if (auto* const initial = initialFirstResponder.get())
        return initial->canBecomeKeyView() ? initial : initial->nextValidKeyView();
    auto views = viewsInReadingOrder(*contentView);
    views.insert(views.begin(), contentView.get());
    for (auto* view : views) {
        if (view->canBecomeKeyView())
            return view;
    }
    return nullptr;
}

void NSWindow::Internals::selectInitialFirstResponder()
{
    if (!initialFirstResponder) {
        auto const views = viewsInReadingOrder(*contentView);
        bool const hasLoop = contentView->nextKeyView()
            || std::any_of(views.begin(), views.end(), [](auto const* view) { return view->nextKeyView() != nullptr; });
        if (!hasLoop)
            self.recalculateKeyViewLoop();
    }
    if (self.firstResponder() != &self)
        return;
    if (auto* const view = firstKeyView())
        self.makeFirstResponder(view);
}

void NSWindow::recalculateKeyViewLoop()
{
    auto views = viewsInReadingOrder(*m->contentView);
    views.insert(views.begin(), m->contentView.get());
    for (std::size_t i = 0; i < views.size(); ++i)
        views[i]->setNextKeyView(views[(i + 1) % views.size()]);
}

bool NSWindow::autorecalculatesKeyViewLoop() const
{
    return m->autorecalculatesKeyViewLoop;
}

void NSWindow::setAutorecalculatesKeyViewLoop(bool recalculates)
{
    m->autorecalculatesKeyViewLoop = recalculates;
}

NSSelectionDirection NSWindow::keyViewSelectionDirection() const
{
    return m->selectionDirection;
}

void NSWindow::selectNextKeyView(NSObject*)
{
    Ref<NSWindow> const protector(this);
    if (m->autorecalculatesKeyViewLoop)
        recalculateKeyViewLoop();
    // The field editor is no part of the loop; the field around it is.
    for (auto* view = dynamic_cast<NSView*>(firstResponder()); view; view = view->superview()) {
        if (view->nextValidKeyView())
            return selectKeyViewFollowingView(*view);
    }
    ValueWhile const direction(m->selectionDirection, NSSelectingNext);
    if (auto* const view = m->firstKeyView())
        makeFirstResponder(view);
}

void NSWindow::selectPreviousKeyView(NSObject*)
{
    Ref<NSWindow> const protector(this);
    if (m->autorecalculatesKeyViewLoop)
        recalculateKeyViewLoop();
    for (auto* view = dynamic_cast<NSView*>(firstResponder()); view; view = view->superview()) {
        if (view->previousValidKeyView())
            return selectKeyViewPrecedingView(*view);
    }
    ValueWhile const direction(m->selectionDirection, NSSelectingPrevious);
    auto* const first = m->firstKeyView();
    auto* const last = first ? first->previousValidKeyView() : nullptr;
    if (auto* const view = last ? last : first)
        makeFirstResponder(view);
}

void NSWindow::selectKeyViewFollowingView(NSView& view)
{
    Ref<NSWindow> const protector(this);
    ValueWhile const direction(m->selectionDirection, NSSelectingNext);
    if (auto* const next = view.nextValidKeyView())
        makeFirstResponder(next);
}

void NSWindow::selectKeyViewPrecedingView(NSView& view)
{
    Ref<NSWindow> const protector(this);
    ValueWhile const direction(m->selectionDirection, NSSelectingPrevious);
    if (auto* const previous = view.previousValidKeyView())
        makeFirstResponder(previous);
}

NSResponder* NSWindow::defaultButton() const
{
    return m->defaultButton.get();
}

void NSWindow::setDefaultButton(NSResponder* button)
{
    m->defaultButton = button;
}

void NSWindow::enableKeyEquivalentForDefaultButtonCell()
{
    m->isDefaultButtonEnabled = true;
}

void NSWindow::disableKeyEquivalentForDefaultButtonCell()
{
    m->isDefaultButtonEnabled = false;
}

// Field editor.

NSResponder* NSWindow::fieldEditor(bool createWhenNeeded, NSObject* client)
{
    Ref<NSWindow> const protector(this);
    if (auto* const other = m->hooks.windowWillReturnFieldEditor(*this, client))
        return other;
    if (!m->fieldEditor && createWhenNeeded) {
        auto const editor = make<NSTextView>();
        editor->setFieldEditor(true);
        m->fieldEditor = editor;
    }
    return m->fieldEditor.get();
}

void NSWindow::endEditingFor(NSObject*)
{
    Ref<NSWindow> const protector(this);
    if (m->fieldEditor && firstResponder() == m->fieldEditor.get())
        m->takeKeyboardAway(nullptr);
}

/// Also from one that refuses: what is in its editor is lost then.
void NSWindow::Internals::takeKeyboardAway(NSResponder* next)
{
    Ref<NSWindow> const protector(self);
    Ref<NSResponder> const before(self.firstResponder());
    if (self.makeFirstResponder(next) || firstResponder != before.get())
        return;
    auto* const text = dynamic_cast<NSText*>(before.get());
    if (Ref<NSControl> const control { text ? dynamic_cast<NSControl*>(text->delegate()) : nullptr })
        control->abortEditing();
    firstResponder = nullptr;
}

// What views tell.

void NSWindow::Internals::viewWillLeave(NSView& view)
{
    tracking.forgetView(view);
    if (auto* const responder = dynamic_cast<NSView*>(firstResponder.get()); responder == &view) {
        Ref<NSView> const leaving(view);
        takeKeyboardAway(nullptr);
    }
    for (auto* const pressed : { &pressedView, &rightPressedView, &otherPressedView }) {
        if (*pressed == &view)
            *pressed = nullptr;
    }
}

void NSWindow::Internals::viewWasHidden(NSView& view)
{
    auto* const responder = dynamic_cast<NSView*>(firstResponder.get());
    if (!responder || !responder->isDescendantOf(view))
        return;
    Ref<NSWindow> const protector(self);
    auto* const next = responder->nextValidKeyView();
    takeKeyboardAway(next && next->canBecomeKeyView() ? next : nullptr);
}

}
