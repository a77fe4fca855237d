#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <optional>
#include <string>

namespace plix {

/// A persistent domain of the user's defaults: an XML property list that several processes read and write. What one process changes
/// is kept apart until it is saved, and saved into what the file holds by then, so that nobody undoes another's changes.
class PLIX_EXPORT DefaultsFile {
public:
    DefaultsFile() = default;
    explicit DefaultsFile(std::string path)
        : m_path(std::move(path))
    {
    }

    std::string const& path() const { return m_path; }
    /// The file as it was read last, with the changes. Read on first use.
    ObjectValue::Dictionary const& values();
    /// Nil removes. False where the value was the same already.
    bool set(std::string const& key, ObjectValue value);
    bool hasChanges() const { return !m_changes.empty(); }

    /// Saves the changes, or takes over what others have saved. `changed` tells whether values are other than before. False where
    /// the file cannot be written; the changes stay.
    bool synchronize(bool& changed);

private:
    struct Stamp {
        long long seconds { 0 };
        long nanoseconds { 0 };
        unsigned long long inode { 0 };
        long long size { -1 };
        friend bool operator==(Stamp const&, Stamp const&) = default;
    };

    Stamp stamp() const;
    bool read();
    bool save();
    bool writeMerged();

    std::string m_path;
    ObjectValue::Dictionary m_values;
    ObjectValue::Dictionary m_changes;
    std::optional<Stamp> m_stamp;
    bool m_isDamaged { false };
};

}
