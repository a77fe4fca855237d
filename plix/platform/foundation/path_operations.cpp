#include <plix/platform/foundation/path_operations.h>

#include <algorithm>
#include <iterator>

namespace plix {

namespace {

std::string_view withoutTrailingSlashes(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

/// Where the last name begins, in a path without slashes at its end.
std::size_t lastNameStart(std::string_view path)
{
    auto const slash = path.rfind('/');
    return slash == std::string_view::npos || path == "/" ? 0 : slash + 1;
}

std::string withSingleSlashes(std::string_view path)
{
    std::string result;
    result.reserve(path.size());
    for (char const c : path) {
        if (c != '/' || result.empty() || result.back() != '/')
            result += c;
    }
    return std::string(withoutTrailingSlashes(result));
}

/// Where the dot of the extension stands, in a path without slashes at its end; npos without one.
std::size_t extensionDot(std::string_view path)
{
    auto const start = lastNameStart(path);
    auto const dot = path.rfind('.');
    bool const isInName = dot != std::string_view::npos && dot > start && path.substr(start) != "..";
    return isInName ? dot : std::string_view::npos;
}

}

bool isAbsolutePath(std::string_view path)
{
    return path.starts_with('/');
}

std::vector<std::string> pathComponents(std::string_view path)
{
    std::vector<std::string> components;
    if (isAbsolutePath(path))
        components.emplace_back("/");
    for (std::size_t start = 0; start < path.size();) {
        auto const end = std::min(path.find('/', start), path.size());
        if (end > start)
            components.emplace_back(path.substr(start, end - start));
        start = end + 1;
    }
    if (path.ends_with('/') && components.back() != "/")
        components.emplace_back("/");
    return components;
}

std::string pathWithComponents(std::vector<std::string> const& components)
{
    std::string path;
    for (auto const& component : components) {
        if (!path.empty() && path.back() != '/')
            path += '/';
        path += component;
    }
    return withSingleSlashes(path);
}

std::string lastPathComponent(std::string_view path)
{
    path = withoutTrailingSlashes(path);
    return std::string(path.substr(lastNameStart(path)));
}

std::string stringByDeletingLastPathComponent(std::string_view path)
{
    path = withoutTrailingSlashes(path);
    if (path == "/")
        return "/";
    return std::string(withoutTrailingSlashes(path.substr(0, lastNameStart(path))));
}

std::string stringByAppendingPathComponent(std::string_view path, std::string_view component)
{
    if (path.empty())
        return withSingleSlashes(component);
    std::string joined(path);
    joined += '/';
    joined += component;
    return withSingleSlashes(joined);
}

std::string pathExtension(std::string_view path)
{
    path = withoutTrailingSlashes(path);
    auto const dot = extensionDot(path);
    return dot == std::string_view::npos ? std::string() : std::string(path.substr(dot + 1));
}

std::string stringByDeletingPathExtension(std::string_view path)
{
    path = withoutTrailingSlashes(path);
    return std::string(path.substr(0, extensionDot(path)));
}

std::string stringByAppendingPathExtension(std::string_view path, std::string_view extension)
{
    auto const trimmed = withoutTrailingSlashes(path);
    if (trimmed.empty() || trimmed == "/" || trimmed.substr(lastNameStart(trimmed)).starts_with('~'))
        return std::string(path);
    std::string result(trimmed);
    result += '.';
    result += extension;
    return result;
}

std::vector<std::string> pathsMatchingExtensions(std::vector<std::string> const& paths, std::vector<std::string> const& extensions)
{
    std::vector<std::string> matching;
    std::ranges::copy_if(paths, std::back_inserter(matching),
        [&](auto const& path) { return std::ranges::find(extensions, pathExtension(path)) != extensions.end(); });
    return matching;
}

}
