#include <plix/platform/appkit/outline_tree.h>
#include <plix/platform/base/Class.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace plix {
namespace {

class Item : public NSObject {
public:
    bool init(std::string itsName)
    {
        name = std::move(itsName);
        return true;
    }
    std::string name;
    std::vector<Ref<Item>> children;
};

class Trees : public testing::Test {
protected:
    Trees()
    {
        tree.setSource({
            [this](NSObject* item) {
                ++counted;
                if (onAsk)
                    onAsk();
                return static_cast<long>(childrenOf(item).size());
            },
            [this](NSObject* item, long index) {
                ++asked;
                if (onAsk)
                    onAsk();
                auto const& children = childrenOf(item);
                return index < static_cast<long>(children.size()) ? Ref<NSObject>(children[static_cast<std::size_t>(index)])
                                                                  : nullptr;
            },
        });
    }
    std::vector<Ref<Item>>& childrenOf(NSObject* item) { return item ? static_cast<Item*>(item)->children : top; }

    Ref<Item> add(Item* parent, std::string const& name)
    {
        auto item = make<Item>(name);
        childrenOf(parent).push_back(item);
        return item;
    }
    /// `count` items at the top with `below` children each.
    void fill(int count, int below)
    {
        for (int i = 0; i < count; ++i) {
            auto const item = add(nullptr, std::to_string(i));
            for (int j = 0; j < below; ++j)
                add(item.get(), std::to_string(i) + "." + std::to_string(j));
        }
        tree.reload();
        asked = counted = 0;
    }
    std::string rows()
    {
        std::string text;
        for (long row = 0; row < tree.numberOfRows(); ++row) {
            auto* item = dynamic_cast<Item*>(tree.itemAtRow(row));
            text += (row ? " " : "") + (item ? item->name : std::string("?"));
        }
        return text;
    }

