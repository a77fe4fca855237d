#include <plix/platform/appkit/NSComboBoxCell.h>

#include <plix/platform/appkit/ComboList.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/appkit/combo_layout.h>
#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace plix {

namespace {

constexpr float buttonWidth = 20;

}

PLIX_DESCRIBE(NSComboBoxCell)
{
    description.hookOutlet("dataSource", &NSComboBoxCell::takeDataSource);
}

NSComboBoxCell::NSComboBoxCell() = default;
NSComboBoxCell::~NSComboBoxCell() = default;

bool NSComboBoxCell::init()
{
    return NSComboBoxCell::init(std::string_view {});
}

bool NSComboBoxCell::init(std::string_view text)
{
    if (!Base::init(text))
        return false;
    setScrollable(true);
    return true;
}

bool NSComboBoxCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    auto const items = coder.decodeObjectForKey("items");
    if (items.array())
        m_items = *items.array();
    coder.read("hasVerticalScroller", [&](ObjectValue const& value) { m_hasVerticalScroller = value.boolValue(); });
    coder.read("itemHeight", [&](ObjectValue const& value) { setItemHeight(value.floatValue()); });
    coder.read("intercellSpacing", [&](ObjectValue const& value) { setIntercellSpacing(NSSizeFromString(value.description())); });
    coder.read("numberOfVisibleItems", [&](ObjectValue const& value) { setNumberOfVisibleItems(value.intValue()); });
    coder.read("buttonBordered", [&](ObjectValue const& value) { m_isButtonBordered = value.boolValue(); });
    coder.read("completes", [&](ObjectValue const& value) { m_completes = value.boolValue(); });
    coder.read("usesDataSource", [&](ObjectValue const& value) { m_usesDataSource = value.boolValue(); });
    return true;
}

void NSComboBoxCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_items, "items");
    coder.encodeBool(m_hasVerticalScroller, "hasVerticalScroller");
    coder.encodeDouble(m_itemHeight, "itemHeight");
    coder.encodeObject(NSStringFromSize(m_intercellSpacing), "intercellSpacing");
    coder.encodeInt(m_visibleItems, "numberOfVisibleItems");
    coder.encodeBool(m_isButtonBordered, "buttonBordered");
    coder.encodeBool(m_completes, "completes");
    coder.encodeBool(m_usesDataSource, "usesDataSource");
}

void NSComboBoxCell::setIntercellSpacing(Size spacing)
{
    m_intercellSpacing = { std::isfinite(spacing.width) ? std::max(0.F, spacing.width) : 0,
        std::isfinite(spacing.height) ? std::max(0.F, spacing.height) : 0 };
}

void NSComboBoxCell::setItemHeight(float height)
{
    m_itemHeight = std::isfinite(height) ? std::clamp(height, 1.F, 1000.F) : 17;
}

void NSComboBoxCell::setNumberOfVisibleItems(long count)
{
    m_visibleItems = std::max(1L, count);
}

void NSComboBoxCell::setButtonBordered(bool isBordered)
{
    if (m_isButtonBordered == isBordered)
        return;
    m_isButtonBordered = isBordered;
    looksChanged();
}

// MARK: items

void NSComboBoxCell::takeDataSource(HookSource const& source)
{
    m_cellSource = source.hooks<NSComboBoxCellDataSource>();
    askCellSource();
    reloadData();
}

// In the cell's own name.
void NSComboBoxCell::askCellSource()
{
    m_source = {};
    if (m_cellSource.numberOfItemsInComboBoxCell)
        m_source.count = [this] { return m_cellSource.numberOfItemsInComboBoxCell(*this); };
    if (m_cellSource.objectValueForItemAtIndex)
        m_source.value = [this](long index) { return m_cellSource.objectValueForItemAtIndex(*this, index); };
    if (m_cellSource.indexOfItemWithStringValue)
        m_source.indexOf = [this](std::string_view text) { return m_cellSource.indexOfItemWithStringValue(*this, text); };
    if (m_cellSource.completedString)
        m_source.complete = [this](std::string_view typed) { return m_cellSource.completedString(*this, typed); };
}

