#pragma once

#include <string>
#include <vector>

namespace plix {

class NSFileManager;

}

namespace browser {

class JobReport;

// Work on files that may take long, for a thread of its own: asks the report at every item whether to go on.

/// Counts what is at paths, folders with all in them, and how many bytes that is. Links are not followed.
void countPaths(std::vector<std::string> const& paths, JobReport&);
/// Copies what is at paths into a folder, beside what is there under the next free name: "report 1.txt". Counts first. Of a copy
/// that is canceled in the middle nothing is left; those before it stay. The file manager is the work's own, as it keeps errors.
void copyPaths(std::vector<std::string> const& paths, std::string const& folder, plix::NSFileManager&, JobReport&);

}
