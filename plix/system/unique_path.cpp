#include <plix/system/unique_path.h>

#include <plix/platform/foundation/path_operations.h>

#include <cstdint>

namespace plix {

std::optional<std::string> uniqueFilePath(std::string_view path, bool keepsExtension, DiskQuestions const& disk)
{
    if (pathComponents(path).size() < 2)
        return {};
    std::string wanted(path);
    if (!disk.exists(wanted))
        return wanted;
    auto const folder = stringByDeletingLastPathComponent(path);
    if (!disk.canBeListed(folder))
        return {};
    auto base = lastPathComponent(path);
    std::string ending;
    if (keepsExtension) {
        if (auto const extension = pathExtension(base); !extension.empty())
            ending = "." + extension;
        base = stringByDeletingPathExtension(base);
    }
    for (std::int64_t i = 1;; ++i) {
        auto candidate = stringByAppendingPathComponent(folder, base + " " + std::to_string(i)) + ending;
        if (!disk.exists(candidate))
            return candidate;
    }
}

}
