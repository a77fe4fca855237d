#include <examples/gallery/GalleryController.h>
#include <examples/gallery/PageHeader.h>
#include <examples/gallery/PageList.h>
#include <examples/gallery/PageStage.h>
#include <examples/gallery/SearchField.h>
#include <examples/gallery/SourcePane.h>
#include <examples/gallery/SwitchBar.h>
#include <examples/gallery/page_search.h>

#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/machine_identity.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>
#include <plix/tables/row_highlight.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <gmock/gmock.h>

#include <functional>

namespace gallery {
namespace {

using namespace plix;

constexpr char32_t escapeKey = 0x1B;

void forEachView(NSView& view, std::function<void(NSView&)> const& visit)
{
    visit(view);
    for (auto const& inside : view.subviews())
        forEachView(*inside, visit);
}

class GalleryWindowTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        m_surroundings.config = m_folder.path();
        NSUserDefaults::resetStandardUserDefaults();
        open();
    }
    void TearDown() override
    {
        close();
        NSUserDefaults::resetStandardUserDefaults();
    }
    void open()
    {
        gallery = make<GalleryController>();
        app().setMainMenu(gallery->makeMenu());
        gallery->window().makeKeyAndOrderFront(nullptr);
        pump();
    }
    void close()
    {
        app().setMainMenu(nullptr);
        gallery->window().close();
        gallery = nullptr;
        pump();
    }
    void show(std::string_view name)
    {
        gallery->showPage(page(name));
        pump();
    }
    static Page const& page(std::string_view name)
    {
        auto const* found = pageNamed(pages(), name);
        EXPECT_TRUE(found) << name;
        return *found;
    }
    std::string shownName() const { return gallery->page().name; }
    PageList& list() { return gallery->list(); }
    std::string count() { return list().countLabel().stringValue(); }
    void search(std::string_view text)
    {
        clickCenter(list().searchField());
        type(text);
    }
    void clickRow(long row)
    {
        auto& outline = list().outline();
        outline.scrollRowToVisible(row);
        pump();
        auto const frame = outline.frameOfCellAtColumn(0, row);
        click(outline, { frame.x + 20, frame.midY() });
    }
    void choose(NSSegmentedControl& control, long segment)
    {
        float x = 4;
        for (long i = 0; i < segment; ++i)
            x += control.widthForSegment(i) + 1;
        click(control, { x + 4, control.bounds().midY() });
    }
    std::vector<std::uint32_t> highlightStyles()
    {
        std::vector<std::uint32_t> styles;
        forEachView(gallery->stage(), [&](NSView& view) {
            if (auto const* table = dynamic_cast<PLIXTableView*>(&view))
                styles.push_back(table->highlightStyle());
        });
        return styles;
    }
    int countOfEnabledControls()
    {
        int count = 0;
        forEachView(gallery->stage(), [&](NSView& view) {
            auto const* control = dynamic_cast<NSControl*>(&view);
            count += control && control->isEnabled() ? 1 : 0;
        });
        return count;
    }

    Ref<GalleryController> gallery;

private:
    TestFolder m_folder;
    TestSurroundings m_surroundings;
};

// MARK: the list

TEST_F(GalleryWindowTest, OpensOnTheWelcomePageWithAllPagesInTheList)
{
    EXPECT_EQ(shownName(), "welcome");
    EXPECT_EQ(list().shownPages().size(), pages().size());
    EXPECT_EQ(list().selectedPage(), &pages().front());
    EXPECT_EQ(count(), std::to_string(pages().size()) + " pages");
    EXPECT_TRUE(list().emptyLabel().isHidden());
    EXPECT_EQ(gallery->window().title(), "Welcome to plix - plix gallery");
}

TEST_F(GalleryWindowTest, AClickShowsThatPage)
{
    clickRow(list().rowOfPage(page("buttons")));
    EXPECT_EQ(shownName(), "buttons");
    EXPECT_EQ(gallery->header().titleLabel().stringValue(), "Buttons");
    EXPECT_EQ(gallery->header().sectionLabel().stringValue(), "All states");
    show("NSButton");
    EXPECT_EQ(gallery->header().sectionLabel().stringValue(), "NSButton \u00B7 Controls");
}