void NSComboBoxCell::setUsesDataSource(bool uses)
{
    m_usesDataSource = uses;
    reloadData();
}

// An open list shows what it was opened with.
void NSComboBoxCell::reloadData()
{
    if (m_selected >= numberOfItems())
        m_selected = -1;
}

void NSComboBoxCell::requireOwnItems(char const* operation) const
{
    if (m_usesDataSource)
        throw std::logic_error(std::string(operation) + ": the combo box has its items from a data source");
}

void NSComboBoxCell::addItemWithObjectValue(ObjectValue value)
{
    requireOwnItems("addItemWithObjectValue");
    m_items.push_back(std::move(value));
}

void NSComboBoxCell::addItemsWithObjectValues(std::vector<ObjectValue> const& values)
{
    requireOwnItems("addItemsWithObjectValues");
    m_items.insert(m_items.end(), values.begin(), values.end());
}

void NSComboBoxCell::insertItemWithObjectValue(ObjectValue value, long index)
{
    requireOwnItems("insertItemWithObjectValue");
    auto const count = static_cast<long>(m_items.size());
    if (index < 0 || index > count)
        raiseRangeException("NSComboBoxCell insertItemWithObjectValue", index, count);
    m_items.insert(m_items.begin() + index, std::move(value));
    if (m_selected >= index)
        ++m_selected;
}

void NSComboBoxCell::removeItemWithObjectValue(ObjectValue const& value)
{
    requireOwnItems("removeItemWithObjectValue");
    if (long const index = indexOfItemWithObjectValue(value); index >= 0)
        removeItemAtIndex(index);
}

void NSComboBoxCell::removeItemAtIndex(long index)
{
    requireOwnItems("removeItemAtIndex");
    auto const count = static_cast<long>(m_items.size());
    if (index < 0 || index >= count)
        raiseRangeException("NSComboBoxCell removeItemAtIndex", index, count);
    m_items.erase(m_items.begin() + index);
    if (m_selected == index)
        m_selected = -1;
    else if (m_selected > index)
        --m_selected;
}

void NSComboBoxCell::removeAllItems()
{
    requireOwnItems("removeAllItems");
    m_items.clear();
    m_selected = -1;
}

std::vector<ObjectValue> const& NSComboBoxCell::objectValues() const
{
    requireOwnItems("objectValues");
    return m_items;
}

long NSComboBoxCell::indexOfItemWithObjectValue(ObjectValue const& value) const
{
    requireOwnItems("indexOfItemWithObjectValue");
    auto const found = std::ranges::find(m_items, value);
    return found == m_items.end() ? -1 : found - m_items.begin();
}

long NSComboBoxCell::numberOfItems() const
{
    if (m_usesDataSource)
        return m_source.count ? std::max(0L, m_source.count()) : 0;
    return static_cast<long>(m_items.size());
}

ObjectValue NSComboBoxCell::itemObjectValueAtIndex(long index) const
{
    if (m_usesDataSource)
        return m_source.value ? m_source.value(index) : ObjectValue();
    auto const count = static_cast<long>(m_items.size());
    if (index < 0 || index >= count)
        raiseRangeException("NSComboBoxCell itemObjectValueAtIndex", index, count);
    return m_items[static_cast<std::size_t>(index)];
}

std::string NSComboBoxCell::textOfItem(long index) const
{
    auto const value = itemObjectValueAtIndex(index);
    if (auto const* format = formatter()) {
        if (auto text = format->stringForObjectValue(value))
            return *std::move(text);
    }
    return value.description();
}

// MARK: selection

void NSComboBoxCell::selectItemAtIndex(long index)
{
    if (index < -1 || index >= numberOfItems())
        raiseRangeException("NSComboBoxCell selectItemAtIndex", index, numberOfItems());
    if (m_selected == index)
        return;
    m_selected = index;
    tell(NSComboBoxSelectionDidChangeNotification, &NSComboBoxDelegate::comboBoxSelectionDidChange);
}

