#include <plix/platform/foundation/path_resolution.h>

#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/surroundings.h>

#include <cstdlib>
#include <memory>
#include <optional>

namespace plix {

namespace {

std::optional<std::string> realPath(std::string const& path)
{
    std::unique_ptr<char, void (*)(void*)> const resolved(::realpath(path.c_str(), nullptr), std::free);
    return resolved ? std::optional<std::string>(resolved.get()) : std::nullopt;
}

std::string parentOnDisk(std::string const& path)
{
    return stringByDeletingLastPathComponent(realPath(path).value_or(path));
}

}

std::string stringByExpandingTildeInPath(std::string_view path)
{
    if (!path.starts_with('~'))
        return std::string(path);
    auto const end = std::min(path.find('/'), path.size());
    auto const user = path.substr(1, end - 1);
    auto const home
        = user.empty() ? std::optional(surroundings().homeFolder()) : surroundings().homeFolderForUser(std::string(user));
    return home ? stringByAppendingPathComponent(*home, path.substr(end)) : std::string(path);
}

std::string stringByAbbreviatingWithTildeInPath(std::string_view path)
{
    auto const home = surroundings().homeFolder();
    bool const isInHome = home != "/" && path.starts_with(home) && (path.size() == home.size() || path[home.size()] == '/');
    return isInHome ? "~" + std::string(path.substr(home.size())) : std::string(path);
}

std::string stringByStandardizingPath(std::string_view path)
{
    auto const expanded = stringByExpandingTildeInPath(path);
    bool const isAbsolute = isAbsolutePath(expanded);
    std::string result = isAbsolute ? "/" : "";
    for (auto const& component : pathComponents(expanded)) {
        if (component == "." || component == "/")
            continue;
        result = component == ".." && isAbsolute ? parentOnDisk(result) : stringByAppendingPathComponent(result, component);
    }
    return result.empty() && !expanded.empty() ? "." : result;
}

std::string stringByResolvingSymlinksInPath(std::string_view path)
{
    auto const expanded = stringByExpandingTildeInPath(path);
    if (!isAbsolutePath(expanded))
        return stringByStandardizingPath(expanded);
    auto const resolved = realPath(expanded);
    return resolved ? *resolved : stringByStandardizingPath(expanded);
}

}