TEST_F(GalleryWindowTest, ASectionIsNoPage)
{
    clickRow(0);
    EXPECT_EQ(shownName(), "welcome");
    EXPECT_EQ(list().selectedPage(), &page("welcome"));
}

TEST_F(GalleryWindowTest, TypingNarrowsTheListAndShowsThePageThatFitsBest)
{
    search("nsbutton");
    EXPECT_EQ(shownName(), "NSButton");
    EXPECT_EQ(list().selectedPage(), &page("NSButton"));
    for (auto const* shown : list().shownPages())
        EXPECT_THAT(shown->name, testing::StartsWith("NSButton"));
    EXPECT_THAT(count(), testing::EndsWith(" of " + std::to_string(pages().size()) + " pages"));
    EXPECT_LT(list().rowOfPage(page("NSButton")), 5);
    EXPECT_EQ(list().rowOfPage(page("tables")), -1);
}

TEST_F(GalleryWindowTest, ArrowKeysGoFromTheFieldToTheList)
{
    search("nsbutton");
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(gallery->window().firstResponder(), &list().outline());
    EXPECT_EQ(shownName(), "NSButtonCell");
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(shownName(), "NSButton");
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(shownName(), "NSButton");
}

TEST_F(GalleryWindowTest, ReturnGoesToTheListAndKeepsThePage)
{
    search("nsbutton");
    key('\r');
    EXPECT_EQ(gallery->window().firstResponder(), &list().outline());
    EXPECT_EQ(shownName(), "NSButton");
}

TEST_F(GalleryWindowTest, EscapeShowsAllPagesAndKeepsTheOneShown)
{
    search("nsbutton");
    key(escapeKey);
    EXPECT_EQ(list().searchField().stringValue(), "");
    EXPECT_EQ(list().shownPages().size(), pages().size());
    EXPECT_EQ(list().selectedPage(), &page("NSButton"));
    type("tab");
    EXPECT_EQ(list().searchField().stringValue(), "tab");
}

TEST_F(GalleryWindowTest, TheButtonInTheFieldEmptiesIt)
{
    auto& button = list().searchField().clearButton();
    EXPECT_TRUE(button.isHidden());
    search("scroller");
    EXPECT_FALSE(button.isHidden());
    clickCenter(button);
    EXPECT_EQ(list().searchField().stringValue(), "");
    EXPECT_EQ(list().shownPages().size(), pages().size());
    EXPECT_TRUE(button.isHidden());
}

TEST_F(GalleryWindowTest, SaysThatNothingMatches)
{
    search("9 zebras");
    EXPECT_FALSE(list().emptyLabel().isHidden());
    EXPECT_EQ(list().emptyLabel().stringValue(), "No page matches \u201C9 zebras\u201D.");
    EXPECT_EQ(count(), "0 of " + std::to_string(pages().size()) + " pages");
    EXPECT_EQ(shownName(), "welcome");
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(shownName(), "welcome");
    key(escapeKey);
    EXPECT_TRUE(list().emptyLabel().isHidden());
    EXPECT_EQ(list().selectedPage(), &page("welcome"));
}

TEST_F(GalleryWindowTest, APageThatTheSearchLeavesOutEndsIt)
{
    search("nsbutton");
    show("tables");
    EXPECT_EQ(list().searchField().stringValue(), "");
    EXPECT_EQ(list().selectedPage(), &page("tables"));
}

// MARK: keys

