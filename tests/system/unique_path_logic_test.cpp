#include <plix/system/unique_path.h>

#include <gtest/gtest.h>

#include <set>

namespace plix {
namespace {

struct FakeDisk {
    std::set<std::string> paths;
    bool isUnreadable { false };
    std::vector<std::string> listed {};

    std::optional<std::string> uniquePath(std::string_view path, bool keepsExtension)
    {
        return uniqueFilePath(path, keepsExtension,
            {
                .exists = [this](std::string const& at) { return paths.contains(at); },
                .canBeListed =
                    [this](std::string const& folder) {
                        listed.push_back(folder);
                        return !isUnreadable;
                    },
            });
    }
};

TEST(UniqueFilePath, NumbersNamesThatAreTaken)
{
    struct Row {
        char const* path;
        std::set<std::string> taken;
        char const* keeping;
        char const* whole;
    };
    for (auto const& row : {
             Row { "/d/report.txt", {}, "/d/report.txt", "/d/report.txt" },
             Row { "/d/report.txt", { "/d/report.txt" }, "/d/report 1.txt", "/d/report.txt 1" },
             Row {
                 "/d/report.txt", { "/d/report.txt", "/d/report 1.txt", "/d/report.txt 1" }, "/d/report 2.txt", "/d/report.txt 2" },
             Row { "/d/report 1.txt", { "/d/report 1.txt" }, "/d/report 1 1.txt", "/d/report 1.txt 1" },
             Row { "d/notes.", { "d/notes." }, "d/notes 1", "d/notes. 1" },
             Row { "d/notes", { "d/notes" }, "d/notes 1", "d/notes 1" },
             Row { "d/.hidden", { "d/.hidden" }, "d/.hidden 1", "d/.hidden 1" },
             Row { "d/a.tar.gz", { "d/a.tar.gz" }, "d/a.tar 1.gz", "d/a.tar.gz 1" },
             Row { "d/~x.txt", { "d/~x.txt" }, "d/~x 1.txt", "d/~x.txt 1" },
             Row { "/x", { "/x" }, "/x 1", "/x 1" },
             Row { "/d/f.app/", { "/d/f.app/" }, "/d/f 1.app", "/d/f.app 1" },
         }) {
        EXPECT_EQ((FakeDisk { row.taken }.uniquePath(row.path, true)), row.keeping) << row.path;
        EXPECT_EQ((FakeDisk { row.taken }.uniquePath(row.path, false)), row.whole) << row.path;
    }
}

TEST(UniqueFilePath, WantsAFolderAndAName)
{
    FakeDisk disk;
    EXPECT_EQ(disk.uniquePath("", true), std::nullopt);
    EXPECT_EQ(disk.uniquePath("x", true), std::nullopt);
    EXPECT_EQ(disk.uniquePath("/", true), std::nullopt);
    EXPECT_EQ(disk.uniquePath("d/x", true), "d/x");
}

TEST(UniqueFilePath, GivesUpWhereTheFolderCannotBeListed)
{
    FakeDisk disk { { "/d/sub/x" }, true };
    EXPECT_EQ(disk.uniquePath("/d/sub/x", true), std::nullopt);
    EXPECT_EQ(disk.uniquePath("/d/sub/y", true), "/d/sub/y");
    EXPECT_EQ(disk.listed, std::vector<std::string> { "/d/sub" });
}

TEST(UniqueFilePath, CountsAsFarAsItTakes)
{
    FakeDisk disk { { "/d/x.c" } };
    for (int i = 1; i <= 12345; ++i)
        disk.paths.insert("/d/x " + std::to_string(i) + ".c");
    EXPECT_EQ(disk.uniquePath("/d/x.c", true), "/d/x 12346.c");
}

}
}
