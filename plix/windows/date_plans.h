#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace plix {

/// How large the parts of the date range panel are.
struct DatePanelSizes {
    Size fromLabel;
    Size toLabel;
    Size entry; ///< of both entries
    Size button;
};

/// What a date is entered with.
enum class DateEntryKind { picker, textField };

/// Where the panel puts them, in its content's coordinates, y upwards.
struct DatePanelLayout {
    Size content;
    Point fromLabel;
    Point fromEntry;
    Point toLabel;
    Point toEntry;
    Point button;
    friend bool operator==(DatePanelLayout const&, DatePanelLayout const&) = default;
};

/// The layout for parts of these sizes.
PLIX_EXPORT DatePanelLayout datePanelLayout(DatePanelSizes const&, DateEntryKind);

/// The three parts of a date as they are entered one by one.
enum class DatePart : std::uint8_t { month, day, year };
using DateFieldOrder = std::array<DatePart, 3>;

/// The order in which a calendar format asks for month (b, B, m), day (d, e) and year (y, Y); other characters, the percent signs
/// too, do not count. Nothing where the format tells no order.
PLIX_EXPORT std::optional<DateFieldOrder> dateFieldOrder(std::string_view format);

/// The x positions of that order: the entries and the separators between them, and the titles below the entries.
struct DateFieldPositions {
    std::array<float, 3> entries {};
    std::array<float, 2> separators {};
    std::array<float, 3> titles {};
    friend bool operator==(DateFieldPositions const&, DateFieldPositions const&) = default;
};

/// Where the fields go in that order.
PLIX_EXPORT DateFieldPositions dateFieldPositions(DateFieldOrder const&);

}
