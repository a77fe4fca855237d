#pragma once

#include <plix/platform/base/Class.h>

#include <span>
#include <string>
#include <vector>

namespace plix {

class NSScrollView;
class NSTableColumn;
class NSTableView;

/// A column of texts.
struct TextColumn {
    /// What it is known by.
    char const* identifier;
    /// What its header says.
    char const* title;
    float width;
};

/// A column of small text that nobody edits.
Ref<NSTableColumn> addTextColumn(NSTableView&, TextColumn);
/// Around a table, with what all tables of the inspector look like.
Ref<NSScrollView> makeScrollView(NSTableView&);

/// A table of texts.
class TextTable : public NSObject {
    PLIX_CLASS(TextTable, NSObject);

public:
    using Rows = std::vector<std::vector<std::string>>;

    TextTable();
    ~TextTable() override;
    bool init(std::span<TextColumn const>);

    NSScrollView& scrollView() const { return *m_scrollView; }
    NSTableView& table() const { return *m_table; }
    Rows const& rows() const { return m_rows; }
    /// A text for each column.
    void setRows(Rows);
    /// Whether the last row stays in view where it was before new rows came.
    void setFollowsLastRow(bool follows) { m_followsLastRow = follows; }

    // NSTableViewDataSource:
    long numberOfRowsInTableView(NSTableView&) const { return static_cast<long>(m_rows.size()); }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row) const;

private:
    Ref<NSScrollView> m_scrollView;
    Ref<NSTableView> m_table;
    Rows m_rows;
    bool m_followsLastRow { false };
};

}
