#include <plix/system/media_exporters.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/Media.h>

#include <bit>
#include <cstring>

namespace plix {

namespace {

Ref<NSData> dataOf(std::uint32_t reference)
{
    std::vector<std::uint8_t> bytes(sizeof reference);
    std::memcpy(bytes.data(), &reference, sizeof reference);
    return make<NSData>(std::move(bytes));
}

/// Codes are numbers of 32 bits with a sign.
long number(std::uint32_t code)
{
    return std::bit_cast<std::int32_t>(code);
}

}

std::vector<ObjectValue::Dictionary> availableComponents()
{
    auto* const media = host().media();
    std::vector<ObjectValue::Dictionary> components;
    if (!media)
        return components;
    for (auto const reference : media->findComponents({ movieExportType, 0, 0, canMovieExportFiles, canMovieExportFiles })) {
        auto const component = media->component(reference);
        // One with a name that is no UTF-8 is skipped, as one that tells nothing of itself.
        if (!component || !isValidUTF8(component->name))
            continue;
        auto const& description = component->description;
        components.push_back({
            { "name", component->name },
            { "component", dataOf(reference) },
            { "type", number(description.type) },
            { "subtype", number(description.subtype) },
            { "manufacturer", number(description.manufacturer) },
        });
    }
    return components;
}

ObjectValue componentWithSubType(long subtype)
{
    for (auto const& component : availableComponents()) {
        if (component.at("subtype").intValue() == static_cast<std::int32_t>(subtype))
            return component;
    }
    return {};
}

int testMovieProgressProc()
{
    NSLog("testMovieProgressProc");
    return 0;
}

}
