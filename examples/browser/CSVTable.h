#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <string>
#include <vector>

namespace plix {

class NSScrollView;
class NSTableColumn;
class NSTableView;
class PLIXTableView;

}

namespace browser {

/// The first lines of comma-separated values in a table; the first line is its headers.
class CSVTable : public plix::NSObject {
    PLIX_CLASS(CSVTable, plix::NSObject);

public:
    CSVTable();
    ~CSVTable() override;
    bool init();

    plix::NSScrollView& scrollView() const { return *m_scrollView; }
    plix::PLIXTableView& table() const { return *m_table; }
    void setRows(std::vector<std::vector<std::string>>);

    // As the table's data source.
    long numberOfRowsInTableView(plix::NSTableView&);
    plix::ObjectValue objectValueForTableColumn(plix::NSTableView&, plix::NSTableColumn&, long row);

private:
    std::vector<std::vector<std::string>> m_rows; ///< without the headers
    plix::Ref<plix::NSScrollView> m_scrollView;
    plix::Ref<plix::PLIXTableView> m_table;
};

}
