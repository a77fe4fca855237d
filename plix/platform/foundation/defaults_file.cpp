#include <plix/platform/foundation/defaults_file.h>

#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/path_resolution.h>
#include <plix/platform/foundation/property_list.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr std::size_t largestFile = std::size_t { 16 } << 20;
constexpr unsigned ownerOnly = 0600;

/// Keeps the other processes that save into a folder out, by a lock on the folder itself. Gives up after a second: a process that
/// was stopped while it saved must not stop others.
class FolderLock {
public:
    explicit FolderLock(std::string const& folder)
        : m_descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        constexpr int attempts = 500;
        for (int i = 0; i < attempts && m_descriptor >= 0 && !m_isHeld; ++i) {
            m_isHeld = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
            if (!m_isHeld && errno != EWOULDBLOCK && errno != EINTR)
                break;
            if (!m_isHeld)
                ::poll(nullptr, 0, 2);
        }
    }
    ~FolderLock()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    FolderLock(FolderLock const&) = delete;
    FolderLock& operator=(FolderLock const&) = delete;

    bool isHeld() const { return m_isHeld; }

private:
    int m_descriptor;
    bool m_isHeld { false };
};

void applyChanges(ObjectValue::Dictionary const& changes, ObjectValue::Dictionary& values)
{
    for (auto const& [key, value] : changes) {
        if (value.isNil())
            values.erase(key);
        else
            values.insert_or_assign(key, value);
    }
}

}

DefaultsFile::Stamp DefaultsFile::stamp() const
{
    struct stat status { };
    if (::stat(m_path.c_str(), &status) != 0)
        return {};
    return { status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ino, status.st_size };
}

// What is there takes effect whole, at the end.
bool DefaultsFile::read()
{
    auto const seen = stamp();
    ObjectValue::Dictionary values;
    bool isDamaged = false;
    bool couldRead = true;
    if (auto const bytes = readFileBytes(m_path, largestFile)) {
        std::string error;
        auto const value = propertyListFromXML(*bytes, error);
        auto const* const dictionary = value ? value->dictionary() : nullptr;
        isDamaged = !dictionary;
        if (dictionary)
            values = *dictionary;
        else
            NSLog("NSUserDefaults: " + validUTF8(m_path) + " is passed over: " + (error.empty() ? "it is no dictionary" : error));
    } else if (errno != ENOENT && errno != ENOTDIR) {
        couldRead = false;
        NSLog("NSUserDefaults: " + validUTF8(m_path) + " cannot be read: " + std::generic_category().message(errno));
    }
    applyChanges(m_changes, values);
    m_values = std::move(values);
    m_isDamaged = isDamaged;
    m_stamp = seen;
    return couldRead;
}

ObjectValue::Dictionary const& DefaultsFile::values()
{
    if (!m_stamp)
        read();
    return m_values;
}

bool DefaultsFile::set(std::string const& key, ObjectValue value)
{
    auto const& present = values();
    auto const found = present.find(key);
    if (found == present.end() ? value.isNil() : found->second == value && found->second.isBool() == value.isBool())
        return false;
    // Nothing fails any more once the nodes are there.
    ObjectValue::Dictionary change { { key, value } };
    auto shown = value.isNil() ? ObjectValue::Dictionary {} : change;
    m_changes.erase(key);
    m_changes.merge(change);
    m_values.erase(key);
    m_values.merge(shown);
    return true;
}

bool DefaultsFile::synchronize(bool& changed)
{
    if (hasChanges()) {
        auto const before = values();
        bool const isSaved = save();
        changed = m_values != before;
        return isSaved;
    }
    if (m_stamp && *m_stamp == stamp())
        return true;
    auto const before = values();
    read();
    changed = m_values != before;
    return true;
}

bool DefaultsFile::save()
{
    auto const folder = stringByDeletingLastPathComponent(m_path);
    auto& files = NSFileManager::defaultManager();
    if (!files.createDirectoriesAtPath(folder, 0700)) {
        NSLog("NSUserDefaults: " + validUTF8(folder) + " cannot be made: " + files.lastError());
        return false;
    }
    FolderLock const lock(folder);
    if (!lock.isHeld()) {
        NSLog("NSUserDefaults: " + validUTF8(folder) + " cannot be locked");
        return false;
    }
    return writeMerged();
}

bool DefaultsFile::writeMerged()
{
    // Writing over what could not be read would lose it.
    if (!read())
        return false;
    // What could not be read is kept for a person to look at.
    if (m_isDamaged)
        ::rename(m_path.c_str(), (m_path + ".damaged").c_str());
    auto const text = xmlFromPropertyList(m_values);
    bool const isSaved = text
        && replaceFileBytes(stringByResolvingSymlinksInPath(m_path),
            { reinterpret_cast<std::uint8_t const*>(text->data()), text->size() }, ownerOnly);
    if (!isSaved) {
        NSLog("NSUserDefaults: " + validUTF8(m_path) + " cannot be written: " + std::generic_category().message(errno));
        return false;
    }
    m_changes.clear();
    m_isDamaged = false;
    m_stamp = stamp();
    return true;
}

}
