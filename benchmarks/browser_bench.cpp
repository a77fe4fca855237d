#include "bench.h"
#include "browser_peer.h"
#include "headless_machine.h"

#include <examples/browser/BrowserController.h>
#include <examples/browser/FilesTable.h>

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/tables/PLIXTableView.h>

#include <chrono>
#include <filesystem>
#include <fstream>

namespace plix::bench {
namespace {

constexpr long fileCount = 100'000;

/// A folder of many empty files, gone with this.
class ManyFiles {
public:
    ManyFiles()
        : m_path((std::filesystem::temp_directory_path() / "plix-bench-XXXXXX").string())
    {
        if (!::mkdtemp(m_path.data()))
            throw std::runtime_error("no temporary folder");
        for (long number = 0; number < fileCount; ++number)
            std::ofstream(m_path + "/file " + std::to_string(number * 7919 % fileCount) + ".txt");
    }
    ~ManyFiles()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ManyFiles(ManyFiles const&) = delete;
    ManyFiles& operator=(ManyFiles const&) = delete;

    std::string const& path() const { return m_path; }

private:
    std::string m_path;
};

double openInBrowser(browser::BrowserController& controller, std::string const& path)
{
    auto const begin = std::chrono::steady_clock::now();
    controller.open(path);
    NSRunLoop::currentRunLoop().runUntil([&] { return !controller.listing().isReading(); });
    controller.window().displayIfNeeded();
    auto const end = std::chrono::steady_clock::now();
    if (controller.files().table().numberOfRows() != fileCount)
        throw std::runtime_error("the browser does not show all files");
    controller.open("/");
    NSRunLoop::currentRunLoop().runUntil([&] { return !controller.listing().isReading(); });
    return std::chrono::duration<double>(end - begin).count();
}

}

PLIX_FIGURE("browser.open_100k")
{
    ManyFiles const files;
    Machine const machine;
    NSApplication::sharedApplication();
    auto const controller = make<browser::BrowserController>("/");
    controller->window().makeKeyAndOrderFront(nullptr);
    figure.setRuns(5);
    figure.setUnit("s");
    auto const ours = [&] { return openInBrowser(*controller, files.path()); };
#ifdef PLIX_BENCH_QT
    figure.sampleAgainst("Qt's view of its file system model", ours, [&] { return openFolderInQt(files.path()); });
#else
    figure.sample(ours);
#endif
    controller->window().close();
}

}
