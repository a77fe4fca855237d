#include "GalleryController.h"
#include "EngravedPage.h"
#include "PageHeader.h"
#include "PageList.h"
#include "PageStage.h"
#include "SearchField.h"
#include "SourcePane.h"
#include "SwitchBar.h"
#include "bars.h"
#include "function_text.h"
#include "page_effects.h"
#include "page_search.h"

#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/machine_identity.h>

#include <algorithm>

namespace gallery {

using namespace plix;

namespace {

constexpr Rect startContent { 80, 60, 1240, 760 };
constexpr Size leastContent { 420, 300 };
constexpr char const* frameName = "Gallery";
constexpr char const* pageKey = "GalleryPage";
constexpr char const* listKey = "GalleryListWidth";
constexpr char const* sourceWidthKey = "GallerySourceWidth";
constexpr char const* sourceHeightKey = "GallerySourceHeight";

float sizeForKey(char const* key, float usual)
{
    float const size = NSUserDefaults::standardUserDefaults().floatForKey(key);
    return size >= 1 && size < 10000 ? size : usual;
}

}

/// Lays out anew when the window is resized.
class GalleryController::Content final : public NSView {
public:
    bool init(Rect frame, GalleryController& controller)
    {
        m_controller = &controller;
        return NSView::init(frame);
    }
    void forgetController() { m_controller = nullptr; }