TEST_F(GalleryWindowTest, KeysGoToThePagesBesideAndStopAtTheEnds)
{
    auto const all = pages();
    key(NSPageDownFunctionKey, NSControlKeyMask);
    EXPECT_EQ(shownName(), all[1].name);
    key(NSPageDownFunctionKey, NSControlKeyMask);
    EXPECT_EQ(shownName(), all[2].name);
    key(NSPageUpFunctionKey, NSControlKeyMask);
    key(NSPageUpFunctionKey, NSControlKeyMask);
    key(NSPageUpFunctionKey, NSControlKeyMask);
    EXPECT_EQ(shownName(), all[0].name);
    EXPECT_EQ(list().selectedPage(), &all[0]);
    show(all.back().name);
    key(NSPageDownFunctionKey, NSControlKeyMask);
    EXPECT_EQ(shownName(), all.back().name);
}

TEST_F(GalleryWindowTest, TheButtonsOfTheHeaderGoToThePagesBeside)
{
    choose(gallery->header().steps(), 1);
    choose(gallery->header().steps(), 1);
    EXPECT_EQ(shownName(), pages()[2].name);
    choose(gallery->header().steps(), 0);
    EXPECT_EQ(shownName(), pages()[1].name);
}

TEST_F(GalleryWindowTest, ControlFGoesToTheSearch)
{
    gallery->window().makeFirstResponder(&list().outline());
    key('f', NSControlKeyMask);
    type("scroller");
    EXPECT_EQ(list().searchField().stringValue(), "scroller");
}

TEST_F(GalleryWindowTest, TabGoesRoundThePanes)
{
    auto& window = gallery->window();
    window.makeFirstResponder(&list().outline());
    std::vector<NSResponder*> seen;
    for (int i = 0; i < 40; ++i) {
        seen.push_back(window.firstResponder());
        key('\t');
    }
    EXPECT_THAT(seen, testing::Contains(&gallery->source().textView()));
    EXPECT_THAT(seen, testing::Contains(&gallery->switches().scaleSwitch()));
    EXPECT_EQ(std::ranges::count(seen, &list().outline()) > 1, true);
}

// MARK: switches

TEST_F(GalleryWindowTest, TheLookOfEverythingIsLightOrDark)
{
    PixelRect const corner { 4, 700, 4, 4 };
    EXPECT_TRUE(areaNear(gallery->window().snapshot(), { 400, 700, 2, 2 }, colors::white, 0.15F));
    choose(gallery->switches().appearanceSwitch(), 1);
    EXPECT_EQ(currentAppearance(), Appearance::dark);
    EXPECT_TRUE(areaNear(gallery->window().snapshot(), corner, colors::black, 0.3F));
    close();
    EXPECT_EQ(currentAppearance(), Appearance::light);
    open();
}

TEST_F(GalleryWindowTest, TheScaleDoublesThePage)
{
    show("live");
    auto const sizeInWindow = [&] {
        auto const& view = *gallery->stage().page();
        return view.convertRectToView(view.bounds(), nullptr).size();
    };
    auto const before = sizeInWindow();
    choose(gallery->switches().scaleSwitch(), 1);
    EXPECT_EQ(sizeInWindow(), (Size { 2 * before.width, 2 * before.height }));
    NSButton* bold = nullptr;
    forEachView(gallery->stage(), [&](NSView& view) {
        if (auto* button = dynamic_cast<NSButton*>(&view); button && button->title() == "Bold")
            bold = button;
    });
    ASSERT_TRUE(bold);
    click(*bold, { 8, 9 });
    EXPECT_EQ(bold->state(), NSOnState);
    choose(gallery->switches().scaleSwitch(), 0);
    EXPECT_EQ(sizeInWindow(), before);
}

TEST_F(GalleryWindowTest, ThePageLooksAsInAnInactiveWindow)
{
    show("live");
    auto const blue = [&] {
        return countPixels(gallery->window().snapshot(), { 231, 44, 560, 600 },
            [](std::uint32_t pixel) { return (pixel & 255U) > (pixel >> 16U & 255U) + 60; });
    };
    EXPECT_GT(blue(), 500);
    choose(gallery->switches().activeSwitch(), 1);
    EXPECT_FALSE(gallery->stage().page()->looksActive());
    EXPECT_TRUE(gallery->switches().looksActive());
    EXPECT_LT(blue(), 100);
}

