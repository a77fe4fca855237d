#include <plix/platform/appkit/NSComboBox.h>

#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/base/utf16.h>

#include <utility>

namespace plix {

PLIX_DESCRIBE(NSComboBox)
{
    description.hookOutlet("dataSource", &NSComboBox::takeDataSource);
}

bool NSComboBox::init()
{
    return NSComboBox::init(Rect {});
}

bool NSComboBox::init(Rect frame)
{
    return Base::init(frame);
}

bool NSComboBox::init(NSCoder& coder)
{
    return Base::init(coder);
}

Class const* NSComboBox::cellClass()
{
    return &NSComboBoxCell::staticClass();
}

NSComboBoxCell& NSComboBox::comboCell() const
{
    auto* combo = dynamic_cast<NSComboBoxCell*>(cell());
    if (!combo)
        throw std::logic_error("NSComboBox: its cell is no NSComboBoxCell");
    return *combo;
}

void NSComboBox::takeHooks(HookSource const& source)
{
    Base::takeHooks(source);
    m_comboHooks = source.hooks<NSComboBoxDelegate>();
}

void NSComboBox::takeDataSource(HookSource const& source)
{
    m_dataSource = source.hooks<NSComboBoxDataSource>();
    auto& asked = comboCell().m_source;
    asked = {};
    if (m_dataSource.numberOfItemsInComboBox)
        asked.count = [this] { return m_dataSource.numberOfItemsInComboBox(*this); };
    if (m_dataSource.objectValueForItemAtIndex)
        asked.value = [this](long index) { return m_dataSource.objectValueForItemAtIndex(*this, index); };
    if (m_dataSource.indexOfItemWithStringValue)
        asked.indexOf = [this](std::string_view text) { return m_dataSource.indexOfItemWithStringValue(*this, text); };
    if (m_dataSource.completedString)
        asked.complete = [this](std::string_view typed) { return m_dataSource.completedString(*this, typed); };
    comboCell().reloadData();
}

// MARK: those of the cell

long NSComboBox::numberOfVisibleItems() const
{
    return comboCell().numberOfVisibleItems();
}

void NSComboBox::setNumberOfVisibleItems(long count)
{
    comboCell().setNumberOfVisibleItems(count);
}

float NSComboBox::itemHeight() const
{
    return comboCell().itemHeight();
}

void NSComboBox::setItemHeight(float height)
{
    comboCell().setItemHeight(height);
}

bool NSComboBox::hasVerticalScroller() const
{
    return comboCell().hasVerticalScroller();
}

void NSComboBox::setHasVerticalScroller(bool has)
{
    comboCell().setHasVerticalScroller(has);
}

bool NSComboBox::completes() const
{
    return comboCell().completes();
}

void NSComboBox::setCompletes(bool completes)
{
    comboCell().setCompletes(completes);
}

bool NSComboBox::usesDataSource() const
{
    return comboCell().usesDataSource();
}

void NSComboBox::setUsesDataSource(bool uses)
{
    comboCell().setUsesDataSource(uses);
}

void NSComboBox::reloadData()
{
    comboCell().reloadData();
}

void NSComboBox::addItemWithObjectValue(ObjectValue value)
{
    comboCell().addItemWithObjectValue(std::move(value));
}

void NSComboBox::addItemsWithObjectValues(std::vector<ObjectValue> const& values)
{
    comboCell().addItemsWithObjectValues(values);
}

void NSComboBox::insertItemWithObjectValue(ObjectValue value, long index)
{
    comboCell().insertItemWithObjectValue(std::move(value), index);
}

void NSComboBox::removeItemWithObjectValue(ObjectValue const& value)
{
    comboCell().removeItemWithObjectValue(value);
}

void NSComboBox::removeItemAtIndex(long index)
{
    comboCell().removeItemAtIndex(index);
}

void NSComboBox::removeAllItems()
{
    comboCell().removeAllItems();
}

std::vector<ObjectValue> const& NSComboBox::objectValues() const
{
    return comboCell().objectValues();
}

long NSComboBox::numberOfItems() const
{
    return comboCell().numberOfItems();
}

ObjectValue NSComboBox::itemObjectValueAtIndex(long index) const
{
    return comboCell().itemObjectValueAtIndex(index);
}

long NSComboBox::indexOfItemWithObjectValue(ObjectValue const& value) const
{
    return comboCell().indexOfItemWithObjectValue(value);
}

long NSComboBox::indexOfSelectedItem() const
{
    return comboCell().indexOfSelectedItem();
}

void NSComboBox::selectItemAtIndex(long index)
{
    comboCell().selectItemAtIndex(index);
}

void NSComboBox::deselectItemAtIndex(long index)
{
    comboCell().deselectItemAtIndex(index);
}

void NSComboBox::selectItemWithObjectValue(ObjectValue const& value)
{
    comboCell().selectItemWithObjectValue(value);
}

ObjectValue NSComboBox::objectValueOfSelectedItem() const
{
    return comboCell().objectValueOfSelectedItem();
}

void NSComboBox::scrollItemAtIndexToVisible(long index)
{
    comboCell().scrollItemAtIndexToVisible(index);
}

void NSComboBox::scrollItemAtIndexToTop(long index)
{
    comboCell().scrollItemAtIndexToTop(index);
}

// MARK: mouse and keyboard

void NSComboBox::mouseDown(NSEvent& event)
{
    Ref<NSComboBox> const protector(this);
    auto& combo = comboCell();
    Point const point = convertPointFromView(event.locationInWindow(), nullptr);
    if (!isEnabled() || !mouseInRect(point, combo.buttonRectForBounds(bounds()))) {
        Base::mouseDown(event);
        return;
    }
    // The list goes with the keyboard.
    if (!currentEditor() && isEditable())
        selectText(nullptr);
    combo.popUpList(bounds(), *this, &event);
}

bool NSComboBox::textViewDoCommandBySelector(NSTextView& editor, Selector command)
{
    if (Base::textViewDoCommandBySelector(editor, command))
        return true;
    bool const opens = command == Selector("moveDown:") || command == Selector("moveUp:");
    if (!opens || comboCell().isListOpen())
        return false;
    Ref<NSComboBox> const protector(this);
    comboCell().popUpList(bounds(), *this, nullptr);
    return true;
}

void NSComboBox::textDidBeginEditing(NSNotification const& notification)
{
    m_typedBefore.clear();
    Base::textDidBeginEditing(notification);
}

void NSComboBox::textDidChange(NSNotification const& notification)
{
    Ref<NSComboBox> const protector(this);
    if (Ref<NSText> const editor = currentEditor(); editor && !m_isCompleting)
        completeTyped(*editor);
    Base::textDidChange(notification);
}

// Only behind what was typed at the end: not when something is taken away or changed before it.
void NSComboBox::completeTyped(NSText& editor)
{
    auto const typed = editor.string();
    auto const before = std::exchange(m_typedBefore, typed);
    auto const* view = dynamic_cast<NSTextView*>(&editor);
    bool const isAtEnd = view && !view->hasMarkedText() && editor.selectedRange().length == 0
        && editor.selectedRange().location == utf16Length(typed);
    if (!completes() || !isAtEnd || typed.size() <= before.size())
        return;
    auto const completed = comboCell().completedString(typed);
    if (!completed || completed->size() <= typed.size())
        return;
    m_isCompleting = true;
    editor.setString(*completed);
    m_isCompleting = false;
    long const length = utf16Length(typed);
    editor.setSelectedRange({ length, utf16Length(*completed) - length });
}

}
