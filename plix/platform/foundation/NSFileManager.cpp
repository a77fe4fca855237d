#include <plix/platform/foundation/NSFileManager.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/path_resolution.h>

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstring>
#include <memory>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

namespace {

NSFileType fileType(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return NSFileType::Regular;
    case S_IFDIR:
        return NSFileType::Directory;
    case S_IFLNK:
        return NSFileType::SymbolicLink;
    case S_IFSOCK:
        return NSFileType::Socket;
    case S_IFCHR:
        return NSFileType::CharacterSpecial;
    case S_IFBLK:
        return NSFileType::BlockSpecial;
    case S_IFIFO:
        return NSFileType::Fifo;
    default:
        return NSFileType::Unknown;
    }
}

NSDate date(statx_timestamp const& stamp)
{
    return NSDate::dateWithTimeIntervalSince1970(static_cast<double>(stamp.tv_sec) + stamp.tv_nsec / 1e9);
}

std::optional<struct stat> linkStatus(std::string const& path)
{
    struct stat status { };
    if (::lstat(path.c_str(), &status) != 0)
        return {};
    return status;
}

bool isFolder(struct stat const& status)
{
    return S_ISDIR(status.st_mode);
}

/// Calls with each name in the folder. False where it cannot be listed or a call answers false; errno says why.
template <typename Function> bool forEachName(std::string const& path, Function function)
{
    std::unique_ptr<DIR, int (*)(DIR*)> const folder(::opendir(path.c_str()), ::closedir);
    if (!folder)
        return false;
    for (;;) {
        errno = 0;
        auto const* entry = ::readdir(folder.get());
        if (!entry)
            return errno == 0;
        std::string_view const name(entry->d_name);
        if (name != "." && name != ".." && !function(std::string(name)))
            return false;
    }
}

std::vector<std::string> namesIn(std::string const& path, bool& succeeded)
{
    std::vector<std::string> names;
    succeeded = forEachName(path, [&](std::string name) {
        names.push_back(std::move(name));
        return true;
    });
    return names;
}

/// Removes from the leaves up, without recursion: depth is the disk's, not ours.
bool removeTree(std::string const& path)
{
    std::vector<std::string> folders { path };
    while (!folders.empty()) {
        auto const folder = folders.back();
        auto const depth = folders.size();
        bool succeeded = false;
        for (auto const& name : namesIn(folder, succeeded)) {
            auto const entry = folder + '/' + name;
            auto const status = linkStatus(entry);
            if (!status)
                return false;
            if (isFolder(*status))
                folders.push_back(entry);
            else if (::unlink(entry.c_str()) != 0)
                return false;
        }
        if (!succeeded)
            return false;
        if (folders.size() > depth)
            continue;
        if (::rmdir(folder.c_str()) != 0)
            return false;
        folders.pop_back();
    }
    return true;
}

std::optional<std::string> linkTarget(std::string const& path)
{
    char target[PATH_MAX];
    auto const length = ::readlink(path.c_str(), target, sizeof target);
    if (length < 0)
        return {};
    return std::string(target, static_cast<std::size_t>(length));
}

bool mayGoOn(NSFileCopyHandler const& handler, std::string const& path)
{
    bool const goesOn = !handler.willProcessPath || handler.willProcessPath(path);
    if (!goesOn)
        errno = ECANCELED;
    return goesOn;
}

bool copyEntry(
    std::string const& source, std::string const& destination, struct stat const& status, NSFileCopyHandler const& handler)
{
    if (!mayGoOn(handler, source))
        return false;
    switch (status.st_mode & S_IFMT) {
    case S_IFREG:
        return copyFileBytes(source, destination, status.st_mode & 07777,
            [&](std::uint64_t bytes) { return !handler.didCopyBytes || handler.didCopyBytes(bytes); });
    case S_IFLNK: {
        auto const target = linkTarget(source);
        return target && ::symlink(target->c_str(), destination.c_str()) == 0;
    }
    case S_IFIFO:
        return ::mkfifo(destination.c_str(), status.st_mode & 07777) == 0;
    default:
        errno = ENOTSUP;
        return false;
    }
}

bool copyTree(std::string const& source, std::string const& destination, NSFileCopyHandler const& handler)
{
    struct Folder {
        std::string source;
        std::string destination;
        struct stat status;
    };
    auto const status = linkStatus(source);
    if (!status)
        return false;
    if (!isFolder(*status))
        return copyEntry(source, destination, *status, handler);
    std::vector<Folder> folders { { source, destination, *status } };
    for (std::size_t next = 0; next < folders.size(); ++next) {
        auto const folder = folders[next];
        if (!mayGoOn(handler, folder.source) || ::mkdir(folder.destination.c_str(), 0700) != 0)
            return false;
        bool succeeded = false;
        for (auto const& name : namesIn(folder.source, succeeded)) {
            auto const from = folder.source + '/' + name;
            auto const to = folder.destination + '/' + name;
            auto const entry = linkStatus(from);
            if (!entry)
                return false;
            if (isFolder(*entry))
                folders.push_back({ from, to, *entry });
            else if (!copyEntry(from, to, *entry, handler))
                return false;
        }
        if (!succeeded)
            return false;
    }
    // A folder gets its permissions, which may be not to write it, and its date when all is in it.
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
        timespec const dates[] { { 0, UTIME_OMIT }, folder->status.st_mtim };
        if (::utimensat(AT_FDCWD, folder->destination.c_str(), dates, 0) != 0
            || ::chmod(folder->destination.c_str(), folder->status.st_mode & 07777) != 0)
            return false;
    }
    return true;
}

