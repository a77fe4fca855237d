#include <plix/hosting.h>
#include <plix/plix.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace plix;

namespace {

class Names : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return 40; }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row) { return "row " + std::to_string(row); }
};

class Square : public NSView {
    PLIX_CLASS(Square, NSView);

    void drawRect(Rect) override
    {
        NSColor::redColor()->set();
        NSRectFill(bounds());
    }
};

PLIX_DESCRIBE(Square)
{
}

class Application : public NSObject {
public:
    bool init()
    {
        m_window = make<NSWindow>(Rect { 100, 100, 300, 200 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        auto const content = make<NSView>(Rect { 0, 0, 300, 200 });
        content->addSubview(*make<Square>(Rect { 200, 0, 100, 200 }));
        auto const scroll = make<NSScrollView>(Rect { 0, 0, 200, 200 });
        m_table = make<PLIXTableView>(Rect { 0, 0, 200, 200 });
        auto const column = make<NSTableColumn>("name");
        column->setWidth(180);
        m_table->addTableColumn(*column);
        m_names = make<Names>();
        m_table->setDataSource(m_names);
        scroll->setDocumentView(m_table);
        content->addSubview(*scroll);
        m_window->setContentView(content);
        m_window->makeKeyAndOrderFront(nullptr);
        m_window->displayIfNeeded();
        return true;
    }

    bool drawsInTheWindow() const
    {
        auto const picture = m_window->snapshot();
        return picture && picture->pixelAtX(250, 100) == 0xFFFF0000;
    }
    bool asksForRows() const { return m_table->numberOfRows() == 40 && m_table->rowAtPoint({ 5, 5 }) == 0; }

private:
    Ref<NSWindow> m_window;
    Ref<PLIXTableView> m_table;
    Ref<Names> m_names;
};

bool castsAcrossTheLibrary()
{
    Ref<NSObject> const made = NSClassFromString("PLIXTableView")->makeObject();
    return dynamic_cast<PLIXTableView*>(made.get()) && dynamic_cast<NSTableView*>(made.get())
        && !dynamic_cast<NSWindow*>(made.get());
}

bool catchesWhatTheLibraryThrows()
{
    try {
        make<NSMenu>()->itemAtIndex(3);
    } catch (NSRangeException const&) {
        return true;
    }
    return false;
}

bool loadsAPlugin()
{
    auto const path = NSBundle::mainBundle().pathForResource("Stamp", "bundle");
    auto const bundle = path ? NSBundle::bundleWithPath(*path) : nullptr;
    auto const* stamp = bundle ? bundle->principalClass() : nullptr;
    auto const made = stamp ? stamp->makeObject() : nullptr;
    auto const* view = dynamic_cast<NSView*>(made.get());
    return view && view->isFlipped();
}

}

int main(int argc, char** argv)
{
    installHost(std::make_unique<HeadlessHost>());
    NSApplication::sharedApplication();
    auto const application = make<Application>();
    // To be run by somebody who reads German.
    bool const hasResources = argc > 1 && std::string_view(argv[1]) == "--resources";
    std::vector<std::pair<char const*, std::function<bool()>>> checks {
        { "draws in the window", [&] { return application->drawsInTheWindow(); } },
        { "asks for rows", [&] { return application->asksForRows(); } },
        { "finds the library's images", [] { return NSImage::imageNamed("popupknob_small") != nullptr; } },
        { "casts across the library", castsAcrossTheLibrary },
        { "catches what the library throws", catchesWhatTheLibraryThrows },
    };
    if (hasResources) {
        checks.emplace_back("loads a plug-in", loadsAPlugin);
        checks.emplace_back("has its own words", [] { return NSLocalizedString("Greeting") == "Guten Tag"; });
        checks.emplace_back("has the library's words", [] { return NSLocalizedString("minutes") == "Minuten"; });
    }
    int wrong = 0;
    for (auto const& [name, check] : checks) {
        bool const isRight = check();
        wrong += isRight ? 0 : 1;
        std::printf("application %s: %s\n", name, isRight ? "yes" : "NO");
    }
    return wrong == 0 ? 0 : 1;
}
