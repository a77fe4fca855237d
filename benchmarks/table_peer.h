#pragma once

#include <functional>
#include <memory>
#include <string>

namespace plix::bench {

/// The shape of the tables that are measured: the same for both libraries.
inline constexpr int tableColumns = 8;
inline constexpr int tableRowHeight = 17;
inline constexpr int tableColumnWidth = 123;
inline constexpr int tableWidth = 1000;
inline constexpr int tableHeight = 800;

/// What is in a cell, made each time that it is asked for.
inline void formatTableCell(std::string& text, long row, int column)
{
    text = "Row ";
    text += std::to_string(row);
    text += " col ";
    text += std::to_string(column);
}

/// The same table made of another library's views. Gone with the last copy.
struct TablePeer {
    std::shared_ptr<void> views;
    /// Draws all of it.
    std::function<void()> draw;
    /// Scrolls by one row, and back the next time, and draws what that changes.
    std::function<void()> scrollRow;
    std::function<void()> reload;
};

/// An outline of so many topmost items with so many below each.
struct OutlinePeer {
    std::shared_ptr<void> views;
    std::function<void()> collapseAll;
    std::function<void()> expandAll;
    std::function<void()> draw;
};

#ifdef PLIX_BENCH_QT
TablePeer qtTable(long rows);
OutlinePeer qtOutline(int roots, int children);
#endif

}
