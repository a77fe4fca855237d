#include <plix/windows/date_entry_loading.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/windows/date_entry.h>

namespace plix {

Class const* dateEntryClass()
{
    auto const path = NSBundle::mainBundle().pathForResource("DatePicker", "bundle");
    auto const bundle = path ? NSBundle::bundleWithPath(*path) : nullptr;
    return bundle && bundle->load() ? bundle->classNamed("PLIXTextDatePicker") : nullptr;
}

Ref<NSView> makeDateEntry(Class const* described, Rect frame)
{
    if (!described || !described->isSubclassOfClass(NSView::staticClass()))
        return nullptr;
    auto const object = described->makeObject();
    Ref<NSView> const view(dynamic_cast<NSView*>(object.get()));
    auto* const entry = dynamic_cast<DateEntry*>(view.get());
    if (!entry)
        return nullptr;
    view->setFrame(frame);
    entry->setShowsDatePickerButton(true);
    return view;
}

}
