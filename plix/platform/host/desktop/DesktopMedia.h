#pragma once

#include <plix/platform/host/Media.h>

namespace plix {

/// The muxers of GStreamer, each a component that writes files: the kind of file is its subtype, the plug-in that it is of its
/// manufacturer. Looked for once, when they are first wanted; in order of their names.
class DesktopMedia final : public Media {
public:
    /// Whether the library is there; loads it.
    static bool isAvailable();

    // Media:
    std::vector<std::uint32_t> findComponents(ComponentDescription const& wanted) override;
    std::optional<Component> component(std::uint32_t reference) override;

private:
    struct Entry {
        std::uint32_t reference { 0 };
        Component component;
    };

    std::vector<Entry> const& entries();

    std::optional<std::vector<Entry>> m_entries;
};

}
