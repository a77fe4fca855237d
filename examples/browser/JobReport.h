#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace browser {

enum class JobPhase { counting, working };

/// How far work on files has come.
struct JobProgress {
    JobPhase phase { JobPhase::counting };
    std::string path; ///< of what is being worked on; empty before the first
    std::uint64_t items { 0 }; ///< counted so far, or worked on
    std::uint64_t bytes { 0 };
    std::uint64_t allItems { 0 }; ///< known when all is counted
    std::uint64_t allBytes { 0 };

    /// Between 0 and 1. Each item weighs something, so that many small ones go on too.
    double fraction() const;
    /// "Counting … 12 items", then "3 of 12 items · 1.5KB of 2MB".
    std::string text() const;
};

/// Between work and those who watch it: for any thread.
class JobReport {
public:
    bool isCanceled() const { return m_isCanceled; }
    void cancel() { m_isCanceled = true; }

    // For the work.
    void startItem(std::string const& path);
    void addBytes(std::uint64_t);
    /// What was counted is all there is; from now on it is worked on.
    void startWorking();
    void fail(std::string line);
    void addResult(std::string path);

    // For those who watch.
    JobProgress progress() const;
    /// Why things could not be done, as one line for the person; empty where all was.
    std::string failure() const;
    /// What was made.
    std::vector<std::string> results() const;

private:
    std::atomic<bool> m_isCanceled { false };
    mutable std::mutex m_mutex;
    JobProgress m_progress;
    std::vector<std::string> m_failures;
    std::vector<std::string> m_results;
};

}