bool isInside(std::string const& path, std::string const& folder)
{
    auto const real = stringByResolvingSymlinksInPath(folder);
    auto parent = stringByDeletingLastPathComponent(path);
    parent = stringByResolvingSymlinksInPath(parent.empty() ? "." : parent);
    return parent == real || parent.starts_with(real + '/');
}

}

PLIX_DESCRIBE(NSFileManager)
{
}

NSFileManager& NSFileManager::defaultManager()
{
    static auto* const s_manager = make<NSFileManager>().leak();
    return *s_manager;
}

bool NSFileManager::succeed(bool succeeded) const
{
    if (!succeeded)
        m_lastError = std::generic_category().message(errno);
    return succeeded;
}

bool NSFileManager::fileExistsAtPath(std::string const& path) const
{
    struct stat status { };
    return ::stat(path.c_str(), &status) == 0;
}

bool NSFileManager::fileExistsAtPath(std::string const& path, bool& isDirectory) const
{
    struct stat status { };
    bool const exists = ::stat(path.c_str(), &status) == 0;
    isDirectory = exists && isFolder(status);
    return exists;
}

bool NSFileManager::isReadableFileAtPath(std::string const& path) const
{
    return ::access(path.c_str(), R_OK) == 0;
}

bool NSFileManager::isWritableFileAtPath(std::string const& path) const
{
    return ::access(path.c_str(), W_OK) == 0;
}

bool NSFileManager::isExecutableFileAtPath(std::string const& path) const
{
    return ::access(path.c_str(), X_OK) == 0;
}

std::optional<NSFileAttributes> NSFileManager::fileAttributesAtPath(std::string const& path, bool traverseLink) const
{
    struct statx status { };
    auto const flags = traverseLink ? 0 : AT_SYMLINK_NOFOLLOW;
    if (!succeed(::statx(AT_FDCWD, path.c_str(), flags, STATX_BASIC_STATS | STATX_BTIME, &status) == 0))
        return {};
    NSFileAttributes attributes;
    attributes.type = fileType(status.stx_mode);
    attributes.size = status.stx_size;
    attributes.modificationDate = date(status.stx_mtime);
    attributes.creationDate = date(status.stx_mask & STATX_BTIME ? status.stx_btime : status.stx_mtime);
    attributes.posixPermissions = status.stx_mode & 07777U;
    attributes.systemFileNumber = status.stx_ino;
    attributes.systemNumber = (std::uint64_t { status.stx_dev_major } << 32) | status.stx_dev_minor;
    attributes.referenceCount = status.stx_nlink;
    attributes.ownerAccountID = status.stx_uid;
    attributes.groupOwnerAccountID = status.stx_gid;
    return attributes;
}

bool NSFileManager::setPosixPermissions(std::string const& path, unsigned permissions)
{
    return succeed(::chmod(path.c_str(), permissions & 07777U) == 0);
}

bool NSFileManager::setModificationDate(std::string const& path, NSDate date)
{
    auto const seconds = std::floor(date.timeIntervalSince1970());
    auto const nanoseconds = static_cast<long>((date.timeIntervalSince1970() - seconds) * 1e9);
    timespec const times[2] { { 0, UTIME_OMIT }, { static_cast<time_t>(seconds), nanoseconds } };
    return succeed(::utimensat(AT_FDCWD, path.c_str(), times, 0) == 0);
}

std::optional<std::vector<std::string>> NSFileManager::directoryContentsAtPath(std::string const& path) const
{
    bool succeeded = false;
    auto names = namesIn(path, succeeded);
    if (!succeed(succeeded))
        return {};
    return names;
}

std::optional<std::vector<std::string>> NSFileManager::subpathsAtPath(std::string const& path) const
{
    auto const top = directoryContentsAtPath(path);
    if (!top)
        return {};
    std::vector<std::string> paths = *top;
    for (std::size_t next = 0; next < paths.size(); ++next) {
        auto const parent = paths[next];
        auto const status = linkStatus(path + '/' + parent);
        if (!status || !isFolder(*status))
            continue;
        bool succeeded = false;
        for (auto const& name : namesIn(path + '/' + parent, succeeded))
            paths.push_back(parent + '/' + name);
    }
    return paths;
}

bool NSFileManager::createDirectoryAtPath(std::string const& path, unsigned permissions)
{
    return succeed(::mkdir(path.c_str(), permissions) == 0);
}

