#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace browser {

inline constexpr std::size_t mostCSVRows = 500;
inline constexpr std::size_t mostCSVColumns = 50;

enum class CSVPart {
    whole,
    beginning, ///< of a file: the last line may be cut off
};

/// The fields of the first lines of comma-separated text, in valid UTF-8. Fields don't go over line ends.
std::vector<std::vector<std::string>> csvRows(std::string_view text, CSVPart);

}
