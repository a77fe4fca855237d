#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plix {

class NSCharacterSet;

/// The fields of one line of comma-separated values, up to and with the line end. A quoted field begins right behind a comma, never
/// at the line's start, and keeps doubled quotes as they are; outside quotes a doubled quote gives one.
std::vector<std::string> CSVLineComponents(std::string_view line);

/// The path's extension where it has three or four characters, all of them letters or digits; otherwise "".
std::string fileExtension(std::string_view path);
/// The path without that extension; with it where there is none such.
std::string stringByDeletingFileExtension(std::string_view path);

std::string withoutCharactersInSet(std::string_view text, NSCharacterSet const&);

}
