#include <tests/support/NibTest.h>
#include <tests/support/test_data.h>

#include <plix/platform/foundation/file_bytes.h>

#include <random>

namespace plix {
namespace {

struct Broken {
    std::string_view objects;
    std::string_view reason;
};

/// Documents that are refused: whole, with one line.
class BrokenNibs : public NibTest {
protected:
    /// Expects that a document gives nothing, touches nothing and says why in one line.
    void expectRefused(std::string const& text, std::string_view reason)
    {
        log.clear();
        std::vector<Ref<NSObject>> objects;
        auto const loaded = nib(text);
        bool const isLoaded = loaded && loaded->instantiateNibWithOwner(owner.get(), &objects);
        EXPECT_FALSE(isLoaded) << text;
        EXPECT_TRUE(objects.empty());
        EXPECT_EQ(owner->awakenings, 0);
        EXPECT_FALSE(owner->window);
        EXPECT_EQ(NibHelper::alive, 0);
        ASSERT_EQ(log.size(), 1U) << text;
        EXPECT_NE(log[0].find(reason), std::string::npos) << log[0];
        EXPECT_NE(log[0].find("is refused"), std::string::npos) << log[0];
    }
    void expectRefused(std::vector<Broken> const& documents)
    {
        for (auto const& each : documents)
            expectRefused(documentWithOwner(each.objects, R"(<outlet property="window" destination="-3" id="o1"/>)"), each.reason);
    }
};

TEST_F(BrokenNibs, WhatIsNoDocumentOfVersion3)
{
    expectRefused("", "");
    expectRefused(
        "<archive type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\" version=\"7.10\"/>", "no interface document of version 3");
    expectRefused("<document type=\"com.apple.InterfaceBuilder3.CocoaTouch.XIB\" version=\"3.0\"><objects/></document>",
        "no interface document of version 3");
    expectRefused("<document type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\" version=\"2.0\"><objects/></document>",
        "no interface document of version 3");
    expectRefused("<document type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\" version=\"3.0\"/>", "it has no objects");
    expectRefused(std::string("<document\0/>", 12), "line 1");
}

TEST_F(BrokenNibs, TruncatedOnes)
{
    auto const whole = document(R"(<customView id="1"><rect key="frame" x="1" y="2" width="3" height="4"/></customView>)");
    ASSERT_FALSE(load(whole).empty());
    for (std::size_t size = 0; size < whole.size() - 1; ++size)
        expectRefused(whole.substr(0, size), "is refused");
}

TEST_F(BrokenNibs, IdsThatNoObjectHas)
{
    expectRefused({
        { R"(<button id="1"><connections><action selector="a:" target="99" id="2"/></connections></button>)",
            "button 1: its a: is connected to \"99\", which no object is" },
        { R"(<button id="1"><connections><outlet property="nextKeyView" destination="99" id="2"/></connections></button>)",
            "connected to \"99\"" },
        { R"(<button id="1"><connections><outlet property="nextKeyView" id="2"/></connections></button>)",
            "lacks a name or an id" },
        { R"(<button id="1"><connections><action target="-1" id="2"/></connections></button>)", "lacks a name or an id" },
        { R"(<tableView id="1" headerView="99"/>)", "tableView 1: its headerView is \"99\", which no object is" },
        { R"(<tabView id="1" initialItem="99"/>)", "\"99\", which no object is" },
    });
}

TEST_F(BrokenNibs, IdsThatTwoObjectsHave)
{
    expectRefused({ { R"(<customObject id="1"/><customObject id="1"/>)", "customObject 1: another object has its id" } });
}

TEST_F(BrokenNibs, Circles)
{
    constexpr std::string_view tableInItsHeader = R"(<scrollView id="1"><clipView key="contentView" id="2"><subviews>
        <tableView id="3" headerView="4"/></subviews></clipView><tableHeaderView key="headerView" id="4"><subviews>
        <tableView id="5" headerView="4"/></subviews></tableHeaderView></scrollView><customObject id="9" customClass="NibHelper"/>)";
    expectRefused({ { tableInItsHeader, "tableHeaderView 4: it contains itself" } });
}

TEST_F(BrokenNibs, ReferencesToObjectsOfAnotherKind)
{
    expectRefused({
        { R"(<tableView id="1" headerView="1"/>)", "tableView 1: its headerView is tableView 1" },
        { R"(<tabView id="1" initialItem="-2"/>)", "is customObject -2" },
        { R"(<outlineView id="1" outlineTableColumn="1"/>)", "is outlineView 1" },
    });
}

TEST_F(BrokenNibs, ChainsOfReferencesWithoutEnd)
{
    std::string objects;
    for (int i = 0; i < 2000; ++i) {
        auto const header = "h" + std::to_string(i);
        objects += "<tableHeaderView id=\"" + header + "\"><subviews><tableView id=\"t" + std::to_string(i) + "\" headerView=\"h"
            + std::to_string(i + 1) + "\"/></subviews></tableHeaderView>";
    }
    expectRefused(document(objects + "<tableHeaderView id=\"h2000\"/>"), "references lead too deep to it");
}

TEST_F(BrokenNibs, TenThousandLevels)
{
    std::string open;
    std::string close;
    for (int i = 0; i < 5000; ++i) {
        open += "<view><subviews>";
        close += "</subviews></view>";
    }
    expectRefused(document(open + close), "nested too deep");
}

TEST_F(BrokenNibs, Entities)
{
    expectRefused(
        "<!DOCTYPE document [<!ENTITY a \"b\">]>" + document("<menu title=\"&a;\" id=\"1\"/>"), "entity that is not known");
    expectRefused("<!DOCTYPE document [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + document("<menu id=\"1\">&a;</menu>"),
        "entity that is not known");
}