TEST_F(GalleryWindowTest, TheSystemIsOfAnotherVersionForNewPages)
{
    show("PLIXChiseledTextField");
    auto const picture = [&] {
        auto& view = *gallery->stage().page();
        return view.bitmapImageRepForCachingDisplayInRect(view.bounds());
    };
    auto const before = picture();
    Weak<NSView> const page(*gallery->stage().page());
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1049U);
    choose(gallery->switches().versionSwitch(), 1);
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1050U);
    EXPECT_FALSE(page.ref());
    EXPECT_GT(countDifferences(before, picture()), 100);
    close();
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1049U);
    open();
}

TEST_F(GalleryWindowTest, TheHighlightIsThatOfAllTablesOnThePage)
{
    show("tables");
    auto const own = highlightStyles();
    EXPECT_THAT(own, testing::Contains(PLIXHighlightCapsule));
    EXPECT_THAT(own, testing::Contains(PLIXHighlightRectangle));
    auto settings = gallery->settings();
    settings.highlightStyle = PLIXHighlightRounded;
    gallery->setSettings(settings);
    EXPECT_THAT(highlightStyles(), testing::Each(PLIXHighlightRounded));
    EXPECT_EQ(gallery->switches().highlightPopUp().titleOfSelectedItem(), "Rounded");
    settings.highlightStyle = std::nullopt;
    gallery->setSettings(settings);
    EXPECT_EQ(highlightStyles(), own);
}

TEST_F(GalleryWindowTest, ThePopUpChoosesTheHighlight)
{
    auto& popUp = gallery->switches().highlightPopUp();
    gallery->window().makeFirstResponder(&popUp);
    person().key(U' ');
    person().key(NSDownArrowFunctionKey);
    person().key(NSDownArrowFunctionKey);
    person().key(U'\r');
    pump();
    EXPECT_EQ(gallery->settings().highlightStyle, PLIXHighlightCapsule);
}

TEST_F(GalleryWindowTest, ControlsOfThePageCanBeDisabled)
{
    show("live");
    int const before = countOfEnabledControls();
    EXPECT_GT(before, 10);
    clickCenter(gallery->switches().enabledSwitch());
    EXPECT_EQ(countOfEnabledControls(), 0);
    EXPECT_TRUE(gallery->switches().scaleSwitch().isEnabled());
    clickCenter(gallery->switches().enabledSwitch());
    EXPECT_EQ(countOfEnabledControls(), before);
}

// MARK: the source

TEST_F(GalleryWindowTest, ShowsTheSourceOfThePage)
{
    show("tables");
    auto const& text = gallery->source().text();
    EXPECT_THAT(text, testing::StartsWith("Ref<NSView> makeTablesPage()\n{\n"));
    EXPECT_THAT(text, testing::EndsWith("\n}\n"));
    EXPECT_EQ(gallery->source().textView().string(), text);
    EXPECT_EQ(gallery->source().fileLabel().stringValue(), "tables_page.cpp");
}

TEST_F(GalleryWindowTest, CopiesTheSource)
{
    show("buttons");
    clickCenter(gallery->source().copyButton());
    EXPECT_EQ(NSPasteboard::generalPasteboard().stringForType(NSStringPboardType), gallery->source().text());
}

TEST_F(GalleryWindowTest, TheSourceOfEveryPageIsFound)
{
    for (auto const& one : pages()) {
        gallery->showPage(one);
        EXPECT_THAT(gallery->source().text(), testing::HasSubstr("Page()\n{\n")) << one.name << " in " << one.source;
    }
}

// MARK: what is kept

