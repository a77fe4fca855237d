#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <functional>
#include <istream>
#include <map>
#include <string>

namespace plix {

class NSColor;
class RunLoopDescriptor;

/// A line for the test, on standard output.
void report(std::string const& line);
/// The four numbers, a blank between them.
std::string textOf(Rect);
/// The words of a line from here on.
std::string rest(std::istream& words);

// From the screen's points, y upwards, to the display's pixels at one a point, y downwards.
Point onDisplay(Point onScreen);
Rect onDisplay(Rect onScreen);
Point onDisplay(NSView const&, Point inView);
Rect onDisplay(NSView const&);

/// A plain ground of one colour.
class ColouredView : public NSView {
    PLIX_CLASS(ColouredView, NSView);

public:
    using NSView::init;
    bool init(Rect frame, Ref<NSColor> color);

    // NSView:
    bool isOpaque() const override { return true; }
    void drawRect(Rect) override;

private:
    Ref<NSColor> m_color;
};

using Command = std::function<void(std::istream& words)>;
using Commands = std::map<std::string, Command>;
/// Carries out the command whose name is the line's first word, with the words that follow.
void obey(std::string const& line, Commands const&);

/// Lines that arrive on standard input in pieces.
class LineReader {
public:
    /// Hands on each line that is whole by now; false at the input's end.
    bool read(std::function<void(std::string const& line)> const& obey);

private:
    std::string m_unfinished;
};

/// Has each line on standard input obeyed; at its end the application terminates. Invalidate what is answered before the program
/// ends.
Ref<RunLoopDescriptor> obeyLines(std::function<void(std::string const& line)> obey);

/// Says that all is ready and runs the application until it terminates; for main() to return.
int runReporting();

/// A point from the program's first two arguments; without them the program ends with 2.
Point placeFromArguments(int count, char** arguments);

}
