#include <tests/desktop/support/Application.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include <poll.h>
#include <unistd.h>

namespace plix::desktop {

Application::Application(std::vector<std::string> const& command, std::vector<std::string> const& environment)
    : m_process(command, environment)
{
}

void Application::say(std::string const& line)
{
    m_process.write(line + '\n');
}

bool Application::readLines()
{
    pollfd waiting { m_process.output(), POLLIN, 0 };
    auto hadAny = false;
    while (poll(&waiting, 1, 0) > 0) {
        char bytes[1 << 16];
        auto const size = read(m_process.output(), bytes, sizeof bytes);
        if (size <= 0)
            break;
        hadAny = true;
        m_unfinished.append(bytes, static_cast<std::size_t>(size));
    }
    for (auto end = m_unfinished.find('\n'); end != m_unfinished.npos; end = m_unfinished.find('\n')) {
        m_lines.push_back(m_unfinished.substr(0, end));
        m_unfinished.erase(0, end + 1);
    }
    return hadAny;
}

std::string Application::expectWithin(Seconds patience, std::vector<std::string> const& parts)
{
    auto const from = m_next;
    auto const isMeant = [&parts](std::string const& line) {
        return std::ranges::all_of(parts, [&line](std::string const& part) { return line.find(part) != line.npos; });
    };
    auto const isThere = [this, &isMeant] {
        readLines();
        while (m_next < m_lines.size()) {
            if (isMeant(m_lines[m_next++]))
                return true;
        }
        return false;
    };
    if (waitUntil(isThere, patience))
        return m_lines[m_next - 1];
    m_next = from;
    ADD_FAILURE() << "waited for: " << ::testing::PrintToString(parts) << "\nin:\n" << transcript();
    return {};
}

void Application::catchUp()
{
    auto const mark = "sync " + std::to_string(++m_syncs);
    say(mark);
    expect(mark);
}

bool Application::hasSaid(std::string const& part)
{
    return countOf(part) > 0;
}

int Application::countOf(std::string const& part)
{
    readLines();
    return static_cast<int>(
        std::ranges::count_if(m_lines, [&part](std::string const& line) { return line.find(part) != line.npos; }));
}

std::string Application::transcript() const
{
    std::string text;
    for (std::size_t index = 0; index < m_lines.size(); ++index)
        text += (index == m_next ? "> " : "  ") + m_lines[index] + '\n';
    return text;
}

std::vector<double> numbersAfter(std::string const& line, std::string const& word)
{
    auto const at = line.find(word);
    if (at == line.npos)
        return {};
    std::istringstream rest(line.substr(at + word.size()));
    std::vector<double> numbers;
    for (double number = 0; rest >> number;)
        numbers.push_back(number);
    return numbers;
}

}
