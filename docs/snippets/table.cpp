#include <plix/plix.h>

#include <string>
#include <vector>

using namespace plix;

struct Planet {
    std::string name;
    double days;
};

class Planets : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return static_cast<long>(m_planets.size()); }

    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        auto const& planet = m_planets[static_cast<std::size_t>(row)];
        if (column.identifier() == "name")
            return planet.name;
        return planet.days;
    }

    void setObjectValue(NSTableView&, ObjectValue value, NSTableColumn&, long row)
    {
        m_planets[static_cast<std::size_t>(row)].name = *value.string();
    }

    bool shouldEditTableColumn(NSTableView&, NSTableColumn& column, long) { return column.identifier() == "name"; }

    void returnKey(NSTableView& table, NSTableView&) { table.editColumn(0, table.selectedRow(), nullptr, true); }

    void deleteBackward(NSTableView& table, NSTableView&)
    {
        if (table.selectedRow() < 0)
            return NSBeep();
        m_planets.erase(m_planets.begin() + table.selectedRow());
        table.reloadData();
    }

private:
    std::vector<Planet> m_planets { { "Mercury", 88 }, { "Venus", 224.7 }, { "Earth", 365.25 }, { "Mars", 687 },
        { "Jupiter", 4332.6 }, { "Saturn", 10759 } };
};

Ref<NSTableColumn> column(char const* identifier, char const* title, float width)
{
    auto const made = make<NSTableColumn>(identifier);
    made->headerCell()->setStringValue(title);
    made->setWidth(width);
    return made;
}

Ref<NSScrollView> makeTable(Ref<Planets> const& planets)
{
    auto const table = make<PLIXTableView>(Rect { 0, 0, 300, 160 });
    table->addTableColumn(*column("name", "Planet", 160));
    table->addTableColumn(*column("days", "Days in a year", 110));
    table->setUsesAlternatingRowBackgroundColors(true);
    table->setEmptyString("No planets");
    table->setDataSource(planets);
    table->setDelegate(planets);
    table->selectRowIndexes(NSIndexSet::indexSetWithIndex(2), false);

    auto scroll = make<NSScrollView>(Rect { 0, 0, 300, 160 });
    scroll->setHasVerticalScroller(true);
    scroll->setDocumentView(table);
    return scroll;
}

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const planets = make<Planets>();
    auto const window = make<NSWindow>(Rect { 200, 200, 300, 160 },
        NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("Planets");
    window->setContentView(makeTable(planets));
    window->makeKeyAndOrderFront(nullptr);
    application.run();
}
