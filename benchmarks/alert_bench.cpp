#include "bench.h"
#include "headless_machine.h"

#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQAlert.h>

namespace plix::bench {

// From nothing to an alert on the screen, its texts fitted and drawn.
PLIX_FIGURE("alert.first_frame")
{
    Machine const machine;
    NSApplication::sharedApplication();
    Ref<TQAlert> alert;
    figure.time({ [&] {
                     alert = make<TQAlert>("Save", "Save the changes to “Score for winds”?",
                         "Changes that are not saved are lost, and what was there before stays as it is.", Ref<NSImage>(), "Save",
                         "Cancel", "Don’t Save");
                     alert->window()->makeKeyAndOrderFront(nullptr);
                     alert->window()->displayIfNeeded();
                 },
        [&] {
            if (alert)
                alert->window()->close();
        } });
    alert->window()->close();
}

}
