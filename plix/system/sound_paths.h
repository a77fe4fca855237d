#pragma once

#include <string>
#include <vector>

namespace plix {

/// Lets the sounds of a later folder, given as whole paths, take the places of sounds of the same name, without regard to case.
/// Entries are compared whole, so that a sound whose entry is a path keeps its place, and nothing is ever added; that is meant.
void takeSoundsOfLaterFolder(std::vector<std::string>& sounds, std::vector<std::string> const& later);

}
