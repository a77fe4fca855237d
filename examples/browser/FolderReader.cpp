#include "FolderReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace browser {

namespace {

std::string quoted(std::string_view path)
{
    return "“" + shownName(path) + "”";
}

}

std::string openFailure(std::string_view path, int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return "You do not have permission to look into " + quoted(path) + ".";
    case ENOENT:
        return quoted(path) + " does not exist.";
    case ENOTDIR:
        return quoted(path) + " is not a folder.";
    case ELOOP:
        return quoted(path) + " is a link that leads back to itself.";
    default:
        return quoted(path) + " could not be read: " + std::strerror(error) + ".";
    }
}

struct FolderReader::Folder {
    DIR* stream { nullptr };
    int descriptor() const { return ::dirfd(stream); }

    explicit Folder(std::string const& path)
        : stream(::opendir(path.c_str()))
    {
    }
    ~Folder()
    {
        if (stream)
            ::closedir(stream);
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;
};

FolderReader::FolderReader(std::string path)
    : m_path(std::move(path))
    , m_folder(std::make_unique<Folder>(m_path))
{
    if (m_folder->stream)
        return;
    int error = errno;
    // A link to nothing is there, and yet leads nowhere.
    struct stat itself { };
    bool const isLink = ::lstat(m_path.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode);
    m_failure = error == ENOENT && isLink ? quoted(m_path) + " is a link that leads nowhere." : openFailure(m_path, error);
    m_folder = nullptr;
}

FolderReader::~FolderReader() = default;

void FolderReader::readSome(std::size_t limit)
{
    Run run;
    while (m_folder && run.size() < limit) {
        errno = 0;
        auto const* item = ::readdir(m_folder->stream);
        if (!item) {
            if (errno != 0)
                m_failure = openFailure(m_path, errno);
            m_folder = nullptr;
            break;
        }
        std::string_view const name = item->d_name;
        if (name == "." || name == "..")
            continue;
        int const folder = m_folder->descriptor();
        struct stat itself { };
        struct stat target { };
        if (::fstatat(folder, item->d_name, &itself, AT_SYMLINK_NOFOLLOW) != 0)
            continue; // gone since it was listed
        bool const leadsSomewhere = ::fstatat(folder, item->d_name, &target, 0) == 0;
        // Where one may list a folder but not look at what is in it, the name itself is all there is.
        bool const isKnown = leadsSomewhere || !S_ISLNK(itself.st_mode);
        run.push_back(folderEntry(name, itself, leadsSomewhere ? &target : isKnown ? &itself : nullptr));
    }
    m_entriesRead += run.size();
    std::ranges::sort(run, comesBefore);
    m_runs.push_back(std::move(run));
    mergeLastRuns();
}

// Keeps each run at least twice as long as the one behind it.
void FolderReader::mergeLastRuns()
{
    while (m_runs.size() > 1 && (isFinished() || m_runs[m_runs.size() - 2].size() < 2 * m_runs.back().size())) {
        Run last = std::move(m_runs.back());
        m_runs.pop_back();
        Run& before = m_runs.back();
        auto const middle = static_cast<Run::difference_type>(before.size());
        before.insert(before.end(), std::make_move_iterator(last.begin()), std::make_move_iterator(last.end()));
        std::inplace_merge(before.begin(), before.begin() + middle, before.end(), comesBefore);
    }
}

std::vector<FolderEntry> FolderReader::takeEntries()
{
    if (!isFinished() || m_runs.empty())
        return {};
    Run entries = std::move(m_runs.front());
    m_runs.clear();
    return entries;
}

}
