#pragma once

#include <plix/format/csv_line.h>

#include <string>
#include <string_view>

namespace plix {

class NSCharacterSet;

/// The path's extension where it has three or four characters, all of them letters or digits; otherwise "".
std::string fileExtension(std::string_view path);
/// The path without that extension; with it where there is none such.
std::string stringByDeletingFileExtension(std::string_view path);

std::string withoutCharactersInSet(std::string_view text, NSCharacterSet const&);

}
