#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/host/Media.h>

#include <utility>

namespace plix {

/// The components that the script says; there are none at first.
class PLIX_EXPORT HeadlessMedia final : public Media {
public:
    /// One without a component can't be read.
    void add(ComponentDescription const& found, std::optional<Component> component)
    {
        m_entries.emplace_back(found, std::move(component));
    }
    void add(Component component)
    {
        auto const description = component.description;
        add(description, std::move(component));
    }

    // Media: references count up from 1.
    std::vector<std::uint32_t> findComponents(ComponentDescription const& wanted) override
    {
        std::vector<std::uint32_t> found;
        for (std::size_t index = 0; index < m_entries.size(); ++index) {
            if (matchesComponent(wanted, m_entries[index].first))
                found.push_back(static_cast<std::uint32_t>(index + 1));
        }
        return found;
    }
    std::optional<Component> component(std::uint32_t reference) override
    {
        return reference > 0 && reference <= m_entries.size() ? m_entries[reference - 1].second : std::nullopt;
    }

private:
    std::vector<std::pair<ComponentDescription, std::optional<Component>>> m_entries;
};

}
