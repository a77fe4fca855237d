#pragma once

#include <string>
#include <string_view>

namespace plix {

/// Operations on paths that ask the surroundings or the disk.

/// Replaces "~" by the home folder and "~name" by that user's, at the start; unchanged where there is no such user.
std::string stringByExpandingTildeInPath(std::string_view path);
/// The other way: a path in the home folder begins with "~".
std::string stringByAbbreviatingWithTildeInPath(std::string_view path);
/// Expands the tilde, takes out empty and "." components, and in an absolute path goes up for "..": to the real parent folder where
/// a symbolic link leads elsewhere. Never gives "" for a path that was not empty.
std::string stringByStandardizingPath(std::string_view path);
/// Likewise with every symbolic link followed; a path that leads nowhere is only standardised.
std::string stringByResolvingSymlinksInPath(std::string_view path);

}
