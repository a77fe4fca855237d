#pragma once

#include <plix/platform/graphics/geometry.h>

#include <optional>
#include <string>
#include <string_view>

namespace browser {

using plix::Point;
using plix::Rect;

inline constexpr float listIconSize = 16;
/// Of one line of the system font.
inline constexpr float listTextHeight = 16;

/// Rows of one height below each other, from the top of a flipped view.
struct ListPlan {
    long rowCount { 0 };
    float rowHeight { 22 };
    float width { 0 };

    float height() const { return static_cast<float>(rowCount) * rowHeight; }
    Rect rowRect(long row) const;
    /// The row at a height; nothing above and below the rows.
    std::optional<long> rowAt(float y) const;
    /// The rows that a rectangle touches, as the first one and how many.
    struct Rows {
        long first { 0 };
        long count { 0 };
    };
    Rows rowsIn(Rect) const;
    /// How many rows a page key moves by.
    long rowsOnPage(float visibleHeight) const;
};

/// Where the columns of a row or header lie.
struct ColumnPlan {
    Rect icon;
    Rect name;
    Rect size;
};

/// The name takes what the size leaves, but always has some room.
ColumnPlan columnPlan(Rect row, float iconSize);

/// Keys that move a selection.
enum class ListMove { up, down, pageUp, pageDown, first, last };
/// The row selected after a key; nothing in an empty list. Without a selection the first key takes the first or last row.
std::optional<long> movedSelection(std::optional<long> selection, ListMove, ListPlan const&, float visibleHeight);

/// Letters typed one after the other that look for a name.
class TypeSelect {
public:
    static constexpr double pause = 1.0; ///< seconds after which a new word begins

    /// The letters typed so far, this one included.
    std::string const& type(std::string_view letters, double time);
    bool isTyping(double time) const { return !m_typed.empty() && time - m_lastTime < pause; }

private:
    std::string m_typed;
    double m_lastTime { 0 };
};

}
