#include <plix/system/sound_paths.h>

#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/string_comparison.h>

namespace plix {

void takeSoundsOfLaterFolder(std::vector<std::string>& sounds, std::vector<std::string> const& later)
{
    for (auto const& path : later) {
        auto const name = lastPathComponent(path);
        std::size_t index = 0;
        while (index < sounds.size() && caseInsensitiveCompare(name, sounds[index]) != NSOrderedSame)
            ++index;
        if (index < sounds.size())
            sounds[index] = path;
        // Never so after that search, and kept.
        if (sounds.size() < index)
            sounds.push_back(path);
    }
}

}
