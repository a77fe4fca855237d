#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/foundation/NSCoder.h>

#include <algorithm>
#include <utility>

namespace plix {

// Out of an archive.

bool NSWindow::init(NSCoder& coder)
{
    Rect const contentRect = NSRectFromString(coder.decodeStringForKey("contentRect"));
    auto const styleMask = static_cast<unsigned>(coder.decodeIntForKey("styleMask"));
    if (!NSWindow::init(contentRect, styleMask, NSBackingStoreBuffered, true))
        return false;
    setTitle(coder.decodeStringForKey("title"));
    setMinSize(NSSizeFromString(coder.decodeStringForKey("minSize")));
    setMaxSize(NSSizeFromString(coder.decodeStringForKey("maxSize")));
    NSWindow::setBackgroundColor(coder.decodeForKey<NSColor>("backgroundColor"));
    setContentView(coder.decodeForKey<NSView>("contentView"));
    return true;
}

void NSWindow::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(NSStringFromRect(m->content), "contentRect");
    coder.encodeInt(m->styleMask, "styleMask");
    coder.encodeObject(m->title, "title");
    coder.encodeObject(NSStringFromSize(m->minSize), "minSize");
    coder.encodeObject(NSStringFromSize(m->maxSize), "maxSize");
    coder.encodeObject(m->background, "backgroundColor");
    coder.encodeObject(m->contentView, "contentView");
}

// Around a window of the machine's.

bool NSWindow::init(HostWindow* windowRef)
{
    auto const& all = Internals::all();
    auto const found
        = std::ranges::find_if(all, [&](auto const* window) { return windowRef && window->m->host.get() == windowRef; });
    if (found == all.end() || (*found)->m->isSheet() || (*found)->m->isDrawing)
        return false;
    Ref<NSWindow> const before(**found);
    auto& from = before->internals();
    if (!NSWindow::init(from.content, from.styleMask, NSBackingStoreBuffered, false))
        return false;
    m->title = from.title;
    m->minSize = from.minSize;
    m->maxSize = from.maxSize;
    m->takeHost(from);
    return true;
}

void NSWindow::Internals::takeHost(Internals& from)
{
    bool const wasKey = from.self.isKeyWindow();
    bool const isOnScreen = from.isOrderedIn;
    isMiniaturized = from.isMiniaturized;
    hasHostFocus = std::exchange(from.hasHostFocus, false);
    host = std::move(from.host);
    host->setClient(*this);
    updateExtents();
    if (isOnScreen) {
        isOrderedIn = true;
        wasOrderedIn = true;
        keptOnScreen = Ref<NSWindow>(self);
        NSApp->internals().windowOrderedIn(self, NSWindowAbove, &from.self);
        if (wasKey)
            self.makeKeyWindow();
        from.leaveScreen();
    }
    from.dropHost();
    contentView->setNeedsDisplay(true);
}

}
