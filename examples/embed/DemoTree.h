#pragma once

#include <plix/plix.h>

#include <functional>
#include <string>
#include <vector>

namespace example {

/// The view tree that the examples put into the windows of other toolkits: a table that sorts, is edited in place and takes its
/// rows dragged elsewhere, with a pop-up, a text field, a check box and an engraved label. It knows nothing of where it lives.
class DemoTree final : public plix::NSObject {
public:
    bool init();

    plix::Ref<plix::NSView> const& view() const { return m_view; }
    plix::NSTableView& table() const { return *m_table; }
    plix::NSTextField& field() const { return *m_field; }
    plix::NSButton& box() const { return *m_box; }
    plix::NSPopUpButton& popUp() const { return *m_popUp; }

    /// Behind the others; it is selected then.
    void addRow(std::string const& name);
    /// Called with a line on what is selected, each time that this changes.
    void setSelectionChanged(std::function<void(std::string const&)> changed) { m_selectionChanged = std::move(changed); }
    /// Called with a line on what a person did, or the timer.
    void setReport(std::function<void(std::string const&)> report) { m_report = std::move(report); }

    // Data source and delegate of the table:
    long numberOfRowsInTableView(plix::NSTableView&) { return static_cast<long>(m_rows.size()); }
    plix::ObjectValue objectValueForTableColumn(plix::NSTableView&, plix::NSTableColumn&, long row);
    void setObjectValue(plix::NSTableView&, plix::ObjectValue, plix::NSTableColumn&, long row);
    bool writeRowsWithIndexes(plix::NSTableView&, plix::NSIndexSet const&, plix::NSPasteboard&);
    unsigned validateDrop(plix::NSTableView&, plix::NSDraggingInfo&, long row, plix::NSTableViewDropOperation);
    bool acceptDrop(plix::NSTableView&, plix::NSDraggingInfo&, long row, plix::NSTableViewDropOperation);
    bool shouldEditTableColumn(plix::NSTableView&, plix::NSTableColumn&, long row);
    void didClickTableColumn(plix::NSTableView&, plix::NSTableColumn&);
    void tableViewSelectionDidChange(plix::NSNotification const&);

private:
    struct Row {
        std::string name;
        double days { 0 };
    };

    void addTable();
    void addControls();
    void sort();
    void report(std::string const& line) const;

    std::vector<Row> m_rows;
    plix::Ref<plix::NSView> m_view;
    plix::Ref<plix::PLIXTableView> m_table;
    plix::Ref<plix::NSTextField> m_field;
    plix::Ref<plix::NSButton> m_box;
    plix::Ref<plix::NSPopUpButton> m_popUp;
    plix::Ref<plix::NSTextField> m_clock;
    plix::Ref<plix::NSTimer> m_timer;
    std::string m_sortedBy;
    bool m_isDescending { false };
    int m_seconds { 0 };
    std::function<void(std::string const&)> m_selectionChanged;
    std::function<void(std::string const&)> m_report;
};

}
