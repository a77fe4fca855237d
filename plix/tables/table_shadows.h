#pragma once

#include <plix/platform/base/Global.h>
#include <plix/platform/graphics/NSShadow.h>

namespace plix {

/// The shadows of text in selected rows, which PLIXTableView::standardShadow() and deactivatedShadow() make when they are first
/// asked for; null before.
extern Global<NSShadow> plixTableView_StandardShadow;
extern Global<NSShadow> plixTableView_DeactivatedShadow;

/// The global of that name, made where it is not there yet.
Ref<NSShadow> standardTableShadow();
Ref<NSShadow> deactivatedTableShadow();

}
