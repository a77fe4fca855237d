#pragma once

#include <plix/platform/base/Forward.h>

namespace plix {

class NSApplication;
class NSBitmapImageRep;
class NSColor;
class NSCursor;
class NSDocument;
class NSDocumentController;
class NSEvent;
class NSFont;
class NSGraphicsContext;
class NSImage;
class NSMenu;
class NSMenuItem;
class NSModalSession;
class NSPanel;
class NSPasteboard;
class NSResponder;
class NSScreen;
class NSScrollView;
class NSText;
class NSUndoManager;
class NSView;
class NSWindow;
class NSWindowController;
struct NSNotification;

}
