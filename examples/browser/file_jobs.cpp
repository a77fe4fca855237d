#include "file_jobs.h"
#include "JobReport.h"
#include "folder_entry.h"

#include <plix/platform/foundation/NSFileManager.h>
#include <plix/system/unique_path.h>

#include <filesystem>

#include <sys/stat.h>

namespace browser {

namespace {

namespace fs = std::filesystem;

bool isThere(std::string const& path)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error)); // also a link that leads nowhere
}

bool isFolder(std::string const& path)
{
    std::error_code error;
    return fs::is_directory(fs::symlink_status(path, error));
}

void countPath(std::string const& path, JobReport& report)
{
    report.startItem(path);
    struct stat status { };
    if (::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode))
        report.addBytes(static_cast<std::uint64_t>(status.st_size));
}

// Without recursion: how deep folders go is the disk's affair.
void countFolder(std::string const& path, JobReport& report)
{
    std::error_code error;
    for (fs::recursive_directory_iterator entry(path, fs::directory_options::skip_permission_denied, error), end;
         entry != end && !error && !report.isCanceled(); entry.increment(error))
        countPath(entry->path().string(), report);
}

std::string freePath(std::string const& source, std::string const& folder)
{
    auto const wanted = pathInFolder(folder, source.substr(source.rfind('/') + 1));
    plix::DiskQuestions const disk {
        .exists = isThere, .canBeListed = [](std::string const&) { return true; }, // else the copy itself says what is wrong
    };
    return plix::uniqueFilePath(wanted, !isFolder(source), disk).value_or(wanted);
}

void copyPath(std::string const& path, std::string const& folder, plix::NSFileManager& files, JobReport& report)
{
    plix::NSFileCopyHandler const handler {
        .willProcessPath = [&](std::string const& item) { return report.startItem(item), !report.isCanceled(); },
        .didCopyBytes = [&](std::uint64_t bytes) { return report.addBytes(bytes), !report.isCanceled(); },
    };
    auto const target = freePath(path, folder);
    if (files.copyPath(path, target, handler))
        report.addResult(target);
    else if (isFolder(path) && (folder == path || folder.starts_with(path + '/')))
        report.fail("“" + shownName(path) + "” can't be copied into itself.");
    else if (!report.isCanceled())
        report.fail("“" + shownName(path) + "” could not be copied: " + files.lastError() + '.');
}

}

void countPaths(std::vector<std::string> const& paths, JobReport& report)
{
    for (auto const& path : paths) {
        if (report.isCanceled())
            return;
        countPath(path, report);
        if (isFolder(path))
            countFolder(path, report);
    }
}

void copyPaths(std::vector<std::string> const& paths, std::string const& folder, plix::NSFileManager& files, JobReport& report)
{
    countPaths(paths, report);
    report.startWorking();
    for (auto const& path : paths) {
        if (report.isCanceled())
            return;
        copyPath(path, folder, files, report);
    }
}

}
