#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/ObjectValue.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

class NSComboBox;
class NSComboBoxCell;

/// Where a combo box that uses a data source has its items from.
struct NSComboBoxDataSource {
    // The items of the list.
    Hook<long(NSComboBox&)> numberOfItemsInComboBox;
    Hook<ObjectValue(NSComboBox&, long index)> objectValueForItemAtIndex;
    /// Which item has this text, -1 for none; without it the items are looked through.
    Hook<long(NSComboBox&, std::string_view text)> indexOfItemWithStringValue;
    /// What a beginning that was typed is completed to.
    Hook<std::optional<std::string>(NSComboBox&, std::string_view typed)> completedString;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(numberOfItemsInComboBox);
        PLIX_FILL_HOOK(objectValueForItemAtIndex);
        PLIX_FILL_HOOK(indexOfItemWithStringValue);
        PLIX_FILL_HOOK(completedString);
    }
};

/// The same for a cell by itself, in a table.
struct NSComboBoxCellDataSource {
    // As a combo box's data source, asked by a cell.
    Hook<long(NSComboBoxCell&)> numberOfItemsInComboBoxCell;
    Hook<ObjectValue(NSComboBoxCell&, long index)> objectValueForItemAtIndex;
    Hook<long(NSComboBoxCell&, std::string_view text)> indexOfItemWithStringValue;
    Hook<std::optional<std::string>(NSComboBoxCell&, std::string_view typed)> completedString;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(numberOfItemsInComboBoxCell);
        PLIX_FILL_HOOK(objectValueForItemAtIndex);
        PLIX_FILL_HOOK(indexOfItemWithStringValue);
        PLIX_FILL_HOOK(completedString);
    }
};

/// What a combo box tells its delegate beyond what a field does.
struct NSComboBoxDelegate {
    // Told with the notification of the like name.
    Hook<void(NSNotification const&)> comboBoxWillPopUp;
    Hook<void(NSNotification const&)> comboBoxWillDismiss;
    Hook<void(NSNotification const&)> comboBoxSelectionDidChange;
    /// While the list is open.
    Hook<void(NSNotification const&)> comboBoxSelectionIsChanging;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(comboBoxWillPopUp);
        PLIX_FILL_HOOK(comboBoxWillDismiss);
        PLIX_FILL_HOOK(comboBoxSelectionDidChange);
        PLIX_FILL_HOOK(comboBoxSelectionIsChanging);
    }
};

// Posted with the combo box as object, or the control that the cell is in.
inline constexpr char const* NSComboBoxWillPopUpNotification = "NSComboBoxWillPopUpNotification";
inline constexpr char const* NSComboBoxWillDismissNotification = "NSComboBoxWillDismissNotification";
inline constexpr char const* NSComboBoxSelectionDidChangeNotification = "NSComboBoxSelectionDidChangeNotification";
inline constexpr char const* NSComboBoxSelectionIsChangingNotification = "NSComboBoxSelectionIsChangingNotification";

}
