#include "file_operations.h"
#include "folder_entry.h"

#include <filesystem>

namespace browser {

namespace {

std::string inQuotes(std::string_view path)
{
    return "“" + shownName(path) + "”";
}

}

std::string moveIntoFolder(std::string const& path, std::string const& folder)
{
    namespace fs = std::filesystem;
    auto const name = path.substr(path.rfind('/') + 1);
    auto const target = pathInFolder(folder, name);
    if (target == path)
        return inQuotes(path) + " is there already.";
    if (folder == path || folder.starts_with(path + '/'))
        return inQuotes(path) + " can't be moved into itself.";
    std::error_code error;
    if (fs::exists(fs::symlink_status(target, error)))
        return "There is something called " + inQuotes(path) + " in " + inQuotes(folder) + " already.";
    fs::rename(path, target, error);
    return error ? inQuotes(path) + " could not be moved: " + error.message() + '.' : "";
}

std::string deleteForGood(std::string const& path)
{
    std::error_code error;
    std::filesystem::remove_all(path, error);
    return error ? inQuotes(path) + " could not be deleted: " + error.message() + '.' : "";
}

}
