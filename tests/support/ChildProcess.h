#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace plix {

using Seconds = std::chrono::duration<double>;

/// Long enough for a busy machine: a bound, not a pause.
inline constexpr Seconds s_patience { 10 };

/// Looks again and again until a condition holds; false when it still does not after that time.
bool waitUntil(std::function<bool()> const& condition, Seconds patience = s_patience);

/// A program that was started here and that ends with this object, or with the test program, however that ends.
class ChildProcess {
public:
    /// `environment` adds lines NAME=value; a line NAME takes that variable away. With `inherited`, the child gets that descriptor
    /// too.
    explicit ChildProcess(
        std::vector<std::string> const& command, std::vector<std::string> const& environment = {}, int inherited = -1);
    ~ChildProcess();
    ChildProcess(ChildProcess const&) = delete;
    ChildProcess& operator=(ChildProcess const&) = delete;

    pid_t identifier() const { return m_identifier; }
    /// Its standard input and output; -1 once closed.
    int input() const { return m_input; }
    int output() const { return m_output; }
    void closeInput();
    void write(std::string_view);
    /// What it writes until it ends or closes its output.
    std::string readAll(Seconds patience = s_patience);

    bool isRunning();
    /// Its exit status once it has ended by itself within that time, 128 + the number of the signal that ended it.
    std::optional<int> waitForEnd(Seconds patience = s_patience);
    void sendSignal(int) const;

private:
    void end();

    pid_t m_identifier { -1 };
    int m_input { -1 };
    int m_output { -1 };
    std::optional<int> m_status;
};

/// Runs a command to its end and gives what it wrote on standard output.
std::string outputOf(
    std::vector<std::string> const& command, std::vector<std::string> const& environment = {}, std::string_view input = {});

}
