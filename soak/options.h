#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace soak {

/// The words "--name value" and "--name" of a command line.
class CommandLine {
public:
    /// The names that take a value, and those that do not. What else is given is a problem.
    CommandLine(int count, char const* const* words, std::vector<std::string_view> const& withValue,
        std::vector<std::string_view> const& alone);

    /// Of what could not be understood; empty where all could.
    std::string const& problem() const { return m_problem; }
    bool has(std::string_view name) const { return m_values.contains(name); }
    std::optional<std::string> text(std::string_view name) const;
    /// What is no number is a problem, and the usual one is answered.
    double number(std::string_view name, double usual);

private:
    std::map<std::string, std::string, std::less<>> m_values;
    std::string m_problem;
};

}
