#include "folder_entry.h"

#include <plix/format/size_and_duration.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/collation.h>
#include <plix/platform/foundation/locale_values.h>

#include <algorithm>
#include <cctype>

#include <sys/stat.h>

namespace browser {

FolderEntry folderEntry(std::string_view name, struct stat const& itself, struct stat const* target)
{
    FolderEntry entry;
    entry.name = name;
    entry.shownName = plix::validUTF8(name);
    entry.sortName = plix::utf16FromUTF8(entry.shownName);
    entry.isLink = S_ISLNK(itself.st_mode);
    if (!target)
        entry.kind = EntryKind::brokenLink;
    else if (S_ISDIR(target->st_mode))
        entry.kind = EntryKind::folder;
    else if (S_ISREG(target->st_mode))
        entry.size = static_cast<std::uint64_t>(target->st_size);
    else
        entry.kind = EntryKind::special;
    auto const& time = (target ? *target : itself).st_mtim;
    entry.modified = static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    return entry;
}

bool comesBefore(FolderEntry const& a, FolderEntry const& b)
{
    bool const isFolderA = a.kind == EntryKind::folder;
    bool const isFolderB = b.kind == EntryKind::folder;
    if (isFolderA != isFolderB)
        return isFolderA;
    auto const order = plix::collateFileNames(a.sortName, b.sortName);
    return order != plix::NSOrderedSame ? order == plix::NSOrderedAscending : a.name < b.name;
}

std::string sizeText(FolderEntry const& entry)
{
    return entry.kind == EntryKind::file ? plix::StringForFileSize(entry.size) : "–";
}

std::string kindText(FolderEntry const& entry)
{
    switch (entry.kind) {
    case EntryKind::folder:
        return entry.isLink ? "Link to a folder" : "Folder";
    case EntryKind::brokenLink:
        return "Link";
    case EntryKind::special:
        return "Device";
    case EntryKind::file:
        break;
    }
    auto const dot = entry.shownName.rfind('.');
    bool const hasExtension = dot != std::string::npos && dot > 0 && dot + 1 < entry.shownName.size();
    auto const extension = hasExtension ? entry.shownName.substr(dot + 1) : std::string();
    bool const isPlain = !extension.empty() && extension.size() <= 5
        && std::ranges::all_of(extension, [](unsigned char letter) { return std::isalnum(letter) != 0; });
    if (!isPlain)
        return "File";
    std::string kind;
    for (unsigned char const letter : extension)
        kind += static_cast<char>(std::toupper(letter));
    return kind + " file";
}

std::string dateText(FolderEntry const& entry)
{
    plix::NSCalendarDate const date(plix::NSDate::dateWithTimeIntervalSince1970(entry.modified));
    return date.descriptionWithCalendarFormat(plix::currentDateNames()->shortDateFormat + " %H:%M");
}

bool comesInOrder(FolderEntry const& a, FolderEntry const& b, SortKey key, bool isDescending)
{
    bool const isFolderA = a.kind == EntryKind::folder;
    bool const isFolderB = b.kind == EntryKind::folder;
    if (isFolderA != isFolderB)
        return isFolderA;
    auto const& first = isDescending ? b : a;
    auto const& second = isDescending ? a : b;
    if (key == SortKey::size && a.size != b.size)
        return first.size < second.size;
    if (key == SortKey::date && a.modified != b.modified)
        return first.modified < second.modified;
    if (key == SortKey::kind) {
        if (auto const order = kindText(first).compare(kindText(second)); order != 0)
            return order < 0;
    }
    return key == SortKey::name ? comesBefore(first, second) : comesBefore(a, b);
}

std::string countText(std::size_t entries)
{
    if (entries == 0)
        return "Empty folder";
    return std::to_string(entries) + (entries == 1 ? " item" : " items");
}

std::string parentPath(std::string_view path)
{
    auto const slash = path.rfind('/');
    return slash == 0 || slash == std::string_view::npos ? "/" : std::string(path.substr(0, slash));
}

std::string pathInFolder(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

std::string shownName(std::string_view path)
{
    auto const slash = path.rfind('/');
    auto const name = slash == std::string_view::npos ? path : path.substr(slash + 1);
    return name.empty() ? "/" : plix::validUTF8(name);
}

std::string shownPath(std::string_view path, std::string_view home)
{
    bool const isBelowHome = home.size() > 1 && path.starts_with(home) && (path.size() == home.size() || path[home.size()] == '/');
    return isBelowHome ? '~' + plix::validUTF8(path.substr(home.size())) : plix::validUTF8(path);
}

}
