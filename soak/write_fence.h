#pragma once

#include <string>

namespace soak {

/// From now on nothing in this process, nor in those that it starts, can write, make, rename or remove a file outside this folder:
/// what random input does stays where it does no harm. For good. False where the system has no such fence (Linux before 5.13);
/// nothing random may be done then.
bool fenceWrites(std::string const& folder);

/// A new folder for a run, in one that all runs share, which is what to fence: so that the new one can be removed again.
std::string makeRunFolder();
std::string folderOfRuns();

}
