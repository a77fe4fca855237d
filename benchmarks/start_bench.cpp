#include "bench.h"
#include "process.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace plix::bench {

namespace {

/// A folder of 100 small files, gone with the object.
class FolderOfFiles {
public:
    FolderOfFiles()
    {
        auto pattern = (std::filesystem::temp_directory_path() / "plix-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("could not make a temporary folder");
        m_path = pattern;
        for (int i = 0; i < 100; ++i)
            std::ofstream(m_path / ("file " + std::to_string(i))) << std::string(static_cast<std::size_t>(i) * 7, 'x');
    }
    FolderOfFiles(FolderOfFiles const&) = delete;
    FolderOfFiles& operator=(FolderOfFiles const&) = delete;
    ~FolderOfFiles()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::string path() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
};

/// From exec until the browser has drawn its first frame in memory and ended.
ProcessRun runBrowser(FolderOfFiles const& folder)
{
    return runProcess({ PLIX_BENCH_BROWSER, "--exit-after-first-frame", folder.path() }, { "PLIX_HOST=headless" });
}

}

PLIX_FIGURE("start.first_frame_headless")
{
    FolderOfFiles const folder;
    figure.setUnit("ms");
    figure.setRuns(31);
    figure.sample([&] { return runBrowser(folder).milliseconds; });
}

PLIX_FIGURE("start.rss_headless")
{
    FolderOfFiles const folder;
    figure.setUnit("MiB");
    figure.setRuns(11);
    figure.sample([&] { return runBrowser(folder).largestResidentMebibytes; });
}

}
