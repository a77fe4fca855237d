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

#ifdef PLIX_BENCH_QT
ControlsPeer qtControls(Size window, std::vector<ControlSample> const&);
#endif

}