TEST_F(BrokenNibs, ValuesOfAnotherType)
{
    expectRefused({
        { R"(<customView id="1"><rect key="frame" x="left" y="0" width="1" height="1"/></customView>)",
            "customView 1: the x of its frame is \"left\"" },
        { R"(<customView id="1"><rect key="frame" x="0" y="0" width="1"/></customView>)", "the height of its frame is missing" },
        { R"(<customView id="1"><rect key="frame" x="nan" y="0" width="1" height="1"/></customView>)", "the x of its frame" },
        { R"(<customView id="1"><rect key="frame" x="0x10" y="0" width="1" height="1"/></customView>)", "the x of its frame" },
        { R"(<customView id="1" hidden="maybe"/>)", "its hidden is \"maybe\"" },
        { R"(<customView id="1"><autoresizingMask key="autoresizingMask" widthSizable="1"/></customView>)", "widthSizable" },
        { R"(<button id="1" tag="one"/>)", "its tag is \"one\"" },
        { R"(<button id="1" tag="99999999999"/>)", "its tag is \"99999999999\"" },
        { R"(<progressIndicator id="1" maxValue=""/>)", "its maxValue is \"\"" },
        { R"(<button id="1"><buttonCell key="cell" id="2"><string key="keyEquivalent" base64-UTF8="YES">%</string></buttonCell></button>)",
            "buttonCell 2: its keyEquivalent is damaged" },
        { R"(<textField id="1"><textFieldCell key="cell" id="2"><font key="font" size="-1"/></textFieldCell></textField>)",
            "its font is damaged" },
        { R"(<clipView id="1"><color key="backgroundColor" white="grey"/></clipView>)", "its backgroundColor is damaged" },
    });
}

TEST_F(BrokenNibs, ObjectsWhereOthersBelong)
{
    expectRefused({
        { R"(<customView id="1"><subviews><buttonCell id="2"/></subviews></customView>)",
            "buttonCell 2: it stands where only a NSView may be" },
        { R"(<button id="1"><view key="cell" id="2"/></button>)", "view 2: it stands where only a NSCell may be" },
        { R"(<menu id="1"><items><menu id="2"/></items></menu>)", "menu 2: it stands where only a NSMenuItem may be" },
        { R"(<window id="1"><button key="contentView" id="2"/></window><window id="3"><menu key="contentView" id="4"/></window>)",
            "menu 4: it stands where only a NSView may be" },
        { R"(<scrollView id="1"><view key="contentView" id="2"/></scrollView>)", "only a NSClipView may be" },
        { R"(<tableView id="1"><tableColumns><view id="2"/></tableColumns></tableView>)", "only a NSTableColumn may be" },
    });
}

TEST_F(BrokenNibs, FilesThatAreNotThere)
{
    EXPECT_FALSE(make<NSNib>("Nowhere", nullptr));
    EXPECT_EQ(lines("interface file \"Nowhere\" could not be read"), 1);
    EXPECT_FALSE(loadNibNamed("Nowhere", owner.get()));
    EXPECT_EQ(lines("interface file \"Nowhere\" is not there"), 1);
    EXPECT_FALSE(loadNibNamed("../Nowhere", owner.get()));
    EXPECT_FALSE(loadNibNamed("", owner.get()));
    EXPECT_EQ(log.size(), 4U);
}

/// Each change that is not refused loads, and nothing is left when it is let go.
TEST_F(BrokenNibs, ChangedOnesEndInOneOfTwoWays)
{
    auto const bytes = *readFileBytes(testDataPath("interface_files/Panel.xib"), 1 << 20);
    std::string const whole(bytes.begin(), bytes.end());
    constexpr std::string_view pieces[] = { "-1", "1", "10", "NO", "view", "<", ">", "\"", "cell", "1e9", "NSWindow", "NSMenu" };
    std::mt19937 random(20);
    int loads = 0;
    for (int round = 0; round < 600; ++round) {
        auto text = whole;
        auto const quote = text.find('"', random() % text.size());
        auto const end = quote == std::string::npos ? quote : text.find('"', quote + 1);
        if (end == std::string::npos)
            continue;
        text.replace(quote + 1, end - quote - 1, pieces[random() % std::size(pieces)]);
        owner = make<NibOwner>();
        auto const objects = load(text);
        loads += !objects.empty();
        EXPECT_EQ(objects.empty(), lines("is refused") == 1) << text;
        log.clear();
    }
    EXPECT_GT(loads, 100);
    owner = nullptr;
    EXPECT_EQ(NibHelper::alive, 0);
}

}
}
