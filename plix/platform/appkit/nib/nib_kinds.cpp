#include <plix/platform/appkit/nib/nib_kinds.h>

#include <plix/platform/appkit/classes.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/graphics/NSFontManager.h>

#include <algorithm>
#include <unordered_map>

namespace plix {

namespace {

using enum NibMaking;

constexpr NibKind kinds[] = {
    { "customObject", "NSObject", "NSObject", plain },
    { "window", "NSWindow", "NSWindow", window, { readNibWindow } },
    { "panel", "NSPanel", "NSWindow", window, { readNibWindow } },
    { "menu", "NSMenu", "NSMenu", fromCoder, { readNibMenu } },
    { "menuItem", "NSMenuItem", "NSMenuItem", fromCoder, { readNibMenuItem } },
    { "dateFormatter", "NSDateFormatter", "NSFormatter", fromCoder, { readNibDateFormatter } },
    { "customFormatter", "NSDateFormatter", "NSFormatter", plain },

    { "view", "NSView", "NSView", fromCoder, { readNibView } },
    { "customView", "NSView", "NSView", fromCoder, { readNibView } },
    { "control", "NSControl", "NSView", fromCoder, { readNibView, readNibControl } },
    { "textField", "NSTextField", "NSView", fromCoder, { readNibView, readNibControl } },
    { "button", "NSButton", "NSView", fromCoder, { readNibView, readNibControl } },
    { "popUpButton", "NSPopUpButton", "NSView", fromCoder, { readNibView, readNibControl } },
    { "comboBox", "NSComboBox", "NSView", fromCoder, { readNibView, readNibControl } },
    { "imageView", "NSImageView", "NSView", fromCoder, { readNibView, readNibControl, readNibImageView } },
    { "segmentedControl", "NSSegmentedControl", "NSView", fromCoder, { readNibView, readNibControl } },
    { "datePicker", "NSDatePicker", "NSView", fromCoder, { readNibView, readNibControl } },
    { "progressIndicator", "NSProgressIndicator", "NSView", fromCoder, { readNibView, readNibProgressIndicator } },
    { "box", "NSBox", "NSView", fromCoder, { readNibView, readNibBox } },
    { "splitView", "NSSplitView", "NSView", fromCoder, { readNibView, readNibSplitView } },
    { "scroller", "NSScroller", "NSScroller", fromCoder, { readNibView, readNibControl, readNibScroller } },
    { "scrollView", "NSScrollView", "NSView", fromCoder, { readNibView, readNibScrollView } },
    { "clipView", "NSClipView", "NSClipView", fromCoder, { readNibView, readNibClipView } },
    { "textView", "NSTextView", "NSView", fromCoder, { readNibView, readNibTextView } },
    { "tableView", "NSTableView", "NSView", fromCoder, { readNibView, readNibControl, readNibTableView } },
    { "outlineView", "NSOutlineView", "NSView", fromCoder, { readNibView, readNibControl, readNibTableView, readNibOutlineView } },
    { "tableHeaderView", "NSTableHeaderView", "NSTableHeaderView", fromCoder, { readNibView } },
    { "tableColumn", "NSTableColumn", "NSTableColumn", fromCoder, { readNibTableColumn } },
    { "tabView", "NSTabView", "NSView", fromCoder, { readNibView, readNibTabView } },
    { "tabViewItem", "NSTabViewItem", "NSTabViewItem", fromCoder, { readNibTabViewItem } },

    { "cell", "NSCell", "NSCell", fromCoder, { readNibCell } },
    { "actionCell", "NSActionCell", "NSCell", fromCoder, { readNibCell, readNibActionCell } },
    { "customCell", "NSActionCell", "NSCell", fromCoder, { readNibCell, readNibActionCell } },
    { "textFieldCell", "NSTextFieldCell", "NSCell", fromCoder, { readNibCell, readNibActionCell, readNibTextFieldCell } },
    { "tableHeaderCell", "NSTableHeaderCell", "NSCell", fromCoder, { readNibCell, readNibActionCell, readNibTextFieldCell } },
    { "buttonCell", "NSButtonCell", "NSCell", fromCoder, { readNibCell, readNibActionCell, readNibButtonCell } },
    { "popUpButtonCell", "NSPopUpButtonCell", "NSCell", fromCoder,
        { readNibCell, readNibActionCell, readNibButtonCell, readNibPopUpButtonCell } },
    { "comboBoxCell", "NSComboBoxCell", "NSCell", fromCoder,
        { readNibCell, readNibActionCell, readNibTextFieldCell, readNibComboBoxCell } },
    { "imageCell", "NSImageCell", "NSCell", fromCoder, { readNibCell, readNibImageCell } },
    { "segmentedCell", "NSSegmentedCell", "NSCell", fromCoder, { readNibCell, readNibActionCell, readNibSegmentedCell } },
    { "datePickerCell", "NSDatePickerCell", "NSCell", fromCoder, { readNibCell, readNibActionCell, readNibDatePickerCell } },
};

/// What there is no class for, and the element that says nearly the same.
constexpr struct {
    std::string_view element;
    std::string_view instead;
} standIns[] = {
    { "searchField", "textField" },
    { "secureTextField", "textField" },
    { "tokenField", "textField" },
    { "searchFieldCell", "textFieldCell" },
    { "secureTextFieldCell", "textFieldCell" },
    { "tokenFieldCell", "textFieldCell" },
    { "slider", "control" },
    { "stepper", "control" },
    { "colorWell", "control" },
    { "levelIndicator", "control" },
    { "matrix", "control" },
    { "browser", "control" },
    { "pathControl", "control" },
    { "ruleEditor", "control" },
};

/// What stands in for an unknown element where only objects of a role may be.
constexpr struct {
    std::string_view role;
    std::string_view instead;
} ofRoles[] = {
    { "NSView", "customView" },
    { "NSCell", "actionCell" },
    { "NSMenuItem", "menuItem" },
    { "NSMenu", "menu" },
    { "NSScroller", "scroller" },
    { "NSClipView", "clipView" },
    { "NSTableColumn", "tableColumn" },
    { "NSTableHeaderView", "tableHeaderView" },
};

NibKind const* kindOf(std::string_view element)
{
    static auto const& s_kinds = *[] {
        auto* const map = new std::unordered_map<std::string_view, NibKind const*>;
        for (auto const& kind : kinds)
            map->emplace(kind.element, &kind);
        return map;
    }();
    auto const found = s_kinds.find(element);
    return found != s_kinds.end() && NSClassFromString(found->second->className) ? found->second : nullptr;
}

}

void registerNibClasses()
{
    registerAppKitClasses();
    NSDateFormatter::staticClass();
    NSFontManager::staticClass();
    NSObject::staticClass();
}

NibKind const& nibKind(std::string_view element, std::string_view role, bool& isKnown)
{
    auto const* kind = kindOf(element);
    isKnown = kind != nullptr;
    if (kind)
        return *kind;
    auto const* near = std::ranges::find(standIns, element, [](auto const& entry) { return entry.element; });
    if (near != std::end(standIns))
        return *kindOf(near->instead);
    auto const* fitting = std::ranges::find(ofRoles, role, [](auto const& entry) { return entry.role; });
    return fitting != std::end(ofRoles) ? *kindOf(fitting->instead) : kinds[0];
}

}
