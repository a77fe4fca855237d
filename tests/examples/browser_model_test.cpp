#include <examples/browser/FolderListing.h>
#include <examples/browser/list_plan.h>

#include <tests/support/TestFolder.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
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

TEST(ListPlan, FindsRowsByPlace)
{
    ListPlan const plan { .rowCount = 10, .rowHeight = 20, .width = 300 };
    EXPECT_EQ(plan.height(), 200);
    EXPECT_EQ(plan.rowRect(3), (Rect { 0, 60, 300, 20 }));
    EXPECT_EQ(plan.rowAt(0), 0);
    EXPECT_EQ(plan.rowAt(19.5F), 0);
    EXPECT_EQ(plan.rowAt(20), 1);
    EXPECT_EQ(plan.rowAt(199), 9);
    EXPECT_EQ(plan.rowAt(200), std::nullopt);
    EXPECT_EQ(plan.rowAt(-1), std::nullopt);
}

TEST(ListPlan, CountsTheRowsThatARectangleTouches)
{
    ListPlan const plan { .rowCount = 10, .rowHeight = 20, .width = 300 };
    struct Row {
        Rect rect;
        long first;
        long count;
    };
    Row const rows[] = {
        { { 0, 0, 300, 200 }, 0, 10 },
        { { 0, 30, 300, 20 }, 1, 2 },
        { { 0, 20, 300, 20 }, 1, 1 },
        { { 0, 190, 300, 500 }, 9, 1 },
        { { 0, 300, 300, 50 }, 10, 0 },
        { { 0, -50, 300, 60 }, 0, 1 },
        { {}, 0, 0 },
    };
    for (auto const& row : rows) {
        auto const found = plan.rowsIn(row.rect);
        EXPECT_EQ(found.first, row.first) << plix::NSStringFromRect(row.rect);
        EXPECT_EQ(found.count, row.count) << plix::NSStringFromRect(row.rect);
    }
}

TEST(ListPlan, MovesTheSelectionByKeys)
{
    ListPlan const plan { .rowCount = 100, .rowHeight = 20, .width = 300 };
    struct Row {
        std::optional<long> from;
        ListMove move;
        std::optional<long> to;
    };
    Row const rows[] = {
        { {}, ListMove::down, 0 },
        { {}, ListMove::up, 99 },
        { {}, ListMove::pageDown, 0 },
        { {}, ListMove::last, 99 },
        { 0, ListMove::up, 0 },
        { 5, ListMove::up, 4 },
        { 5, ListMove::down, 6 },
        { 99, ListMove::down, 99 },
        { 5, ListMove::pageDown, 14 }, // ten rows are seen; one of them stays
        { 5, ListMove::pageUp, 0 },
        { 95, ListMove::pageDown, 99 },
        { 50, ListMove::first, 0 },
        { 50, ListMove::last, 99 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(movedSelection(row.from, row.move, plan, 200), row.to) << "row " << &row - rows;
    EXPECT_EQ(movedSelection({}, ListMove::down, ListPlan {}, 200), std::nullopt);
}

TEST(ListPlan, GivesTheNameWhatTheSizeLeaves)
{
    auto const wide = columnPlan({ 0, 22, 400, 22 }, 16);
    EXPECT_EQ(wide.icon, (Rect { 8, 25, 16, 16 }));
    EXPECT_EQ(wide.name, (Rect { 30, 22, 260, 22 }));
    EXPECT_EQ(wide.size, (Rect { 296, 22, 96, 22 }));
    auto const narrow = columnPlan({ 0, 0, 60, 22 }, 16);
    EXPECT_EQ(narrow.name.width, 40);
    EXPECT_EQ(narrow.size.x, 76);
}

TEST(TypeSelect, CollectsLettersUntilAPause)
{
    TypeSelect typing;
    EXPECT_EQ(typing.type("a", 10), "a");
    EXPECT_EQ(typing.type("b", 10.9), "ab");
    EXPECT_TRUE(typing.isTyping(11.5));
    EXPECT_FALSE(typing.isTyping(12));
    EXPECT_EQ(typing.type("c", 12), "c");
}

}
}
