#include <plix/format/string_additions.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCharacterSet.h>
#include <plix/platform/foundation/path_operations.h>

namespace plix {

std::string fileExtension(std::string_view path)
{
    auto extension = pathExtension(path);
    auto const length = utf16Length(extension);
    bool const isFileExtension = (length == 3 || length == 4)
        && findCharacterNotInSet(extension, NSCharacterSet::alphanumericCharacterSet()) == extension.size();
    return isFileExtension ? extension : std::string();
}

std::string stringByDeletingFileExtension(std::string_view path)
{
    return fileExtension(path).empty() ? std::string(path) : stringByDeletingPathExtension(path);
}

std::string withoutCharactersInSet(std::string_view text, NSCharacterSet const& set)
{
    std::string rest;
    rest.reserve(text.size());
    for (auto start = findCharacterNotInSet(text, set); start < text.size();) {
        auto const end = findCharacterInSet(text, set, start);
        rest += text.substr(start, end - start);
        start = findCharacterNotInSet(text, set, end);
    }
    return rest;
}

}
