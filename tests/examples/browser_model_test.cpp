#include <examples/browser/DateFilter.h>
#include <examples/browser/FolderListing.h>
#include <examples/browser/file_operations.h>

#include <plix/platform/base/utf16.h>

#include <tests/support/TestFolder.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace browser {
namespace {

struct stat modeOf(mode_t mode, off_t size = 0)
{
    struct stat status { };
    status.st_mode = mode;
    status.st_size = size;
    return status;
}

FolderEntry file(std::string_view name, off_t size = 0)
{
    auto const status = modeOf(S_IFREG, size);
    return folderEntry(name, status, &status);
}

FolderEntry folder(std::string_view name)
{
    auto const status = modeOf(S_IFDIR, 4096);
    return folderEntry(name, status, &status);
}

std::vector<std::string> names(std::vector<FolderEntry> const& entries)
{
    std::vector<std::string> result;
    for (auto const& entry : entries)
        result.push_back(entry.name);
    return result;
}

void writeFile(std::string const& path, std::string_view contents = "")
{
    std::ofstream(path) << contents;
}

FolderListing listed(std::string const& path)
{
    FolderListing listing;
    listing.open(path);
    while (listing.readOn()) { }
    return listing;
}

TEST(FolderEntry, SortsFoldersFirstThenNamesAsPeopleReadThem)
{
    std::vector<FolderEntry> entries;
    for (char const* name : { "b10.txt", "B2.txt", "a.txt", "Zebra", "élan", "eland", "b2.txt", ".hidden" })
        entries.push_back(file(name));
    for (char const* name : { "zoo", "Album 10", "album 9" })
        entries.push_back(folder(name));
    std::ranges::sort(entries, comesBefore);
    EXPECT_EQ(names(entries),
        (std::vector<std::string> {
            "album 9", "Album 10", "zoo", ".hidden", "a.txt", "B2.txt", "b2.txt", "b10.txt", "élan", "eland", "Zebra" }));
}

TEST(FolderEntry, KnowsWhatItIsByWhatItLeadsTo)
{
    auto const link = modeOf(S_IFLNK, 7);
    auto const target = modeOf(S_IFREG, 2048);
    auto const linked = folderEntry("l", link, &target);
    EXPECT_EQ(linked.kind, EntryKind::file);
    EXPECT_TRUE(linked.isLink);
    EXPECT_EQ(linked.size, 2048U);
    EXPECT_EQ(folderEntry("l", link, nullptr).kind, EntryKind::brokenLink);
    auto const pipe = modeOf(S_IFIFO);
    EXPECT_EQ(folderEntry("p", pipe, &pipe).kind, EntryKind::special);
}

TEST(FolderEntry, ShowsSizesOfFilesOnly)
{
    EXPECT_EQ(sizeText(file("f", 1536)), "1.5KB");
    EXPECT_EQ(sizeText(file("f", 0)), "0 bytes");
    EXPECT_EQ(sizeText(folder("d")), "–");
    EXPECT_EQ(sizeText(folderEntry("l", modeOf(S_IFLNK), nullptr)), "–");
}

TEST(FolderEntry, ShowsNamesThatAreNoUTF8WithReplacementsAndKeepsTheirBytes)
{
    auto const entry = file("bad\xFFname");
    EXPECT_EQ(entry.shownName, "bad\uFFFDname");
    EXPECT_EQ(entry.name, "bad\xFFname");
}

TEST(FolderEntry, CountsInWords)
{
    EXPECT_EQ(countText(0), "Empty folder");
    EXPECT_EQ(countText(1), "1 item");
    EXPECT_EQ(countText(100000), "100000 items");
}

TEST(Paths, LeadUpAndDown)
{
    EXPECT_EQ(parentPath("/home/anna/music"), "/home/anna");
    EXPECT_EQ(parentPath("/home"), "/");
    EXPECT_EQ(parentPath("/"), "/");
    EXPECT_EQ(pathInFolder("/home", "anna"), "/home/anna");
    EXPECT_EQ(pathInFolder("/", "home"), "/home");
    EXPECT_EQ(shownName("/home/anna"), "anna");
    EXPECT_EQ(shownName("/"), "/");
}

TEST(Paths, AreShownFromTheHomeFolder)
{
    EXPECT_EQ(shownPath("/home/anna/music", "/home/anna"), "~/music");
    EXPECT_EQ(shownPath("/home/anna", "/home/anna"), "~");
    EXPECT_EQ(shownPath("/home/annabel", "/home/anna"), "/home/annabel");
    EXPECT_EQ(shownPath("/tmp", "/"), "/tmp");
    EXPECT_EQ(shownPath("/tmp", ""), "/tmp");
}

TEST(FolderListing, ListsWhatIsThere)
{
    plix::TestFolder const test;
    writeFile(test / "b.txt", "12345");
    writeFile(test / "a.txt");
    ::mkdir((test / "sub").c_str(), 0755);
    ASSERT_EQ(::symlink("nowhere", (test / "broken").c_str()), 0);
    ASSERT_EQ(::symlink("sub", (test / "to sub").c_str()), 0);
    ASSERT_EQ(::symlink("loop", (test / "loop").c_str()), 0);
    writeFile(test / "bad\xFF");

    auto const listing = listed(test.path());
    EXPECT_EQ(listing.failure(), "");
    EXPECT_EQ(
        names(listing.entries()), (std::vector<std::string> { "sub", "to sub", "a.txt", "b.txt", "bad\xFF", "broken", "loop" }));
    EXPECT_EQ(listing.entries()[3].size, 5U);
    EXPECT_TRUE(listing.entries()[1].isLink);
    EXPECT_EQ(listing.entries()[5].kind, EntryKind::brokenLink);
    EXPECT_EQ(listing.entries()[6].kind, EntryKind::brokenLink);
    EXPECT_EQ(listing.indexOfName("b.txt"), 3U);
    EXPECT_EQ(listing.indexOfName("gone"), listing.entries().size());
}

TEST(FolderListing, ReadsALargeFolderInStepsAndInOrder)
{
    plix::TestFolder const test;
    constexpr int count = 2500;
    for (int number = 0; number < count; ++number)
        ASSERT_EQ(::symlink("x", (test / ("file " + std::to_string(number))).c_str()), 0);

    FolderListing listing;
    listing.open(test / "missing");
    EXPECT_NE(listing.failure(), "");
    listing.open(test.path());
    EXPECT_TRUE(listing.isReading());
    EXPECT_EQ(listing.failure(), "");
    EXPECT_EQ(listing.entriesRead(), 1000U);
    EXPECT_TRUE(listing.entries().empty());
    int steps = 2; // opening, and the one that finishes
    while (listing.readOn())
        ++steps;
    EXPECT_EQ(steps, 3);
    ASSERT_EQ(listing.entries().size(), static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number)
        ASSERT_EQ(listing.entries()[static_cast<std::size_t>(number)].name, "file " + std::to_string(number));
}

TEST(FolderListing, SaysWhyAFolderCannotBeOpened)
{
    plix::TestFolder const test;
    writeFile(test / "plain.txt");
    ASSERT_EQ(::symlink("nowhere", (test / "broken").c_str()), 0);
    ASSERT_EQ(::symlink("loop", (test / "loop").c_str()), 0);
    struct Row {
        char const* name;
        char const* failure;
    };
    Row const rows[] = {
        { "plain.txt", "“plain.txt” is not a folder." },
        { "missing", "“missing” does not exist." },
        { "broken", "“broken” is a link that leads nowhere." },
        { "loop", "“loop” is a link that leads back to itself." },
    };
    for (auto const& row : rows) {
        auto const listing = listed(test / row.name);
        EXPECT_EQ(listing.failure(), row.failure);
        EXPECT_TRUE(listing.entries().empty());
        EXPECT_FALSE(listing.isReading());
    }
    // The superuser may look everywhere, so the system's answer stands in for the folder.
    EXPECT_EQ(openFailure("/a/secret", EACCES), "You do not have permission to look into “secret”.");
    EXPECT_EQ(openFailure("/a/odd", EIO), "“odd” could not be read: Input/output error.");
}

TEST(FolderListing, ForgetsTheFolderBefore)
{
    plix::TestFolder const test;
    writeFile(test / "a");
    FolderListing listing;
    listing.open(test.path());
    EXPECT_EQ(listing.entries().size(), 1U);
    listing.open(test / "missing");
    EXPECT_TRUE(listing.entries().empty());
    listing.open(test.path());
    EXPECT_EQ(listing.failure(), "");
    EXPECT_EQ(listing.entries().size(), 1U);
}

TEST(FolderEntry, SaysOfWhatKindItIs)
{
    struct Row {
        char const* name;
        EntryKind kind;
        bool isLink;
        char const* expected;
    };
    Row const rows[] = {
        { "notes.txt", EntryKind::file, false, "TXT file" },
        { "archive.tar.gz", EntryKind::file, false, "GZ file" },
        { "README", EntryKind::file, false, "File" },
        { ".profile", EntryKind::file, false, "File" },
        { "ends.", EntryKind::file, false, "File" },
        { "a.b c", EntryKind::file, false, "File" },
        { "long.extension", EntryKind::file, false, "File" },
        { "docs.d", EntryKind::folder, false, "Folder" },
        { "docs", EntryKind::folder, true, "Link to a folder" },
        { "lost", EntryKind::brokenLink, true, "Link" },
        { "socket", EntryKind::special, false, "Device" },
    };
    for (auto const& row : rows) {
        FolderEntry entry;
        entry.name = entry.shownName = row.name;
        entry.kind = row.kind;
        entry.isLink = row.isLink;
        EXPECT_EQ(kindText(entry), row.expected) << row.name;
    }
}

TEST(FolderEntry, SortsByEachKeyBothWays)
{
    auto const entry = [](char const* name, EntryKind kind, std::uint64_t size, double modified) {
        FolderEntry made;
        made.name = made.shownName = name;
        made.sortName = plix::utf16FromUTF8(name);
        made.kind = kind;
        made.size = size;
        made.modified = modified;
        return made;
    };
    std::vector<FolderEntry> const entries { entry("b.txt", EntryKind::file, 5, 30), entry("a.zip", EntryKind::file, 9, 10),
        entry("c.txt", EntryKind::file, 5, 20), entry("folder", EntryKind::folder, 0, 5) };
    auto const order = [&](SortKey key, bool isDescending) {
        auto sorted = entries;
        std::ranges::stable_sort(sorted, [&](auto const& a, auto const& b) { return comesInOrder(a, b, key, isDescending); });
        std::string names;
        for (auto const& each : sorted)
            names += each.name.substr(0, 1);
        return names;
    };
    EXPECT_EQ(order(SortKey::name, false), "fabc");
    EXPECT_EQ(order(SortKey::name, true), "fcba");
    EXPECT_EQ(order(SortKey::size, false), "fbca");
    EXPECT_EQ(order(SortKey::size, true), "fabc");
    EXPECT_EQ(order(SortKey::date, false), "facb");
    EXPECT_EQ(order(SortKey::date, true), "fbca");
    EXPECT_EQ(order(SortKey::kind, false), "fbca");
    EXPECT_EQ(order(SortKey::kind, true), "fabc");
}

TEST(DateFilter, LetsWholeDaysThrough)
{
    using plix::NSCalendarDate;
    auto const day = [](int month, int dayOfMonth, int hour, int minute, int second) {
        return NSCalendarDate::dateWithYear(2027, month, dayOfMonth, hour, minute, second);
    };
    // Given the other way round, and in the middle of the days.
    auto const filter = filterBetween(day(3, 14, 15, 9, 26), day(3, 12, 23, 0, 0));
    struct Row {
        NSCalendarDate modified;
        EntryKind kind;
        bool expected;
    };
    Row const rows[] = {
        { day(3, 11, 23, 59, 59), EntryKind::file, false },
        { day(3, 12, 0, 0, 0), EntryKind::file, true },
        { day(3, 14, 23, 59, 59), EntryKind::file, true },
        { day(3, 15, 0, 0, 0), EntryKind::file, false },
        { day(3, 15, 0, 0, 0), EntryKind::folder, true },
        { day(3, 15, 0, 0, 0), EntryKind::brokenLink, false },
    };
    for (auto const& row : rows) {
        FolderEntry entry;
        entry.kind = row.kind;
        entry.modified = row.modified.timeIntervalSince1970();
        EXPECT_EQ(filter.letsThrough(entry), row.expected) << "row " << &row - rows;
    }
    EXPECT_EQ(filter.text(), "Modified 3/12/27 – 3/14/27");
}

TEST(FileOperations, MoveIntoFoldersAndNeverOverAnything)
{
    plix::TestFolder const folder;
    folder.write("from/file", "1");
    folder.write("from/taken", "1");
    folder.write("to/taken", "2");
    EXPECT_EQ(moveIntoFolder(folder / "from/file", folder / "to"), "");
    EXPECT_TRUE(std::filesystem::exists(folder / "to/file"));
    EXPECT_FALSE(std::filesystem::exists(folder / "from/file"));
    EXPECT_EQ(moveIntoFolder(folder / "from/taken", folder / "to"), "There is something called “taken” in “to” already.");
    EXPECT_TRUE(std::filesystem::exists(folder / "from/taken"));
    EXPECT_EQ(moveIntoFolder(folder / "to/file", folder / "to"), "“file” is there already.");
    EXPECT_EQ(moveIntoFolder(folder / "to", folder / "to/inside"), "“to” can't be moved into itself.");
    EXPECT_EQ(moveIntoFolder(folder / "missing", folder / "to"), "“missing” could not be moved: No such file or directory.");
}

TEST(FileOperations, DeleteFoldersWithTheirContentsAndLinksAlone)
{
    plix::TestFolder const folder;
    folder.write("keep/file", "1");
    folder.write("go/deep/file", "1");
    std::filesystem::create_symlink(folder / "keep", folder / "go/link");
    EXPECT_EQ(deleteForGood(folder / "go"), "");
    EXPECT_FALSE(std::filesystem::exists(folder / "go"));
    EXPECT_TRUE(std::filesystem::exists(folder / "keep/file"));
}

}
}
