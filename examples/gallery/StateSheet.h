#pragma once

#include <plix/platform/appkit/NSView.h>

#include <functional>
#include <string_view>

namespace plix {

class NSControl;

}

namespace gallery {

/// What a control on a sheet is shown in.
enum class SheetState { normal, hovered, pressed, focused, disabled, inactive };

/// A table of controls: a row for each kind, a column for each state. The states are put on, whatever the pointer does.
class StateSheet final : public plix::NSView {
public:
    StateSheet() = default;
    /// The size of a control's place; its caption stands before it.
    bool init(plix::Size place);

    using MakeControl = std::function<plix::Ref<plix::NSControl>()>;
    /// A row with one control for each state, each with the frame that it was made with, centred in its place.
    void addRow(std::string_view caption, MakeControl const&);
    void addHeading(std::string_view);
    /// After the last row.
    void sizeToRows();

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    void addLabel(std::string_view, plix::Rect, bool isCaption);

    plix::Size m_place;
    float m_y { 0 };
};

}
