#pragma once

#include "GallerySettings.h"

#include <plix/platform/appkit/NSView.h>

#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace plix {

class NSButton;
class NSPopUpButton;
class NSSegmentedControl;

}

namespace gallery {

/// The switches for how pages look, in as many rows as its width needs.
class SwitchBar final : public plix::NSView {
public:
    SwitchBar();
    ~SwitchBar() override;
    bool init(float width);

    GallerySettings const& settings() const { return m_settings; }
    /// Without telling.
    void setSettings(GallerySettings const&);
    /// Called after a person has changed one.
    void setChangeFunction(std::function<void(GallerySettings const&)> function) { m_change = std::move(function); }
    float heightForWidth(float width) const;

    plix::NSPopUpButton& highlightPopUp() const { return *m_highlight; }
    plix::NSSegmentedControl& versionSwitch() const { return *m_version; }
    plix::NSSegmentedControl& appearanceSwitch() const { return *m_appearance; }
    plix::NSSegmentedControl& scaleSwitch() const { return *m_scale; }
    plix::NSSegmentedControl& activeSwitch() const { return *m_active; }
    plix::NSButton& enabledSwitch() const { return *m_enabled; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;
    void resizeSubviewsWithOldSize(plix::Size) override { layOut(); }

private:
    /// With a caption before it, unless that is empty.
    void add(std::string_view caption, plix::NSView&);
    plix::Ref<plix::NSSegmentedControl> addSwitch(
        std::string_view caption, std::span<char const* const> labels, char const* toolTip);
    void layOut();
    void changed();
    std::vector<float> widths() const;

    std::vector<plix::Ref<plix::NSView>> m_groups;
    plix::Ref<plix::NSPopUpButton> m_highlight;
    plix::Ref<plix::NSSegmentedControl> m_version;
    plix::Ref<plix::NSSegmentedControl> m_appearance;
    plix::Ref<plix::NSSegmentedControl> m_scale;
    plix::Ref<plix::NSSegmentedControl> m_active;
    plix::Ref<plix::NSButton> m_enabled;
    GallerySettings m_settings;
    std::function<void(GallerySettings const&)> m_change;
};

}
