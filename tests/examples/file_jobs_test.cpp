#include <examples/browser/FileJob.h>
#include <examples/browser/file_jobs.h>

#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <tests/support/TestFolder.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace browser {
namespace {

using namespace plix;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(JobProgress, SaysHowFarItIs)
{
    struct Row {
        JobProgress progress;
        char const* text;
        double fraction;
    };
    using enum JobPhase;
    Row const rows[] {
        { {}, "Counting … ", 0 },
        { { counting, "/a", 1, 10, 0, 0 }, "Counting … 1 item", 0 },
        { { working, "", 0, 0, 2, 8192 }, "0 of 2 items · 0 bytes of 8.0KB", 0 },
        { { working, "/a", 1, 4096, 2, 8192 }, "1 of 2 items · 4.0KB of 8.0KB", 0.5 },
        { { working, "/a", 2, 8192, 2, 8192 }, "2 of 2 items · 8.0KB of 8.0KB", 1 },
        { { working, "/a", 3, 9000, 2, 8192 }, "2 of 2 items · 8.0KB of 8.0KB", 1 },
        { { working, "", 0, 0, 0, 0 }, "", 1 },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(row.progress.text(), row.text);
        EXPECT_DOUBLE_EQ(row.progress.fraction(), row.fraction) << row.text;
    }
}

class FileJobs : public testing::Test {
protected:
    void SetUp() override
    {
        folder.write("from/a.txt", "1234");
        folder.write("from/sub/b.txt", "123456");
        EXPECT_EQ(::symlink("nowhere", (folder / "from/link").c_str()), 0);
        std::filesystem::create_directory(folder / "to");
    }
    void copy(std::vector<std::string> const& paths, std::string const& into) { copyPaths(paths, into, *files, report); }

    TestFolder folder;
    JobReport report;
    Ref<NSFileManager> files { make<NSFileManager>() };
};

TEST_F(FileJobs, CountWhatIsThere)
{
    countPaths({ folder / "from", folder / "from/a.txt" }, report);
    EXPECT_EQ(report.progress().items, 6U);
    EXPECT_EQ(report.progress().bytes, 14U);
    EXPECT_EQ(report.failure(), "");
}

TEST_F(FileJobs, CountNothingMoreOnceCanceled)
{
    report.cancel();
    countPaths({ folder / "from" }, report);
    EXPECT_EQ(report.progress().items, 0U);
}

TEST_F(FileJobs, CopyFoldersAndFiles)
{
    copy({ folder / "from", folder / "from/a.txt" }, folder / "to");
    EXPECT_THAT(report.results(), ElementsAre(folder / "to/from", folder / "to/a.txt"));
    EXPECT_EQ(report.progress().fraction(), 1);
    EXPECT_EQ(report.progress().items, 6U);
    EXPECT_EQ(folder.read("to/from/sub/b.txt"), "123456");
    EXPECT_EQ(folder.read("to/a.txt"), "1234");
    EXPECT_EQ(report.failure(), "");
}

TEST_F(FileJobs, CopyUnderTheNextFreeName)
{
    folder.write("from/folder.d/inside");
    for (int i = 0; i < 2; ++i)
        copy({ folder / "from/a.txt", folder / "from/link", folder / "from/folder.d" }, folder / "from");
    EXPECT_THAT(report.results(),
        ElementsAre(folder / "from/a 1.txt", folder / "from/link 1", folder / "from/folder.d 1", folder / "from/a 2.txt",
            folder / "from/link 2", folder / "from/folder.d 2"));
    EXPECT_EQ(std::filesystem::read_symlink(folder / "from/link 1"), "nowhere");
}

TEST_F(FileJobs, SayWhatCouldNotBeCopiedAndGoOn)
{
    copy({ folder / "from", folder / "none", folder / "from/a.txt" }, folder / "from/sub");
    EXPECT_EQ(report.failure(), "“from” can't be copied into itself. (and 1 more)");
    EXPECT_THAT(report.results(), ElementsAre(folder / "from/sub/a.txt"));
    JobReport second;
    copyPaths({ folder / "none" }, folder / "to", *files, second);
    EXPECT_EQ(second.failure(), "“none” could not be copied: No such file or directory.");
    EXPECT_THAT(second.results(), IsEmpty());
}

TEST_F(FileJobs, LeaveNothingOfWhatIsCanceledInTheMiddle)
{
    folder.write("from/large");
    std::filesystem::resize_file(folder / "from/large", std::uintmax_t { 4 } << 30);
    bool isFinished = false;
    FileJob job(
        [&](JobReport& of) {
            copyPaths({ folder / "from/a.txt", folder / "from" }, folder / "to", *files, of);
        },
        [&] { isFinished = true; });
    while (job.report().progress().phase == JobPhase::counting || job.report().progress().bytes < 100'000)
        std::this_thread::yield();
    EXPECT_TRUE(std::filesystem::exists(folder / "to/from"));
    job.cancel();
    NSRunLoop::currentRunLoop().runUntil([&] { return isFinished; });
    EXPECT_THAT(job.report().results(), ElementsAre(folder / "to/a.txt"));
    EXPECT_EQ(folder.read("to/a.txt"), "1234");
    EXPECT_FALSE(std::filesystem::exists(folder / "to/from"));
    EXPECT_EQ(job.report().failure(), "");
}

TEST_F(FileJobs, SayNothingOnceTheyAreGone)
{
    bool isFinished = false;
    {
        FileJob const job(
            [](JobReport& of) {
                while (!of.isCanceled())
                    std::this_thread::yield();
            },
            [&] { isFinished = true; });
    }
    NSRunLoop::currentRunLoop().runUntilDate(NSDate::date());
    EXPECT_FALSE(isFinished);
}

}
}
