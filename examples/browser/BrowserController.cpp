#include "BrowserController.h"
#include "BarView.h"
#include "ListView.h"

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <cstdlib>
#include <ctime>
#include <utility>

namespace browser {

using namespace plix;

namespace {

constexpr Rect startContent { 200, 200, 640, 460 };
constexpr Size leastContent { 300, 220 };
constexpr float topBarHeight = 48;
constexpr float statusBarHeight = 24;
constexpr float inputStatusWidth = 250;

Ref<NSTextField> makeLabel(Rect frame, Ref<NSFont> const& font, NSTextAlignment alignment, unsigned autoresizing)
{
    auto label = NSTextField::labelWithString("");
    label->setFrame(frame);
    label->setFont(font);
    label->setAlignment(alignment);
    label->setAutoresizingMask(autoresizing);
    return label;
}

std::string clockTime(double secondsSince1970)
{
    auto const seconds = static_cast<std::time_t>(secondsSince1970);
    std::tm parts {};
    char text[16];
    ::localtime_r(&seconds, &parts);
    return { text, std::strftime(text, sizeof text, "%H:%M:%S", &parts) };
}

}

PLIX_DESCRIBE(BrowserController)
{
}

BrowserController::BrowserController() = default;
BrowserController::~BrowserController() = default;

bool BrowserController::init(std::string absolutePath)
{
    makeWindow();
    auto& center = NSNotificationCenter::defaultCenter();
    center.addObserver(*this, &BrowserController::noteUserInput, "PLIXApplicationUserInputNotification");
    center.addObserver(*this, &BrowserController::showInputStatus, NSApplicationDidUpdateNotification);
    showInputStatus();
    open(std::move(absolutePath));
    return true;
}

// MARK: the window

void BrowserController::makeWindow()
{
    m_window = make<NSWindow>(startContent,
        NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask, NSBackingStoreBuffered,
        false);
    m_window->setContentMinSize(leastContent);
    auto& content = *m_window->contentView();
    makeBars(content);
    makeList(content);
    m_window->setInitialFirstResponder(m_list.get());
    m_window->makeFirstResponder(m_list.get());
}

void BrowserController::makeBars(NSView& content)
{
    Rect const area = content.bounds();
    auto const small = NSFont::systemFontOfSize(NSFont::smallSystemFontSize());

    auto top = make<BarView>(Rect { 0, area.height - topBarHeight, area.width, topBarHeight }, BarView::Edge::top);
    top->setShowsFolder(true);
    m_nameLabel
        = makeLabel({ 52, 7, area.width - 64, 17 }, NSFont::boldSystemFontOfSize(0), NSLeftTextAlignment, NSViewWidthSizable);
    m_pathLabel = makeLabel({ 52, 25, area.width - 64, 15 }, small, NSLeftTextAlignment, NSViewWidthSizable);
    m_pathLabel->cell()->setLineBreakMode(NSLineBreakByTruncatingHead);
    top->addSubview(*m_nameLabel);
    top->addSubview(*m_pathLabel);
    content.addSubview(*top);

    auto bottom = make<BarView>(Rect { 0, 0, area.width, statusBarHeight }, BarView::Edge::bottom);
    m_statusLabel = makeLabel({ 8, 5, area.width - inputStatusWidth - 20, 15 }, small, NSLeftTextAlignment, NSViewWidthSizable);
    m_inputLabel
        = makeLabel({ area.width - inputStatusWidth - 8, 5, inputStatusWidth, 15 }, small, NSRightTextAlignment, NSViewMinXMargin);
    bottom->addSubview(*m_statusLabel);
    bottom->addSubview(*m_inputLabel);
    content.addSubview(*bottom);
}

void BrowserController::makeList(NSView& content)
{
    Rect const area = content.bounds();
    m_scrollView = make<NSScrollView>(Rect { 0, statusBarHeight, area.width, area.height - statusBarHeight - topBarHeight });
    m_scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_scrollView->setHasVerticalScroller(true);
    m_scrollView->setAutohidesScrollers(true);
    m_list = make<ListView>(rectWith({}, m_scrollView->contentSize()));
    m_scrollView->setVerticalLineScroll(m_list->plan().rowHeight);
    m_scrollView->setVerticalPageScroll(m_list->plan().rowHeight);
    m_scrollView->setDocumentView(m_list);
    // The list may outlive the controller by an event.
    auto const whileAlive = [weakly = Weak<BrowserController>(*this)](auto call) {
        if (auto const controller = weakly.ref())
            call(*controller);
    };
    m_list->setActions({
        .open = [whileAlive](long row) { whileAlive([row](auto& controller) { controller.openRow(row); }); },
        .leave = [whileAlive] { whileAlive([](auto& controller) { controller.openParent(); }); },
        .select = [whileAlive] { whileAlive([](auto& controller) { controller.showFailure({}); }); },
    });
    content.addSubview(*m_scrollView);
}

// MARK: the folder

void BrowserController::open(std::string absolutePath, std::string nameToSelect)
{
    m_nameToSelect = std::move(nameToSelect);
    m_failure.clear();
    m_list->setEntries(nullptr);
    m_listing.open(std::move(absolutePath));
    m_window->setTitle(shownName(m_listing.path()));
    m_nameLabel->setStringValue(shownName(m_listing.path()));
    char const* home = std::getenv("HOME");
    m_pathLabel->setStringValue(shownPath(m_listing.path(), home ? home : ""));
    m_pathLabel->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    if (m_readTimer)
        m_readTimer->invalidate();
    if (m_listing.isReading())
        m_readTimer = NSTimer::scheduledTimerWithTimeInterval(0, *this, &BrowserController::readOn, {}, true);
    showListing();
}

void BrowserController::readOn()
{
    if (m_listing.readOn()) {
        showStatus();
        return;
    }
    m_readTimer->invalidate();
    showListing();
}

void BrowserController::showListing()
{
    if (m_listing.isReading()) {
        m_list->setMessage("Reading the folder …");
    } else {
        bool const isEmpty = m_listing.entries().empty();
        m_list->setMessage(!m_listing.failure().empty() && isEmpty ? m_listing.failure() : isEmpty ? "This folder is empty." : "");
        m_list->setEntries(&m_listing.entries());
        auto const row = m_nameToSelect.empty() ? 0 : m_listing.indexOfName(m_nameToSelect);
        m_list->selectRow(static_cast<long>(row));
    }
    showStatus();
}

void BrowserController::openRow(long row)
{
    auto const& entry = m_listing.entries().at(static_cast<std::size_t>(row));
    switch (entry.kind) {
    case EntryKind::folder:
        open(pathInFolder(m_listing.path(), entry.name));
        break;
    case EntryKind::brokenLink:
        showFailure("“" + entry.shownName + "” is a link that leads nowhere.");
        break;
    case EntryKind::file:
    case EntryKind::special:
        showFailure("“" + entry.shownName + "” is not a folder.");
        break;
    }
}

void BrowserController::openParent()
{
    std::string const path = m_listing.path();
    if (path != "/")
        open(parentPath(path), path.substr(path.rfind('/') + 1));
}

// MARK: the status bar

void BrowserController::showFailure(std::string line)
{
    m_failure = std::move(line);
    showStatus();
}

void BrowserController::showStatus()
{
    auto const& failure = m_failure.empty() ? m_listing.failure() : m_failure;
    if (m_listing.isReading())
        m_statusLabel->setStringValue("Reading … " + countText(m_listing.entriesRead()));
    else
        m_statusLabel->setStringValue(failure.empty() ? countText(m_listing.entries().size()) : failure);
    m_statusLabel->setTextColor(Theme::current().color(failure.empty() ? ThemeRole::secondaryText : ThemeRole::errorText));
}

void BrowserController::noteUserInput()
{
    ++m_inputCount;
}

void BrowserController::showInputStatus()
{
    auto const* application = dynamic_cast<PLIXApplication*>(NSApp.get());
    double const last = application ? application->lastEventTimestamp() : 0;
    std::string text = std::to_string(m_inputCount) + (m_inputCount == 1 ? " input" : " inputs");
    text += last > 0 ? " · last event at " + clockTime(last) : " · no event yet";
    m_inputLabel->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    m_inputLabel->setStringValue(text);
}

std::string const& BrowserController::status() const
{
    return m_statusLabel->stringValue();
}

std::string const& BrowserController::inputStatus() const
{
    return m_inputLabel->stringValue();
}

}
