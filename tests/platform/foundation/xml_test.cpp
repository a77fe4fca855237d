#include <plix/platform/base/NSData.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/property_list.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace plix {
namespace {

using Type = CFXMLNodeTypeCode;

Ref<CFXMLTree> parse(std::string_view text, XMLWhitespace whitespace = XMLWhitespace::Kept)
{
    std::string error;
    return CFXMLTree::treeWithData(text, error, whitespace);
}

std::string refusal(std::string_view text, XMLLimits const& limits = {})
{
    std::string error = "accepted";
    auto const tree = CFXMLTree::treeWithData(text, error, XMLWhitespace::Kept, limits);
    EXPECT_EQ(tree, nullptr) << text;
    return error;
}

TEST(CFXMLTree, HasTypedNodesInOrder)
{
    auto const tree
        = parse("<?xml version='1.0'?><!DOCTYPE r SYSTEM 'r.dtd'><!--note--><?do it now?><r a='1' b=\"x&lt;&#65;\">t&amp;u<e/> \n"
                "<![CDATA[<raw&amp;>]]></r>");
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->node().typeCode, Type::Document);
    EXPECT_EQ(tree->parent(), nullptr);
    ASSERT_EQ(tree->childCount(), 4);
    EXPECT_EQ(tree->childAtIndex(0).node().typeCode, Type::DocumentType);
    EXPECT_EQ(tree->childAtIndex(1).node().string, "note");
    EXPECT_EQ(tree->childAtIndex(2).node().string, "do");
    EXPECT_EQ(tree->childAtIndex(2).node().instruction, "it now");
    auto const& root = *tree->documentElement();
    EXPECT_EQ(&root, &tree->childAtIndex(3));
    EXPECT_EQ(root.node().string, "r");
    EXPECT_EQ(*root.node().attribute("b"), "x<A");
    EXPECT_EQ(root.node().attribute("c"), nullptr);
    ASSERT_EQ(root.childCount(), 4);
    EXPECT_EQ(root.childAtIndex(0).node().typeCode, Type::Text);
    EXPECT_EQ(root.childAtIndex(0).node().string, "t&u");
    EXPECT_TRUE(root.childAtIndex(1).isElement("e"));
    EXPECT_EQ(root.childAtIndex(1).parent(), &root);
    EXPECT_EQ(root.childAtIndex(2).node().typeCode, Type::Whitespace);
    EXPECT_EQ(root.childAtIndex(3).node().typeCode, Type::CDATASection);
    EXPECT_EQ(root.childAtIndex(3).node().string, "<raw&amp;>");
    EXPECT_EQ(root.text(), "t&u \n<raw&amp;>");
    EXPECT_EQ(static_cast<int>(Type::Element), 2);
}

TEST(CFXMLTree, MaySkipBlanksBetweenElements)
{
    auto const tree = parse("<r> <a> x </a>\n<b> </b></r>", XMLWhitespace::Skipped);
    ASSERT_TRUE(tree);
    auto const& root = *tree->documentElement();
    EXPECT_EQ(root.childCount(), 2);
    EXPECT_EQ(root.childElement("a")->text(), " x ");
    EXPECT_EQ(root.childElement("b")->childCount(), 0);
    EXPECT_EQ(root.childElement("c"), nullptr);
}

TEST(CFXMLTree, AChildOutlivesItsParent)
{
    auto tree = parse("<r><a/></r>");
    Ref<CFXMLTree> const child(tree->documentElement()->childElement("a"));
    tree = nullptr;
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_THROW(child->childAtIndex(0), NSRangeException);
    EXPECT_THROW(child->childAtIndex(-1), NSRangeException);
}

TEST(CFXMLTree, ReadsTheEncodingsItKnows)
{
    EXPECT_EQ(parse("\xEF\xBB\xBF<r>é</r>")->documentElement()->text(), "é");
    EXPECT_EQ(parse(std::string_view("\xFF\xFE<\0r\0>\0\xE9\0<\0/\0r\0>\0", 18))->documentElement()->text(), "é");
    EXPECT_EQ(parse(std::string_view("\xFE\xFF\0<\0r\0>\0\xE9\0<\0/\0r\0>", 18))->documentElement()->text(), "é");
    EXPECT_EQ(parse("<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9</r>")->documentElement()->text(), "é");
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='EBCDIC'?><r/>"), "its encoding \"ebcdic\" is not known");
    EXPECT_EQ(refusal("<r>\xE9</r>"), "it is not UTF-8");
}

