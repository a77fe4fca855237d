#include <tests/support/NibTest.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/nib/NibLoader.h>
#include <plix/platform/appkit/nib/nib_values.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace plix {
namespace {

/// Documents by other people, in the folder that PLIX_INTERFACE_SAMPLES names, else in one beside the project. What is expected of
/// each object is read from the document by other means than the loader's.
class NibSamples : public NibTest {
protected:
    void SetUp() override
    {
        NibTest::SetUp();
        // Large enough that every window is where it was put.
        display().setScreens({ { .frame = { 0, 0, 2560, 1440 }, .visibleFrame = { 0, 0, 2560, 1440 } } });
    }
    static std::vector<std::string> files()
    {
        std::vector<std::string> paths;
        auto const* named = std::getenv("PLIX_INTERFACE_SAMPLES");
        std::string const folder = named ? named : PLIX_PROJECT_FOLDER "/../shared/samples/xib";
        if (!std::filesystem::is_directory(folder))
            return paths;
        for (auto const& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".xib")
                paths.push_back(entry.path());
        }
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    struct Element {
        CFXMLTree const* tree;
        std::string id;
    };

    /// Loads a file; false where it is refused.
    bool open(std::string const& path)
    {
        std::string problem;
        auto const bytes = readFileBytes(path, 1 << 20);
        m_tree = CFXMLTree::treeWithData(*bytes, problem);
        m_document = NibDocument::read(*bytes, problem);
        if (!m_document) {
            ADD_FAILURE() << path << ": " << problem;
            return false;
        }
        m_loader = std::make_unique<NibLoader>(
            *m_document, owner.get(), NibLoader::Resources { [](NibText const& text) { return text.text; }, NSImage::imageNamed });
        m_elements.clear();
        collect(*m_tree);
        return m_loader->load();
    }
    void collect(CFXMLTree const& tree)
    {
        if (auto const* id = tree.node().attribute("id"))
            m_elements.push_back({ &tree, *id });
        for (auto const& child : tree.children())
            collect(*child);
    }
    static CFXMLTree const* keyed(CFXMLTree const& tree, std::string_view key)
    {
        for (auto const& child : tree.children()) {
            auto const* written = child->node().attribute("key");
            if (written && *written == key)
                return child.get();
        }
        return nullptr;
    }
    static std::string attribute(CFXMLTree const& tree, std::string_view name)
    {
        auto const* written = tree.node().attribute(name);
        return written ? *written : std::string();
    }
    static Rect rectOf(CFXMLTree const& tree)
    {
        auto const number = [&](char const* name) { return std::strtof(attribute(tree, name).c_str(), nullptr); };
        return { number("x"), number("y"), number("width"), number("height") };
    }
    static std::string labelOf(CFXMLTree const& tree) { return tree.node().string + " " + attribute(tree, "id"); }
    /// A scroll view places what is in it.
    static bool isPlacedByScrollView(CFXMLTree const& tree)
    {
        auto const* list = tree.parent();
        return tree.isElement("clipView") || tree.isElement("scroller") || tree.isElement("tableHeaderView")
            || (list && list->parent() && list->parent()->isElement("clipView"));
    }
    static std::string titleOf(NSObject* object)
    {
        if (auto const* window = dynamic_cast<NSWindow*>(object))
            return window->title();
        if (auto const* menu = dynamic_cast<NSMenu*>(object))
            return menu->title();
        if (auto const* item = dynamic_cast<NSMenuItem*>(object))
            return item->title();
        if (auto const* item = dynamic_cast<NSTabViewItem*>(object))
            return item->label();
        if (auto const* cell = dynamic_cast<NSPopUpButtonCell*>(object))
            return cell->titleOfSelectedItem();
        if (auto const* cell = dynamic_cast<NSButtonCell*>(object))
            return cell->title();
        auto const* cell = dynamic_cast<NSCell*>(object);
        return cell ? cell->stringValue() : "nothing";
    }
    static unsigned modifiersOf(CFXMLTree const& item)
    {
        auto const* mask = keyed(item, "keyEquivalentModifierMask");
        if (!mask)
            return NSCommandKeyMask;
        unsigned modifiers = 0;
        for (auto const& [name, flag] : { std::pair("command", NSCommandKeyMask), std::pair("shift", NSShiftKeyMask),
                 std::pair("option", NSAlternateKeyMask), std::pair("control", NSControlKeyMask) })
            modifiers |= attribute(*mask, name) == "YES" ? static_cast<unsigned>(flag) : 0;
        return modifiers;
    }
    template <typename Function> void forEachConnection(std::string_view kind, Function function)
    {
        for (auto const& element : m_elements) {
            auto const* connections = element.tree->childElement("connections");
            for (auto const& each : connections ? connections->children() : std::vector<Ref<CFXMLTree>> {}) {
                if (each->isElement(kind))
                    function(*element.tree, *each);
            }
        }
    }
    static NSObject* valueOf(NSObject& object, std::string const& outlet)
    {
        if (auto* const window = dynamic_cast<NSWindow*>(&object); window && outlet == "delegate")
            return window->delegate();
        if (auto* const table = dynamic_cast<NSTableView*>(&object))
            return outlet == "dataSource" ? table->dataSource() : table->delegate();
        if (auto* const tabs = dynamic_cast<NSTabView*>(&object); tabs && outlet == "delegate")
            return tabs->delegate();
        if (auto* const application = dynamic_cast<NSApplication*>(&object); application && outlet == "delegate")
            return application->delegate();
        if (auto* const view = dynamic_cast<NSView*>(&object); view && outlet == "nextKeyView")
            return view->nextKeyView();
        if (auto* const own = dynamic_cast<NibOwner*>(&object); own && outlet == "window")
            return own->window.get();
        return nullptr;
    }
    static std::pair<Selector, NSObject*> actionOf(NSObject* object)
    {
        if (auto const* control = dynamic_cast<NSControl*>(object))
            return { control->action(), control->target() };
        if (auto const* item = dynamic_cast<NSMenuItem*>(object))
            return { item->action(), item->target() };
        auto const* cell = dynamic_cast<NSCell*>(object);
        return cell ? std::pair(cell->action(), cell->target()) : std::pair(Selector(), static_cast<NSObject*>(nullptr));
    }
    bool isWarnedOf(std::string const& label, std::string const& name) const
    {
        for (auto const* warnings : { &m_document->warnings, &m_loader->warnings() }) {
            for (auto const& line : *warnings) {
                if (line.starts_with(label + ":") && line.find('"' + name + '"') != std::string::npos)
                    return true;
            }
        }
        return false;
    }

