#include <plix/platform/appkit/NSTextView.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSUndoManager.h>

namespace plix {

Ref<NSMenu> NSTextView::defaultMenu()
{
    auto menu = make<NSMenu>();
    menu->addItemWithTitle("Undo", Selector("undo:"), "");
    menu->addItemWithTitle("Redo", Selector("redo:"), "");
    menu->addItem(*NSMenuItem::separatorItem());
    menu->addItemWithTitle("Cut", Selector("cut:"), "");
    menu->addItemWithTitle("Copy", Selector("copy:"), "");
    menu->addItemWithTitle("Paste", Selector("paste:"), "");
    menu->addItemWithTitle("Delete", Selector("delete:"), "");
    menu->addItem(*NSMenuItem::separatorItem());
    menu->addItemWithTitle("Select All", Selector("selectAll:"), "");
    return menu;
}

NSMenu* NSTextView::menuForEvent(NSEvent& event)
{
    if (auto* own = Base::menuForEvent(event))
        return own;
    if (!isSelectable())
        return nullptr;
    if (!m_menu)
        m_menu = defaultMenu();
    return m_menu.get();
}

// The items are about the word under the pointer, unless it is on what is selected.
void NSTextView::rightMouseDown(NSEvent& event)
{
    Ref<NSTextView> const protector(this);
    if (isSelectable() && window()) {
        if (window()->firstResponder() != this)
            window()->makeFirstResponder(this);
        Point const point = convertPointFromView(event.locationInWindow(), nullptr);
        long const index = characterIndexForInsertionAtPoint(point);
        auto const selected = selectedRange();
        if (index < selected.location || index > selected.end() || selected.length == 0)
            setSelectedRange(selectionRangeForProposedRange({ index, 0 }, NSSelectByWord));
    }
    Base::rightMouseDown(event);
}

bool NSTextView::validateMenuItem(NSMenuItem& item)
{
    auto const action = item.action();
    bool const hasSelection = selectedRange().length > 0;
    if (action == Selector("cut:") || action == Selector("delete:"))
        return isEditable() && hasSelection;
    if (action == Selector("copy:"))
        return hasSelection;
    if (action == Selector("paste:"))
        return isEditable() && NSPasteboard::generalPasteboard().availableTypeFromArray({ NSStringPboardType });
    if (action == Selector("selectAll:"))
        return length() > 0;
    auto const* manager = m_allowsUndo ? undoManager() : nullptr;
    if (action == Selector("undo:"))
        return manager && manager->canUndo();
    if (action == Selector("redo:"))
        return manager && manager->canRedo();
    return true;
}

}
