#include "fuzz.h"

#include <plix/platform/foundation/path_operations.h>
#include <plix/system/unique_path.h>

#include <set>

using namespace plix;

// The first line is the path, the others are on the disk; a 0 in one means that nothing can be listed.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view rest(reinterpret_cast<char const*>(data), size);
    auto const nextLine = [&] {
        auto const line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        return std::string(line);
    };
    auto const path = nextLine();
    std::set<std::string> paths;
    bool canBeListed = true;
    while (!rest.empty()) {
        auto line = nextLine();
        canBeListed = canBeListed && line.find('\0') == std::string::npos;
        paths.insert(std::move(line));
    }
    DiskQuestions const disk {
        [&](std::string const& at) { return paths.contains(at); },
        [&](std::string const&) { return canBeListed; },
    };
    for (bool const keepsExtension : { false, true }) {
        auto const unique = uniqueFilePath(path, keepsExtension, disk);
        bool const isUsable = pathComponents(path).size() >= 2;
        FUZZ_CHECK(unique.has_value() == (isUsable && (canBeListed || !paths.contains(path))));
        if (!unique)
            continue;
        FUZZ_CHECK(!paths.contains(*unique));
        FUZZ_CHECK((*unique == path) == !paths.contains(path));
        // "x/" leaves the folder behind and gives "x 1", which alone is no path.
        if (pathComponents(*unique).size() >= 2)
            FUZZ_CHECK(uniqueFilePath(*unique, keepsExtension, disk) == unique);
        if (auto const extension = pathExtension(path); keepsExtension && !extension.empty())
            FUZZ_CHECK(pathExtension(*unique) == extension);
    }
    return 0;
}
