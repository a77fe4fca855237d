#pragma once

#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/Global.h>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace plix {

class NSColor;

}

namespace gallery {

// Engraved text is dark whatever the appearance: its grounds stay light.
inline constexpr float plainGround = 0.93F;
inline constexpr float texturedGround = 0.8F;

/// A strip of a window's background.
class EngravedGround final : public plix::NSView {
public:
    bool init(plix::Rect frame, float level)
    {
        m_level = level;
        return NSView::init(frame);
    }
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect dirty) override;

private:
    float m_level { 1 };
};

/// Strips of grounds, each with a caption before it; a column for each state.
class EngravedPage final : public plix::NSView {
public:
    static constexpr float margin = 20;
    static constexpr float captionWidth = 120;
    static constexpr float bandHeight = 36;

    bool init(long columns, float columnWidth);
    float columnWidth() const { return m_columnWidth; }

    void addHeading(std::string_view text);
    void addColumnNames(std::span<char const* const>);
    /// What the strip shows goes on it.
    EngravedGround& addBand(std::string_view caption, float level, float height = bandHeight);
    /// What each version of the system has, on both grounds: a strip each, with that system's colours while it is made.
    void addSystems(void (*addStrip)(EngravedPage&, std::string_view caption, float level));
    void skip(float distance) { m_y += distance; }
    /// After the last.
    void sizeToBands();

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect dirty) override;

private:
    void addLabel(std::string_view text, plix::Rect frame, plix::NSTextAlignment, bool isHeading);
    float width() const { return bounds().width; }

    float m_columnWidth { 0 };
    float m_y { margin };
};

/// Labels made from now on find their default colours anew, for the system's version now.
void forgetLabelColors();

/// The default colours of labels are those of another system as long as this lives.
class SystemColors {
public:
    explicit SystemColors(std::uint32_t version);
    ~SystemColors();
    SystemColors(SystemColors const&) = delete;
    SystemColors& operator=(SystemColors const&) = delete;

private:
    std::uint32_t m_version;
    std::array<plix::Ref<plix::NSColor>, 5> m_colors;
};

}
