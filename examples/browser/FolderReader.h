#pragma once

#include "folder_entry.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace browser {

/// Reads a folder a few entries at a time, so that a large one, or one on a slow disk, does not keep the window waiting. What is
/// read is kept sorted in runs, which are merged as they grow: no single step takes long.
class FolderReader {
public:
    /// Opens the folder at an absolute path.
    explicit FolderReader(std::string path);
    ~FolderReader();
    FolderReader(FolderReader const&) = delete;
    FolderReader& operator=(FolderReader const&) = delete;

    std::string const& path() const { return m_path; }
    /// Why the folder could not be opened or read to its end, as a line for the person; empty where all is well.
    std::string const& failure() const { return m_failure; }
    bool isFinished() const { return !m_folder; }
    std::size_t entriesRead() const { return m_entriesRead; }

    /// Reads up to that many entries more.
    void readSome(std::size_t limit);
    /// All entries in order. Only when finished, and once.
    std::vector<FolderEntry> takeEntries();

private:
    using Run = std::vector<FolderEntry>;
    struct Folder;

    void mergeLastRuns();

    std::string m_path;
    std::string m_failure;
    std::unique_ptr<Folder> m_folder;
    std::vector<Run> m_runs;
    std::size_t m_entriesRead { 0 };
};

/// A line that says why a path could not be opened, for an error number of the system's.
std::string openFailure(std::string_view path, int error);

}