TEST(CFXMLTree, RefusesWhatIsNotWellFormed)
{
    for (auto const* text : { "", " ", "text", "<r>", "<r></s>", "<r", "<r a/>", "<r a=1/>", "<r a='1'b='2'/>", "</r>",
             "<r><!-- </r>", "<!-- only -->", "<r><![CDATA[</r>", "<r>&amp</r>", "<r>&</r>", "<r a='&'/>", "<r>&#0;</r>",
             "<r>&#x110000;</r>", "<r>&#xD800;</r>", "<r>&#;</r>", "<r>&#x;</r>", "<r>&#12x;</r>", "<r>\x01</r>", "<r>&#1;</r>" })
        EXPECT_NE(refusal(text), "accepted") << text;
    EXPECT_EQ(refusal("<r>\n\n<a x='1' x='2'/></r>"), "line 3: an element has an attribute twice");
    EXPECT_EQ(refusal("<r/>\n<s/>"), "line 2: it has more than one element at the top");
    EXPECT_EQ(refusal("<r/>text"), "line 1: there is text outside its element");
    EXPECT_EQ(refusal("<r/><![CDATA[x]]>"), "line 1: there is text outside its element");
    EXPECT_EQ(refusal(std::string_view("<r>\0</r>", 8)), "line 1: it holds a character that XML does not allow");
}

TEST(CFXMLTree, KnowsNoEntitiesButItsOwn)
{
    EXPECT_EQ(parse("<r>&lt;&gt;&amp;&quot;&apos;&#x20AC;&#8364;</r>")->documentElement()->text(), "<>&\"'€€");
    EXPECT_EQ(refusal("<!DOCTYPE r [<!ENTITY x SYSTEM 'file:///etc/passwd'>]>\n<r>&x;</r>"),
        "line 2: it refers to an entity that is not known");
    EXPECT_EQ(refusal("<!DOCTYPE r [<!ENTITY a 'aa'><!ENTITY b '&a;&a;'>]><r a='&b;'/>"),
        "line 1: it refers to an entity that is not known");
    EXPECT_EQ(parse("<r>&amp;lt;</r>")->documentElement()->text(), "&lt;");
}