    OutlineTree tree;
    std::vector<Ref<Item>> top;
    std::function<void()> onAsk;
    long asked { 0 };
    long counted { 0 };
};

TEST_F(Trees, ShowTheTopmostItems)
{
    fill(3, 2);
    EXPECT_EQ(rows(), "0 1 2");
    EXPECT_EQ(tree.levelForRow(1), 0);
    EXPECT_EQ(tree.levelForRow(3), -1);
    EXPECT_EQ(tree.itemAtRow(-1), nullptr);
    EXPECT_EQ(tree.itemAtRow(3), nullptr);
}

TEST_F(Trees, ExpandingPutsChildrenBelowTheirParent)
{
    fill(3, 2);
    EXPECT_EQ(tree.expand(top[1].get()), 2);
    EXPECT_EQ(rows(), "0 1 1.0 1.1 2");
    EXPECT_EQ(tree.levelForRow(2), 1);
    EXPECT_EQ(tree.rowForItem(top[2].get()), 4);
    EXPECT_EQ(tree.rowForItem(top[1]->children[1].get()), 3);
    EXPECT_EQ(tree.parentOf(top[1]->children[1].get()), top[1].get());
    EXPECT_EQ(tree.indexInParent(top[1]->children[1].get()), 1);
    EXPECT_EQ(tree.numberOfRowsBelow(top[1].get()), 2);
    EXPECT_EQ(tree.collapse(top[1].get()), 2);
    EXPECT_EQ(rows(), "0 1 2");
}

TEST_F(Trees, AskForAChildOnlyWhenItsRowIsReached)
{
    fill(1000, 1000);
    EXPECT_EQ(tree.expand(top[0].get()), 1000);
    EXPECT_LE(asked, 1);
    tree.itemAtRow(500);
    EXPECT_LE(asked, 2);
    EXPECT_EQ(counted, 1);
}

TEST_F(Trees, WhatWasExpandedBelowComesBackAsItWas)
{
    fill(2, 2);
    add(top[0]->children[0].get(), "deep");
    tree.expand(top[0].get());
    tree.expand(top[0]->children[0].get());
    EXPECT_EQ(rows(), "0 0.0 deep 0.1 1");
    EXPECT_EQ(tree.collapse(top[0].get()), 3);
    EXPECT_TRUE(tree.isExpanded(top[0]->children[0].get()));
    EXPECT_EQ(tree.rowForItem(top[0]->children[0].get()), -1);
    EXPECT_EQ(tree.expand(top[0].get()), 3);
    EXPECT_EQ(rows(), "0 0.0 deep 0.1 1");
}

TEST_F(Trees, StayExpandedWhereItemsMoveWhileTheyAreReloaded)
{
    fill(3, 2);
    tree.expand(top[0].get());
    tree.expand(top[2].get());
    std::swap(top[0], top[1]);
    top.erase(top.begin() + 2);
    add(nullptr, "new");
    tree.reload();
    EXPECT_EQ(rows(), "1 0 0.0 0.1 new");
}

TEST_F(Trees, ReloadOnlyWhatIsBelowAnItem)
{
    fill(2, 1);
    tree.expand(top[0].get());
    tree.expand(top[1].get());
    add(top[0].get(), "more");
    add(top[1].get(), "unseen");
    tree.reloadChildrenOf(top[0].get());
    EXPECT_EQ(rows(), "0 0.0 more 1 1.0");
}

TEST_F(Trees, AnItemThatIsItsOwnChildEndsAtItself)
{
    auto const item = add(nullptr, "self");
    item->children.push_back(item);
    tree.reload();
    EXPECT_EQ(tree.expand(item.get()), 1);
    EXPECT_EQ(rows(), "self self");
    EXPECT_EQ(tree.expand(item.get()), 0);
    EXPECT_EQ(tree.rowForItem(item.get()), 0);
    tree.reload();
    EXPECT_EQ(tree.numberOfRows(), 2);
    item->children.clear();
}

TEST_F(Trees, EndlessOnesEndSomewhere)
{
    add(nullptr, "root");
    tree.reload();
    Item* last = top[0].get();
    long levels = 0;
    for (; levels < 5000; ++levels) {
        auto const next = add(last, "below");
        if (tree.expand(last) == 0)
            break;
        last = next.get();
    }
    EXPECT_GT(levels, 500);
    EXPECT_LT(levels, 2000);
    tree.reload();
    EXPECT_EQ(tree.numberOfRows(), levels + 1);
}

TEST_F(Trees, OutliveASourceThatReloadsWhileItIsAsked)
{
    fill(3, 3);
    onAsk = [this] { tree.reload(); };
    tree.expand(top[1].get());
    tree.itemAtRow(2);
    tree.reload();
    onAsk = nullptr;
    tree.reload();
    EXPECT_EQ(tree.itemAtRow(0), top[0].get());
}

TEST_F(Trees, FindRowsAndItemsAsALongListWould)
{
    fill(12, 7);
    for (auto const& item : top) {
        for (int i = 0; i < 3; ++i)
            add(item->children[static_cast<std::size_t>(i)].get(), item->name + "deep" + std::to_string(i));
    }
    std::mt19937 random(7);
    std::map<Item*, bool> expanded;
    std::vector<Item*> all;
    auto const visit = [&](auto const& self, std::vector<Ref<Item>> const& items) -> void {
        for (auto const& item : items) {
            all.push_back(item.get());
            self(self, item->children);
        }
    };
    visit(visit, top);
    std::vector<std::string> differences;
    for (int step = 0; step < 400; ++step) {
        Item* item = all[random() % all.size()];
        if (expanded[item]) {
            tree.collapse(item);
            expanded[item] = false;
        } else if (tree.rowForItem(item) >= 0) {
            tree.expand(item);
            expanded[item] = true;
        }
        std::vector<Item*> list;
        auto const flatten = [&](auto const& self, std::vector<Ref<Item>> const& items) -> void {
            for (auto const& each : items) {
                list.push_back(each.get());
                if (expanded[each.get()])
                    self(self, each->children);
            }
        };
        flatten(flatten, top);
        if (tree.numberOfRows() != static_cast<long>(list.size()))
            differences.push_back("count at " + std::to_string(step));
        for (long row = 0; row < static_cast<long>(list.size()); ++row) {
            auto* expected = list[static_cast<std::size_t>(row)];
            if (tree.itemAtRow(row) != expected || tree.rowForItem(expected) != row)
                differences.push_back("row " + std::to_string(row) + " at " + std::to_string(step));
        }
    }
    EXPECT_EQ(differences, std::vector<std::string> {});
}

}
}
