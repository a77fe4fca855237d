#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Alerts with short and long texts, one, two and three buttons; and two that run.
plix::Ref<plix::NSView> makeAlertsPage();
/// Progress windows, with and without Cancel, and one that opens.
plix::Ref<plix::NSView> makeProgressPage();
/// Windows of several heights with a background picture, in every mode.
plix::Ref<plix::NSView> makeBackgroundsPage();

}
