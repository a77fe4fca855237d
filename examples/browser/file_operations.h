#pragma once

#include <string>
#include <string_view>

namespace browser {

// These answer why it could not be done, as a line for the person; empty where it was.

/// Moves what is at a path into a folder. Never in place of something that is there, nor a folder into itself.
std::string moveIntoFolder(std::string const& path, std::string const& folder);
/// Deletes what is at a path, a folder with all that is in it; of a link the link itself.
std::string deleteForGood(std::string const& path);

}
