#include "bench.h"
#include "popup_peer.h"

#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix::bench {

// What a new title or another activity costs a pop-up with an engraved title, apart from showing it: the three images.
PLIX_FIGURE("popup.compose")
{
    constexpr char const* title = "In the last week";
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 140, 20 });
    button->setTitle(title);
    Work const ours { [&] {
        keep(button->ConstructIdleImage());
        keep(button->ConstructMouseOverImage());
        keep(button->ConstructMouseDownImage());
    } };
    figure.setUnit("us");
#ifdef PLIX_BENCH_QT
    auto const path = NSBundle::libraryBundle().pathForResource("chiseledPopUp_DownArrow_White", "png", "images");
    auto const folder = path ? path->substr(0, path->rfind('/')) : "";
    if (auto const theirs = qtComposePopUp(button->frame().size(), title, folder)) {
        figure.timeAgainst("Qt", ours, { theirs });
        return;
    }
#endif
    figure.time(ours);
}

}
