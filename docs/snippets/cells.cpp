#include <plix/plix.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace plix;

class BarCell : public NSCell {
    PLIX_CLASS(BarCell, NSCell);

public:
    void drawWithFrame(Rect frame, NSView&) override
    {
        auto const track = NSInsetRect(frame, 4, 5);
        NSColor::gridColor()->set();
        NSRectFill(track);
        auto const share = static_cast<float>(std::clamp(doubleValue(), 0.0, 1.0));
        NSColor::alternateSelectedControlColor()->set();
        NSRectFill({ track.x, track.y, track.width * share, track.height });
    }
};
PLIX_DESCRIBE(BarCell)
{
}

Ref<NSImage> disc(Ref<NSColor> const& color)
{
    auto image = make<NSImage>(Size { 16, 16 });
    FocusLock focus(*image);
    color->set();
    NSBezierPath::bezierPathWithOvalInRect({ 2, 2, 12, 12 })->fill();
    return image;
}

class Disks : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return static_cast<long>(m_disks.size()); }

    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        auto const& disk = m_disks[static_cast<std::size_t>(row)];
        if (column.identifier() == "name")
            return disk.name;
        return disk.used;
    }

    void willDisplayCell(NSTableView&, NSCell& cell, NSTableColumn& column, long row)
    {
        if (column.identifier() == "name")
            cell.setImage(m_disks[static_cast<std::size_t>(row)].used > 0.9 ? m_full : m_free);
    }

private:
    struct Disk {
        std::string name;
        double used;
    };
    std::vector<Disk> m_disks { { "System", 0.42 }, { "Archive", 0.95 }, { "Films", 0.7 } };
    Ref<NSImage> m_full { disc(NSColor::redColor()) };
    Ref<NSImage> m_free { disc(NSColor::colorWithCalibratedRed(0.2F, 0.7F, 0.3F, 1)) };
};

int main()
{
    auto& application = NSApplication::sharedApplication();
    auto const names = make<NSTableColumn>("name");
    names->headerCell()->setStringValue("Disk");
    names->setDataCell(make<PLIXImageAndTextCell>(""));
    names->setWidth(130);
    auto const bars = make<NSTableColumn>("used");
    bars->headerCell()->setStringValue("Used");
    bars->setDataCell(make<BarCell>());
    bars->setWidth(140);

    auto const disks = make<Disks>();
    auto const table = make<PLIXTableView>(Rect { 0, 0, 280, 90 });
    table->addTableColumn(*names);
    table->addTableColumn(*bars);
    table->setDataSource(disks);
    table->setDelegate(disks);

    auto const scroll = make<NSScrollView>(Rect { 0, 0, 280, 90 });
    scroll->setDocumentView(table);
    auto const window
        = make<NSWindow>(Rect { 200, 200, 280, 90 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("Disks");
    window->setContentView(scroll);
    window->makeKeyAndOrderFront(nullptr);
    application.run();
}
