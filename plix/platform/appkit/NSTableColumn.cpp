#include <plix/platform/appkit/NSTableColumn.h>

#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <cmath>

namespace plix {

PLIX_DESCRIBE(NSTableColumn)
{
}

NSTableColumn::NSTableColumn() = default;
NSTableColumn::~NSTableColumn() = default;

bool NSTableColumn::init()
{
    return NSTableColumn::init(ObjectValue());
}

bool NSTableColumn::init(ObjectValue identifier)
{
    m_identifier = std::move(identifier);
    m_headerCell = make<NSTableHeaderCell>("");
    auto const cell = make<NSTextFieldCell>("");
    cell->setFont(NSFont::systemFontOfSize(0));
    cell->setLineBreakMode(NSLineBreakByTruncatingTail);
    cell->setEditable(true);
    m_dataCell = cell;
    return true;
}

bool NSTableColumn::init(NSCoder& coder)
{
    if (!NSTableColumn::init(coder.decodeObjectForKey("identifier")))
        return false;
    if (auto const cell = coder.decodeForKey<NSCell>("headerCell"))
        m_headerCell = cell;
    if (auto const cell = coder.decodeForKey<NSCell>("dataCell"))
        m_dataCell = cell;
    coder.read("minWidth", [this](auto const& value) { setMinWidth(value.floatValue()); });
    coder.read("maxWidth", [this](auto const& value) { setMaxWidth(value.floatValue()); });
    coder.read("width", [this](auto const& value) { setWidth(value.floatValue()); });
    coder.read("resizingMask", [this](auto const& value) { m_resizingMask = static_cast<unsigned>(value.intValue()); });
    coder.read("editable", [this](auto const& value) { m_isEditable = value.boolValue(); });
    m_isHidden = coder.decodeBoolForKey("hidden");
    m_headerToolTip = coder.decodeStringForKey("headerToolTip");
    return true;
}

void NSTableColumn::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeObject(m_identifier, "identifier");
    coder.encodeObject(m_headerCell, "headerCell");
    coder.encodeObject(m_dataCell, "dataCell");
    coder.encodeDouble(static_cast<double>(m_width), "width");
    coder.encodeDouble(static_cast<double>(m_minWidth), "minWidth");
    coder.encodeDouble(static_cast<double>(m_maxWidth), "maxWidth");
    coder.encodeInt(m_resizingMask, "resizingMask");
    coder.encodeBool(m_isEditable, "editable");
    coder.encodeBool(m_isHidden, "hidden");
    coder.encodeObject(m_headerToolTip, "headerToolTip");
}

void NSTableColumn::copyStateTo(NSObject& fresh) const
{
    auto& other = static_cast<NSTableColumn&>(fresh);
    other.m_identifier = m_identifier;
    other.m_headerCell = m_headerCell ? m_headerCell->copy() : nullptr;
    other.m_dataCell = m_dataCell ? m_dataCell->copy() : nullptr;
    other.m_headerToolTip = m_headerToolTip;
    other.m_width = m_width;
    other.m_minWidth = m_minWidth;
    other.m_maxWidth = m_maxWidth;
    other.m_resizingMask = m_resizingMask;
    other.m_isHidden = m_isHidden;
    other.m_isEditable = m_isEditable;
}

void NSTableColumn::setIdentifier(ObjectValue identifier)
{
    m_identifier = std::move(identifier);
}

void NSTableColumn::layoutChanged()
{
    if (m_tableView)
        m_tableView->columnLayoutChanged(*this);
}

void NSTableColumn::looksChanged()
{
    if (m_tableView)
        m_tableView->columnLooksChanged(*this);
}

void NSTableColumn::setWidth(float width)
{
    if (!std::isfinite(width))
        return;
    width = std::max(m_minWidth, std::min(width, m_maxWidth));
    if (m_width == width)
        return;
    float const oldWidth = m_width;
    m_width = width;
    if (m_tableView)
        m_tableView->columnWidthChanged(*this, oldWidth);
}

void NSTableColumn::setMinWidth(float width)
{
    if (!(width >= 0) || !std::isfinite(width))
        return;
    m_minWidth = width;
    setWidth(m_width);
}

void NSTableColumn::setMaxWidth(float width)
{
    if (!(width >= 0) || !std::isfinite(width))
        return;
    m_maxWidth = width;
    setWidth(m_width);
}

void NSTableColumn::setResizingMask(unsigned mask)
{
    if (m_resizingMask == mask)
        return;
    m_resizingMask = mask;
    looksChanged();
}

void NSTableColumn::setResizable(bool isResizable)
{
    setResizingMask(isResizable ? NSTableColumnAutoresizingMask | NSTableColumnUserResizingMask : NSTableColumnNoResizing);
}

void NSTableColumn::sizeToFit()
{
    if (!m_headerCell)
        return;
    float const width = m_headerCell->cellSize().width;
    m_minWidth = std::min(m_minWidth, width);
    m_maxWidth = std::max(m_maxWidth, width);
    setWidth(width);
}

void NSTableColumn::setHidden(bool isHidden)
{
    if (m_isHidden == isHidden)
        return;
    m_isHidden = isHidden;
    layoutChanged();
}

NSCell* NSTableColumn::headerCell() const
{
    return m_headerCell.get();
}

void NSTableColumn::setHeaderCell(Ref<NSCell> const& cell)
{
    m_headerCell = cell;
    looksChanged();
}

NSCell* NSTableColumn::dataCell() const
{
    return m_dataCell.get();
}

void NSTableColumn::setDataCell(Ref<NSCell> const& cell)
{
    m_dataCell = cell;
    looksChanged();
}

void NSTableColumn::setHeaderToolTip(std::string text)
{
    if (m_headerToolTip == text)
        return;
    m_headerToolTip = std::move(text);
    looksChanged();
}

}
