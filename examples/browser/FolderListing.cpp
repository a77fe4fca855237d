#include "FolderListing.h"

#include <algorithm>
#include <utility>

namespace browser {

namespace {

// What is read in one go; a few milliseconds' work.
constexpr std::size_t entriesAtOnce = 1000;

}

void FolderListing::open(std::string absolutePath)
{
    m_path = std::move(absolutePath);
    m_failure.clear();
    m_entries.clear();
    m_reader = std::make_unique<FolderReader>(m_path);
    readOn();
}

bool FolderListing::readOn()
{
    if (!m_reader)
        return false;
    m_reader->readSome(entriesAtOnce);
    if (!m_reader->isFinished())
        return true;
    m_failure = m_reader->failure();
    m_entries = m_reader->takeEntries();
    m_reader = nullptr;
    return false;
}

std::size_t FolderListing::indexOfName(std::string_view name) const
{
    auto const found = std::ranges::find(m_entries, name, &FolderEntry::name);
    return static_cast<std::size_t>(found - m_entries.begin());
}

}
