#include "options.h"

#include <algorithm>
#include <cstdlib>

namespace soak {

CommandLine::CommandLine(
    int count, char const* const* words, std::vector<std::string_view> const& withValue, std::vector<std::string_view> const& alone)
{
    for (int index = 1; index < count; ++index) {
        std::string_view const word = words[index];
        auto const name = word.starts_with("--") ? word.substr(2) : std::string_view();
        if (std::ranges::find(alone, name) != alone.end())
            m_values.emplace(name, "");
        else if (std::ranges::find(withValue, name) != withValue.end() && index + 1 < count)
            m_values.emplace(name, words[++index]);
        else
            m_problem = "unknown option, or one without its value: " + std::string(word);
    }
}

std::optional<std::string> CommandLine::text(std::string_view name) const
{
    auto const found = m_values.find(name);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

double CommandLine::number(std::string_view name, double usual)
{
    auto const given = text(name);
    if (!given)
        return usual;
    char* end = nullptr;
    double const value = std::strtod(given->c_str(), &end);
    if (end != given->c_str() && *end == '\0' && value >= 0)
        return value;
    m_problem = "--" + std::string(name) + " takes a number, not \"" + *given + '"';
    return usual;
}

}
