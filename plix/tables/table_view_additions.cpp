#include <plix/tables/table_view_additions.h>

#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/tables/selection_colors.h>

namespace plix {

namespace {

Ref<NSColor> calibratedColor(ColorComponents const& color)
{
    return NSColor::colorWithCalibratedRed(color.red, color.green, color.blue, color.alpha);
}

ViewFocus focusOf(NSTableView const& table)
{
    auto const* window = table.window();
    if (!window || !window->isKeyWindow())
        return ViewFocus::inactive;
    NSResponder const* responder = window->firstResponder();
    bool const isFocused = responder == table.currentEditor() || responder == &table;
    return isFocused ? ViewFocus::active : ViewFocus::inactive;
}

}

ColorComponents selectionComponents(NSTableView const& table)
{
    auto const base = NSColor::alternateSelectedControlColor()->components();
    return selectionFill(base, focusOf(table), table.isEnabled() ? ViewState::enabled : ViewState::disabled);
}

Ref<NSColor> selectionColor(NSTableView const& table)
{
    return calibratedColor(selectionComponents(table));
}

Ref<NSColor> selectionOutlineColor(NSTableView const& table)
{
    return calibratedColor(selectionEdge(selectionComponents(table)));
}

bool selectionShouldDrawGradient(NSTableView const& table)
{
    return focusOf(table) == ViewFocus::active && table.isEnabled();
}

}
