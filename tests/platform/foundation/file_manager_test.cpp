#include "../../support/TestFolder.h"

#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSFileManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include <sys/stat.h>
#include <unistd.h>

namespace plix {
namespace {

using testing::UnorderedElementsAre;

class NSFileManagerTest : public testing::Test {
protected:
    Ref<NSData> data(std::string_view text) { return make<NSData>(std::vector<std::uint8_t>(text.begin(), text.end())); }
    unsigned mode(std::string const& path) { return files.fileAttributesAtPath(path, true)->posixPermissions; }

    TestFolder folder;
    NSFileManager& files { NSFileManager::defaultManager() };
};

TEST_F(NSFileManagerTest, KnowsWhatExists)
{
    auto const file = folder.write("sub/file", "text");
    files.createSymbolicLinkAtPath(folder / "link", "sub");
    files.createSymbolicLinkAtPath(folder / "broken", "nowhere");
    bool isDirectory = true;
    EXPECT_TRUE(files.fileExistsAtPath(file, isDirectory));
    EXPECT_FALSE(isDirectory);
    EXPECT_TRUE(files.fileExistsAtPath(folder / "link", isDirectory));
    EXPECT_TRUE(isDirectory);
    EXPECT_FALSE(files.fileExistsAtPath(folder / "broken", isDirectory));
    EXPECT_FALSE(isDirectory);
    EXPECT_FALSE(files.fileExistsAtPath(folder / "sub/file/below"));
    EXPECT_FALSE(files.fileExistsAtPath(""));
}

TEST_F(NSFileManagerTest, ListsNamesAlsoThoseThatAreNoText)
{
    folder.write("a");
    folder.write(".hidden");
    folder.write("bad\xFF\xC3name");
    folder.write("sub/inner");
    auto const names = files.directoryContentsAtPath(folder.path());
    ASSERT_TRUE(names);
    EXPECT_THAT(*names, UnorderedElementsAre("a", ".hidden", "bad\xFF\xC3name", "sub"));
    EXPECT_TRUE(files.fileExistsAtPath(folder / "bad\xFF\xC3name"));
    EXPECT_THAT(*files.subpathsAtPath(folder.path()), UnorderedElementsAre("a", ".hidden", "bad\xFF\xC3name", "sub", "sub/inner"));
}

TEST_F(NSFileManagerTest, SaysWhyAFolderCannotBeListed)
{
    auto const file = folder.write("file");
    EXPECT_FALSE(files.directoryContentsAtPath(file));
    EXPECT_EQ(files.lastError(), "Not a directory");
    EXPECT_FALSE(files.directoryContentsAtPath(folder / "none"));
    EXPECT_EQ(files.lastError(), "No such file or directory");
    EXPECT_FALSE(files.subpathsAtPath(folder / "none"));
}

TEST_F(NSFileManagerTest, GivesAttributes)
{
    auto const file = folder.write("file", "12345");
    files.createSymbolicLinkAtPath(folder / "link", "file");
    files.setPosixPermissions(file, 0640);
    files.setModificationDate(file, NSDate::dateWithTimeIntervalSince1970(1e9 + 0.25));
    auto const attributes = files.fileAttributesAtPath(folder / "link", true);
    ASSERT_TRUE(attributes);
    EXPECT_EQ(attributes->type, NSFileType::Regular);
    EXPECT_EQ(attributes->size, 5U);
    EXPECT_EQ(attributes->posixPermissions, 0640U);
    EXPECT_NEAR(attributes->modificationDate.timeIntervalSince1970(), 1e9 + 0.25, 1e-6);
    EXPECT_EQ(attributes->ownerAccountID, ::getuid());
    EXPECT_EQ(files.fileAttributesAtPath(folder / "link", false)->type, NSFileType::SymbolicLink);
    EXPECT_EQ(files.fileAttributesAtPath(folder.path(), false)->type, NSFileType::Directory);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.fileAttributesAtPath(folder / "pipe", true)->type, NSFileType::Fifo);
    EXPECT_FALSE(files.fileAttributesAtPath(folder / "none", true));
}

TEST_F(NSFileManagerTest, MakesFolders)
{
    EXPECT_TRUE(files.createDirectoryAtPath(folder / "one", 0700));
    EXPECT_FALSE(files.createDirectoryAtPath(folder / "one"));
    EXPECT_EQ(files.lastError(), "File exists");
    EXPECT_FALSE(files.createDirectoryAtPath(folder / "x/y"));
    EXPECT_EQ(mode(folder / "one"), 0700U);
    EXPECT_TRUE(files.createDirectoriesAtPath(folder / "x/y/z/"));
    EXPECT_TRUE(files.createDirectoriesAtPath(folder / "x/y/z"));
    folder.write("file");
    EXPECT_FALSE(files.createDirectoriesAtPath(folder / "file/below"));
    EXPECT_EQ(files.lastError(), "Not a directory");
    EXPECT_FALSE(files.createDirectoriesAtPath(folder / "file"));
}

TEST_F(NSFileManagerTest, CopiesAFolderWithAllInIt)
{
    folder.write("from/file", "text");
    folder.write("from/deep/er/bad\xFF", "more");
    files.createSymbolicLinkAtPath(folder / "from/link", "nowhere");
    files.setPosixPermissions(folder / "from/file", 0604);
    files.setPosixPermissions(folder / "from/deep", 0500);
    EXPECT_TRUE(files.copyPath(folder / "from", folder / "to"));
    EXPECT_TRUE(files.contentsEqualAtPath(folder / "from", folder / "to"));
    EXPECT_EQ(folder.read("to/deep/er/bad\xFF"), "more");
    EXPECT_EQ(mode(folder / "to/file"), 0604U);
    EXPECT_EQ(mode(folder / "to/deep"), 0500U);
    EXPECT_EQ(files.pathContentOfSymbolicLinkAtPath(folder / "to/link"), "nowhere");
    for (auto const* name : { "from/deep", "to/deep" })
        files.setPosixPermissions(folder / name, 0700);
}

TEST_F(NSFileManagerTest, KeepsTheDatesOfWhatItCopies)
{
    folder.write("from/file", "text");
    auto const then = NSDate::dateWithTimeIntervalSince1970(1'000'000'000.5);
    files.setModificationDate(folder / "from/file", then);
    files.setModificationDate(folder / "from", then);
    EXPECT_TRUE(files.copyPath(folder / "from", folder / "to"));
    for (auto const* name : { "to", "to/file" })
        EXPECT_EQ(files.fileAttributesAtPath(folder / name, false)->modificationDate, then) << name;
}

TEST_F(NSFileManagerTest, TellsHowACopyGoes)
{
    folder.write("from/file", "text");
    folder.write("from/sub/large", std::string(600'000, 'x'));
    files.createSymbolicLinkAtPath(folder / "from/link", "nowhere");
    std::vector<std::string> paths;
    std::vector<std::uint64_t> parts;
    NSFileCopyHandler const handler {
        .willProcessPath = [&](std::string const& path) { return paths.push_back(path), true; },
        .didCopyBytes = [&](std::uint64_t bytes) { return parts.push_back(bytes), true; },
    };
    EXPECT_TRUE(files.copyPath(folder / "from", folder / "to", handler));
    EXPECT_THAT(paths,
        UnorderedElementsAre(
            folder / "from", folder / "from/file", folder / "from/link", folder / "from/sub", folder / "from/sub/large"));
    EXPECT_EQ(paths.front(), folder / "from");
    EXPECT_EQ(std::accumulate(parts.begin(), parts.end(), std::uint64_t { 0 }), 600'004U);
    EXPECT_GT(parts.size(), 3U);
}

TEST_F(NSFileManagerTest, LeavesNothingOfACopyThatWasCanceled)
{
    folder.write("from/file", "text");
    folder.write("from/sub/large", std::string(600'000, 'x'));
    for (int calls = 1; calls <= 7; ++calls) {
        int left = calls;
        NSFileCopyHandler const handler {
            .willProcessPath = [&](std::string const&) { return --left > 0; },
            .didCopyBytes = [&](std::uint64_t) { return --left > 0; },
        };
        EXPECT_FALSE(files.copyPath(folder / "from", folder / "to", handler)) << calls;
        EXPECT_EQ(files.lastError(), "Operation canceled") << calls;
        EXPECT_FALSE(files.fileExistsAtPath(folder / "to")) << calls;
    }
}

TEST_F(NSFileManagerTest, RefusesToCopyOntoSomethingOrIntoItself)
{
    folder.write("from/file", "text");
    folder.write("to", "kept");
    EXPECT_FALSE(files.copyPath(folder / "from", folder / "to"));
    EXPECT_EQ(folder.read("to"), "kept");
    EXPECT_FALSE(files.copyPath(folder / "from", folder / "from/inner"));
    EXPECT_EQ(files.lastError(), "Invalid argument");
    EXPECT_FALSE(files.copyPath(folder / "none", folder / "new"));
    EXPECT_FALSE(files.fileExistsAtPath(folder / "new"));
    files.createSymbolicLinkAtPath(folder / "alias", "from");
    EXPECT_FALSE(files.copyPath(folder / "from", folder / "alias/inner"));
    EXPECT_THAT(*files.directoryContentsAtPath(folder / "from"), UnorderedElementsAre("file"));
}

TEST_F(NSFileManagerTest, LeavesNothingOfACopyThatFailed)
{
    folder.write("from/file", "text");
    folder.write("from/a/b/c", "text");
    ASSERT_EQ(::mknod((folder / "from/a/socket").c_str(), S_IFSOCK | 0600, 0), 0);
    EXPECT_FALSE(files.copyPath(folder / "from", folder / "to"));
    EXPECT_FALSE(files.fileExistsAtPath(folder / "to"));
}

TEST_F(NSFileManagerTest, MovesButNotOntoSomething)
{
    folder.write("from/file", "text");
    folder.write("kept", "kept");
    EXPECT_FALSE(files.movePath(folder / "from/file", folder / "kept"));
    EXPECT_EQ(files.lastError(), "File exists");
    EXPECT_FALSE(files.movePath(folder / "from", folder / "from/inner"));
    EXPECT_TRUE(files.movePath(folder / "from", folder / "to"));
    EXPECT_EQ(folder.read("to/file"), "text");
    EXPECT_FALSE(files.fileExistsAtPath(folder / "from"));
    EXPECT_EQ(folder.read("kept"), "kept");
}

TEST_F(NSFileManagerTest, RemovesFoldersWithoutFollowingLinks)
{
    folder.write("kept/file", "text");
    folder.write("gone/deep/file", "text");
    files.createSymbolicLinkAtPath(folder / "gone/link", folder / "kept");
    files.createSymbolicLinkAtPath(folder / "lone", folder / "kept");
    EXPECT_TRUE(files.removeFileAtPath(folder / "gone"));
    EXPECT_TRUE(files.removeFileAtPath(folder / "lone"));
    EXPECT_FALSE(files.removeFileAtPath(folder / "gone"));
    EXPECT_THAT(*files.subpathsAtPath(folder.path()), UnorderedElementsAre("kept", "kept/file"));
}

TEST_F(NSFileManagerTest, ReadsAndWritesContents)
{
    auto const path = folder / "file";
    EXPECT_TRUE(files.createFileAtPath(path, data(std::string_view("a\0b", 3)).get()));
    EXPECT_TRUE(files.contentsAtPath(path)->isEqual(data(std::string_view("a\0b", 3)).get()));
    EXPECT_TRUE(files.createFileAtPath(path, nullptr));
    EXPECT_EQ(files.contentsAtPath(path)->length(), 0U);
    EXPECT_FALSE(files.createFileAtPath(folder / "none/file", nullptr));
    EXPECT_EQ(files.contentsAtPath(folder / "none"), nullptr);
    EXPECT_EQ(files.contentsAtPath(folder.path()), nullptr);
    EXPECT_EQ(files.lastError(), "Is a directory");
    EXPECT_GT(files.contentsAtPath("/proc/self/cmdline")->length(), 0U);
}

TEST_F(NSFileManagerTest, DoesNotWaitForWhatIsNoFile)
{
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.contentsAtPath(folder / "pipe"), nullptr);
    EXPECT_EQ(files.contentsAtPath("/dev/zero"), nullptr);
}

TEST_F(NSFileManagerTest, WritesAtomically)
{
    auto const path = folder.write("file", "old");
    EXPECT_TRUE(files.writeAtomically(path, *data("new"), 0600));
    EXPECT_EQ(folder.read("file"), "new");
    EXPECT_EQ(mode(path), 0600U);
    EXPECT_FALSE(files.writeAtomically(folder / "none/file", *data("new"), 0600));
    EXPECT_FALSE(files.writeAtomically(folder.path(), *data("new"), 0600));
    EXPECT_THAT(*files.directoryContentsAtPath(folder.path()), UnorderedElementsAre("file"));
}

TEST_F(NSFileManagerTest, ComparesContents)
{
    folder.write("a/x", "1");
    folder.write("b/x", "1");
    EXPECT_TRUE(files.contentsEqualAtPath(folder / "a", folder / "b"));
    EXPECT_TRUE(files.contentsEqualAtPath(folder / "a/x", folder / "b/x"));
    EXPECT_FALSE(files.contentsEqualAtPath(folder / "a", folder / "b/x"));
    folder.write("b/x", "2");
    EXPECT_FALSE(files.contentsEqualAtPath(folder / "a", folder / "b"));
    folder.write("b/x", "1");
    folder.write("b/y", "1");
    EXPECT_FALSE(files.contentsEqualAtPath(folder / "a", folder / "b"));
    EXPECT_FALSE(files.contentsEqualAtPath(folder / "none", folder / "none"));
}

TEST_F(NSFileManagerTest, KnowsWhatMayBeDone)
{
    auto const path = folder.write("file");
    files.setPosixPermissions(path, 0600);
    EXPECT_TRUE(files.isReadableFileAtPath(path));
    EXPECT_TRUE(files.isWritableFileAtPath(path));
    EXPECT_FALSE(files.isExecutableFileAtPath(path));
    EXPECT_FALSE(files.isReadableFileAtPath(folder / "none"));
}

TEST_F(NSFileManagerTest, ChangesTheCurrentFolder)
{
    auto const before = files.currentDirectoryPath();
    ASSERT_TRUE(files.changeCurrentDirectoryPath(folder.path()));
    folder.write("here");
    EXPECT_TRUE(files.fileExistsAtPath("here"));
    EXPECT_EQ(files.currentDirectoryPath(), folder.path());
    EXPECT_TRUE(files.changeCurrentDirectoryPath(before));
    EXPECT_FALSE(files.changeCurrentDirectoryPath(folder / "none"));
}

}
}
