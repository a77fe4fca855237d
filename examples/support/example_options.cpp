#include "example_options.h"

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <string_view>

#include <malloc.h>

namespace example {

Options parseOptions(int argc, char const* const* argv)
{
    Options options;
    bool takesOptions = true;
    for (int index = 1; index < argc; ++index) {
        std::string_view const word = argv[index];
        if (!takesOptions || word == "-" || !word.starts_with('-')) {
            options.arguments.emplace_back(word);
        } else if (word == "--") {
            takesOptions = false;
        } else if (word == "--help" || word == "-h") {
            options.showsHelp = true;
        } else if (word == "--dark") {
            options.isDark = true;
        } else if (word == "--exit-after-first-frame") {
            options.exitsAfterFirstFrame = true;
        } else if ((word == "--screenshot" || word == "--scale") && index + 1 < argc) {
            std::string const value = argv[++index];
            if (word == "--screenshot")
                options.screenshot = value;
            else if (options.scale = std::strtof(value.c_str(), nullptr); !(options.scale >= 0.5F && options.scale <= 8))
                options.problem = "--scale takes a number from 0.5 to 8, not \"" + value + '"';
        } else {
            options.problem = "unknown option, or one without its value: " + std::string(word);
        }
    }
    return options;
}

std::string optionsHelp()
{
    return "  --screenshot FILE          draw in memory, write a PNG and end\n"
           "  --scale N                  pixels a point of windows in memory (1)\n"
           "  --dark                     the dark look\n"
           "  --exit-after-first-frame   end as soon as the window has been drawn\n"
           "  --help                     this\n";
}

void returnMemory()
{
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    mallopt(M_TRIM_THRESHOLD, 256 * 1024);
    mallopt(M_ARENA_MAX, 1);
}

void prepare(Options const& options)
{
    if (options.isDark)
        plix::setCurrentAppearance(plix::Appearance::dark);
    if (!options.screenshot.empty() || options.drawsInMemory)
        plix::installHost(std::make_unique<plix::HeadlessHost>());
    if (auto* headless = dynamic_cast<plix::HeadlessHost*>(&plix::host()); headless && options.scale > 0)
        headless->headlessDisplay().setScreens({ plix::HeadlessDisplay::defaultScreen(options.scale) });
}

bool writeWindow(plix::NSWindow& window, std::string const& path)
{
    window.displayIfNeeded();
    auto const picture = window.snapshot();
    auto const data = picture ? picture->representationUsingType(plix::NSPNGFileType) : nullptr;
    std::ofstream file(path, std::ios::binary);
    if (data)
        file.write(reinterpret_cast<char const*>(data->bytes().data()), static_cast<std::streamsize>(data->length()));
    file.close();
    if (data && file)
        return true;
    std::cerr << "could not write " << path << '\n';
    return false;
}

}
