#include <plix/system/xml_path.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

Ref<CFXMLTree> treeOf(std::string_view text)
{
    std::string error;
    auto tree = CFXMLTree::treeWithData(text, error);
    EXPECT_TRUE(tree) << error;
    return tree;
}

TEST(TQXMLTreeAtPath, FollowsTheFirstElementOfEachName)
{
    auto const document = treeOf(R"(<?xml version="1.0"?><!-- a --><list>
        text <!-- name --><item id="1"><name>one</name></item>
        <item id="2"><name>two</name><size>9</size></item>
        <Item><name>three</name></Item><item.x/><a:b><c>namespaced</c></a:b><?name here?></list>)");
    struct Row {
        char const* path;
        std::optional<std::string> text;
    };
    for (auto const& row : {
             Row { "list/item/name", "one" },
             Row { "/list/item/name", "one" },
             Row { "//list//item/name/", "one" },
             Row { "list/item/size", std::nullopt }, // of the first item alone
             Row { "list/Item/name", "three" },
             Row { "list/a:b/c", "namespaced" },
             Row { "list/item.x", "" },
             Row { "list/name", std::nullopt }, // a comment and an instruction are no elements
             Row { "list/here", std::nullopt },
             Row { "item", std::nullopt },
             Row { "list/item/name/one", std::nullopt },
             Row { "list/..", std::nullopt },
             Row { "li", std::nullopt },
         }) {
        auto const found = TQXMLTreeAtPath(document, row.path);
        EXPECT_EQ(found ? std::optional(found->text()) : std::nullopt, row.text) << row.path;
    }
}

TEST(TQXMLTreeAtPath, StartsAtAnyTree)
{
    auto const document = treeOf("<a><b><c/></b></a>");
    auto const b = TQXMLTreeAtPath(document, "a/b");
    ASSERT_TRUE(b);
    EXPECT_EQ(TQXMLTreeAtPath(b, "c"), TQXMLTreeAtPath(document, "a/b/c"));
    EXPECT_EQ(TQXMLTreeAtPath(b, "b"), nullptr);
}

TEST(TQXMLTreeAtPath, IsTheTreeItselfWithoutAPath)
{
    auto const document = treeOf("<a/>");
    EXPECT_EQ(TQXMLTreeAtPath(document, std::nullopt), document);
    EXPECT_EQ(TQXMLTreeAtPath(document, "/"), document);
    EXPECT_EQ(TQXMLTreeAtPath(document, ""), document);
    EXPECT_EQ(TQXMLTreeAtPath(nullptr, "a"), nullptr);
    EXPECT_EQ(TQXMLTreeAtPath(nullptr, std::nullopt), nullptr);
}

}
}
