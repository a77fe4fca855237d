#include <plix/platform/foundation/path_operations.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plix {
namespace {

using Components = std::vector<std::string>;

TEST(PathOperations, SplitIntoComponents)
{
    struct {
        char const* path;
        Components components;
    } const rows[] = {
        { "", {} },
        { "/", { "/" } },
        { "//", { "/" } },
        { "///", { "/" } },
        { "x", { "x" } },
        { "tmp/scratch", { "tmp", "scratch" } },
        { "/tmp/scratch.tiff", { "/", "tmp", "scratch.tiff" } },
        { "/tmp/", { "/", "tmp", "/" } },
        { "tmp//", { "tmp", "/" } },
        { "//a///b", { "/", "a", "b" } },
        { "./a/../b", { ".", "a", "..", "b" } },
        { "/\xFF\xFE/\xC3", { "/", "\xFF\xFE", "\xC3" } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(pathComponents(row.path), row.components) << row.path;
}

TEST(PathOperations, JoinComponents)
{
    EXPECT_EQ(pathWithComponents({}), "");
    EXPECT_EQ(pathWithComponents({ "/" }), "/");
    EXPECT_EQ(pathWithComponents({ "/", "a", "b" }), "/a/b");
    EXPECT_EQ(pathWithComponents({ "/", "a", "/" }), "/a");
    EXPECT_EQ(pathWithComponents({ "a", "", "b/" }), "a/b");
    for (auto const* path : { "/", "/a", "a", "a/b", "/a/b.c/d" })
        EXPECT_EQ(pathWithComponents(pathComponents(path)), path);
}

TEST(PathOperations, TakeTheLastName)
{
    struct {
        char const* path;
        char const* last;
        char const* rest;
    } const rows[] = {
        { "/tmp/scratch.tiff", "scratch.tiff", "/tmp" },
        { "/tmp/lock/", "lock", "/tmp" },
        { "/tmp/", "tmp", "/" },
        { "/tmp", "tmp", "/" },
        { "/", "/", "/" },
        { "//", "/", "/" },
        { "", "", "" },
        { "scratch.tiff", "scratch.tiff", "" },
        { "scratch///", "scratch", "" },
        { "a//b", "b", "a" },
        { "//tmp", "tmp", "/" },
        { "a/b/c", "c", "a/b" },
        { "\xFF/\xFE", "\xFE", "\xFF" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(lastPathComponent(row.path), row.last) << row.path;
        EXPECT_EQ(stringByDeletingLastPathComponent(row.path), row.rest) << row.path;
    }
}

TEST(PathOperations, AppendAComponent)
{
    struct {
        char const* path;
        char const* component;
        char const* result;
    } const rows[] = {
        { "/tmp", "scratch.tiff", "/tmp/scratch.tiff" },
        { "/tmp/", "scratch.tiff", "/tmp/scratch.tiff" },
        { "/", "scratch.tiff", "/scratch.tiff" },
        { "", "scratch.tiff", "scratch.tiff" },
        { "/tmp", "/x/", "/tmp/x" },
        { "/tmp", "", "/tmp" },
        { "", "", "" },
        { "a//b", "c//d", "a/b/c/d" },
        { "", "/", "/" },
        { "a", "\xFF", "a/\xFF" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(stringByAppendingPathComponent(row.path, row.component), row.result) << row.path << " + " << row.component;
}

TEST(PathOperations, TakeTheExtension)
{
    struct {
        char const* path;
        char const* extension;
        char const* rest;
    } const rows[] = {
        { "/tmp/scratch.tiff", "tiff", "/tmp/scratch" },
        { "/tmp/scratch", "", "/tmp/scratch" },
        { "/tmp/", "", "/tmp" },
        { "scratch.bundle/", "bundle", "scratch" },
        { "scratch..tiff", "tiff", "scratch." },
        { ".tiff", "", ".tiff" },
        { "/a/.tiff", "", "/a/.tiff" },
        { ".scratch.tiff", "tiff", ".scratch" },
        { "notes.", "", "notes" },
        { "/", "", "/" },
        { "", "", "" },
        { "..", "", ".." },
        { "a/..", "", "a/.." },
        { ".", "", "." },
        { "a.b/c", "", "a.b/c" },
        { "a.b.c", "c", "a.b" },
        { "\xFF.\xFE", "\xFE", "\xFF" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(pathExtension(row.path), row.extension) << row.path;
        EXPECT_EQ(stringByDeletingPathExtension(row.path), row.rest) << row.path;
    }
}

TEST(PathOperations, AppendAnExtension)
{
    struct {
        char const* path;
        char const* result;
    } const rows[] = {
        { "/tmp/scratch.old", "/tmp/scratch.old.tiff" },
        { "/tmp/scratch.", "/tmp/scratch..tiff" },
        { "/tmp/", "/tmp.tiff" },
        { "scratch", "scratch.tiff" },
        { "", "" },
        { "/", "/" },
        { "~", "~" },
        { "a/~user", "a/~user" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(stringByAppendingPathExtension(row.path, "tiff"), row.result) << row.path;
}

TEST(PathOperations, TheNameIsTheLastComponentForAllShortPaths)
{
    // Every path of up to six of these letters: the parts put together name the same file again.
    std::string path;
    int checked = 0;
    for (int code = 0; code < 4 * 4 * 4 * 4 * 4 * 4; ++code) {
        path.clear();
        for (int rest = code; rest > 0; rest /= 4)
            path += "?/.a"[rest % 4];
        if (path.find('?') != std::string::npos || path.empty())
            continue;
        ++checked;
        auto const last = lastPathComponent(path);
        auto const joined = stringByAppendingPathComponent(stringByDeletingLastPathComponent(path), last);
        EXPECT_EQ(joined, pathWithComponents(pathComponents(path))) << path;
        auto const extension = pathExtension(path);
        auto const base = stringByDeletingPathExtension(path);
        if (!extension.empty()) {
            EXPECT_EQ(stringByAppendingPathExtension(base, extension) + "", path.substr(0, base.size() + 1 + extension.size()));
        }
    }
    EXPECT_GT(checked, 1000);
}

TEST(PathOperations, MatchExtensionsAsTheyAreWritten)
{
    Components const paths { "/a/b.wav", "c.WAV", "wav", ".wav", "d.aiff", "e.wav/", "f.", "g.wave" };
    EXPECT_EQ(pathsMatchingExtensions(paths, { "wav", "aiff" }), (Components { "/a/b.wav", "d.aiff", "e.wav/" }));
    EXPECT_EQ(pathsMatchingExtensions(paths, {}), Components {});
}

}
}
