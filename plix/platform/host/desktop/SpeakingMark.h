#pragma once

#include <mutex>
#include <string>

namespace plix {

/// Tells the programs of a user of each other that one is speaking: a lock on a file that each of them may hold, and that the
/// system takes from a program that ends, however it ends. Without such a file nobody is seen. Never waits. May be used by any
/// thread.
class SpeakingMark {
public:
    /// The file is made where it is missing, when it is first wanted; "" for none.
    explicit SpeakingMark(std::string path);
    ~SpeakingMark();
    SpeakingMark(SpeakingMark const&) = delete;
    SpeakingMark& operator=(SpeakingMark const&) = delete;

    void setHeld(bool);
    /// Whether any program, or another of these, holds it.
    bool isHeldByOthers();

private:
    bool open();

    std::mutex m_mutex;
    std::string m_path;
    int m_descriptor { -1 };
    bool m_isHeld { false };
};

}
