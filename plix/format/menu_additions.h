#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>

#include <optional>
#include <vector>

namespace plix {

class NSMenu;
class NSMenuItem;
class NSPopUpButton;

/// Appends each item in order; nothing for nil.
PLIX_EXPORT void addItems(NSMenu&, std::optional<std::vector<Ref<NSMenuItem>>> const&);
/// Null for an empty menu.
PLIX_EXPORT NSMenuItem* lastItem(NSMenu const&);

/// Null where no item has the tag.
PLIX_EXPORT NSMenuItem* itemWithTag(NSPopUpButton const&, int tag);
/// Selects the item with the tag and answers true; answers false and leaves the selection alone where there is none.
PLIX_EXPORT bool selectItemWithTag(NSPopUpButton&, int tag);
/// Selects the item with the tag, or clears the selection where there is none.
PLIX_EXPORT void selectItemWithTagOrNone(NSPopUpButton&, int tag);

}