bool NSFileManager::createDirectoriesAtPath(std::string const& path, unsigned permissions)
{
    std::string made;
    for (auto const& component : pathComponents(path)) {
        made = stringByAppendingPathComponent(made, component);
        bool isDirectory = false;
        if (fileExistsAtPath(made, isDirectory) && isDirectory)
            continue;
        if (::mkdir(made.c_str(), permissions) == 0)
            continue;
        auto const reason = errno;
        if (fileExistsAtPath(made, isDirectory) && isDirectory)
            continue;
        errno = reason == EEXIST ? ENOTDIR : reason;
        return succeed(false);
    }
    return true;
}

bool NSFileManager::copyPath(std::string const& source, std::string const& destination)
{
    return copyPath(source, destination, {});
}

bool NSFileManager::copyPath(std::string const& source, std::string const& destination, NSFileCopyHandler const& handler)
{
    auto const status = linkStatus(source);
    if (!status)
        return succeed(false);
    if (linkStatus(destination)) {
        errno = EEXIST;
        return succeed(false);
    }
    if (isFolder(*status) && isInside(destination, source)) {
        errno = EINVAL;
        return succeed(false);
    }
    if (copyTree(source, destination, handler))
        return true;
    succeed(false);
    auto const made = linkStatus(destination);
    if (made && isFolder(*made))
        removeTree(destination);
    else if (made)
        ::unlink(destination.c_str());
    return false;
}

bool NSFileManager::movePath(std::string const& source, std::string const& destination)
{
    auto const renamed = ::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, destination.c_str(), RENAME_NOREPLACE);
    if (renamed == 0)
        return true;
    if (errno == EINVAL || errno == ENOSYS) {
        // A file system without that flag, or a folder into itself, which the plain rename refuses too.
        if (linkStatus(destination)) {
            errno = EEXIST;
            return succeed(false);
        }
        if (::rename(source.c_str(), destination.c_str()) == 0)
            return true;
    }
    if (errno != EXDEV)
        return succeed(false);
    return copyPath(source, destination) && removeFileAtPath(source);
}

bool NSFileManager::removeFileAtPath(std::string const& path)
{
    auto const status = linkStatus(path);
    if (!status)
        return succeed(false);
    return succeed(isFolder(*status) ? removeTree(path) : ::unlink(path.c_str()) == 0);
}

bool NSFileManager::createSymbolicLinkAtPath(std::string const& path, std::string const& target)
{
    return succeed(::symlink(target.c_str(), path.c_str()) == 0);
}

std::optional<std::string> NSFileManager::pathContentOfSymbolicLinkAtPath(std::string const& path) const
{
    auto target = linkTarget(path);
    succeed(target.has_value());
    return target;
}

Ref<NSData> NSFileManager::contentsAtPath(std::string const& path) const
{
    auto bytes = readFileBytes(path);
    if (!succeed(bytes.has_value()))
        return nullptr;
    return make<NSData>(std::move(*bytes));
}

bool NSFileManager::createFileAtPath(std::string const& path, NSData const* contents, unsigned permissions)
{
    return succeed(writeFileBytes(path, contents ? contents->bytes() : std::span<std::uint8_t const> {}, permissions));
}

bool NSFileManager::writeAtomically(std::string const& path, NSData const& contents, unsigned permissions)
{
    return succeed(replaceFileBytes(path, contents.bytes(), permissions));
}

bool NSFileManager::contentsEqualAtPath(std::string const& a, std::string const& b) const
{
    bool isFirstFolder = false, isSecondFolder = false;
    if (!fileExistsAtPath(a, isFirstFolder) || !fileExistsAtPath(b, isSecondFolder) || isFirstFolder != isSecondFolder)
        return false;
    if (!isFirstFolder)
        return readFileBytes(a) == readFileBytes(b);
    auto first = subpathsAtPath(a), second = subpathsAtPath(b);
    if (!first || !second)
        return false;
    std::sort(first->begin(), first->end());
    std::sort(second->begin(), second->end());
    if (first != second)
        return false;
    return std::all_of(first->begin(), first->end(), [&](std::string const& path) {
        auto const left = linkStatus(a + '/' + path), right = linkStatus(b + '/' + path);
        if (!left || !right || fileType(left->st_mode) != fileType(right->st_mode))
            return false;
        if (S_ISLNK(left->st_mode))
            return linkTarget(a + '/' + path) == linkTarget(b + '/' + path);
        return !S_ISREG(left->st_mode) || readFileBytes(a + '/' + path) == readFileBytes(b + '/' + path);
    });
}

std::string NSFileManager::currentDirectoryPath() const
{
    std::unique_ptr<char, void (*)(void*)> const path(::getcwd(nullptr, 0), std::free);
    return path ? path.get() : "";
}

bool NSFileManager::changeCurrentDirectoryPath(std::string const& path)
{
    return succeed(::chdir(path.c_str()) == 0);
}

}
