#pragma once

#include "FolderReader.h"

#include <memory>
#include <string>
#include <vector>

namespace browser {

/// The folder that is shown: where it is, what is in it, and what went wrong.
class FolderListing {
public:
    /// Turns to another folder and reads its beginning; a small one is read whole. What was listed before is gone.
    void open(std::string absolutePath);
    /// Reads on. False where there is nothing left to read.
    bool readOn();

    std::string const& path() const { return m_path; }
    /// In order; empty until all is read.
    std::vector<FolderEntry> const& entries() const { return m_entries; }
    bool isReading() const { return m_reader != nullptr; }
    std::size_t entriesRead() const { return m_reader ? m_reader->entriesRead() : m_entries.size(); }
    /// Why the folder could not be read, or not to its end; empty where it could.
    std::string const& failure() const { return m_failure; }
    /// The place of a name in entries(); as many as there are for one that is not there.
    std::size_t indexOfName(std::string_view name) const;

private:
    std::string m_path;
    std::string m_failure;
    std::unique_ptr<FolderReader> m_reader;
    std::vector<FolderEntry> m_entries;
};

}
