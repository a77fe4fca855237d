#pragma once

namespace plix {

/// Makes every class of this folder known by name, so that static linking loses none. Called by NSApplication's init().
void registerAppKitClasses();

}