    // NSView:
    bool isFlipped() const override { return true; }
    void resizeSubviewsWithOldSize(Size) override
    {
        if (m_controller)
            m_controller->layOut();
    }

private:
    GalleryController* m_controller { nullptr };
};

GalleryController::GalleryController() = default;

GalleryController::~GalleryController()
{
    if (!m_window)
        return;
    static_cast<Content*>(m_window->contentView())->forgetController();
    m_stage->setPage(nullptr);
    m_settings = m_before;
    applyProcessSettings();
}

bool GalleryController::init()
{
    m_before.appearance = currentAppearance();
    m_before.systemVersion = machineIdentity().systemVersion();
    m_settings = m_before;
    makeWindow();
    auto const self = Weak<GalleryController>(*this);
    m_list->setSelectFunction([self](Page const& page) {
        if (auto const controller = self.ref())
            controller->showPage(page);
    });
    m_header->setStepFunction([self](int pages) {
        if (auto const controller = self.ref())
            controller->step(pages);
    });
    m_switches->setChangeFunction([self](GallerySettings const& settings) {
        if (auto const controller = self.ref())
            controller->setSettings(settings);
    });
    m_switches->setSettings(m_settings);
    showPage(pages().front());
    return true;
}

void GalleryController::makeWindow()
{
    m_window = make<NSWindow>(startContent,
        NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask, NSBackingStoreBuffered,
        false);
    m_window->setContentMinSize(leastContent);
    m_window->setContentView(make<Content>(rectWith({}, startContent.size()), *this));
    makePanes();
    layOut();
    m_window->setInitialFirstResponder(&m_list->searchField());
    m_window->setAutorecalculatesKeyViewLoop(true);
}

void GalleryController::makePanes()
{
    Rect const area { 0, 0, startContent.width, startContent.height };
    m_switches = make<SwitchBar>(area.width);
    m_list = make<PageList>(Rect { 0, 0, m_sizes.list, area.height }, pages());
    m_pagePane = make<NSView>(Rect { 0, 0, 500, area.height });
    m_header = make<PageHeader>(Rect { 0, area.height - barHeight, 500, barHeight });
    m_header->setAutoresizingMask(NSViewWidthSizable | NSViewMinYMargin);
    m_scrollView = make<NSScrollView>(Rect { 0, 0, 500, area.height - barHeight });
    m_scrollView->setHasVerticalScroller(true);
    m_scrollView->setHasHorizontalScroller(true);
    m_scrollView->setAutohidesScrollers(true);
    m_scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    m_stage = make<PageStage>(rectWith({}, m_scrollView->contentSize()));
    m_scrollView->setDocumentView(m_stage);
    m_pagePane->addSubview(*m_header);
    m_pagePane->addSubview(*m_scrollView);
    m_source = make<SourcePane>(Rect { 0, 0, m_sizes.sourceWidth, area.height });

    auto const makeSplit = [&] {
        auto split = make<TQSplitView>(area);
        split->setDividerThickness(1);
        split->setVertical(true);
        split->setDelegate(Ref<GalleryController>(this));
        return split;
    };
    m_panes = makeSplit();
    m_pageAndSource = makeSplit();
    m_isLayingOut = true;
    m_pageAndSource->addSubview(*m_pagePane);
    m_pageAndSource->addSubview(*m_source);
    m_panes->addSubview(*m_list);
    m_panes->addSubview(*m_pageAndSource);
    m_isLayingOut = false;
    m_window->contentView()->addSubview(*m_panes);
    m_window->contentView()->addSubview(*m_switches);
}

// MARK: layout

void GalleryController::layOut()
{
    Rect const area = m_window->contentView()->bounds();
    float const bar = std::min(m_switches->heightForWidth(area.width), area.height / 2);
    m_switches->setFrame({ 0, area.height - bar, area.width, bar });
    m_panes->setFrame({ 0, 0, area.width, area.height - bar });
    layOutPanes();
}

void GalleryController::layOutPanes()
{
    if (m_panes->subviews().size() < 2)
        return;
    m_isLayingOut = true;
    auto const layout = paneLayout(m_panes->bounds().size(), m_sizes);
    Rect const area = m_panes->bounds();
    m_list->setFrame({ 0, 0, layout.listWidth, area.height });
    m_pageAndSource->setFrame({ layout.listWidth + 1, 0, std::max(0.0F, area.width - layout.listWidth - 1), area.height });
    layOutPageAndSource();
    m_panes->setNeedsDisplay(true);
    m_isLayingOut = false;
}

void GalleryController::layOutPageAndSource()
{
    if (m_pageAndSource->subviews().size() < 2)
        return;
    auto const layout = paneLayout(m_panes->bounds().size(), m_sizes);
    Rect const area = m_pageAndSource->bounds();
    if (m_pageAndSource->isVertical() == layout.isSourceBelow)
        m_pageAndSource->setVertical(!layout.isSourceBelow);
    if (layout.isSourceBelow) {
        float const rest = std::max(0.0F, area.height - layout.sourceLength - 1);
        m_pagePane->setFrame({ 0, 0, area.width, rest });
        m_source->setFrame({ 0, rest + 1, area.width, layout.sourceLength });
    } else {
        float const rest = std::max(0.0F, area.width - layout.sourceLength - 1);
        m_pagePane->setFrame({ 0, 0, rest, area.height });
        m_source->setFrame({ rest + 1, 0, layout.sourceLength, area.height });
    }
    m_pageAndSource->setNeedsDisplay(true);
}

float GalleryController::constrainMinCoordinate(NSSplitView& split, float proposed, long)
{
    return proposed + (&split == m_panes.get() ? 120.0F : split.isVertical() ? 300.0F : 90.0F);
}

float GalleryController::constrainMaxCoordinate(NSSplitView& split, float proposed, long)
{
    return proposed - (&split == m_panes.get() ? 300.0F : split.isVertical() ? 220.0F : 90.0F);
}

void GalleryController::resizeSubviewsWithOldSize(NSSplitView& split, Size)
{
    bool const wasLayingOut = m_isLayingOut;
    m_isLayingOut = true;
    if (&split == m_panes.get())
        layOutPanes();
    else
        layOutPageAndSource();
    m_isLayingOut = wasLayingOut;
}

void GalleryController::splitViewDidResizeSubviews(NSNotification const& notification)
{
    if (m_isLayingOut)
        return;
    if (notification.object == m_panes.get())
        m_sizes.list = m_list->frame().width;
    else if (m_pageAndSource->isVertical())
        m_sizes.sourceWidth = m_source->frame().width;
    else
        m_sizes.sourceHeight = m_source->frame().height;
    savePanes();
}

// MARK: pages

void GalleryController::showPage(Page const& page)
{
    if (m_page == &page)
        return;
    m_page = &page;
    m_list->selectPage(page);
    m_window->setTitle(std::string(listedName(page)) + " - plix gallery");
    showHeader();
    m_source->showSource(page.source, functionText(sourceFile(page.source), functionName(page.name)));
    remakePage();
    if (m_remembers)
        NSUserDefaults::standardUserDefaults().setObject(page.name, pageKey);
}

void GalleryController::showHeader()
{
    std::string const name
        = isClassPage(*m_page) && m_page->title != std::string_view(m_page->name) ? std::string(m_page->name) + " \u00B7 " : "";
    m_header->show(m_page->title, name + m_page->section);
}

void GalleryController::remakePage()
{
    m_stage->setPage(nullptr);
    m_stage->setPage(m_page->makeView());
    applyPageSettings();
}

void GalleryController::step(int distance)
{
    auto const& shown = m_list->shownPages();
    auto const here = std::ranges::find(shown, m_page);
    if (shown.empty())
        return;
    long const index = here == shown.end() ? 0 : here - shown.begin() + distance;
    showPage(*shown.at(static_cast<std::size_t>(std::clamp(index, 0L, static_cast<long>(shown.size()) - 1))));
}

// MARK: switches

void GalleryController::setSettings(GallerySettings const& settings)
{
    if (settings == m_settings)
        return;
    m_settings = settings;
    m_switches->setSettings(settings);
    applyProcessSettings();
    remakePage();
    showHeader();
    m_source->tint();
    m_window->display();
    if (m_remembers)
        m_settings.save();
}

void GalleryController::applyProcessSettings()
{
    if (machineIdentity().systemVersion() != m_settings.systemVersion) {
        machineIdentity().setSystemVersion(m_settings.systemVersion);
        forgetLabelColors();
    }
    setCurrentAppearance(m_settings.appearance);
}

void GalleryController::applyPageSettings()
{
    if (m_settings.highlightStyle)
        setHighlightStyle(*m_stage, *m_settings.highlightStyle);
    if (!m_settings.isEnabled)
        disableControls(*m_stage);
    m_stage->setLooksActive(m_settings.looksActive);
    m_stage->setZoom(static_cast<float>(m_settings.scale));
}

// MARK: what is kept

void GalleryController::remember()
{
    PaneSizes const usual;
    m_sizes = { sizeForKey(listKey, usual.list), sizeForKey(sourceWidthKey, usual.sourceWidth),
        sizeForKey(sourceHeightKey, usual.sourceHeight) };
    if (!m_window->setFrameUsingName(frameName))
        m_window->center();
    m_window->setFrameAutosaveName(frameName);
    layOut();
    setSettings(GallerySettings::load());
    auto const name = NSUserDefaults::standardUserDefaults().stringForKey(pageKey);
    if (auto const* page = pageNamed(pages(), name.value_or("")))
        showPage(*page);
    m_remembers = true;
}

void GalleryController::savePanes() const
{
    if (!m_remembers)
        return;
    auto& defaults = NSUserDefaults::standardUserDefaults();
    defaults.setFloat(m_sizes.list, listKey);
    defaults.setFloat(m_sizes.sourceWidth, sourceWidthKey);
    defaults.setFloat(m_sizes.sourceHeight, sourceHeightKey);
}

Ref<NSMenu> GalleryController::makeMenu()
{
    auto menu = make<NSMenu>("Gallery");
    menu->setAutoenablesItems(false);
    auto const add = [&](char const* title, std::string_view key, unsigned modifiers, auto const& action) {
        auto const item = menu->addItemWithTitle(title, {}, key);
        item->setKeyEquivalentModifierMask(modifiers);
        item->setActionFunction(this, [this, action](NSObject*) { action(*this); });
    };
    auto const keyOf = [](char32_t key) {
        std::string text;
        appendUTF8(text, key);
        return text;
    };
    add("Find", "f", NSControlKeyMask, [](auto& self) { self.list().beginSearching(); });
    add("Page Before", keyOf(NSPageUpFunctionKey), NSControlKeyMask, [](auto& self) { self.step(-1); });
    add("Page After", keyOf(NSPageDownFunctionKey), NSControlKeyMask, [](auto& self) { self.step(1); });
    add("Copy Source", "c", NSControlKeyMask | NSShiftKeyMask, [](auto& self) { self.source().copyToPasteboard(); });
    add("Close", "w", NSControlKeyMask, [](auto& self) { self.window().performClose(nullptr); });
    add("Quit", "q", NSControlKeyMask, [](auto&) { NSApp->terminate(nullptr); });
    return menu;
}

}
