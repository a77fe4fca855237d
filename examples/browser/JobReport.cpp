#include "JobReport.h"
#include "folder_entry.h"

#include <plix/format/size_and_duration.h>

#include <algorithm>

namespace browser {

namespace {

constexpr double itemWeight = 4096;

}

double JobProgress::fraction() const
{
    if (phase == JobPhase::counting)
        return 0;
    auto const weight = [](std::uint64_t count, std::uint64_t size) {
        return static_cast<double>(count) * itemWeight + static_cast<double>(size);
    };
    double const all = weight(allItems, allBytes);
    // What grows after it was counted does not count.
    return all > 0 ? std::min(1.0, weight(items, bytes) / all) : 1;
}

std::string JobProgress::text() const
{
    if (phase == JobPhase::counting)
        return "Counting … " + (items == 0 ? "" : countText(items));
    if (allItems == 0)
        return {};
    return std::to_string(std::min(items, allItems)) + " of " + countText(allItems) + " · "
        + plix::StringForFileSize(std::min(bytes, allBytes)) + " of " + plix::StringForFileSize(allBytes);
}

void JobReport::startItem(std::string const& path)
{
    std::scoped_lock const lock(m_mutex);
    m_progress.path = path;
    ++m_progress.items;
}

void JobReport::addBytes(std::uint64_t bytes)
{
    std::scoped_lock const lock(m_mutex);
    m_progress.bytes += bytes;
}

void JobReport::startWorking()
{
    std::scoped_lock const lock(m_mutex);
    m_progress = { JobPhase::working, {}, 0, 0, m_progress.items, m_progress.bytes };
}

void JobReport::fail(std::string line)
{
    std::scoped_lock const lock(m_mutex);
    m_failures.push_back(std::move(line));
}

void JobReport::addResult(std::string path)
{
    std::scoped_lock const lock(m_mutex);
    m_results.push_back(std::move(path));
}

JobProgress JobReport::progress() const
{
    std::scoped_lock const lock(m_mutex);
    return m_progress;
}

std::string JobReport::failure() const
{
    std::scoped_lock const lock(m_mutex);
    if (m_failures.size() < 2)
        return m_failures.empty() ? "" : m_failures.front();
    return m_failures.front() + " (and " + std::to_string(m_failures.size() - 1) + " more)";
}

std::vector<std::string> JobReport::results() const
{
    std::scoped_lock const lock(m_mutex);
    return m_results;
}

}
