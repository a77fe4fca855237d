#include "embedded_program.h"

#include <tests/desktop/programs/support/program.h>

#include <examples/embed/DemoTree.h>

#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/plix.h>

namespace plix::desktop {

namespace {

/// The frontmost menu, on the display; empty while none is open.
Rect openMenu()
{
    for (auto const& window : NSApp->orderedWindows()) {
        if (window->level() >= NSPopUpMenuWindowLevel)
            return onDisplay(window->frame());
    }
    return {};
}

class Program {
public:
    Program(example::DemoTree& tree, ToolkitHalf half)
        : m_tree(tree)
        , m_half(std::move(half))
        , m_commands {
            { "where", [this](std::istream& words) { tellPlace(rest(words)); } },
            { "state", [this](std::istream&) { tellState(); } },
            { "alert", [](std::istream&) { runAlert(); } },
            { "sheet", [this](std::istream&) { beginSheet(); } },
            { "sync", [](std::istream& words) { report("sync " + rest(words)); } },
            { "second", [this](std::istream&) { addSecond(); } },
            { "destroy", [this](std::istream&) { destroySoon(); } },
        }
        , m_lines(obeyLines([this](std::string const& line) { obey(line, m_commands); }))
    {
        m_tree.setReport([](std::string const& line) { report(line); });
        report("ready");
    }

private:
    Rect placeOf(std::string const& part) const
    {
        if (part == "field")
            return onDisplay(m_tree.field());
        if (part == "box")
            return onDisplay(m_tree.box());
        if (part == "popup")
            return onDisplay(m_tree.popUp());
        if (part == "view")
            return onDisplay(*m_tree.view());
        if (part == "second")
            return m_second && m_second->window() ? onDisplay(*m_second) : Rect {};
        if (part == "menu")
            return openMenu();
        if (!part.starts_with("row"))
            return m_half.place(part);
        auto& table = m_tree.table();
        auto const inTable = table.rectOfRow(std::stol(part.substr(3)));
        auto const upperLeft = onDisplay(table, inTable.origin());
        return rectWith(upperLeft, inTable.size());
    }

    void tellPlace(std::string const& part) const
    {
        auto const place = placeOf(part);
        auto const scale = m_half.scale;
        report("where " + part + " at "
            + textOf({ place.midX() * scale, place.midY() * scale, place.width * scale, place.height * scale }));
    }

    std::string partWithKeyboard() const
    {
        auto const* const responder = dynamic_cast<NSView*>(m_tree.view()->window()->firstResponder());
        struct Part {
            char const* name;
            NSView const* view;
        };
        Part const parts[] { { "field", &m_tree.field() }, { "box", &m_tree.box() }, { "popup", &m_tree.popUp() },
            { "table", &m_tree.table() } };
        for (auto const& [name, view] : parts) {
            if (responder && responder->isDescendantOf(*view))
                return name;
        }
        return "none";
    }

    void tellState() const
    {
        auto const* const window = m_tree.view()->window();
        report(std::string("state key=") + (window->isKeyWindow() ? "yes" : "no") + " at=" + partWithKeyboard() + " field=["
            + m_tree.field().stringValue() + "] name=[" + m_half.name() + "] label=[" + m_half.label()
            + "] rows=" + std::to_string(m_tree.table().numberOfRows())
            + " top=" + std::to_string(m_tree.table().rowsInRect(m_tree.table().visibleRect()).location) + '.');
    }

    static Ref<NSPanel> panelWithButton(NSCell::ActionFunction pressed)
    {
        auto panel = make<NSPanel>(Rect { 300, 300, 240, 90 }, unsigned { NSTitledWindowMask }, NSBackingStoreBuffered, true);
        panel->setTitle("Alert");
        auto const button = make<NSButton>(Rect { 130, 20, 90, 28 });
        button->setTitle("Good");
        button->setKeyEquivalent("\r");
        button->setActionFunction(std::move(pressed));
        panel->contentView()->addSubview(*button);
        return panel;
    }

    static void runAlert()
    {
        auto const panel = panelWithButton([](NSObject*) { NSApp->stopModalWithCode(7); });
        report("alert runs");
        auto const code = NSApp->runModalForWindow(*panel);
        panel->close();
        report("alert answered " + std::to_string(code));
    }

    void beginSheet()
    {
        auto const panel = panelWithButton([](NSObject* button) { NSApp->endSheet(*static_cast<NSView*>(button)->window(), 7); });
        NSApp->beginSheet(*panel, *m_tree.view()->window(), [panel](NSWindow&, long code) {
            panel->orderOut(nullptr);
            report("sheet answered " + std::to_string(code));
        });
        report("sheet begins");
    }

    void addSecond()
    {
        auto const root = make<NSView>(Rect { 0, 0, 300, 30 });
        m_second = make<NSTextField>(Rect { 4, 4, 200, 22 });
        m_second->setActionFunction([this](NSObject*) { report("second [" + m_second->stringValue() + "]"); });
        root->addSubview(*m_second);
        m_half.addSecond(root);
    }

    void destroySoon()
    {
        m_timer = NSTimer::timerWithTimeInterval(
            0.05,
            [this](NSTimer&) {
                m_half.destroyEmbedded();
                report("destroyed");
            },
            false);
        NSRunLoop::currentRunLoop().addTimer(*m_timer, NSRunLoopCommonModes);
    }

    example::DemoTree& m_tree;
    ToolkitHalf m_half;
    Commands m_commands;
    Ref<RunLoopDescriptor> m_lines;
    Ref<NSTimer> m_timer;
    Ref<NSTextField> m_second;
};

}

void reportEmbedded(example::DemoTree& tree, ToolkitHalf half)
{
    static auto& s_program = *new Program(tree, std::move(half));
    static_cast<void>(s_program);
}

}
