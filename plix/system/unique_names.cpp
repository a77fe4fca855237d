#include <plix/system/unique_names.h>

#include <plix/platform/foundation/NSFileManager.h>
#include <plix/system/identity.h>
#include <plix/system/identity_text.h>
#include <plix/system/unique_path.h>

#include <cstring>
#include <random>

namespace plix {

std::optional<std::string> PLIXUniqueFilePathAtPath(std::optional<std::string_view> path, bool keepExtension)
{
    if (!path)
        return {};
    auto const& files = NSFileManager::defaultManager();
    return uniqueFilePath(*path, keepExtension,
        {
            .exists = [&](std::string const& at) { return files.fileExistsAtPath(at); },
            .canBeListed = [&](std::string const& folder) { return files.directoryContentsAtPath(folder).has_value(); },
        });
}

std::string PLIXTempFolderName()
{
    return temporaryName(PLIXMACAddressString(), PLIXProcessIDString(), {});
}

std::string PLIXTempFileName()
{
    static std::uint32_t s_counter = 1; // unsigned, so that it may wrap
    return temporaryName(PLIXMACAddressString(), PLIXProcessIDString(), static_cast<std::int32_t>(s_counter++));
}

std::string PLIXUniqueString()
{
    std::random_device random;
    std::array<std::uint8_t, 16> bits;
    for (std::size_t i = 0; i < bits.size(); i += sizeof(std::uint32_t)) {
        std::uint32_t const word = random();
        std::memcpy(bits.data() + i, &word, sizeof word);
    }
    return uuidText(bits);
}

}
