#include <examples/gallery/flow_layout.h>
#include <examples/gallery/function_text.h>
#include <examples/gallery/page_search.h>
#include <examples/gallery/pane_layout.h>
#include <examples/gallery/source_tint.h>
#include <examples/gallery/value_text.h>

#include <plix/platform/foundation/NSScanner.h>

#include <gmock/gmock.h>

#include <limits>

namespace gallery {
namespace {

using namespace plix;
using testing::ElementsAre;

// MARK: functions of a source

struct FunctionRow {
    char const* name;
    char const* source;
    char const* text;
};

void PrintTo(FunctionRow const& row, std::ostream* out)
{
    *out << row.name;
}

class FunctionText : public testing::TestWithParam<FunctionRow> { };

TEST_P(FunctionText, IsTheDefinitionOfThePage)
{
    EXPECT_EQ(functionText(GetParam().source, "makeXPage"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, FunctionText,
    testing::Values( //
        FunctionRow { "plain", "int before;\nRef<NSView> makeXPage()\n{\n    return 1;\n}\nint after;\n",
            "Ref<NSView> makeXPage()\n{\n    return 1;\n}\n" },
        FunctionRow { "missing", "Ref<NSView> makeYPage()\n{\n}\n", "" }, //
        FunctionRow { "empty source", "", "" }, //
        FunctionRow { "without an end", "int makeXPage()\n{\n    return 1;\n", "" },
        FunctionRow { "without line end", "int makeXPage()\n{\n}", "int makeXPage()\n{\n}\n" },
        FunctionRow { "declared before", "int makeXPage();\nint other()\n{\n}\nint makeXPage()\n{\n    int a;\n}\n",
            "int makeXPage()\n{\n    int a;\n}\n" },
        FunctionRow { "declared only", "int makeXPage();\nint other()\n{\n}\n", "" },
        FunctionRow {
            "called before", "int other()\n{\n    return makeXPage();\n}\nint makeXPage()\n{\n}\n", "int makeXPage()\n{\n}\n" },
        FunctionRow { "listed before", "Page const all[] {\n    { \"x\", makeXPage },\n};\nint makeXPage()\n{\n}\n",
            "int makeXPage()\n{\n}\n" },
        FunctionRow { "a longer name", "int remakeXPage()\n{\n}\nint makeXPages()\n{\n}\n", "" },
        FunctionRow { "nested lambdas and braces",
            "int makeXPage()\n{\n    auto a = [] {\n        return [] { return 1; };\n    };\n    { }\n}\nint b()\n{\n}\n",
            "int makeXPage()\n{\n    auto a = [] {\n        return [] { return 1; };\n    };\n    { }\n}\n" },
        FunctionRow { "a brace in column 0 of a raw string", "int makeXPage()\n{\n    f(R\"(\n}\n)\");\n}\nint b;\n",
            "int makeXPage()\n{\n    f(R\"(\n}\n)\");\n}\n" },
        FunctionRow { "a raw string with a mark", "int makeXPage()\n{\n    f(R\"--(\n)\"\n}\n)--\");\n}\n",
            "int makeXPage()\n{\n    f(R\"--(\n)\"\n}\n)--\");\n}\n" },
        FunctionRow { "several lines of parameters", "int makeXPage(\n    int a, int b)\n{\n    a;\n}\n",
            "int makeXPage(\n    int a, int b)\n{\n    a;\n}\n" },
        FunctionRow { "the brace in the first line", "int makeXPage() {\n    a;\n}\n", "int makeXPage() {\n    a;\n}\n" }),
    [](auto const& row) {
        std::string name;
        for (char const character : std::string(row.param.name))
            name += character == ' ' ? '_' : character;
        return name;
    });

TEST(FunctionNameOfAPage, FollowsItsName)
{
    EXPECT_EQ(functionName("NSScanner"), "makeNSScannerPage");
    EXPECT_EQ(functionName("image_views"), "makeImageViewsPage");
    EXPECT_EQ(functionName("live"), "makeLivePage");
}

// MARK: colours of a source

TEST(TintedRanges, AreOfCommentsTextsNumbersKeywordsAndTypes)
{
    auto const kinds = [](std::string_view source) {
        std::vector<std::pair<std::string, Tint>> all;
        for (auto const& [range, tint] : tintedRanges(source))
            all.emplace_back(source.substr(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length)), tint);
        return all;
    };
    using Kind = std::pair<std::string, Tint>;
    EXPECT_THAT(
        kinds("return made; // a \"b\" 1\nx"), ElementsAre(Kind("return", Tint::keyword), Kind("// a \"b\" 1", Tint::comment)));
    EXPECT_THAT(kinds("f(\"a \\\" // b\", 'c', 1.5F, 0x1f)"),
        ElementsAre(
            Kind("\"a \\\" // b\"", Tint::text), Kind("'c'", Tint::text), Kind("1.5F", Tint::number), Kind("0x1f", Tint::number)));
    EXPECT_THAT(kinds("NSView a1; returned"), ElementsAre(Kind("NSView", Tint::type)));
    EXPECT_THAT(kinds("/* for\n */ for"), ElementsAre(Kind("/* for\n */", Tint::comment), Kind("for", Tint::keyword)));
    EXPECT_THAT(kinds("\"not closed\nint"), ElementsAre(Kind("\"not closed", Tint::text), Kind("int", Tint::keyword)));
    EXPECT_THAT(kinds("/* not closed"), ElementsAre(Kind("/* not closed", Tint::comment)));
    EXPECT_THAT(kinds(""), ElementsAre());
}

TEST(TintedRanges, CountInUnitsOfText)
{
    EXPECT_THAT(tintedRanges("\"\u00E9\u2026\U0001F600\" int"),
        ElementsAre(TintedRange { { 0, 6 }, Tint::text }, TintedRange { { 7, 3 }, Tint::keyword }));
}

// MARK: searching

constexpr Page samples[] {
    { "welcome", "Welcome", "plix", "", nullptr },
    { "NSButtonCell", "Cell of buttons", "Controls", "", nullptr },
    { "NSButton", "Button", "Controls", "", nullptr },
    { "NSPopUpButton", "Pop-up button", "Controls", "", nullptr },
    { "NSScanner", "Scanner", "Values and formats", "", nullptr },
    { "all_states", "All states", "All states", "", nullptr },
};

struct SearchRow {
    char const* query;
    std::vector<std::string> names;
    char const* best;
};

class PageSearch : public testing::TestWithParam<SearchRow> { };

TEST_P(PageSearch, FindsPages)
{
    auto const found = pagesMatching(samples, GetParam().query);
    std::vector<std::string> names;
    for (auto const* page : found)
        names.emplace_back(page->name);
    EXPECT_EQ(names, GetParam().names);
    auto const* best = bestMatch(found, GetParam().query);
    EXPECT_STREQ(best ? best->name : "", GetParam().best);
}

INSTANTIATE_TEST_SUITE_P(Rows, PageSearch,
    testing::Values( //
        SearchRow { "nsbutton", { "NSButtonCell", "NSButton" }, "NSButton" },
        SearchRow { "BUTTON", { "NSButtonCell", "NSButton", "NSPopUpButton" }, "NSButtonCell" },
        SearchRow { "popup", { "NSPopUpButton" }, "NSPopUpButton" }, SearchRow { "pop-up", { "NSPopUpButton" }, "NSPopUpButton" },
        SearchRow { "check box", { "NSButtonCell", "NSButton" }, "NSButtonCell" },
        SearchRow { "  box   check ", { "NSButtonCell", "NSButton" }, "NSButtonCell" },
        SearchRow { "values", { "NSScanner" }, "NSScanner" }, SearchRow { "parse", { "NSScanner" }, "NSScanner" },
        SearchRow { "all states", { "all_states" }, "all_states" }, SearchRow { "zebra", {}, "" },
        SearchRow { "button zebra", {}, "" },
        SearchRow { " ", { "welcome", "NSButtonCell", "NSButton", "NSPopUpButton", "NSScanner", "all_states" }, "welcome" }));

TEST(PageSearchWords, AreOfPagesThatAreThere)
{
    EXPECT_EQ(wordsOfPage("NSScanner"), "parse");
    EXPECT_EQ(wordsOfPage("NSScannerX"), "");
    EXPECT_EQ(wordsOfPage(""), "");
    for (auto const* name : { "MenuView", "NSTimer", "PLIXWindow", "TQSplitView", "buttons", "text" })
        EXPECT_NE(wordsOfPage(name), "") << name;
}

TEST(PageNames, AreThoseOfClassesOrTitles)
{
    EXPECT_EQ(listedName(samples[2]), "NSButton");
    EXPECT_EQ(listedName(samples[5]), "All states");
    EXPECT_EQ(listedName({ "CSV", "Separated values", "", "", nullptr }), "Separated values");
    EXPECT_EQ(listedName({ "XML_path", "Paths", "", "", nullptr }), "Paths");
    EXPECT_EQ(listedName({ "Ref", "References", "", "", nullptr }), "Ref");
    EXPECT_EQ(pageNamed(samples, "NSScanner"), &samples[4]);
    EXPECT_EQ(pageNamed(samples, "NSScan"), nullptr);
}

// MARK: layout

TEST(FlowLayout, FillsRows)
{
    constexpr FlowSpacing spacing { .margin = 10, .gap = 5, .rowHeight = 20, .rowGap = 4 };
    EXPECT_THAT(flowLayout({ 30, 40, 30 }, 130, spacing),
        ElementsAre(Rect { 10, 10, 30, 20 }, Rect { 45, 10, 40, 20 }, Rect { 90, 10, 30, 20 }));
    EXPECT_THAT(flowLayout({ 30, 40, 30 }, 129, spacing),
        ElementsAre(Rect { 10, 10, 30, 20 }, Rect { 45, 10, 40, 20 }, Rect { 10, 34, 30, 20 }));
    EXPECT_THAT(flowLayout({ 300, 10 }, 100, spacing), ElementsAre(Rect { 10, 10, 300, 20 }, Rect { 10, 34, 10, 20 }));
    EXPECT_EQ(flowHeight({ 30, 40, 30 }, 130, spacing), 40);
    EXPECT_EQ(flowHeight({ 30, 40, 30 }, 129, spacing), 64);
    EXPECT_EQ(flowHeight({}, 100, spacing), 20);
}

TEST(PaneLayoutOfTheGallery, LeavesRoomForThePage)
{
    PaneSizes const wanted { .list = 230, .sourceWidth = 430, .sourceHeight = 220 };
    EXPECT_EQ(paneLayout({ 1240, 700 }, wanted), (PaneLayout { 230, false, 430 }));
    EXPECT_EQ(paneLayout({ 1240, 700 }, { 2000, 2000, 220 }), (PaneLayout { 496, false, 442 }));
    EXPECT_EQ(paneLayout({ 1240, 700 }, { 1, 1, 220 }), (PaneLayout { 120, false, 220 }));
    EXPECT_EQ(paneLayout({ 911, 700 }, wanted), (PaneLayout { 230, false, 379 }));
    EXPECT_EQ(paneLayout({ 910, 700 }, wanted), (PaneLayout { 230, true, 220 }));
    EXPECT_EQ(paneLayout({ 800, 300 }, { 230, 430, 2000 }), (PaneLayout { 230, true, 120 }));
    EXPECT_EQ(paneLayout({ 420, 150 }, wanted), (PaneLayout { 168, true, 50 }));
    EXPECT_EQ(paneLayout({}, wanted), (PaneLayout { 0, true, 0 }));
}

// MARK: values

TEST(ValueText, IsWhatAProgrammerWrites)
{
    EXPECT_EQ(valueText(true), "true");
    EXPECT_EQ(valueText(7), "7");
    EXPECT_EQ(valueText(-7L), "-7");
    EXPECT_EQ(valueText(0.1F), "0.1");
    EXPECT_EQ(valueText(0.1), "0.1");
    EXPECT_EQ(valueText(1e9), "1e+09");
    EXPECT_EQ(valueText(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(valueText("a \"b\"\n\t\\\x01"), "\"a \\\"b\\\"\\n\\t\\\\\\x01\"");
    EXPECT_EQ(valueText(std::string("caf\u00E9")), "\"caf\u00E9\"");
    EXPECT_EQ(valueText(NSRange { 3, 4 }), "{3, 4}");
    EXPECT_EQ(valueText(NSRange { NSNotFound, 0 }), "{NSNotFound, 0}");
    EXPECT_EQ(valueText(Rect { 1, 2, 3.5F, 4 }), "{{1, 2}, {3.5, 4}}");
    EXPECT_EQ(valueText(NSIndexSet { 5, 1, 2 }), "{1, 2, 5}");
    EXPECT_EQ(valueText(NSDate::dateWithTimeIntervalSince1970(0)), "1970-01-01 00:00:00");
    EXPECT_EQ(valueText(std::optional<int>()), "nil");
    EXPECT_EQ(valueText(std::vector<std::string> { "a", "b" }), "(\"a\", \"b\")");
    EXPECT_EQ(valueText(std::vector<std::vector<int>> { { 1 }, {} }), "((1), ())");
    EXPECT_EQ(valueText(std::map<std::string, int> { { "a", 1 }, { "b", 2 } }), "{a = 1; b = 2}");
    EXPECT_EQ(valueText(ObjectValue()), "nil");
    EXPECT_EQ(valueText(ObjectValue(ObjectValue::Array { 1, "b", nullptr, true })), "(1, \"b\", nil, true)");
    EXPECT_EQ(valueText(Ref<NSObject>()), "nil");
    EXPECT_EQ(valueText(make<NSScanner>("text")), "NSScanner");
}

}
}
