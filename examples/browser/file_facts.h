#pragma once

#include "folder_entry.h"

#include <string>
#include <vector>

namespace browser {

struct VideoFormat;

/// A line of an info panel.
struct FileFact {
    std::string label;
    std::string value;

    bool operator==(FileFact const&) const = default;
};

/// What is known of any file: kind, size, where it is, when it was changed.
std::vector<FileFact> factsOf(FolderEntry const&, std::string const& folder, std::string const& home);
/// "1.5KB (1,536 bytes)".
std::string exactSizeText(std::uint64_t bytes);
/// Of a sound: "1 minute, 5 seconds (00:01:05)".
std::string durationText(double seconds);
std::vector<FileFact> videoFacts(VideoFormat const&);

}
