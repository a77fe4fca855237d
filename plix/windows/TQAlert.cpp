#include <plix/windows/TQAlert.h>

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/classes.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/alert_plan.h>
#include <plix/windows/background_plan.h>
#include <plix/windows/classes.h>

#include <algorithm>

namespace plix {

namespace {

long tagOf(NSObject const* sender)
{
    if (auto const* view = dynamic_cast<NSView const*>(sender))
        return view->tag();
    if (auto const* cell = dynamic_cast<NSCell const*>(sender))
        return cell->tag();
    auto const* item = dynamic_cast<NSMenuItem const*>(sender);
    return item ? item->tag() : 0;
}

/// What has to be done after the run is done also where that throws.
long runAndAfter(FunctionRef<long()> run, FunctionRef<void()> after)
{
    long result = 0;
    try {
        result = run();
    } catch (...) {
        after();
        throw;
    }
    after();
    return result;
}

// Never taken back, as is meant.
void growForSheet(NSWindow& window)
{
    Ref<NSView> const content(window.contentView());
    content->setAutoresizesSubviews(false);
    runAndAfter(
        [&] {
            window.setFrame(alertFrameForSheet(window.frame()), true);
            return 0L;
        },
        [&] { content->setAutoresizesSubviews(true); });
}

long runSheet(NSWindow& window, NSWindow& parent)
{
    NSApp->beginSheet(window, parent);
    // Closed while it slid out.
    if (!window.isSheet())
        return NSRunAbortedResponse;
    auto const session = NSApp->beginModalSessionForWindow(window);
    return runAndAfter(
        [&] {
            long result = NSRunContinuesResponse;
            while (result == NSRunContinuesResponse)
                result = NSApp->runModalSession(*session);
            NSApp->endSheet(window);
            return result;
        },
        [&] { NSApp->endModalSession(*session); });
}

}

PLIX_DESCRIBE(TQAlert)
{
    description.bundle("plix")
        .action("button:", &TQAlert::button)
        .outlet<PLIXWindow>("window", [](auto& alert, auto const& value) { alert.m_window = value; })
        .outlet<NSImageView>("iconView", [](auto& alert, auto const& value) { alert.m_iconView = value; })
        .outlet<PLIXChiseledTextField>("statementField", [](auto& alert, auto const& value) { alert.m_statementField = value; })
        .outlet<PLIXChiseledTextField>("messageField", [](auto& alert, auto const& value) { alert.m_messageField = value; })
        .outlet<NSButton>("button1", [](auto& alert, auto const& value) { alert.m_button1 = value; })
        .outlet<NSButton>("button2", [](auto& alert, auto const& value) { alert.m_button2 = value; })
        .outlet<NSButton>("button3", [](auto& alert, auto const& value) { alert.m_button3 = value; });
}

TQAlert::TQAlert() = default;
TQAlert::~TQAlert() = default;

bool TQAlert::init(std::string_view title, std::string_view statement, std::string_view message, Ref<NSImage> const& icon,
    std::string_view button1Title, std::string_view button2Title, std::string_view button3Title)
{
    registerControlClasses();
    registerWindowClasses();
    if (!NSObject::init() || !loadNibNamed("Alert", this) || !isComplete())
        return false;
    m_window->setBackgroundMode(PLIXBackgroundUpperHalf);
    setTitle(title);
    setStatement(statement);
    setMessage(message);
    setIcon(icon);
    setButton1Title(button1Title);
    setButton2Title(button2Title);
    setButton3Title(button3Title);
    return true;
}

bool TQAlert::isComplete() const
{
    auto const all = buttons();
    return m_window && m_iconView && m_statementField && m_messageField
        && std::ranges::all_of(all, [](auto const* button) { return button != nullptr; });
}

// Running.

int TQAlert::runOnce(FunctionRef<long()> run)
{
    if (m_isRunning)
        return NSRunAbortedResponse;
    Ref<TQAlert> const protector(this);
    auto const window = m_window;
    m_isRunning = true;
    return static_cast<int>(runAndAfter(run, [&] {
        m_isRunning = false;
        window->orderOut(nullptr);
    }));
}

int TQAlert::runModal()
{
    return runOnce([window = m_window] {
        window->center();
        NSBeep();
        return NSApp->runModalForWindow(*window);
    });
}

int TQAlert::runAsSheetForWindow(NSWindow& parent)
{
    Ref<NSWindow> const parentProtector(parent);
    return runOnce([&parent, window = m_window] {
        NSBeep();
        growForSheet(*window);
        return runAndAfter([&] { return runSheet(*window, parent); }, [&] { NSApp->endSheet(*window); });
    });
}

void TQAlert::button(NSObject* sender)
{
    NSApp->stopModalWithCode(tagOf(sender));
}

// Contents.

NSImage* TQAlert::icon() const
{
    return m_iconView->image();
}

void TQAlert::setIcon(Ref<NSImage> const& icon)
{
    m_iconView->setImage(icon);
}

std::string const& TQAlert::title() const
{
    return m_window->title();
}

void TQAlert::setTitle(std::string_view title)
{
    m_window->setTitle(title);
}

Rect TQAlert::fitField(PLIXChiseledTextField& field, std::string_view text)
{
    Size const before = field.frame().size();
    field.setStringValue(text);
    Size const measured = field.cell()->cellSizeForBounds(PLIXMakeRectWithSize(alertTextBounds(before.width)));
    field.setFrameSize({ before.width, alertTextHeight(measured.height) });
    return alertFrameForTextHeight(m_window->frame(), field.frame().height, before.height);
}

std::string TQAlert::statement() const
{
    return m_statementField->stringValue();
}

void TQAlert::setStatement(std::string_view text)
{
    auto const field = m_statementField;
    Rect const frame = fitField(*field, text);
    // The field has grown upwards already: it stays while the window follows.
    auto const mask = field->autoresizingMask();
    field->setAutoresizingMask(NSViewMaxYMargin);
    runAndAfter(
        [&] {
            m_window->setFrame(frame, true);
            return 0L;
        },
        [&] { field->setAutoresizingMask(mask); });
}

std::string TQAlert::message() const
{
    return m_messageField->stringValue();
}

void TQAlert::setMessage(std::string_view text)
{
    m_window->setFrame(fitField(*m_messageField, text), true);
}

std::array<NSButton*, 3> TQAlert::buttons() const
{
    return { m_button1.get(), m_button2.get(), m_button3.get() };
}

void TQAlert::setButtonTitle(std::size_t index, std::string_view title)
{
    AlertButtonFrames frames;
    auto const all = buttons();
    for (std::size_t i = 0; i < all.size(); ++i)
        frames[i] = all[i]->frame();
    auto& changed = *all[index];
    changed.setEnabled(!title.empty());
    changed.setHidden(title.empty());
    changed.setTitle(title);
    changed.sizeToFit();
    frames = alertButtonsWithTitle(frames, index, changed.frame().size());
    changed.setFrameSize(frames[index].size());
    for (auto moved = index; moved < all.size(); ++moved)
        all[moved]->setFrameOrigin(frames[moved].origin());
}

std::string const& TQAlert::button1Title() const
{
    return m_button1->title();
}

void TQAlert::setButton1Title(std::string_view title)
{
    setButtonTitle(0, title);
}

std::string const& TQAlert::button2Title() const
{
    return m_button2->title();
}

void TQAlert::setButton2Title(std::string_view title)
{
    setButtonTitle(1, title);
}

std::string const& TQAlert::button3Title() const
{
    return m_button3->title();
}

void TQAlert::setButton3Title(std::string_view title)
{
    setButtonTitle(2, title);
}

}