void NSComboBoxCell::deselectItemAtIndex(long index)
{
    if (m_selected == index)
        selectItemAtIndex(-1);
}

void NSComboBoxCell::selectItemWithObjectValue(ObjectValue const& value)
{
    selectItemAtIndex(indexOfItemWithObjectValue(value));
}

ObjectValue NSComboBoxCell::objectValueOfSelectedItem() const
{
    requireOwnItems("objectValueOfSelectedItem");
    return m_selected < 0 || m_selected >= numberOfItems() ? ObjectValue() : itemObjectValueAtIndex(m_selected);
}

long NSComboBoxCell::indexOfItemWithText(std::string_view text) const
{
    if (m_usesDataSource && m_source.indexOf) {
        long const found = m_source.indexOf(text);
        return found >= 0 && found < numberOfItems() ? found : -1;
    }
    for (long i = 0; i < numberOfItems(); ++i) {
        if (textOfItem(i) == text)
            return i;
    }
    return -1;
}

std::optional<std::string> NSComboBoxCell::completedString(std::string_view typed) const
{
    if (m_usesDataSource && m_source.complete)
        return m_source.complete(typed);
    for (long i = 0; i < numberOfItems() && !typed.empty(); ++i) {
        auto text = textOfItem(i);
        if (foldedPrefixLength(text, typed) != std::string_view::npos)
            return text;
    }
    return std::nullopt;
}

void NSComboBoxCell::scrollItemAtIndexToTop(long index)
{
    m_firstShown = std::max(0L, index);
}

void NSComboBoxCell::scrollItemAtIndexToVisible(long index)
{
    if (index < m_firstShown)
        m_firstShown = std::max(0L, index);
    else if (index >= m_firstShown + m_visibleItems)
        m_firstShown = index - m_visibleItems + 1;
}

// MARK: the list

