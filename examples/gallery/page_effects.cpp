#include "page_effects.h"

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>

#include <fstream>
#include <iterator>

namespace gallery {

using namespace plix;

void setHighlightStyle(NSView& page, std::uint32_t style)
{
    if (auto* const table = dynamic_cast<PLIXTableView*>(&page))
        table->setHighlightStyle(style);
    if (auto* const outline = dynamic_cast<PLIXOutlineView*>(&page))
        outline->setHighlightStyle(style);
    page.setNeedsDisplay(true);
    for (auto const& view : std::vector(page.subviews()))
        setHighlightStyle(*view, style);
}

void disableControls(NSView& page)
{
    if (auto* const control = dynamic_cast<NSControl*>(&page))
        control->setEnabled(false);
    for (auto const& view : std::vector(page.subviews()))
        disableControls(*view);
}

std::string sourceFile(std::string_view name)
{
    auto const path = NSBundle::mainBundle().pathForResource(name, "", "gallery-sources");
    std::ifstream file(path.value_or(""), std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

}
