#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/appkit/nib/nib_words.h>

#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/appkit/event_constants.h>

namespace plix {

void readNibMenu(NibReading& reading)
{
    reading.text("title", "title");
    reading.flag("autoenablesItems", "autoenablesItems");
    reading.font("font", "font");
    reading.code("systemMenu", "systemMenu");
    reading.objects("items", "items", "NSMenuItem");
}

void readNibMenuItem(NibReading& reading)
{
    reading.flag("isSeparatorItem", "separator");
    reading.text("title", "title");
    reading.attributedText("attributedTitle", "attributedTitle");
    reading.image("image", "image");
    reading.text("toolTip", "toolTip", "ibShadowedToolTip");
    reading.integer("indentationLevel", "indentationLevel");
    reading.choice("state", "state", nibStates);
    reading.flag("enabled", "enabled");
    reading.flag("hidden", "hidden");
    reading.integer("tag", "tag");
    reading.code("keyEquivalent", "keyEquivalent");
    reading.mask("keyEquivalentModifierMask", "keyEquivalentModifierMask", nibModifiers);
    reading.object("submenu", "submenu", "NSMenu");
}

}