    Ref<CFXMLTree> m_tree;
    std::unique_ptr<NibDocument const> m_document;
    std::unique_ptr<NibLoader> m_loader;
    std::vector<Element> m_elements;
};

#define FOR_EACH_SAMPLE(path)                                                                                                      \
    if (files().empty())                                                                                                           \
        GTEST_SKIP() << "there are no documents to try";                                                                           \
    for (auto const& path : files())

TEST_F(NibSamples, FramesAreAsWritten)
{
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        int compared = 0;
        for (auto const& [tree, id] : m_elements) {
            auto const* frame = keyed(*tree, "frame");
            auto const* content = keyed(*tree, "contentRect");
            if (content) {
                auto const* window = dynamic_cast<NSWindow*>(m_loader->objectWithID(id));
                ASSERT_TRUE(window) << path << " " << id;
                EXPECT_EQ(window->contentRectForFrameRect(window->frame()), rectOf(*content)) << path;
                ++compared;
            } else if (frame && !isPlacedByScrollView(*tree)) {
                auto const* view = dynamic_cast<NSView*>(m_loader->objectWithID(id));
                ASSERT_TRUE(view) << path << " " << id;
                EXPECT_EQ(view->frame(), rectOf(*frame)) << path << " " << tree->node().string << " " << id;
                ++compared;
            }
        }
        EXPECT_GT(compared, 2) << path;
    }
}

