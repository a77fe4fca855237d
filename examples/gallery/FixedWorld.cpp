#include "FixedWorld.h"

#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/system/unique_names.h>

#include <utility>

namespace gallery {

using namespace plix;

FixedWorld::FixedWorld(std::string locale, std::string timeZone)
    : m_before(surroundings())
    , m_clockBefore(plix::clock())
    , m_locale(std::move(locale))
    , m_timeZone(std::move(timeZone))
    , m_folder(m_before.temporaryFolder() + "/gallery-" + PLIXUniqueString())
{
    // The standard defaults are made anew for other surroundings.
    auto& defaults = NSUserDefaults::standardUserDefaults();
    m_registered = defaults.volatileDomainForName(NSRegistrationDomain);
    defaults.synchronize();
    NSFileManager::defaultManager().createDirectoryAtPath(m_folder, 0700);
    installSurroundings(this);
    installClock(this);
}

FixedWorld::~FixedWorld()
{
    installSurroundings(&m_before);
    installClock(&m_clockBefore);
    NSUserDefaults::standardUserDefaults().registerDefaults(m_registered);
    NSFileManager::defaultManager().removeFileAtPath(m_folder);
}

NSDate FixedWorld::now() const
{
    return NSDate::dateWithTimeIntervalSince1970(1215876225);
}

}
