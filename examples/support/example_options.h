#pragma once

#include <string>
#include <vector>

namespace plix {

class NSWindow;

}

namespace example {

/// What every example takes on its command line.
struct Options {
    std::string screenshot; ///< draw in memory, write the window's content here as PNG and end
    float scale { 0 }; ///< device pixels a point, of windows in memory; 0 for one
    bool isDark { false };
    bool drawsInMemory { false }; ///< also without a screenshot
    bool exitsAfterFirstFrame { false };
    bool showsHelp { false };
    std::vector<std::string> arguments; ///< what is no option
    std::string problem; ///< a line on what could not be understood; empty where all could
};

Options parseOptions(int argc, char const* const* argv);
/// The lines on the options above for an example's help.
std::string optionsHelp();

/// For programs that stay open for days: what is let go of large blocks, such as pixels, goes back to the system at once, and
/// threads share what small blocks are cut from. Otherwise glibc raises the size that it calls large with each such block, and
/// keeps more and more. Before anything else.
void returnMemory();

/// Before the application object is made: chooses the look, and the host in memory where the options or the lack of a display ask
/// for it.
void prepare(Options const&);

/// Draws what is dirty and writes the window's content. False, with a line on standard error, where that fails.
bool writeWindow(plix::NSWindow&, std::string const& path);

}
