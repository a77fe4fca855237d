#pragma once

#include <plix/format/csv_line.h>

#include <string>
#include <string_view>

namespace plix {

class NSCharacterSet;

/// The path's extension where it has three or four characters, all of them letters or digits; otherwise "".
PLIX_EXPORT std::string fileExtension(std::string_view path);
/// The path without that extension; with it where there is none such.
PLIX_EXPORT std::string stringByDeletingFileExtension(std::string_view path);

/// The text without every character of the set.
PLIX_EXPORT std::string withoutCharactersInSet(std::string_view text, NSCharacterSet const&);

}
