#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

class Class;
class NSView;

/// The class "PLIXTextDatePicker" of the plug-in bundle "DatePicker" that lies in the main bundle; null where there is none.
Class const* dateEntryClass();

/// A new object of the class with that frame and the button that opens a calendar. Null for no class, and for one that is no NSView
/// or no DateEntry.
Ref<NSView> makeDateEntry(Class const*, Rect frame);

}
