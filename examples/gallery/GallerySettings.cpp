#include "GallerySettings.h"

#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/machine_identity.h>
#include <plix/tables/row_highlight.h>

namespace gallery {

using namespace plix;

namespace {

constexpr char const* highlightKey = "GalleryHighlightStyle";
constexpr char const* versionKey = "GallerySystemVersion";
constexpr char const* darkKey = "GalleryIsDark";
constexpr char const* scaleKey = "GalleryScale";
constexpr char const* inactiveKey = "GalleryLooksInactive";
constexpr char const* disabledKey = "GalleryIsDisabled";

}

GallerySettings GallerySettings::load()
{
    auto const& defaults = NSUserDefaults::standardUserDefaults();
    GallerySettings settings;
    auto const style = defaults.objectForKey(highlightKey);
    if (style.isNumber() && style.integerValue() >= 0 && style.integerValue() <= PLIXHighlightRounded)
        settings.highlightStyle = static_cast<std::uint32_t>(style.integerValue());
    int const version = defaults.integerForKey(versionKey);
    settings.systemVersion
        = version == 0x1049 || version == 0x1050 ? static_cast<std::uint32_t>(version) : machineIdentity().systemVersion();
    // Without a choice of the user's the command line's counts.
    settings.appearance = defaults.objectForKey(darkKey).isNil() ? currentAppearance()
        : defaults.boolForKey(darkKey)                           ? Appearance::dark
                                                                 : Appearance::light;
    settings.scale = defaults.integerForKey(scaleKey) == 2 ? 2 : 1;
    settings.looksActive = !defaults.boolForKey(inactiveKey);
    settings.isEnabled = !defaults.boolForKey(disabledKey);
    return settings;
}

void GallerySettings::save() const
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    defaults.setObject(highlightStyle ? ObjectValue(*highlightStyle) : ObjectValue(), highlightKey);
    defaults.setInteger(static_cast<int>(systemVersion), versionKey);
    defaults.setBool(appearance == Appearance::dark, darkKey);
    defaults.setInteger(scale, scaleKey);
    defaults.setBool(!looksActive, inactiveKey);
    defaults.setBool(!isEnabled, disabledKey);
}

}
