#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>

#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/appkit/event_constants.h>

namespace plix {

namespace {

constexpr NibWord states[] = { { "on", NSOnState }, { "off", NSOffState }, { "mixed", NSMixedState } };
constexpr NibWord modifiers[] = { { "command", NSCommandKeyMask }, { "shift", NSShiftKeyMask }, { "option", NSAlternateKeyMask },
    { "control", NSControlKeyMask } };

}

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
    reading.image("image", "image");
    reading.text("toolTip", "toolTip", "ibShadowedToolTip");
    reading.integer("indentationLevel", "indentationLevel");
    reading.choice("state", "state", states);
    reading.flag("enabled", "enabled");
    reading.flag("hidden", "hidden");
    reading.integer("tag", "tag");
    reading.code("keyEquivalent", "keyEquivalent");
    reading.mask("keyEquivalentModifierMask", "keyEquivalentModifierMask", modifiers);
    reading.object("submenu", "submenu", "NSMenu");
}

}
