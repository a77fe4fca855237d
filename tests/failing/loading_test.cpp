#include "FailingTest.h"

#include <plix/library_classes.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <tests/support/images.h>
#include <tests/support/test_data.h>

#include <filesystem>
#include <fstream>

namespace plix {
namespace {

class FailingLoads : public FailingTest {
protected:
    std::string pathOfInterface() const { return testDataPath("interface_files/Panel.xib"); }

    static Ref<NSNib> nibAt(std::string const& path)
    {
        auto const bytes = readFileBytes(path);
        return bytes ? make<NSNib>(*make<NSData>(*bytes), nullptr) : nullptr;
    }
    /// Pixels that no two files share, so that nothing is known of an earlier decoding.
    std::string picture(char const* name, NSBitmapImageFileType type)
    {
        auto const data = bitmapOfDistinctPixels(9, 7)->representationUsingType(type);
        return folder.write(name, { reinterpret_cast<char const*>(data->bytes().data()), data->bytes().size() });
    }
    /// As another file of the same name would look.
    void touch(std::string const& path)
    {
        auto const time = std::filesystem::last_write_time(path);
        std::filesystem::last_write_time(path, time + std::chrono::seconds(1));
    }
};

TEST_F(FailingLoads, InterfaceFilesWithoutMemoryLeaveNothingBehind)
{
    EXPECT_TRUE(libraryClassesAreListed);
    auto const resources = testDataPath("../../plix/resources/Base.lproj/");
    for (auto const& path : { pathOfInterface(), resources + "Alert.xib", resources + "ProgressWindow.xib" }) {
        auto const calls = failEach(Call::allocate, [&](Made& made) {
            if (auto const nib = nibAt(path)) {
                std::vector<Ref<NSObject>> objects;
                nib->instantiateNibWithOwner(nullptr, &objects);
                made.insert(made.end(), objects.begin(), objects.end());
            }
        });
        EXPECT_GT(calls, 500);
    }
}

TEST_F(FailingLoads, InterfaceFilesThatCanNotBeReadAreRefused)
{
    auto const path = pathOfInterface();
    for (auto const call : { Call::open, Call::read, Call::shortRead }) {
        auto const calls = failEach(call, [&](Made& made) {
            auto const nib = nibAt(path);
            std::vector<Ref<NSObject>> objects;
            if (nib)
                nib->instantiateNibWithOwner(nullptr, &objects);
            made.insert(made.end(), objects.begin(), objects.end());
        });
        EXPECT_GE(calls, 1);
    }
}

TEST_F(FailingLoads, ImagesWithoutMemoryLeaveNothingBehind)
{
    for (auto const type : { NSPNGFileType, NSTIFFFileType }) {
        auto const path = picture("picture", type);
        auto const calls = failEach(Call::allocate, [&](Made& made) {
            if (auto const image = make<NSImage>(path))
                made.emplace_back(image);
        });
        EXPECT_GT(calls, 3);
    }
}

TEST_F(FailingLoads, ImagesThatAreDecodedWithoutMemoryLeaveNothingBehind)
{
    for (auto const type : { NSPNGFileType, NSTIFFFileType, NSJPEGFileType, NSGIFFileType, NSBMPFileType }) {
        auto const data = bitmapOfDistinctPixels(9, 7)->representationUsingType(type);
        if (!data)
            continue;
        auto const calls = failEach(Call::allocate, [&](Made& made) {
            if (auto const image = make<NSImage>(*data))
                made.emplace_back(image);
        });
        EXPECT_GT(calls, 3) << type;
    }
}

TEST_F(FailingLoads, PicturesOfAllKindsAreDecodedWithoutMemory)
{
    long failed = 0;
    for (auto const& entry : std::filesystem::directory_iterator(testDataPath("pictures"))) {
        if (!entry.is_regular_file() || entry.path().extension() == ".svg" || entry.file_size() > 100000)
            continue;
        auto const bytes = readFileBytes(entry.path().string());
        ASSERT_TRUE(bytes);
        auto const data = make<NSData>(*bytes);
        SCOPED_TRACE(entry.path().string());
        failed += failEach(Call::allocate, [&](Made& made) {
            if (auto const image = make<NSImage>(*data))
                made.emplace_back(image);
        });
    }
    EXPECT_GT(failed, 100);
}

TEST_F(FailingLoads, ImagesThatCanNotBeReadAreNil)
{
    auto const path = picture("picture.png", NSPNGFileType);
    // More than are kept decoded.
    for (int version = 0; version < 70; ++version) {
        touch(path);
        EXPECT_TRUE(make<NSImage>(path));
    }
    for (auto const call : { Call::open, Call::read, Call::shortRead }) {
        bool wasNil = false;
        auto const calls = failEach(call, [&](Made& made) {
            touch(path);
            auto const image = make<NSImage>(path);
            wasNil |= !image;
            if (image)
                made.emplace_back(image);
        });
        EXPECT_GE(calls, 1);
        EXPECT_TRUE(wasNil);
    }
}

class FailingDefaults : public FailingTest {
protected:
    void SetUp() override
    {
        FailingTest::SetUp();
        ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    }
    void TearDown() override { ::unsetenv("XDG_CONFIG_HOME"); }
    static Ref<NSUserDefaults> defaults() { return make<NSUserDefaults>(std::string("failing")); }
    std::string contents()
    {
        std::string all;
        for (auto const& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
            if (entry.is_regular_file())
                all += folder.read(entry.path().lexically_relative(folder.path()).string());
        }
        return all;
    }
};

TEST_F(FailingDefaults, KeepWhatWasSavedWhenTheFileCanNotBeRead)
{
    {
        auto const before = defaults();
        before->setObject("precious", "kept");
        ASSERT_TRUE(before->synchronize());
    }
    for (auto const call : { Call::open, Call::read, Call::allocate }) {
        int round = 0;
        failEach(call, [&](Made&) {
            auto const changed = defaults();
            changed->setObject(std::to_string(++round), "changed");
            changed->synchronize();
        });
        EXPECT_NE(contents().find("precious"), std::string::npos);
        EXPECT_EQ(defaults()->stringForKey("kept"), "precious");
    }
}

TEST_F(FailingDefaults, LeaveNoFilesBehindThatCouldNotBeFilled)
{
    failEach(Call::allocate, [&](Made&) {
        auto const changed = defaults();
        changed->setInteger(changed->integerForKey("count") + 1, "count");
        changed->synchronize();
    });
    long files = 0;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(folder.path()))
        files += entry.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 1);
}

}
}
