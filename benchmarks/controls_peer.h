#pragma once

#include <plix/platform/graphics/geometry.h>

#include <functional>
#include <string>
#include <vector>

namespace plix::bench {

enum class ControlKind { Label, Field, Button, CheckBox, RadioButton, PopUp, Progress, Box };

/// A control of a window that is measured. The frame is from the upper left corner.
struct ControlSample {
    ControlKind kind { ControlKind::Label };
    std::string text;
    Rect frame;
    bool isOn { false };
};

/// The same window made of another library's controls.
struct ControlsPeer {
    /// Draws all of it.
    std::function<void()> drawWindow;
    /// Gives the first label another text and draws what that changes.
    std::function<void()> changeLabel;
    /// How many controls drawWindow() draws.
    int drawnControls { 0 };
};

/// A tab of a window that is measured: its controls, and how high the window is for it.
struct TabSample {
    std::vector<ControlSample> controls;
    float windowHeight { 0 };
};

struct TabsPeer {
    /// Selects the other tab, gives the window its height and draws what that changes.
    std::function<void()> selectOther;
    /// How many controls that draws.
    int drawnControls { 0 };
};

#ifdef PLIX_BENCH_QT
ControlsPeer qtControls(Size window, std::vector<ControlSample> const&);
/// Two tabs.
TabsPeer qtTabs(float windowWidth, std::vector<TabSample> const&);
#endif

}
