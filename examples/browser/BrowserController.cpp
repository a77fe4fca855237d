#include "BrowserController.h"
#include "BarView.h"
#include "FilesTable.h"
#include "FolderTree.h"
#include "InfoPanel.h"
#include "JobController.h"
#include "PreferencesWindow.h"
#include "Question.h"
#include "file_jobs.h"
#include "file_operations.h"

#include <plix/app/PLIXApplication.h>
#include <plix/controls/TQSplitView.h>
#include <plix/format/size_and_duration.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>

#include <cstdlib>
#include <ctime>
#include <utility>

namespace browser {

using namespace plix;

namespace {

constexpr char const* frameName = "Browser";
constexpr Rect startContent { 200, 200, 820, 500 };
constexpr Size leastContent { 460, 260 };
constexpr float treeWidth = 200;
constexpr float styleWidth = 120;
constexpr float datesWidth = 84;
constexpr float topBarHeight = 48;
constexpr float filterBarHeight = 30;
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

/// One by its name, more by their count.
std::string shownNames(std::vector<std::string> const& paths)
{
    return paths.size() == 1 ? "“" + shownName(paths[0]) + "”" : std::to_string(paths.size()) + " items";
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
    connect();
    auto& center = NSNotificationCenter::defaultCenter();
    center.addObserver(*this, &BrowserController::noteUserInput, "PLIXApplicationUserInputNotification");
    center.addObserver(*this, &BrowserController::showInputStatus, NSApplicationDidUpdateNotification);
    center.addObserver(*this, &BrowserController::closeOthers, NSWindowWillCloseNotification, m_window.get());
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
    makeFilterBar(content);
    makePanes(content);
    m_window->setInitialFirstResponder(&m_files->table());
    m_window->makeFirstResponder(&m_files->table());
}

void BrowserController::rememberLayout()
{
    m_files->table().setAutosaveTableColumns(true);
    m_files->table().setAutosaveName("BrowserFiles");
    if (!m_window->setFrameUsingName(frameName))
        m_window->center();
    m_window->setFrameAutosaveName(frameName);
    setPreferences(Preferences::load());
    m_savesPreferences = true;
}

void BrowserController::makeBars(NSView& content)
{
    Rect const area = content.bounds();
    auto const small = NSFont::systemFontOfSize(NSFont::smallSystemFontSize());

    auto top = make<BarView>(Rect { 0, area.height - topBarHeight, area.width, topBarHeight }, BarView::Edge::top);
    top->setShowsFolder(true);
    m_nameLabel = makeLabel({ 52, 7, area.width - styleWidth - datesWidth - 88, 17 }, NSFont::boldSystemFontOfSize(0),
        NSLeftTextAlignment, NSViewWidthSizable);
    m_pathLabel
        = makeLabel({ 52, 25, area.width - styleWidth - datesWidth - 88, 15 }, small, NSLeftTextAlignment, NSViewWidthSizable);
    m_pathLabel->cell()->setLineBreakMode(NSLineBreakByTruncatingHead);
    top->addSubview(*m_nameLabel);
    top->addSubview(*m_pathLabel);
    m_stylePopUp = make<NSPopUpButton>(Rect { area.width - styleWidth - 12, 11, styleWidth, 26 }, false);
    m_stylePopUp->addItemsWithTitles({ "Rectangle", "Capsule", "Rounded" });
    m_stylePopUp->setToolTip("How selected rows look");
    m_stylePopUp->setAutoresizingMask(NSViewMinXMargin);
    top->addSubview(*m_stylePopUp);
    m_datesButton = make<NSButton>(Rect { area.width - styleWidth - datesWidth - 20, 11, datesWidth, 26 });
    m_datesButton->setBezelStyle(NSRoundedBezelStyle);
    m_datesButton->setTitle("Dates …");
    m_datesButton->setToolTip("Show only files that were modified between two dates");
    m_datesButton->setAutoresizingMask(NSViewMinXMargin);
    top->addSubview(*m_datesButton);
    content.addSubview(*top);

    auto bottom = make<BarView>(Rect { 0, 0, area.width, statusBarHeight }, BarView::Edge::bottom);
    m_statusLabel = makeLabel({ 8, 5, area.width - inputStatusWidth - 20, 15 }, small, NSLeftTextAlignment, NSViewWidthSizable);
    m_inputLabel
        = makeLabel({ area.width - inputStatusWidth - 8, 5, inputStatusWidth, 15 }, small, NSRightTextAlignment, NSViewMinXMargin);
    bottom->addSubview(*m_statusLabel);
    bottom->addSubview(*m_inputLabel);
    content.addSubview(*bottom);
}

void BrowserController::makeFilterBar(NSView& content)
{
    Rect const area = content.bounds();
    constexpr float buttonWidth = 80;
    m_filterBar
        = make<BarView>(Rect { 0, area.height - topBarHeight - filterBarHeight, area.width, filterBarHeight }, BarView::Edge::top);
    m_filterLabel = makeLabel({ 12, 7, area.width - buttonWidth - 32, 17 }, NSFont::systemFontOfSize(NSFont::smallSystemFontSize()),
        NSLeftTextAlignment, NSViewWidthSizable);
    m_showAllButton = make<NSButton>(Rect { area.width - buttonWidth - 12, 4, buttonWidth, 22 });
    m_showAllButton->setBezelStyle(NSRoundedBezelStyle);
    m_showAllButton->cell()->setControlSize(NSSmallControlSize);
    m_showAllButton->setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    m_showAllButton->setTitle("Show All");
    m_showAllButton->setAutoresizingMask(NSViewMinXMargin);
    m_filterBar->addSubview(*m_filterLabel);
    m_filterBar->addSubview(*m_showAllButton);
    m_filterBar->setHidden(true);
    content.addSubview(*m_filterBar);
}

void BrowserController::layOutPanes()
{
    Rect const area = m_window->contentView()->bounds();
    float const bars = topBarHeight + (m_filter ? filterBarHeight : 0);
    m_panes->setFrame({ 0, statusBarHeight, area.width, area.height - statusBarHeight - bars });
}

void BrowserController::makePanes(NSView& content)
{
    Rect const area = content.bounds();
    m_panes = make<TQSplitView>(Rect { 0, statusBarHeight, area.width, area.height - statusBarHeight - topBarHeight });
    m_panes->setVertical(true);
    m_panes->setDividerThickness(1);
    m_panes->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_tree = make<FolderTree>();
    m_files = make<FilesTable>();
    float const height = m_panes->bounds().height;
    m_tree->scrollView().setFrame({ 0, 0, treeWidth, height });
    m_files->scrollView().setFrame({ 0, 0, area.width - treeWidth, height });
    m_panes->addSubview(m_tree->scrollView());
    m_panes->addSubview(m_files->scrollView());
    content.addSubview(*m_panes);
    m_files->table().sizeToFit();
}

void BrowserController::connect()
{
    // Views may outlive the controller by an event.
    auto const whileAlive = [weakly = Weak<BrowserController>(*this)](auto call) {
        if (auto const controller = weakly.ref())
            call(*controller);
    };
    m_files->setActions({
        .open = [whileAlive](FolderEntry const& entry) { whileAlive([entry](auto& controller) { controller.openEntry(entry); }); },
        .remove = [whileAlive](auto const& names) { whileAlive([&](auto& controller) { controller.askToDelete(names); }); },
        .drop =
            [whileAlive](auto const& paths, auto const& folder) {
                whileAlive([&](auto& controller) {
                    auto const& shown = controller.listing().path();
                    controller.move(paths, folder.empty() ? shown : pathInFolder(shown, folder));
                });
            },
        .paste = [whileAlive](auto const& paths) { whileAlive([&](auto& controller) { controller.copy(paths); }); },
        .info = [whileAlive] { whileAlive([](auto& controller) { controller.showInfo(); }); },
        .total = [whileAlive](auto const& names) { whileAlive([&](auto& controller) { controller.count(names); }); },
        .preferences = [whileAlive] { whileAlive([](auto& controller) { controller.showPreferences(); }); },
        .select = [whileAlive] { whileAlive([](auto& controller) { controller.noteSelection(); }); },
        .leave = [whileAlive] { whileAlive([](auto& controller) { controller.openParent(); }); },
    });
    m_tree->setActions({
        .select = [whileAlive](auto const& path) { whileAlive([&](auto& controller) { controller.open(path); }); },
        .drop = [whileAlive](auto const& paths,
                    auto const& folder) { whileAlive([&](auto& controller) { controller.move(paths, folder); }); },
    });
    m_stylePopUp->setActionFunction([whileAlive](NSObject*) { whileAlive([](auto& controller) { controller.chooseStyle(); }); });
    m_datesButton->setActionFunction([whileAlive](NSObject*) { whileAlive([](auto& controller) { controller.chooseDates(); }); });
    m_showAllButton->setActionFunction(
        [whileAlive](NSObject*) { whileAlive([](auto& controller) { controller.setFilter(std::nullopt); }); });
}

// MARK: the filter

NSView& BrowserController::filterBar() const
{
    return *m_filterBar;
}

void BrowserController::chooseDates()
{
    auto dates = askForDates(m_filter);
    // The window may have been closed while the panel was open.
    if (m_window->isVisible())
        setFilter(std::move(dates));
}

void BrowserController::setFilter(std::optional<DateFilter> filter)
{
    m_filter = std::move(filter);
    m_filterBar->setHidden(!m_filter);
    if (m_filter)
        m_filterLabel->setStringValue(m_filter->text());
    m_filterLabel->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    layOutPanes();
    m_files->setFilter(m_filter ? [dates = *m_filter](FolderEntry const& entry) { return dates.letsThrough(entry); }
                                : std::function<bool(FolderEntry const&)> {});
    if (!m_listing.isReading())
        m_files->setMessage(messageForListing());
    m_window->makeFirstResponder(&m_files->table());
    showStatus();
    updateInfo();
}

std::string BrowserController::messageForListing() const
{
    if (!m_listing.entries().empty())
        return m_filter                      ? "Nothing here was modified between these dates."
            : m_preferences.showsHiddenFiles ? ""
                                             : "All that is in this folder is hidden.";
    return m_listing.failure().empty() ? "This folder is empty." : m_listing.failure();
}

void BrowserController::chooseStyle()
{
    auto const style = static_cast<std::uint32_t>(m_stylePopUp->indexOfSelectedItem());
    m_files->table().setHighlightStyle(style);
    m_tree->outline().setHighlightStyle(style);
    m_files->table().setNeedsDisplay(true);
    m_tree->outline().setNeedsDisplay(true);
}

// MARK: the folder

void BrowserController::open(std::string absolutePath, std::string nameToSelect)
{
    m_nameToSelect = std::move(nameToSelect);
    m_failure.clear();
    m_notice.clear();
    m_files->setEntries(nullptr, {});
    m_listing.open(std::move(absolutePath));
    m_tree->showPath(m_listing.path());
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
        m_files->setMessage("Reading the folder …");
    } else {
        m_files->setMessage(messageForListing());
        m_files->setEntries(&m_listing.entries(), m_listing.path());
        m_files->selectName(m_nameToSelect);
    }
    showStatus();
}

void BrowserController::openEntry(FolderEntry const& entry)
{
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

// MARK: changes

void BrowserController::askToDelete(std::vector<std::string> const& names)
{
    Ref<BrowserController> const protector(this);
    auto const folder = listing().path();
    if (!ask(*m_window, "Delete " + shownNames(names) + "?", "This can’t be undone.", "Delete"))
        return;
    std::string failure;
    for (auto const& name : names) {
        if (auto const line = deleteForGood(pathInFolder(folder, name)); !line.empty())
            failure = line;
    }
    m_tree->folderChanged(folder);
    open(folder);
    showFailure(failure);
}

void BrowserController::move(std::vector<std::string> const& paths, std::string const& folder)
{
    std::string failure;
    for (auto const& path : paths) {
        if (auto const line = moveIntoFolder(path, folder); !line.empty())
            failure = line;
        else
            m_tree->folderChanged(parentPath(path));
    }
    m_tree->folderChanged(folder);
    open(m_listing.path());
    showFailure(failure);
}

void BrowserController::copy(std::vector<std::string> const& paths)
{
    auto const folder = m_listing.path();
    auto work = [paths, folder, files = make<NSFileManager>()](JobReport& report) { copyPaths(paths, folder, *files, report); };
    m_jobs.push_back(make<JobController>("Copying " + shownNames(paths) + " to “" + shownName(folder) + "”", std::move(work),
        [weakly = Weak<BrowserController>(*this), folder](JobReport const& report) {
            if (auto const controller = weakly.ref())
                controller->showCopies(folder, report);
        }));
}

void BrowserController::showCopies(std::string const& folder, JobReport const& report)
{
    forgetEndedJobs();
    if (m_preferences.playsSound && !report.results().empty())
        playSound(m_preferences.sound);
    m_tree->folderChanged(folder);
    if (m_listing.path() != folder)
        return;
    auto const made = report.results();
    open(folder, made.empty() ? "" : made.front().substr(made.front().rfind('/') + 1));
    showFailure(report.failure());
}

void BrowserController::count(std::vector<std::string> const& names)
{
    auto const what = names.size() == 1 ? shownNames(names) : std::to_string(names.size()) + " selected";
    std::vector<std::string> paths;
    for (auto const& name : names)
        paths.push_back(pathInFolder(m_listing.path(), name));
    m_jobs.push_back(make<JobController>(
        "Counting " + what, [paths](JobReport& report) { countPaths(paths, report); },
        [weakly = Weak<BrowserController>(*this), folder = m_listing.path(), what](JobReport const& report) {
            if (auto const controller = weakly.ref())
                controller->showTotal(folder, what, report);
        }));
}

void BrowserController::showTotal(std::string const& folder, std::string const& what, JobReport const& report)
{
    forgetEndedJobs();
    if (m_listing.path() != folder)
        return;
    auto const total = report.progress();
    m_notice = report.isCanceled() ? "Counting " + what + " was canceled."
                                   : "In " + what + ": " + countText(total.items) + ", " + StringForFileSize(total.bytes);
    m_failure.clear();
    showStatus();
    speak(m_notice);
}

void BrowserController::forgetEndedJobs()
{
    std::erase_if(m_jobs, [](auto const& job) { return !job->isRunning(); });
}

// Without the window, the progress of copies is what keeps the application there until they are made.
void BrowserController::closeOthers()
{
    for (auto const& job : m_jobs)
        job->showWindow();
    if (m_info)
        m_info->panel().close();
    if (m_preferencesWindow)
        m_preferencesWindow->panel().close();
}

// MARK: preferences

void BrowserController::showPreferences()
{
    if (!m_preferencesWindow) {
        auto changed = [weakly = Weak<BrowserController>(*this)](Preferences const& preferences) {
            if (auto const controller = weakly.ref())
                controller->setPreferences(preferences);
        };
        m_preferencesWindow = make<PreferencesWindow>(m_preferences, Ref<NSTableView>(&m_files->table()), std::move(changed));
    }
    m_preferencesWindow->show();
}

void BrowserController::setPreferences(Preferences preferences)
{
    m_preferences = std::move(preferences);
    m_files->table().setUsesAlternatingRowBackgroundColors(m_preferences.showsStripes);
    m_files->setShowsHiddenFiles(m_preferences.showsHiddenFiles);
    m_files->setShowsExactSizes(m_preferences.showsExactSizes);
    if (!m_listing.isReading())
        m_files->setMessage(messageForListing());
    if (m_savesPreferences)
        m_preferences.save();
    showStatus();
}

// MARK: what is known of a file

void BrowserController::showInfo()
{
    if (!m_info) {
        m_info = make<InfoPanel>();
        m_info->show(m_files->selectedEntry(), m_listing.path());
    }
    auto& panel = m_info->panel();
    if (auto const* screen = m_window->screen(); screen && !panel.isVisible())
        panel.setFrameTopLeftPoint(topLeftBeside(m_window->frame(), panel.frame().size(), screen->visibleFrame()));
    panel.orderFront(nullptr);
    updateInfo();
}

void BrowserController::updateInfo()
{
    if (m_info && m_info->panel().isVisible())
        m_info->show(m_files->selectedEntry(), m_listing.path());
}

// MARK: the status bar

void BrowserController::noteSelection()
{
    showFailure({});
    updateInfo();
    if (auto const* entry = m_files->selectedEntry())
        speak(entry->shownName);
}

// What is said last is what counts: nobody waits for the names that an arrow key passed by.
void BrowserController::speak(std::string const& text)
{
    if (!m_preferences.speaks)
        return;
    PLIXSpeechSynthesizer::classStopSpeaking();
    PLIXSpeechSynthesizer::classSpeakString(text);
}

void BrowserController::showFailure(std::string line)
{
    m_notice.clear();
    m_failure = std::move(line);
    showStatus();
}

void BrowserController::showStatus()
{
    auto const& failure = m_failure.empty() ? m_listing.failure() : m_failure;
    if (m_listing.isReading())
        m_statusLabel->setStringValue("Reading … " + countText(m_listing.entriesRead()));
    else if (!failure.empty())
        m_statusLabel->setStringValue(failure);
    else if (!m_notice.empty())
        m_statusLabel->setStringValue(m_notice);
    else
        m_statusLabel->setStringValue(m_filter || m_files->shownEntries() < m_listing.entries().size()
                ? std::to_string(m_files->shownEntries()) + " of " + countText(m_listing.entries().size())
                : countText(m_listing.entries().size()));
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
