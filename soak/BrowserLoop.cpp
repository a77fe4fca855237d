#include "BrowserLoop.h"

#include <examples/browser/BrowserController.h>
#include <examples/browser/FilesTable.h>
#include <examples/browser/FolderTree.h>
#include <examples/browser/InfoPanel.h>
#include <examples/browser/PreferencesWindow.h>

#include <plix/controls/PLIXTabView.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/platform/host/headless/HeadlessWindow.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>

#include <algorithm>
#include <numeric>

namespace soak {

using namespace plix;

namespace {

constexpr Rect windowRect { 200, 200, 820, 500 };
constexpr unsigned control = NSControlKeyMask;

}

struct BrowserLoop::Action {
    int weight;
    void (BrowserLoop::*act)();
};

BrowserLoop::BrowserLoop(HeadlessHost& host, Options options, Report report)
    : m_host(host)
    , m_options(options)
    , m_report(std::move(report))
    , m_lots(options.seed)
    , m_actionsLeft(options.actionsARound)
{
    m_controller = make<browser::BrowserController>(m_folder.path());
    m_controller->window().makeKeyAndOrderFront(nullptr);
}

BrowserLoop::~BrowserLoop() = default;

void BrowserLoop::run()
{
    m_begun = plix::clock().uptime();
    scheduleTick();
    NSApp->run();
    m_controller->window().close();
    m_controller = nullptr;
}

double BrowserLoop::seconds() const
{
    return plix::clock().uptime() - m_begun;
}

void BrowserLoop::scheduleTick()
{
    bool const isWarmingUp = seconds() < m_options.warmUpMinutes * 60;
    auto const pace = m_options.actionsASecond * (isWarmingUp ? m_options.warmUpHaste : 1);
    m_host.headlessEvents().postAfter(1 / pace, [this] { tick(); });
}

int BrowserLoop::below(int limit)
{
    return std::uniform_int_distribution(0, limit - 1)(m_lots);
}

// MARK: the rhythm

void BrowserLoop::tick()
{
    scheduleTick();
    if (!m_steps.empty()) {
        auto const step = std::move(m_steps.front());
        m_steps.pop_front();
        return step();
    }
    if (leaveLoops())
        return;
    if (!isInSample()) {
        m_controller->open(m_folder.path());
        return;
    }
    if (m_actionsLeft-- > 0)
        return chooseAction();
    beginRest();
}

bool BrowserLoop::isInSample() const
{
    auto const& shown = m_controller->listing().path();
    return shown == m_folder.path() || shown.starts_with(m_folder.path() + '/');
}

// What is modal, or a sheet, that an action left open.
bool BrowserLoop::leaveLoops()
{
    auto& window = m_controller->window();
    if (!NSApp->modalWindow() && !window.attachedSheet())
        return false;
    // A sheet is refused; what only knows OK is agreed to.
    if (window.attachedSheet())
        person().key(NSEscapeCharacter);
    else
        person().key("\r");
    return true;
}

void BrowserLoop::chooseAction()
{
    static constexpr Action actions[] { { 12, &BrowserLoop::scroll }, { 10, &BrowserLoop::select },
        { 10, &BrowserLoop::walkByKeys }, { 6, &BrowserLoop::openFolder }, { 6, &BrowserLoop::openParent },
        { 4, &BrowserLoop::sort }, { 10, &BrowserLoop::useTree }, { 4, &BrowserLoop::typeName }, { 4, &BrowserLoop::toggleInfo },
        { 3, &BrowserLoop::usePreferences }, { 3, &BrowserLoop::copyFiles }, { 3, &BrowserLoop::useMenu },
        { 2, &BrowserLoop::chooseStyle }, { 2, &BrowserLoop::askForDates }, { 2, &BrowserLoop::askToDelete },
        { 2, &BrowserLoop::resizeWindow }, { 2, &BrowserLoop::moveColumn }, { 4, &BrowserLoop::hover },
        { 1, &BrowserLoop::changeLook } };
    ++m_actions;
    int lot = below(std::accumulate(
        std::begin(actions), std::end(actions), 0, [](int sum, Action const& action) { return sum + action.weight; }));
    auto const chosen = std::ranges::find_if(actions, [&](Action const& action) { return (lot -= action.weight) < 0; });
    (this->*chosen->act)();
}

void BrowserLoop::beginRest()
{
    if (!m_controller->jobs().empty())
        return;
    auto& window = m_controller->window();
    afterThis([this, &window] {
        setCurrentAppearance(Appearance::light);
        if (auto const* const info = m_controller->info())
            info->panel().close();
        if (auto const* const preferences = m_controller->preferencesWindow())
            preferences->panel().close();
        m_controller->setFilter(std::nullopt);
        m_controller->files().sortBy(browser::SortKey::name, false);
        window.setFrame(window.frameRectForContentRect(windowRect), true);
        m_folder.restore();
        m_controller->open(m_folder.path());
        m_controller->tree().folderChanged(m_folder.path());
        person().moveMouse({ 1, 1 });
    });
    // Long enough for what ends by itself: tips, carets, what reads folders.
    for (int wait = 0; wait < 10; ++wait)
        afterThis([] {});
    afterThis([this] {
        if (NSApp->modalWindow() || m_controller->window().attachedSheet() || !m_controller->jobs().empty())
            return;
        m_samples.push_back(sampleMemory(seconds()));
        m_report(m_samples.back());
        m_actionsLeft = m_options.actionsARound;
        if (seconds() >= m_options.minutes * 60)
            NSApp->stop(nullptr);
    });
}

// MARK: where things are

HeadlessScript& BrowserLoop::person()
{
    return m_host.script();
}

NSTableView& BrowserLoop::table()
{
    return m_controller->files().table();
}

NSTableView& BrowserLoop::outline()
{
    return m_controller->tree().outline();
}

// Of what is not shown now: a place where nothing is.
Point BrowserLoop::middleOf(NSView& view)
{
    if (!view.window())
        return { -1, -1 };
    return view.window()->convertBaseToScreen(view.convertPointToView({ view.bounds().midX(), view.bounds().midY() }, nullptr));
}

Point BrowserLoop::visibleRowPoint(NSTableView& view)
{
    auto const rows = view.rowsInRect(view.visibleRect());
    auto const row = static_cast<long>(rows.location) + (rows.length > 0 ? below(static_cast<int>(rows.length)) : 0);
    Rect const rect = view.rectOfRow(row);
    return view.window()->convertBaseToScreen(view.convertPointToView({ 60, rect.midY() }, nullptr));
}

void BrowserLoop::clickRow(NSTableView& view, int count, unsigned modifiers)
{
    person().click(visibleRowPoint(view), { .count = count, .modifiers = modifiers });
}

// MARK: actions

void BrowserLoop::scroll()
{
    person().scroll(middleOf(below(4) ? table() : outline()), 0, static_cast<float>(below(21) - 10));
}

void BrowserLoop::select()
{
    static constexpr unsigned modifiers[] { 0, 0, 0, NSShiftKeyMask, control };
    clickRow(table(), 1, modifiers[below(5)]);
}

void BrowserLoop::walkByKeys()
{
    static constexpr char32_t keys[] { NSUpArrowFunctionKey, NSDownArrowFunctionKey, NSPageUpFunctionKey, NSPageDownFunctionKey,
        NSHomeFunctionKey, NSEndFunctionKey };
    person().key(keys[below(6)], below(3) == 0 ? NSShiftKeyMask : 0U);
}

void BrowserLoop::openFolder()
{
    person().key(NSHomeFunctionKey);
    for (int row = below(4); row > 0; --row)
        person().key(NSDownArrowFunctionKey);
    person().key("\r");
}

void BrowserLoop::openParent()
{
    if (m_controller->listing().path() != m_folder.path())
        person().key(NSUpArrowFunctionKey, NSAlternateKeyMask);
    else
        clickRow(table(), 2);
}

void BrowserLoop::sort()
{
    auto& header = *m_controller->files().table().tableHeaderView();
    auto const rect = header.headerRectOfColumn(below(static_cast<int>(table().numberOfColumns())));
    person().click(header.window()->convertBaseToScreen(header.convertPointToView({ rect.midX(), rect.midY() }, nullptr)));
}

void BrowserLoop::useTree()
{
    auto const& tree = m_controller->tree();
    if (!tree.selectedPath().starts_with(m_folder.path())) {
        m_controller->open(m_folder.path());
        return;
    }
    auto& view = outline();
    long const row = view.selectedRow();
    Rect const rect = view.frameOfCellAtColumn(0, row);
    person().click(view.window()->convertBaseToScreen(view.convertPointToView({ rect.x + 30, rect.midY() }, nullptr)));
    person().key(NSRightArrowFunctionKey);
    for (int times = below(3); times > 0; --times)
        person().key(NSDownArrowFunctionKey);
    if (below(2) != 0)
        person().key(NSLeftArrowFunctionKey);
    afterThis([this] { m_controller->window().makeFirstResponder(&table()); });
}

void BrowserLoop::typeName()
{
    static constexpr char const* names[] { "file 2", "alpha", "many", "sil", "vid", "am" };
    person().type(names[below(6)]);
}

void BrowserLoop::toggleInfo()
{
    auto const* const info = m_controller->info();
    if (info && info->panel().isVisible())
        info->panel().performClose(nullptr);
    else
        person().key(U'i', control);
}

void BrowserLoop::usePreferences()
{
    person().key(U',', control);
    afterThis([this] {
        auto const* const preferences = m_controller->preferencesWindow();
        if (!preferences)
            return;
        auto& tabs = preferences->tabs();
        tabs.selectTabViewItemAtIndex(below(static_cast<int>(tabs.numberOfTabViewItems())));
        if (below(2) != 0 && tabs.selectedTabViewItem() == tabs.tabViewItemAtIndex(0))
            person().click(middleOf(preferences->exactSizes()));
    });
    afterThis([this] {
        if (auto const* const preferences = m_controller->preferencesWindow())
            preferences->panel().performClose(nullptr);
        m_controller->window().makeKeyAndOrderFront(nullptr);
    });
}

// At once, since only here is it known which folder is shown.
void BrowserLoop::copyFiles()
{
    if (!isInSample())
        return;
    table().tryToPerform(Selector("copy:"), nullptr);
    table().tryToPerform(Selector("paste:"), nullptr);
}

void BrowserLoop::useMenu()
{
    person().click(visibleRowPoint(table()), { .button = 1 });
    afterThis([this] { person().key(NSDownArrowFunctionKey); });
    afterThis([this] { person().key(NSEscapeCharacter); });
}

void BrowserLoop::chooseStyle()
{
    person().click(middleOf(m_controller->stylePopUp()));
    afterThis([this] { person().key(below(2) ? NSDownArrowFunctionKey : NSUpArrowFunctionKey); });
    afterThis([this] { person().key("\r"); });
    afterThis([this] { m_controller->window().makeFirstResponder(&table()); });
}

void BrowserLoop::askForDates()
{
    person().click(middleOf(m_controller->datesButton()));
    afterThis([this] { person().type("1/1/2000"); });
    afterThis([this] { person().key("\r"); });
    afterThis([] {});
    afterThis([this] { m_controller->setFilter(std::nullopt); });
}

void BrowserLoop::askToDelete()
{
    if (!isInSample())
        return;
    for (int wait = 0; wait < 8; ++wait)
        afterThis([] {});
    afterThis([this] { person().key(NSEscapeCharacter); });
    m_controller->files().deleteBackward(table(), table());
}

void BrowserLoop::resizeWindow()
{
    std::vector<Rect> rects;
    for (int step = 0; step < 4; ++step) {
        rects.push_back({ windowRect.x, windowRect.y, windowRect.width + static_cast<float>(below(400) - 200),
            windowRect.height + static_cast<float>(below(200) - 100) });
    }
    person().resizeWindow([this] { return static_cast<HeadlessWindow*>(m_controller->window().hostWindow()); }, rects);
}

void BrowserLoop::moveColumn()
{
    auto& header = *m_controller->files().table().tableHeaderView();
    auto const rect = header.headerRectOfColumn(below(static_cast<int>(table().numberOfColumns())));
    auto const place = [&](float x) {
        return header.window()->convertBaseToScreen(header.convertPointToView({ x, rect.midY() }, nullptr));
    };
    if (below(2) != 0)
        person().drag(place(rect.maxX() - 1), place(rect.maxX() + static_cast<float>(below(40) - 20)));
    else
        person().drag(place(rect.midX()), place(rect.midX() + static_cast<float>(below(300) - 150)));
}

void BrowserLoop::hover()
{
    person().moveMouse(below(2) ? middleOf(m_controller->datesButton()) : visibleRowPoint(table()));
}

void BrowserLoop::changeLook()
{
    setCurrentAppearance(currentAppearance() == Appearance::dark ? Appearance::light : Appearance::dark);
}

}
