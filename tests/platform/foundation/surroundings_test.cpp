#include "../../support/TestFolder.h"
#include "../../support/TestSurroundings.h"

#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/foundation/path_resolution.h>
#include <plix/platform/foundation/process_identity.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include <unistd.h>

namespace plix {
namespace {

using testing::ElementsAre;

/// A variable of the environment, as it was again at the end.
class Variable {
public:
    Variable(char const* name, char const* value)
        : m_name(name)
    {
        if (auto const* before = std::getenv(name))
            m_before = before;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~Variable() { m_before ? ::setenv(m_name, m_before->c_str(), 1) : ::unsetenv(m_name); }
    Variable(Variable const&) = delete;
    Variable& operator=(Variable const&) = delete;

private:
    char const* m_name;
    std::optional<std::string> m_before;
};

TEST(Surroundings, FoldersComeFromTheEnvironment)
{
    Variable const home("HOME", "/somewhere/me/"), config("XDG_CONFIG_HOME", "/conf"), data("XDG_DATA_HOME", nullptr);
    Variable const cache("XDG_CACHE_HOME", "relative"), shared("XDG_DATA_DIRS", "/a/:b::/c"), temporary("TMPDIR", nullptr);
    auto const& actual = surroundings();
    EXPECT_EQ(actual.homeFolder(), "/somewhere/me");
    EXPECT_EQ(actual.configFolder(), "/conf");
    EXPECT_EQ(actual.dataFolder(), "/somewhere/me/.local/share");
    EXPECT_EQ(actual.cacheFolder(), "/somewhere/me/.cache");
    EXPECT_EQ(actual.temporaryFolder(), "/tmp");
    EXPECT_THAT(actual.dataFolders(), ElementsAre("/a", "/c"));
}

TEST(Surroundings, WithoutAnEnvironmentTheUserTableAndTheStandardServe)
{
    Variable const home("HOME", nullptr), shared("XDG_DATA_DIRS", "");
    EXPECT_TRUE(surroundings().homeFolder().starts_with('/'));
    EXPECT_EQ(surroundings().homeFolderForUser("root"), "/root");
    EXPECT_EQ(surroundings().homeFolderForUser("no such user"), std::nullopt);
    EXPECT_THAT(surroundings().dataFolders(), ElementsAre("/usr/local/share", "/usr/share"));
}

TEST(Surroundings, LocaleAndLanguages)
{
    Variable const all("LC_ALL", nullptr), time("LC_TIME", "de_AT.UTF-8"), messages("LC_MESSAGES", "fr_FR.UTF-8");
    Variable const lang("LANG", "en_GB.UTF-8"), list("LANGUAGE", nullptr);
    EXPECT_EQ(surroundings().localeIdentifier(), "de_AT");
    EXPECT_THAT(surroundings().preferredLanguages(), ElementsAre("fr_FR"));
    Variable const languages("LANGUAGE", "pt_BR:de");
    EXPECT_THAT(surroundings().preferredLanguages(), ElementsAre("pt_BR", "de"));
    Variable const plain("LC_ALL", "C");
    EXPECT_EQ(surroundings().localeIdentifier(), "en_US");
    EXPECT_THAT(surroundings().preferredLanguages(), ElementsAre("en_US"));
}

TEST(Surroundings, LocaleNamesLoseWhatIsNotOfThem)
{
    EXPECT_EQ(localeIdentifierFromPOSIXName(""), "en_US");
    EXPECT_EQ(localeIdentifierFromPOSIXName("C.UTF-8"), "en_US");
    EXPECT_EQ(localeIdentifierFromPOSIXName("POSIX"), "en_US");
    EXPECT_EQ(localeIdentifierFromPOSIXName("de_DE.ISO-8859-1@euro"), "de_DE");
    EXPECT_EQ(localeIdentifierFromPOSIXName("sr_RS.UTF-8@latin"), "sr_Latn_RS");
    EXPECT_EQ(localeIdentifierFromPOSIXName("sr@cyrillic"), "sr_Cyrl");
    EXPECT_EQ(localeIdentifierFromPOSIXName("fi"), "fi");
}

TEST(Surroundings, TheTimeZoneIsNamed)
{
    {
        Variable const zone("TZ", ":Europe/Vienna");
        EXPECT_EQ(surroundings().timeZoneName(), "Europe/Vienna");
    }
    {
        Variable const zone("TZ", "");
        EXPECT_EQ(surroundings().timeZoneName(), "UTC");
    }
    Variable const zone("TZ", nullptr);
    EXPECT_NE(surroundings().timeZoneName(), "");
}

TEST(PathResolution, ExpandsAndAbbreviatesTheTilde)
{
    TestSurroundings const set;
    EXPECT_EQ(stringByExpandingTildeInPath("~"), "/home/test");
    EXPECT_EQ(stringByExpandingTildeInPath("~/"), "/home/test");
    EXPECT_EQ(stringByExpandingTildeInPath("~/a b"), "/home/test/a b");
    EXPECT_EQ(stringByExpandingTildeInPath("~other/x"), "/home/other/x");
    EXPECT_EQ(stringByExpandingTildeInPath("~nobody/x"), "~nobody/x");
    EXPECT_EQ(stringByExpandingTildeInPath("a/~"), "a/~");
    EXPECT_EQ(stringByExpandingTildeInPath(""), "");
    EXPECT_EQ(stringByAbbreviatingWithTildeInPath("/home/test/x"), "~/x");
    EXPECT_EQ(stringByAbbreviatingWithTildeInPath("/home/test"), "~");
    EXPECT_EQ(stringByAbbreviatingWithTildeInPath("/home/tester"), "/home/tester");
}

TEST(PathResolution, StandardisesPaths)
{
    TestSurroundings const set;
    struct {
        char const* path;
        char const* standard;
    } const rows[] = {
        { "", "" },
        { ".", "." },
        { "./", "." },
        { "/", "/" },
        { "/.", "/" },
        { "/..", "/" },
        { "//no//./such/", "/no/such" },
        { "/no/such/../x", "/no/x" },
        { "a/../b/./c", "a/../b/c" },
        { "..", ".." },
        { "~/./x", "/home/test/x" },
        { "~/../x", "/home/x" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(stringByStandardizingPath(row.path), row.standard) << row.path;
}

TEST(PathResolution, GoesUpFromWhereALinkLeads)
{
    TestFolder const folder;
    folder.write("real/deep/file");
    std::filesystem::create_symlink("real/deep", folder / "link");
    std::filesystem::create_symlink("loop", folder / "loop");
    EXPECT_EQ(stringByStandardizingPath(folder / "link/../x"), folder / "real/x");
    EXPECT_EQ(stringByStandardizingPath(folder / "link/file"), folder / "link/file");
    EXPECT_EQ(stringByResolvingSymlinksInPath(folder / "link/file"), folder / "real/deep/file");
    EXPECT_EQ(stringByResolvingSymlinksInPath(folder / "loop/./x"), folder / "loop/x");
}

class SetIdentity final : public ProcessIdentity {
public:
    SetIdentity() { installProcessIdentity(this); }
    ~SetIdentity() override { installProcessIdentity(nullptr); }
    std::vector<std::string> arguments() const override { return { "/usr/bin/tool", "-x" }; }
    std::map<std::string, std::string> environment() const override { return { { "A", "1" } }; }
    std::string hostName() const override { return "here.example"; }
    int processIdentifier() const override { return 4711; }
    std::string executablePath() const override { return "/usr/bin/tool"; }
};

TEST(NSProcessInfo, AsksTheInstalledIdentity)
{
    SetIdentity const identity;
    auto& info = NSProcessInfo::processInfo();
    EXPECT_THAT(info.arguments(), ElementsAre("/usr/bin/tool", "-x"));
    EXPECT_EQ(info.environment().at("A"), "1");
    EXPECT_EQ(info.hostName(), "here.example");
    EXPECT_EQ(info.processIdentifier(), 4711);
    EXPECT_EQ(info.processName(), "tool");
}

TEST(NSProcessInfo, KnowsTheRealProcess)
{
    Variable const variable("PLIX_TEST_VARIABLE", "a=b");
    auto& info = NSProcessInfo::processInfo();
    EXPECT_EQ(info.processIdentifier(), ::getpid());
    EXPECT_EQ(info.processName(), "test_foundation");
    EXPECT_EQ(info.environment().at("PLIX_TEST_VARIABLE"), "a=b");
    EXPECT_NE(info.hostName(), "");
}

TEST(NSProcessInfo, TakesAnotherName)
{
    auto const info = make<NSProcessInfo>();
    info->setProcessName("Other");
    EXPECT_EQ(info->processName(), "Other");
}

}
}
