#pragma once

#include <plix/platform/appkit/NSView.h>

#include <functional>
#include <string_view>

namespace plix {

class NSSegmentedControl;
class NSTextField;

}

namespace gallery {

/// What the page is, with buttons for the ones before and after it.
class PageHeader final : public plix::NSView {
public:
    PageHeader();
    ~PageHeader() override;
    bool init(plix::Rect frame);

    /// In the colours of the appearance now.
    void show(std::string_view title, std::string_view section);
    /// Called with -1 or 1.
    void setStepFunction(std::function<void(int)> function) { m_step = std::move(function); }
    plix::NSTextField& titleLabel() const { return *m_title; }
    plix::NSTextField& sectionLabel() const { return *m_section; }
    plix::NSSegmentedControl& steps() const { return *m_steps; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    void stepped();

    plix::Ref<plix::NSTextField> m_title;
    plix::Ref<plix::NSTextField> m_section;
    plix::Ref<plix::NSSegmentedControl> m_steps;
    std::function<void(int)> m_step;
};

}
