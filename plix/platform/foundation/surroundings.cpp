#include <plix/platform/foundation/surroundings.h>

#include <plix/platform/foundation/path_operations.h>

#include <climits>
#include <cstdlib>
#include <string_view>

#include <pwd.h>
#include <unistd.h>

namespace plix {

namespace {

std::string environmentValue(char const* name)
{
    auto const* value = std::getenv(name);
    return value ? value : "";
}

std::string firstOf(std::initializer_list<char const*> names)
{
    for (auto const* name : names) {
        if (auto value = environmentValue(name); !value.empty())
            return value;
    }
    return {};
}

std::vector<std::string> pieces(std::string_view text, char separator)
{
    std::vector<std::string> found;
    while (!text.empty()) {
        auto const end = std::min(text.find(separator), text.size());
        if (end > 0)
            found.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return found;
}

std::string withoutTrailingSlashes(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::optional<std::string> folderOf(passwd const& entry)
{
    if (!entry.pw_dir || !isAbsolutePath(entry.pw_dir))
        return {};
    return withoutTrailingSlashes(entry.pw_dir);
}

template <typename LookUp> std::optional<std::string> folderInUserTable(LookUp lookUp)
{
    std::vector<char> buffer(16384);
    passwd entry {};
    passwd* found = nullptr;
    if (lookUp(&entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return {};
    return folderOf(*found);
}

/// The zone that the link `path` names below a folder of zone data; empty where it is no such link.
std::string zoneNamedByLink(char const* path)
{
    char target[PATH_MAX];
    auto const length = ::readlink(path, target, sizeof target);
    if (length <= 0)
        return {};
    std::string_view const name(target, static_cast<std::size_t>(length));
    constexpr std::string_view folder = "/zoneinfo/";
    auto const at = name.rfind(folder);
    return at == std::string_view::npos ? std::string() : std::string(name.substr(at + folder.size()));
}

class ProcessSurroundings final : public Surroundings {
public:
    std::string homeFolder() const override
    {
        if (auto const home = environmentValue("HOME"); isAbsolutePath(home))
            return withoutTrailingSlashes(home);
        auto const folder = folderInUserTable([](passwd* entry, char* buffer, std::size_t size, passwd** found) {
            return ::getpwuid_r(::getuid(), entry, buffer, size, found);
        });
        return folder.value_or("/");
    }
    std::optional<std::string> homeFolderForUser(std::string const& user) const override
    {
        return folderInUserTable([&](passwd* entry, char* buffer, std::size_t size, passwd** found) {
            return ::getpwnam_r(user.c_str(), entry, buffer, size, found);
        });
    }
    std::string temporaryFolder() const override { return absolute("TMPDIR", "/tmp"); }
    std::string configFolder() const override { return absolute("XDG_CONFIG_HOME", inHome(".config")); }
    std::string dataFolder() const override { return absolute("XDG_DATA_HOME", inHome(".local/share")); }
    std::string cacheFolder() const override { return absolute("XDG_CACHE_HOME", inHome(".cache")); }
    std::vector<std::string> dataFolders() const override
    {
        std::vector<std::string> folders;
        for (auto const& folder : pieces(environmentValue("XDG_DATA_DIRS"), ':')) {
            if (isAbsolutePath(folder))
                folders.push_back(withoutTrailingSlashes(folder));
        }
        return folders.empty() ? std::vector<std::string> { "/usr/local/share", "/usr/share" } : folders;
    }
    std::string localeIdentifier() const override
    {
        return localeIdentifierFromPOSIXName(firstOf({ "LC_ALL", "LC_TIME", "LANG" }));
    }
    std::vector<std::string> preferredLanguages() const override
    {
        auto const locale = firstOf({ "LC_ALL", "LC_MESSAGES", "LANG" });
        std::vector<std::string> languages;
        // As gettext has it, the C locale is not overruled by the list.
        if (!locale.empty() && !locale.starts_with("C.") && locale != "C" && locale != "POSIX") {
            for (auto const& name : pieces(environmentValue("LANGUAGE"), ':'))
                languages.push_back(localeIdentifierFromPOSIXName(name));
        }
        if (languages.empty())
            languages.push_back(localeIdentifierFromPOSIXName(locale));
        return languages;
    }
    std::string timeZoneName() const override
    {
        auto name = environmentValue("TZ");
        if (name.starts_with(':'))
            name.erase(0, 1);
        if (!name.empty())
            return name;
        if (std::getenv("TZ"))
            return "UTC";
        name = zoneNamedByLink("/etc/localtime");
        return name.empty() ? "/etc/localtime" : name;
    }

private:
    /// Relative folders in these variables are to be ignored.
    static std::string absolute(char const* variable, std::string otherwise)
    {
        auto const value = environmentValue(variable);
        return isAbsolutePath(value) ? withoutTrailingSlashes(value) : otherwise;
    }
    std::string inHome(char const* path) const { return stringByAppendingPathComponent(homeFolder(), path); }
};

Surroundings* s_installed = nullptr;
std::uint64_t s_installCount = 0;

}

Surroundings& surroundings()
{
    static ProcessSurroundings s_process;
    return s_installed ? *s_installed : s_process;
}

void installSurroundings(Surroundings* installed)
{
    s_installed = installed;
    ++s_installCount;
}

std::uint64_t surroundingsInstallCount()
{
    return s_installCount;
}

std::string localeIdentifierFromPOSIXName(std::string name)
{
    std::string modifier;
    if (auto const at = name.find('@'); at != std::string::npos) {
        modifier = name.substr(at + 1);
        name.erase(at);
    }
    name.erase(std::min(name.find('.'), name.size()));
    if (name.empty() || name == "C" || name == "POSIX")
        return "en_US";
    if (modifier == "latin" || modifier == "cyrillic") {
        auto const region = std::min(name.find('_'), name.size());
        name.insert(region, modifier == "latin" ? "_Latn" : "_Cyrl");
    }
    return name;
}

}
