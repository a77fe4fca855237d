#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

struct stat;

namespace browser {

enum class EntryKind {
    folder,
    file,
    brokenLink, ///< a link that leads nowhere, or round in circles
    special, ///< a device, socket or pipe
};

/// What the list shows of one name in a folder.
struct FolderEntry {
    std::string name; ///< bytes, as the file system has them
    std::string shownName; ///< valid UTF-8
    std::u16string sortName;
    EntryKind kind { EntryKind::file };
    bool isLink { false };
    std::uint64_t size { 0 }; ///< of a file, in bytes
    double modified { 0 }; ///< seconds since 1970

    bool isHidden() const { return name.starts_with('.'); }
};

/// From what the name itself is, and what it leads to; null where that is nothing.
FolderEntry folderEntry(std::string_view name, struct stat const& itself, struct stat const* target);

/// Folders first, then by name: without regard to case, numbers by their value; what is equal so far by its bytes.
bool comesBefore(FolderEntry const&, FolderEntry const&);

/// "1.5KB" for a file; a dash for what has no size of its own.
std::string sizeText(FolderEntry const&);

/// "Folder", "TXT file", "File", "Link", "Device".
std::string kindText(FolderEntry const&);
/// In the user's format, to the minute.
std::string dateText(FolderEntry const&);

/// By which the list is sorted. Folders come first in any order; what is equal by it goes by name.
enum class SortKey { name, size, kind, date };
bool comesInOrder(FolderEntry const&, FolderEntry const&, SortKey, bool isDescending);

/// "12 items", "1 item", "Empty folder".
std::string countText(std::size_t entries);

// Paths. An absolute path without a slash at its end, but for the root.
std::string parentPath(std::string_view path);
std::string pathInFolder(std::string_view folder, std::string_view name);
/// The last component, in valid UTF-8; "/" for the root.
std::string shownName(std::string_view path);
/// The path in valid UTF-8, with "~" for the home folder at its start.
std::string shownPath(std::string_view path, std::string_view home);

}
