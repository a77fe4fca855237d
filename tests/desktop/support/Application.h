#pragma once

#include <tests/support/ChildProcess.h>

#include <string>
#include <vector>

namespace plix::desktop {

/// A program under test that reports what happens to it, one line each.
class Application {
public:
    Application(std::vector<std::string> const& command, std::vector<std::string> const& environment);

    ChildProcess& process() { return m_process; }
    void say(std::string const& line);

    /// The next line, from where the last one was found, that has all these parts; a failure of the test and "" where none comes in
    /// time.
    template <typename... Parts> std::string expect(Parts const&... parts)
    {
        return expectWithin(s_patience, { std::string(parts)... });
    }
    std::string expectWithin(Seconds patience, std::vector<std::string> const& parts);
    /// Has everything done that was said or that has happened, and goes on behind it.
    void catchUp();
    /// Whether a line so far had that part, wherever it stands.
    bool hasSaid(std::string const& part);
    /// How many had.
    int countOf(std::string const& part);
    /// All that was reported so far.
    std::string transcript() const;

private:
    bool readLines();

    ChildProcess m_process;
    std::string m_unfinished;
    std::vector<std::string> m_lines;
    std::size_t m_next { 0 };
    int m_syncs { 0 };
};

/// The numbers in a line from a word on.
std::vector<double> numbersAfter(std::string const& line, std::string const& word);

}
