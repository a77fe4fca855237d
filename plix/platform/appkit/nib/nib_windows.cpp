#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>

#include <plix/platform/appkit/NSWindow.h>

namespace plix {

namespace {

constexpr NibWord styleBits[] = {
    { "titled", NSTitledWindowMask },
    { "closable", NSClosableWindowMask },
    { "miniaturizable", NSMiniaturizableWindowMask },
    { "resizable", NSResizableWindowMask },
    { "utility", NSUtilityWindowMask },
    { "documentModal", NSDocModalWindowMask },
    { "nonactivatingPanel", NSNonactivatingPanelMask },
    { "texturedBackground", NSTexturedBackgroundWindowMask },
};

}

void readNibWindow(NibReading& reading)
{
    reading.text("title", "title");
    reading.mask("styleMask", "styleMask", styleBits);
    reading.rect("contentRect", "contentRect");
    reading.rect("screenRect", "screenRect");
    reading.mask("initialPositionMask", "initialPositionMask", {});
    for (auto const* size : { "minSize", "maxSize", "contentMinSize", "contentMaxSize" })
        reading.size(size, size);
    for (auto const* flag : { "hidesOnDeactivate", "releasedWhenClosed", "hasShadow", "autorecalculatesKeyViewLoop",
             "visibleAtLaunch", "showsResizeIndicator", "deferred" })
        reading.flag(flag, flag);
    reading.color("backgroundColor", "backgroundColor");
    reading.code("frameAutosaveName", "frameAutosaveName");
    reading.object("contentView", "contentView", "NSView");
}

}
