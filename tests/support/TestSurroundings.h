#pragma once

#include <plix/platform/foundation/surroundings.h>

namespace plix {

/// Surroundings that the test sets; installed as long as they live.
class TestSurroundings final : public Surroundings {
public:
    TestSurroundings() { installSurroundings(this); }
    ~TestSurroundings() override { installSurroundings(nullptr); }
    TestSurroundings(TestSurroundings const&) = delete;
    TestSurroundings& operator=(TestSurroundings const&) = delete;

    std::string home { "/home/test" };
    std::string config { "/home/test/.config" };
    std::string temporary { "/tmp" };
    std::string locale { "en_US" };
    std::vector<std::string> languages { "en_US" };
    std::string timeZone { "UTC" };
    std::vector<std::string> sharedData { "/usr/local/share", "/usr/share" };

    // Surroundings:
    std::string homeFolder() const override { return home; }
    std::optional<std::string> homeFolderForUser(std::string const& user) const override
    {
        return user == "other" ? std::optional<std::string>("/home/other") : std::nullopt;
    }
    std::string temporaryFolder() const override { return temporary; }
    std::string configFolder() const override { return config; }
    std::string dataFolder() const override { return home + "/.local/share"; }
    std::string cacheFolder() const override { return home + "/.cache"; }
    std::vector<std::string> dataFolders() const override { return sharedData; }
    std::string localeIdentifier() const override { return locale; }
    std::vector<std::string> preferredLanguages() const override { return languages; }
    std::string timeZoneName() const override { return timeZone; }
};

}
