#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <string>

namespace plix {

class NSCell;
class NSTableHeaderCell;
class NSTableView;

/// Who may change a column's width.
enum NSTableColumnResizingMask : unsigned {
    NSTableColumnNoResizing = 0,
    NSTableColumnAutoresizingMask = 1,
    NSTableColumnUserResizingMask = 2,
};

/// A column of a table: its identifier, its widths in points, the cell that draws its header and the cell that draws its values.
class PLIX_EXPORT NSTableColumn : public NSObject {
    PLIX_CLASS(NSTableColumn, NSObject);

public:
    NSTableColumn();
    ~NSTableColumn() override;
    bool init();
    /// With a text field cell for values, 100 points wide, at least 10.
    bool init(ObjectValue identifier);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // What the application knows it by.
    ObjectValue const& identifier() const { return m_identifier; }
    void setIdentifier(ObjectValue);
    /// Null while the column is in no table.
    NSTableView* tableView() const { return m_tableView; }
    /// For the table that takes the column in or lets it go.
    virtual void setTableView(NSTableView* table) { m_tableView = table; }

    float width() const { return m_width; }
    /// Kept within minWidth() and maxWidth(); no number leaves it as it is. Lays the table out anew and posts
    /// NSTableViewColumnDidResizeNotification.
    virtual void setWidth(float);
    float minWidth() const { return m_minWidth; }
    void setMinWidth(float);
    float maxWidth() const { return m_maxWidth; }
    void setMaxWidth(float);
    /// NSTableColumnResizingMask bits.
    unsigned resizingMask() const { return m_resizingMask; }
    void setResizingMask(unsigned);
    bool isResizable() const { return m_resizingMask != NSTableColumnNoResizing; }
    void setResizable(bool);
    /// Makes the column as wide as its header needs.
    void sizeToFit();
    /// A hidden column takes no room; it keeps its place and width. Saved with the table's columns.
    bool isHidden() const { return m_isHidden; }
    void setHidden(bool);
    /// Whether its values may be edited in place. True at first.
    bool isEditable() const { return m_isEditable; }
    void setEditable(bool isEditable) { m_isEditable = isEditable; }

    // What draws its header and its values.
    NSCell* headerCell() const;
    void setHeaderCell(Ref<NSCell> const&);
    NSCell* dataCell() const;
    void setDataCell(Ref<NSCell> const&);
    /// The cell for one row; here the same for all. -1 stands for no row in particular.
    virtual NSCell* dataCellForRow(long /*row*/) const { return dataCell(); }
    std::string const& headerToolTip() const { return m_headerToolTip; }
    void setHeaderToolTip(std::string);

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    void layoutChanged();
    void looksChanged();

    ObjectValue m_identifier;
    NSTableView* m_tableView { nullptr };
    Ref<NSCell> m_headerCell;
    Ref<NSCell> m_dataCell;
    std::string m_headerToolTip;
    float m_width { 100 };
    float m_minWidth { 10 };
    float m_maxWidth { 100000 };
    unsigned m_resizingMask { NSTableColumnAutoresizingMask | NSTableColumnUserResizingMask };
    bool m_isHidden { false };
    bool m_isEditable { true };
};

}