void NSComboBoxCell::tell(char const* name, Hook<void(NSNotification const&)> NSComboBoxDelegate::*hook)
{
    Ref<NSComboBoxCell> const protector(this);
    Ref<NSView> const view(controlView());
    NSNotification const notification { name, view ? Ref<NSObject>(view) : Ref<NSObject>(this), {} };
    if (auto const* box = dynamic_cast<NSComboBox*>(view.get()))
        (box->comboDelegateHooks().*hook)(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

bool NSComboBoxCell::isListOpen() const
{
    return controlView() && ComboList::isOpenFor(*controlView());
}

void NSComboBoxCell::popUpList(Rect frame, NSView& controlView, NSEvent* event)
{
    Ref<NSComboBoxCell> const protector(this);
    Ref<NSView> const view(controlView);
    setControlView(&controlView);
    tell(NSComboBoxWillPopUpNotification, &NSComboBoxDelegate::comboBoxWillPopUp);
    long const count = numberOfItems();
    if (count <= 0 || !view->window())
        return;
    auto const* control = dynamic_cast<NSControl const*>(view.get());
    auto const fieldText = [&] { return control && control->currentEditor() ? control->currentEditor()->string() : stringValue(); };
    ComboList::Items items;
    items.shape = { count, m_visibleItems, m_itemHeight + m_intercellSpacing.height };
    items.hasScroller = m_hasVerticalScroller;
    items.selected = indexOfItemWithText(fieldText());
    items.firstShown = std::clamp(m_firstShown, 0L, count - 1);
    Ref<NSFont> const listFont(font());
    items.font = listFont.get();
    items.text = [this](long index) { return index < numberOfItems() ? textOfItem(index) : std::string(); };
    items.lit = [this](long) { tell(NSComboBoxSelectionIsChangingNotification, &NSComboBoxDelegate::comboBoxSelectionIsChanging); };
    items.itemOfField = [&] { return indexOfItemWithText(fieldText()); };
    m_isButtonPressed = true;
    view->setNeedsDisplayInRect(frame);
    long const chosen = ComboList::run(*view, frame, items, event);
    m_isButtonPressed = false;
    view->setNeedsDisplayInRect(frame);
    tell(NSComboBoxWillDismissNotification, &NSComboBoxDelegate::comboBoxWillDismiss);
    if (chosen >= 0 && chosen < numberOfItems())
        choose(chosen);
}

void NSComboBoxCell::choose(long index)
{
    Ref<NSView> const view(controlView());
    auto const value = itemObjectValueAtIndex(index);
    auto* const control = dynamic_cast<NSControl*>(view.get());
    // Also where an editor stands in the cell, which takes the text up.
    if (control && control->cell() == this)
        control->setObjectValue(value);
    else
        setObjectValue(value);
    if (index < numberOfItems())
        selectItemAtIndex(index);
    if (auto* editor = control ? control->currentEditor() : nullptr)
        editor->selectAll(nullptr);
    sendAction();
}

Rect NSComboBoxCell::buttonRectForBounds(Rect bounds) const
{
    return comboButtonRect(bounds, buttonWidth);
}

bool NSComboBoxCell::trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool untilMouseUp)
{
    Point const point = controlView.convertPointFromView(event.locationInWindow(), nullptr);
    if (!isEnabled() || !controlView.mouseInRect(point, buttonRectForBounds(frame)))
        return Base::trackMouse(event, frame, controlView, untilMouseUp);
    popUpList(frame, controlView, &event);
    return true;
}

// MARK: geometry and drawing

Rect NSComboBoxCell::drawingRectForBounds(Rect bounds) const
{
    if (!m_drawsInterior)
        bounds.width = std::max(0.F, bounds.width - buttonRectForBounds(bounds).width);
    return Base::drawingRectForBounds(bounds);
}

Size NSComboBoxCell::cellSizeForBounds(Rect bounds) const
{
    auto const size = Base::cellSizeForBounds({ bounds.x, bounds.y, std::max(0.F, bounds.width - buttonWidth), bounds.height });
    return { size.width + buttonWidth, size.height };
}

void NSComboBoxCell::resetCursorRect(Rect frame, NSView& controlView)
{
    frame.width = std::max(0.F, frame.width - buttonRectForBounds(frame).width);
    m_drawsInterior = true;
    Base::resetCursorRect(frame, controlView);
    m_drawsInterior = false;
}

void NSComboBoxCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    auto const& theme = Theme::current();
    auto const look = lookInView(controlView);
    Ref<NSColor> const background = drawsBackground() ? Ref<NSColor>(backgroundColor()) : nullptr;
    if (isBezeled())
        theme.drawFieldBezel(frame, FieldShape::square, look, background.get());
    else if (background)
        theme.fill(frame, *background);
    if (isBordered())
        theme.drawBorder(NSLineBorder, frame);
    auto const button = buttonRectForBounds(frame);
    theme.drawComboButton(
        button, { .control = look, .style = NSSmallSquareBezelStyle }, m_isButtonBordered, m_isButtonPressed || isHighlighted());
    drawInteriorWithFrame({ frame.x, frame.y, std::max(0.F, frame.width - button.width), frame.height }, controlView);
    if (drawsFocusRing(controlView))
        theme.drawFocusRing(frame, FieldShape::square);
}

// The frame is that of the text alone.
void NSComboBoxCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    m_drawsInterior = true;
    Base::drawInteriorWithFrame(frame, controlView);
    m_drawsInterior = false;
}

void NSComboBoxCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSComboBoxCell&>(fresh);
    other.m_items = m_items;
    other.m_cellSource = m_cellSource;
    // A control's source stays the control's.
    other.askCellSource();
    other.m_intercellSpacing = m_intercellSpacing;
    other.m_itemHeight = m_itemHeight;
    other.m_visibleItems = m_visibleItems;
    other.m_selected = m_selected;
    other.m_firstShown = m_firstShown;
    other.m_hasVerticalScroller = m_hasVerticalScroller;
    other.m_usesDataSource = m_usesDataSource;
    other.m_isButtonBordered = m_isButtonBordered;
    other.m_completes = m_completes;
}

}