TEST_F(NibSamples, TextsAreAsWritten)
{
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        int compared = 0;
        for (auto const& [tree, id] : m_elements) {
            if (!tree->node().attribute("title") && !tree->node().attribute("label"))
                continue;
            auto* const object = m_loader->objectWithID(id);
            EXPECT_EQ(titleOf(object), attribute(*tree, tree->node().attribute("title") ? "title" : "label")) << path << " " << id;
            ++compared;
        }
        EXPECT_GT(compared, 0) << path;
    }
}

TEST_F(NibSamples, TagsAreAsWritten)
{
    int others = 0;
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        for (auto const& [tree, id] : m_elements) {
            long const tag = std::strtol(attribute(*tree, "tag").c_str(), nullptr, 10);
            auto* const object = m_loader->objectWithID(id);
            auto const* control = dynamic_cast<NSControl*>(object);
            auto const* item = dynamic_cast<NSMenuItem*>(object);
            if (item || (control && control->cell() && control->cell()->tag() != -1)) {
                EXPECT_EQ(item ? item->tag() : control->tag(), tag) << path << " " << id;
            }
            others += tag != 0;
        }
    }
    EXPECT_GE(others, 14);
}

TEST_F(NibSamples, KeyEquivalentsAreAsWritten)
{
    int others = 0;
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        for (auto const& [tree, id] : m_elements) {
            auto const* coded = keyed(*tree, "keyEquivalent");
            auto const key = coded ? nibString(*coded).value_or("?") : attribute(*tree, "keyEquivalent");
            auto* const object = m_loader->objectWithID(id);
            if (auto const* cell = dynamic_cast<NSButtonCell*>(object)) {
                EXPECT_EQ(cell->keyEquivalent(), key) << path << " " << id;
            }
            if (auto const* item = dynamic_cast<NSMenuItem*>(object)) {
                EXPECT_EQ(item->keyEquivalent(), key) << path << " " << id;
                EXPECT_EQ(item->keyEquivalentModifierMask(), modifiersOf(*tree)) << path << " " << id;
            }
            others += !key.empty();
        }
    }
    EXPECT_GT(others, 30);
}

TEST_F(NibSamples, EveryOutletIsConnectedOrNamedInAWarning)
{
    int connected = 0;
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        forEachConnection("outlet", [&](CFXMLTree const& source, CFXMLTree const& outlet) {
            auto const name = attribute(outlet, "property");
            auto* const object = m_loader->objectWithID(attribute(source, "id"));
            auto* const destination = m_loader->objectWithID(attribute(outlet, "destination"));
            if (isWarnedOf(labelOf(source), name))
                return;
            ASSERT_TRUE(object && destination) << path << " " << labelOf(source) << " " << name;
            EXPECT_EQ(valueOf(*object, name), destination) << path << " " << labelOf(source) << " " << name;
            ++connected;
        });
    }
    EXPECT_GE(connected, 9);
}

TEST_F(NibSamples, EveryActionIsConnectedOrNamedInAWarning)
{
    int connected = 0;
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        forEachConnection("action", [&](CFXMLTree const& source, CFXMLTree const& action) {
            auto const name = attribute(action, "selector");
            auto* const object = m_loader->objectWithID(attribute(source, "id"));
            if (isWarnedOf(labelOf(source), name))
                return;
            auto* const target = m_loader->objectWithID(attribute(action, "target"));
            EXPECT_EQ(actionOf(object), std::pair(Selector(name), target)) << path << " " << labelOf(source);
            ++connected;
        });
    }
    EXPECT_GT(connected, 60);
}

TEST_F(NibSamples, WhatIsNotKnownIsNamedOnce)
{
    FOR_EACH_SAMPLE(path)
    {
        ASSERT_TRUE(open(path));
        for (auto const& [tree, id] : m_elements) {
            auto const name = attribute(*tree, "customClass");
            if (!name.empty() && !NSClassFromString(name) && id != "-1" && id != "-2" && id != "-3") {
                EXPECT_TRUE(isWarnedOf(labelOf(*tree), name)) << path << " " << id;
            }
        }
        auto lines = m_loader->warnings();
        lines.insert(lines.end(), m_document->warnings.begin(), m_document->warnings.end());
        std::sort(lines.begin(), lines.end());
        EXPECT_EQ(std::adjacent_find(lines.begin(), lines.end()), lines.end());
    }
}

}
}
