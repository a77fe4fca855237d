#include "program.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>

#include <poll.h>
#include <unistd.h>

namespace plix {

void report(std::string const& line)
{
    std::cout << line << std::endl;
}

std::string textOf(Rect rect)
{
    std::ostringstream out;
    out << rect.x << ' ' << rect.y << ' ' << rect.width << ' ' << rect.height;
    return out.str();
}

std::string rest(std::istream& words)
{
    std::string text;
    std::getline(words >> std::ws, text);
    return text;
}

Point onDisplay(Point onScreen)
{
    return { onScreen.x, NSScreen::mainScreen().frame().maxY() - onScreen.y };
}

Rect onDisplay(Rect onScreen)
{
    auto const upperLeft = onDisplay(Point { onScreen.x, onScreen.maxY() });
    return { upperLeft.x, upperLeft.y, onScreen.width, onScreen.height };
}

Point onDisplay(NSView const& view, Point inView)
{
    return onDisplay(view.window()->convertBaseToScreen(view.convertPointToView(inView, nullptr)));
}

Rect onDisplay(NSView const& view)
{
    auto const inBase = view.convertRectToView(view.bounds(), nullptr);
    return onDisplay(rectWith(view.window()->convertBaseToScreen(inBase.origin()), inBase.size()));
}

bool ColouredView::init(Rect frame, Ref<NSColor> color)
{
    m_color = std::move(color);
    return Base::init(frame);
}

void ColouredView::drawRect(Rect dirty)
{
    m_color->set();
    NSRectFill(dirty);
}

PLIX_DESCRIBE(ColouredView)
{
}

void obey(std::string const& line, Commands const& commands)
{
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    auto const found = commands.find(verb);
    if (found == commands.end())
        report("unknown command " + verb);
    else
        found->second(words);
}

bool LineReader::read(std::function<void(std::string const& line)> const& obey)
{
    char bytes[4096];
    auto const size = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (size <= 0)
        return false;
    m_unfinished.append(bytes, static_cast<std::size_t>(size));
    for (auto end = m_unfinished.find('\n'); end != m_unfinished.npos; end = m_unfinished.find('\n')) {
        auto const line = m_unfinished.substr(0, end);
        m_unfinished.erase(0, end + 1);
        obey(line);
    }
    return true;
}

Ref<RunLoopDescriptor> obeyLines(std::function<void(std::string const& line)> obey)
{
    auto const reader = std::make_shared<LineReader>();
    auto const source = std::make_shared<RunLoopDescriptor*>(nullptr);
    auto descriptor = make<RunLoopDescriptor>(STDIN_FILENO, short { POLLIN }, [reader, source, obey = std::move(obey)](short) {
        if (reader->read(obey))
            return;
        (*source)->invalidate();
        NSApp->terminate(nullptr);
    });
    *source = descriptor.get();
    NSRunLoop::currentRunLoop().addDescriptor(*descriptor, NSRunLoopCommonModes);
    return descriptor;
}

int runReporting()
{
    report("ready");
    NSApplication::sharedApplication().run();
    return 0;
}

Point placeFromArguments(int count, char** arguments)
{
    if (count < 3)
        std::exit(2);
    return { std::strtof(arguments[1], nullptr), std::strtof(arguments[2], nullptr) };
}

}
