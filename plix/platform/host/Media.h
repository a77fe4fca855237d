#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/host/media_components.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plix {

/// The components that read and write media on this machine.
class PLIX_EXPORT Media {
public:
    /// A component that the machine has.
    struct Component {
        ComponentDescription description;
        /// As the component says it; mostly UTF-8.
        std::string name;
    };

    virtual ~Media() = default;
    Media(Media const&) = delete;
    Media& operator=(Media const&) = delete;

    /// References of those that match, in an order that stays the same.
    virtual std::vector<std::uint32_t> findComponents(ComponentDescription const& wanted) = 0;
    /// Nil for what is none, or none any more.
    virtual std::optional<Component> component(std::uint32_t reference) = 0;

protected:
    Media() = default;
};

}
