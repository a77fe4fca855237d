#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// What the choice of a path asks the disk.
struct DiskQuestions {
    std::function<bool(std::string const& path)> exists;
    std::function<bool(std::string const& folder)> canBeListed;
};

/// What PLIXUniqueFilePathAtPath answers on a disk that answers so.
std::optional<std::string> uniqueFilePath(std::string_view path, bool keepsExtension, DiskQuestions const&);

}
