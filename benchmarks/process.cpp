#include "process.h"

#include <cstdio>
#include <stdexcept>

namespace plix::bench {

namespace {

std::string shellQuoted(std::string const& text)
{
    std::string result = "'";
    for (char const character : text) {
        if (character == '\'')
            result += "'\\''";
        else
            result += character;
    }
    return result + "'";
}

}

ProcessRun runProcess(std::vector<std::string> const& command, std::vector<std::string> const& environment)
{
    std::string line = "exec env";
    for (auto const& setting : environment)
        line += ' ' + shellQuoted(setting);
    line += ' ' + shellQuoted(PLIX_BENCH_LAUNCHER);
    for (auto const& word : command)
        line += ' ' + shellQuoted(word);

    auto* const pipe = popen(line.c_str(), "re");
    if (!pipe)
        throw std::runtime_error("could not start " + command.front());
    ProcessRun run;
    auto const fields = std::fscanf(pipe, "%lf %lf", &run.milliseconds, &run.largestResidentMebibytes);
    auto const status = pclose(pipe);
    if (fields != 2 || status != 0)
        throw std::runtime_error(command.front() + " failed");
    return run;
}

}
