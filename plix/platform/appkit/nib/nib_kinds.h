#pragma once

#include <array>
#include <string_view>

namespace plix {

class NibReading;

/// Where an object of an interface file comes from.
enum class NibMaking {
    /// From its class's init(NSCoder&), with what its element says under the keys of an archive.
    fromCoder,
    /// From the content-rectangle init of a window.
    window,
    /// From its class's init().
    plain,
};

/// What an element of interface files is: the class of the objects that it stands for, and what reads it.
struct NibKind {
    using Read = void (*)(NibReading&);

    std::string_view element;
    std::string_view className;
    /// The class that a custom class in its place must be or descend from.
    std::string_view role;
    NibMaking making { NibMaking::fromCoder };
    std::array<Read, 4> reads {};
};

/// What an element is; where nothing is known under that name, the nearest thing that stands for an object of that role, with
/// `isKnown` false.
NibKind const& nibKind(std::string_view element, std::string_view role, bool& isKnown);

/// Makes the classes known by name that interface files may name.
void registerNibClasses();

// What reads the elements of each kind, base first.
void readNibView(NibReading&);
void readNibControl(NibReading&);
void readNibBox(NibReading&);
void readNibSplitView(NibReading&);
void readNibScroller(NibReading&);
void readNibScrollView(NibReading&);
void readNibClipView(NibReading&);
void readNibProgressIndicator(NibReading&);
void readNibImageView(NibReading&);
void readNibTextView(NibReading&);
void readNibTableView(NibReading&);
void readNibOutlineView(NibReading&);
void readNibTableColumn(NibReading&);
void readNibTabView(NibReading&);
void readNibTabViewItem(NibReading&);

void readNibCell(NibReading&);
void readNibActionCell(NibReading&);
void readNibTextFieldCell(NibReading&);
void readNibButtonCell(NibReading&);
void readNibPopUpButtonCell(NibReading&);
void readNibComboBoxCell(NibReading&);
void readNibImageCell(NibReading&);
void readNibSegmentedCell(NibReading&);
void readNibDatePickerCell(NibReading&);

void readNibMenu(NibReading&);
void readNibMenuItem(NibReading&);
void readNibWindow(NibReading&);
void readNibDateFormatter(NibReading&);

}