TEST_F(GalleryWindowTest, RemembersPageSwitchesPanesAndFrame)
{
    gallery->remember();
    show("tables");
    choose(gallery->switches().scaleSwitch(), 1);
    choose(gallery->switches().activeSwitch(), 1);
    auto const divider = gallery->panes().rectOfDivider(0);
    drag(gallery->panes(), { divider.midX(), 200 }, { divider.midX() + 50, 200 });
    gallery->window().setFrame({ 60, 50, 1200, 700 }, true);
    pump();
    auto const frame = gallery->window().frame();
    float const listWidth = list().frame().width;
    close();
    open();
    gallery->remember();
    pump();
    EXPECT_EQ(shownName(), "tables");
    EXPECT_EQ(gallery->settings().scale, 2);
    EXPECT_FALSE(gallery->settings().looksActive);
    EXPECT_EQ(listWidth, 280);
    EXPECT_EQ(list().frame().width, listWidth);
    EXPECT_EQ(gallery->window().frame(), frame);
}

TEST_F(GalleryWindowTest, ForgetsWhatIsNothing)
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    defaults.setObject("no such page", "GalleryPage");
    defaults.setObject(77, "GalleryHighlightStyle");
    defaults.setObject("wide", "GalleryListWidth");
    defaults.setObject(-5, "GallerySourceWidth");
    gallery->remember();
    EXPECT_EQ(shownName(), "welcome");
    EXPECT_EQ(gallery->settings().highlightStyle, std::nullopt);
    EXPECT_EQ(list().frame().width, 230);
}

TEST_F(GalleryWindowTest, StaysOnTheSystemThatItWasStartedOn)
{
    close();
    machineIdentity().setSystemVersion(0x1030);
    open();
    gallery->remember();
    choose(gallery->switches().scaleSwitch(), 1);
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1030U);
    choose(gallery->switches().versionSwitch(), 1);
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1050U);
    choose(gallery->switches().versionSwitch(), 0);
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1049U);
    close();
    EXPECT_EQ(machineIdentity().systemVersion(), 0x1030U);
    machineIdentity().setSystemVersion(0x1049);
    open();
}

// MARK: the window

TEST_F(GalleryWindowTest, ATinyWindowKeepsItsPanesInside)
{
    gallery->window().setContentSize({ 420, 300 });
    pump();
    auto const inside = [&](NSView const& view) {
        auto const& content = *gallery->window().contentView();
        auto const frame = view.convertRectToView(view.bounds(), &content);
        return !frame.isEmpty() && NSContainsRect(content.bounds(), frame);
    };
    EXPECT_TRUE(inside(list()));
    EXPECT_TRUE(inside(gallery->header()));
    EXPECT_TRUE(inside(gallery->source()));
    EXPECT_TRUE(inside(gallery->switches()));
    EXPECT_FALSE(gallery->pageAndSource().isVertical());
    search("tables");
    EXPECT_EQ(shownName(), "tables");
}

TEST_F(GalleryWindowTest, TheSourceIsBesideThePageWhereThereIsRoom)
{
    EXPECT_TRUE(gallery->pageAndSource().isVertical());
    gallery->window().setContentSize({ 800, 600 });
    EXPECT_FALSE(gallery->pageAndSource().isVertical());
    EXPECT_GE(gallery->source().frame().y, gallery->stage().visibleRect().height);
    gallery->window().setContentSize({ 1240, 760 });
    EXPECT_TRUE(gallery->pageAndSource().isVertical());
}

TEST_F(GalleryWindowTest, NoViewOfAPageOutlivesIt)
{
    for (auto const& one : pages()) {
        show(one.name);
        std::vector<std::pair<std::string, Weak<NSView>>> views;
        forEachView(*gallery->stage().page(), [&](NSView& view) { views.emplace_back(view.describedClass().name(), view); });
        show(one.name == std::string_view("welcome") ? "live" : "welcome");
        pass(1);
        for (auto const& [name, view] : views)
            EXPECT_FALSE(view.ref()) << "a " << name << " of " << one.name;
    }
}

TEST_F(GalleryWindowTest, ClosingLetsEverythingGo)
{
    Weak<GalleryController> const controller(*gallery);
    Weak<NSWindow> const window(gallery->window());
    Weak<NSView> const view(list());
    close();
    EXPECT_FALSE(controller.ref() || window.ref() || view.ref());
    open();
}

}
}