TEST(CFXMLTree, KeepsWithinItsLimits)
{
    auto const nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i)
            text += "<a>";
        text += 'x';
        for (std::size_t i = 0; i < depth; ++i)
            text += "</a>";
        return text;
    };
    EXPECT_TRUE(parse(nested(256)));
    EXPECT_EQ(refusal(nested(257)), "line 1: its elements are nested too deep");
    EXPECT_EQ(refusal(nested(200'000)), "line 1: its elements are nested too deep");
    EXPECT_EQ(refusal("<r><a/><b/></r>", { .nodes = 2 }), "line 1: it has too many nodes");
    EXPECT_EQ(refusal("<r></r>", { .bytes = 6 }), "it is too large");
}

TEST(CFXMLTree, EscapedTextIsReadAsItWas)
{
    std::string const text = "<a & \"b\"> 'c' ]]>\t\n\r é \U0001F600";
    std::string error;
    EXPECT_EQ(parse("<r>" + xmlEscaped(text) + "</r>")->documentElement()->text(), text);
    EXPECT_EQ(*parse("<r a=\"" + xmlEscaped("<\"&'>") + "\"/>")->documentElement()->node().attribute("a"), "<\"&'>");
    EXPECT_EQ(xmlEscaped(std::string_view("\x01\0\xFF", 3)), "\uFFFD\uFFFD\uFFFD");
}

std::optional<ObjectValue> list(std::string_view text)
{
    std::string error;
    auto value = propertyListFromXML(std::span(reinterpret_cast<std::uint8_t const*>(text.data()), text.size()), error);
    EXPECT_EQ(error.empty(), value.has_value()) << text;
    return value;
}

std::optional<ObjectValue> inList(std::string const& text)
{
    return list("<plist version='1.0'>" + text + "</plist>");
}

TEST(PropertyList, ReadsEveryKindOfValue)
{
    EXPECT_EQ(inList("<string> a&amp;b </string>"), ObjectValue(" a&b "));
    EXPECT_EQ(inList("<string/>"), ObjectValue(""));
    EXPECT_EQ(inList("<string>a<![CDATA[<b>]]></string>"), ObjectValue("a<b>"));
    EXPECT_EQ(inList("<integer> -42\n</integer>"), ObjectValue(-42));
    EXPECT_EQ(inList("<integer>0x1F</integer>"), ObjectValue(31));
    EXPECT_EQ(inList("<integer>-9223372036854775808</integer>"), ObjectValue(LLONG_MIN));
    EXPECT_EQ(inList("<integer>18446744073709551615</integer>"), ObjectValue(18446744073709551615.0));
    EXPECT_EQ(inList("<real>-1.5e3</real>"), ObjectValue(-1500.0));
    EXPECT_EQ(inList("<real>-infinity</real>"), ObjectValue(-HUGE_VAL));
    EXPECT_TRUE(std::isnan(inList("<real>nan</real>")->doubleValue()));
    EXPECT_TRUE(inList("<true/>")->isBool());
    EXPECT_EQ(inList("<false/>"), ObjectValue(false));
    EXPECT_EQ(inList("<date>2001-01-02T00:00:01Z</date>"), ObjectValue(NSDate { 86401 }));
    EXPECT_EQ(inList("<data>\n AAEC/w== </data>"), ObjectValue(make<NSData>(std::vector<std::uint8_t> { 0, 1, 2, 255 })));
    EXPECT_EQ(inList("<array><integer>1</integer> <!-- c --> <array/></array>"),
        ObjectValue(ObjectValue::Array { 1, ObjectValue::Array {} }));
    EXPECT_EQ(inList("<dict><key>a</key><true/><key>a</key><string>b</string></dict>"),
        ObjectValue(ObjectValue::Dictionary { { "a", "b" } }));
    EXPECT_EQ(list("<dict/>"), ObjectValue(ObjectValue::Dictionary {}));
}

TEST(PropertyList, RefusesWhatIsNone)
{
    for (auto const* text :
        { "", "<plist/>", "<plist><true/><true/></plist>", "<plist>text</plist>", "<plist><unknown/></plist>",
            "<plist><integer/></plist>", "<plist><integer>1x</integer></plist>",
            "<plist><integer>99999999999999999999</integer></plist>", "<plist><real>x</real></plist>",
            "<plist><real>1,5</real></plist>", "<plist><date>today</date></plist>",
            "<plist><date>2001-02-30T00:00:00Z</date></plist>", "<plist><data>A</data></plist>", "<plist><data>AA=A</data></plist>",
            "<plist><data>====</data></plist>", "<plist><data>A===</data></plist>", "<plist><data>!!!!</data></plist>",
            "<plist><dict><key>a</key></dict></plist>", "<plist><dict><true/><true/></dict></plist>",
            "<plist><dict><key>a</key><key>b</key></dict></plist>", "<plist><array><integer>x</integer></array></plist>" })
        EXPECT_FALSE(list(text)) << text;
}

TEST(PropertyList, IsReadAsItWasWritten)
{
    std::vector<std::uint8_t> bytes(300);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7);
    ObjectValue const value(ObjectValue::Dictionary {
        { "string", "<é & \U0001F600>\r\n" },
        { "", "" },
        { "integer", INT64_MIN },
        { "real", 0.1 },
        { "large", 1e300 },
        { "infinite", HUGE_VAL },
        { "yes", true },
        { "date", NSDate { -86400.0 * 365 * 300 } },
        { "data", make<NSData>(bytes) },
        { "none", make<NSData>() },
        { "array", ObjectValue::Array { 1, "two", ObjectValue::Array {}, ObjectValue::Dictionary {} } },
    });
    auto const text = xmlFromPropertyList(value);
    ASSERT_TRUE(text);
    auto const read = list(*text);
    EXPECT_EQ(read, value);
    EXPECT_TRUE(read->dictionary()->at("yes").isBool());
    EXPECT_TRUE(read->dictionary()->at("real").isDouble());
    EXPECT_EQ(xmlFromPropertyList(*read), text);
}

TEST(PropertyList, WritesOnlyWhatItCanRead)
{
    EXPECT_FALSE(xmlFromPropertyList(nullptr));
    EXPECT_FALSE(xmlFromPropertyList(ObjectValue::Array { 1, nullptr }));
    EXPECT_FALSE(xmlFromPropertyList(ObjectValue::Dictionary { { "a", make<CFXMLTree>(CFXMLNode {}) } }));
    ObjectValue deep(1);
    for (int i = 0; i < 200; ++i)
        deep = ObjectValue(ObjectValue::Array { deep });
    auto const text = xmlFromPropertyList(deep);
    ASSERT_TRUE(text);
    EXPECT_EQ(list(*text), deep);
    EXPECT_FALSE(xmlFromPropertyList(ObjectValue::Array { deep }));
}

TEST(PropertyList, Base64GoesBothWaysForEveryLength)
{
    std::vector<std::uint8_t> bytes;
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(bytesOfBase64(base64(bytes)), bytes);
        bytes.push_back(static_cast<std::uint8_t>(i * 37 + 200));
    }
    EXPECT_EQ(base64(std::vector<std::uint8_t> { 'M', 'a' }), "TWE=");
    EXPECT_EQ(base64(std::vector<std::uint8_t> { 'M' }), "TQ==");
}

}
}
