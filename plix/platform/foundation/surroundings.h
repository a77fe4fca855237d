#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plix {

/// Where the process lives: the user's folders, language and time zone. The host may install its own; tests install one that they
/// set. Folders are absolute paths without a slash at the end.
class PLIX_EXPORT Surroundings {
public:
    virtual ~Surroundings() = default;

    /// An absolute path.
    virtual std::string homeFolder() const = 0;
    /// Another user's home folder; nullopt where there is no such user.
    virtual std::optional<std::string> homeFolderForUser(std::string const& user) const = 0;
    /// Where files for a moment go.
    virtual std::string temporaryFolder() const = 0;

    // The folders of the XDG base directory specification:
    virtual std::string configFolder() const = 0;
    virtual std::string dataFolder() const = 0;
    virtual std::string cacheFolder() const = 0;
    /// The folders of data that all users share, the most important one first.
    virtual std::vector<std::string> dataFolders() const = 0;

    /// How dates and numbers are written: language, script and region, as in "en_US" or "sr_Latn_RS".
    virtual std::string localeIdentifier() const = 0;
    /// The languages of texts, the preferred one first, as in "pt_BR". Never empty.
    virtual std::vector<std::string> preferredLanguages() const = 0;
    /// What NSTimeZone::zoneNamed() takes: a name of the zone data ("Europe/Vienna"), the absolute path of a zone file, or a rule
    /// as POSIX writes it in TZ.
    virtual std::string timeZoneName() const = 0;
};

/// The installed surroundings; those of the process's environment until some are installed.
PLIX_EXPORT Surroundings& surroundings();
/// Installs surroundings, which must live until others are installed; null brings the process's own back.
PLIX_EXPORT void installSurroundings(Surroundings*);
/// How often surroundings were installed: what was read from them is old when this is another number.
PLIX_EXPORT std::uint64_t surroundingsInstallCount();

/// The locale identifier for a POSIX locale name ("de_AT.UTF-8@euro" gives "de_AT"); "en_US" for "C", "POSIX" and "".
PLIX_EXPORT std::string localeIdentifierFromPOSIXName(std::string name);

}
