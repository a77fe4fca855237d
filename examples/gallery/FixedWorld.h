#pragma once

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/surroundings.h>

#include <optional>
#include <string>
#include <vector>

namespace gallery {

/// The same moment, language, zone and folders of the user on every machine, for as long as it lives; then what was there before.
/// For pages whose subject asks the surroundings. Lives in a function, not in a page.
class FixedWorld final : public plix::Surroundings, public plix::Clock {
public:
    /// Saturday, 12 July 2008, 15:23:45 UTC.
    explicit FixedWorld(std::string locale = "en_US", std::string timeZone = "UTC");
    ~FixedWorld() override;
    FixedWorld(FixedWorld const&) = delete;
    FixedWorld& operator=(FixedWorld const&) = delete;

    // Surroundings:
    std::string homeFolder() const override { return "/home/ada"; }
    std::optional<std::string> homeFolderForUser(std::string const& user) const override { return "/home/" + user; }
    std::string temporaryFolder() const override { return m_before.temporaryFolder(); }
    std::string configFolder() const override { return m_folder + "/config"; }
    std::string dataFolder() const override { return m_folder + "/data"; }
    std::string cacheFolder() const override { return m_folder + "/cache"; }
    std::vector<std::string> dataFolders() const override { return m_before.dataFolders(); }
    std::string localeIdentifier() const override { return m_locale; }
    std::vector<std::string> preferredLanguages() const override { return { m_locale }; }
    std::string timeZoneName() const override { return m_timeZone; }

    // Clock:
    plix::NSDate now() const override;
    plix::NSTimeInterval uptime() const override { return m_clockBefore.uptime(); }

    /// An empty folder, gone with this.
    std::string const& folder() const { return m_folder; }

private:
    plix::Surroundings& m_before;
    plix::Clock& m_clockBefore;
    std::string m_locale;
    std::string m_timeZone;
    std::string m_folder;
    plix::ObjectValue::Dictionary m_registered;
};

}
