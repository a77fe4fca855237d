#include "Preferences.h"

#include <plix/platform/foundation/NSUserDefaults.h>

namespace browser {

using namespace plix;

namespace {

constexpr char const* stripesKey = "BrowserShowsStripes";
constexpr char const* hiddenFilesKey = "BrowserShowsHiddenFiles";
constexpr char const* exactSizesKey = "BrowserShowsExactSizes";
constexpr char const* playsSoundKey = "BrowserPlaysSound";
constexpr char const* soundKey = "BrowserSound";
constexpr char const* speaksKey = "BrowserSpeaks";

}

Preferences Preferences::load()
{
    auto const& defaults = NSUserDefaults::standardUserDefaults();
    Preferences read;
    auto const flag = [&](char const* key, bool& into) {
        if (auto const value = defaults.objectForKey(key); !value.isNil())
            into = value.boolValue();
    };
    flag(stripesKey, read.showsStripes);
    flag(hiddenFilesKey, read.showsHiddenFiles);
    flag(exactSizesKey, read.showsExactSizes);
    flag(playsSoundKey, read.playsSound);
    flag(speaksKey, read.speaks);
    if (auto const value = defaults.objectForKey(soundKey); !value.isNil())
        read.sound = value.description();
    return read;
}

void Preferences::save() const
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    defaults.setObject(showsStripes, stripesKey);
    defaults.setObject(showsHiddenFiles, hiddenFilesKey);
    defaults.setObject(showsExactSizes, exactSizesKey);
    defaults.setObject(playsSound, playsSoundKey);
    defaults.setObject(sound, soundKey);
    defaults.setObject(speaks, speaksKey);
}

}
