#include <tests/support/HeadlessTest.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/system/media_exporters.h>

#include <gmock/gmock.h>

#include <cstring>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MediaExportersTest : public HeadlessTest {
protected:
    HeadlessMedia& media() { return machine().headlessMedia(); }
    static ComponentDescription exporter(char const* subtype, char const* manufacturer = "Plix")
    {
        return { movieExportType, fourCharCode(subtype), fourCharCode(manufacturer), canMovieExportFiles, 0 };
    }
    static std::vector<std::string> names()
    {
        std::vector<std::string> all;
        for (auto const& component : availableComponents())
            all.push_back(component.at("name").description());
        return all;
    }
};

TEST_F(MediaExportersTest, ComponentsAreDictionariesInTheRegistrysOrder)
{
    media().add({ exporter("MooV"), "QuickTime Film" });
    media().add({ exporter("AIFF", "Ende"), "Geräusch" });
    auto const components = availableComponents();
    ASSERT_EQ(components.size(), 2U);
    EXPECT_EQ(components[0].size(), 5U);
    EXPECT_EQ(components[0].at("name"), ObjectValue("QuickTime Film"));
    EXPECT_EQ(components[1].at("name"), ObjectValue("Geräusch"));
    EXPECT_EQ(components[0].at("type").integerValue(), 0x73706974);
    EXPECT_EQ(components[0].at("subtype").integerValue(), 0x4D6F6F56);
    EXPECT_EQ(components[1].at("manufacturer").integerValue(), 0x456E6465);
    auto const reference = components[1].at("component").as<NSData>();
    ASSERT_NE(reference, nullptr);
    std::uint32_t value = 0;
    ASSERT_EQ(reference->length(), sizeof value);
    std::memcpy(&value, reference->bytes().data(), sizeof value);
    EXPECT_EQ(value, 2U);
}

TEST_F(MediaExportersTest, OnlyExportersOfFilesAreAmongThem)
{
    auto other = exporter("eat ");
    other.type = fourCharCode("eat ");
    auto noFiles = exporter("none");
    noFiles.flags = 0;
    auto withMore = exporter("more");
    withMore.flags |= 1;
    media().add({ other, "importer" });
    media().add({ noFiles, "no files" });
    media().add({ withMore, "more" });
    EXPECT_THAT(names(), ElementsAre("more"));
}

TEST_F(MediaExportersTest, WhatCannotBeReadIsSkipped)
{
    media().add(exporter("bad "), std::nullopt);
    media().add({ exporter("utf8"), "\xFF\xFE" });
    media().add({ exporter("good"), "good" });
    EXPECT_THAT(names(), ElementsAre("good"));
}

TEST_F(MediaExportersTest, TheFirstOfASubtypeIsFound)
{
    media().add({ exporter("MooV"), "first" });
    media().add({ exporter("mpg4"), "second" });
    media().add({ exporter("mpg4"), "third" });
    media().add({ exporter("\xA9zzz"), "fourth" });
    EXPECT_EQ(componentWithSubType(0x6D706734).dictionary()->at("name"), ObjectValue("second"));
    EXPECT_EQ(componentWithSubType(static_cast<std::int32_t>(0xA97A7A7A)).dictionary()->at("name"), ObjectValue("fourth"));
    EXPECT_TRUE(componentWithSubType(0).isNil());
    EXPECT_TRUE(componentWithSubType(0x73706974).isNil());
}

TEST_F(MediaExportersTest, AMachineWithoutMediaHasNone)
{
    EXPECT_THAT(availableComponents(), IsEmpty());
    media().add({ exporter("MooV"), "film" });
    machine().setHasMedia(false);
    EXPECT_THAT(availableComponents(), IsEmpty());
    EXPECT_TRUE(componentWithSubType(0x4D6F6F56).isNil());
}

TEST_F(MediaExportersTest, TheProgressProcedureSaysItsName)
{
    std::vector<std::string> log;
    auto const before = installLogSink([&](std::string_view line) { log.emplace_back(line); });
    EXPECT_EQ(testMovieProgressProc(), 0);
    installLogSink(before);
    EXPECT_THAT(log, ElementsAre("testMovieProgressProc"));
}

}
}
