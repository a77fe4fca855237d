#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSDate.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace plix {

class NSData;

/// What is at a path.
enum class NSFileType { Regular, Directory, SymbolicLink, Socket, CharacterSpecial, BlockSpecial, Fifo, Unknown };

/// What the machine says of a file, without opening it.
struct NSFileAttributes {
    NSFileType type { NSFileType::Unknown };
    /// In bytes.
    std::uint64_t size { 0 };
    NSDate modificationDate;
    /// The birth of the file where the file system keeps it, else the modification date.
    NSDate creationDate;
    /// The permission bits (07777).
    unsigned posixPermissions { 0 };
    std::uint64_t systemFileNumber { 0 };
    std::uint64_t systemNumber { 0 };
    unsigned long referenceCount { 1 };
    unsigned ownerAccountID { 0 };
    unsigned groupOwnerAccountID { 0 };
};

/// What a copy tells while it runs, on the thread that copies. A call that answers false ends the copy; empty functions go on.
struct NSFileCopyHandler {
    /// Before each file, link or folder of the source.
    std::function<bool(std::string const& path)> willProcessPath;
    /// After each part of a file's contents.
    std::function<bool(std::uint64_t bytes)> didCopyBytes;
};

/// Files and folders. Paths and names are bytes: names that are no UTF-8 pass through unharmed. Operations that fail answer
/// false or nil, leave nothing half-made behind where they made something, and lastError() says why.
class PLIX_EXPORT NSFileManager : public NSObject {
    PLIX_CLASS(NSFileManager, NSObject);

public:
    /// The one there is.
    static NSFileManager& defaultManager();

    /// Follows symbolic links: a broken one does not exist.
    bool fileExistsAtPath(std::string const& path) const;
    bool fileExistsAtPath(std::string const& path, bool& isDirectory) const;
    bool isReadableFileAtPath(std::string const& path) const;
    bool isWritableFileAtPath(std::string const& path) const;
    bool isExecutableFileAtPath(std::string const& path) const;
    /// Without traversing, a symbolic link's own.
    std::optional<NSFileAttributes> fileAttributesAtPath(std::string const& path, bool traverseLink) const;
    bool setPosixPermissions(std::string const& path, unsigned permissions);
    bool setModificationDate(std::string const& path, NSDate date);

    /// The names in a folder but "." and "..", in no order; nil where it cannot be listed.
    std::optional<std::vector<std::string>> directoryContentsAtPath(std::string const& path) const;
    /// The paths of all that is below a folder, relative to it; links are not followed.
    std::optional<std::vector<std::string>> subpathsAtPath(std::string const& path) const;

    /// Makes one folder, in one that exists.
    bool createDirectoryAtPath(std::string const& path, unsigned permissions = 0777);
    /// Also makes the folders above that are missing; one that is there already is no failure.
    bool createDirectoriesAtPath(std::string const& path, unsigned permissions = 0777);
    /// Copies a file, a link itself, or a folder with all in it. Fails where the destination exists or lies in the source.
    bool copyPath(std::string const& source, std::string const& destination);
    /// The same, told how it goes. Where the handler ends the copy, nothing is left of it and lastError() says that it was
    /// canceled.
    bool copyPath(std::string const& source, std::string const& destination, NSFileCopyHandler const&);
    /// Fails where the destination exists.
    bool movePath(std::string const& source, std::string const& destination);
    /// Removes a file, a link itself, or a folder with all in it.
    bool removeFileAtPath(std::string const& path);
    bool createSymbolicLinkAtPath(std::string const& path, std::string const& target);
    std::optional<std::string> pathContentOfSymbolicLinkAtPath(std::string const& path) const;

    /// Nil where it cannot be read.
    Ref<NSData> contentsAtPath(std::string const& path) const;
    /// Writes the bytes over what was there, not atomically.
    bool createFileAtPath(std::string const& path, NSData const* contents, unsigned permissions = 0666);
    /// Writes beside it first and puts that in the place of `path` when it is whole on the disk. What `path` links to is replaced.
    bool writeAtomically(std::string const& path, NSData const& contents, unsigned permissions);
    bool contentsEqualAtPath(std::string const& a, std::string const& b) const;

    // The folder that relative paths begin in, for the whole process.
    std::string currentDirectoryPath() const;
    bool changeCurrentDirectoryPath(std::string const& path);

    /// What the machine said of the last operation that failed, as in "Permission denied".
    std::string const& lastError() const { return m_lastError; }

private:
    bool succeed(bool succeeded) const;

    mutable std::string m_lastError;
};

}
