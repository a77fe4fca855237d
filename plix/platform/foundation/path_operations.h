#pragma once

#include <plix/platform/base/export.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// Operations on paths as text; none of these looks at the disk. Paths are bytes, so names that are no UTF-8 survive. The results
/// have no slash at the end (but the root), and no two slashes in a row where a component was added or taken away.

PLIX_EXPORT bool isAbsolutePath(std::string_view path);
/// The names between the slashes. A slash at the start and one at the end each give a component "/" (only one for the root);
/// "" has none.
PLIX_EXPORT std::vector<std::string> pathComponents(std::string_view path);
PLIX_EXPORT std::string pathWithComponents(std::vector<std::string> const& components);
/// The last name, slashes at the end apart; "/" for the root, "" for "".
PLIX_EXPORT std::string lastPathComponent(std::string_view path);
/// What is left without the last name: "/" above the root's own entries, "" for a single name.
PLIX_EXPORT std::string stringByDeletingLastPathComponent(std::string_view path);
PLIX_EXPORT std::string stringByAppendingPathComponent(std::string_view path, std::string_view component);
/// What follows the last dot of the last name, "" without one. A dot at the name's start does not count.
PLIX_EXPORT std::string pathExtension(std::string_view path);
PLIX_EXPORT std::string stringByDeletingPathExtension(std::string_view path);
/// Adds a dot and the extension. The root, "" and a name that begins with a tilde take no extension and come back as they are.
PLIX_EXPORT std::string stringByAppendingPathExtension(std::string_view path, std::string_view extension);
/// Those of the paths whose extension is one of these, as it is written.
PLIX_EXPORT std::vector<std::string> pathsMatchingExtensions(
    std::vector<std::string> const& paths, std::vector<std::string> const& extensions);

}
