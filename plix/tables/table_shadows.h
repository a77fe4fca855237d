#pragma once

#include <plix/platform/base/Global.h>
#include <plix/platform/graphics/NSShadow.h>

namespace plix {

/// The shadows of text in selected rows, which PLIXTableView::standardShadow() and deactivatedShadow() make when they are first
/// asked for; null before.
PLIX_EXPORT extern Global<NSShadow> plixTableView_StandardShadow;
PLIX_EXPORT extern Global<NSShadow> plixTableView_DeactivatedShadow;

/// The global of that name, made where it is not there yet.
PLIX_EXPORT Ref<NSShadow> standardTableShadow();
PLIX_EXPORT Ref<NSShadow> deactivatedTableShadow();

}
