#include "SearchField.h"
#include "SearchFieldCell.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>

namespace gallery {

using namespace plix;

SearchField::SearchField() = default;
SearchField::~SearchField() = default;

bool SearchField::init(Rect frame)
{
    if (!NSTextField::init(frame))
        return false;
    setBezelStyle(NSTextFieldRoundedBezel);
    cell()->setScrollable(true);
    static_cast<NSTextFieldCell*>(cell())->setPlaceholderString("Search");
    m_clearButton = make<NSButton>(Rect { frame.width - 22, (frame.height - 16) / 2, 16, 16 });
    m_clearButton->setBordered(false);
    m_clearButton->setTitle("\u00D7");
    m_clearButton->setRefusesFirstResponder(true);
    m_clearButton->setAutoresizingMask(NSViewMinXMargin);
    m_clearButton->setToolTip("Shows all pages");
    m_clearButton->setTarget(*this, &SearchField::clear);
    m_clearButton->setHidden(true);
    addSubview(*m_clearButton);
    return true;
}

Class const* SearchField::ownCellClass() const
{
    return &SearchFieldCell::staticClass();
}

void SearchField::clear()
{
    setStringValue("");
    if (delegateHooks().controlTextDidChange)
        delegateHooks().controlTextDidChange({ NSControlTextDidChangeNotification, this, {} });
}

void SearchField::textDidChange(NSNotification const& notification)
{
    NSTextField::textDidChange(notification);
    updateButton();
}

void SearchField::setStringValue(std::string_view text)
{
    NSTextField::setStringValue(text);
    updateButton();
}

void SearchField::updateButton()
{
    if (m_clearButton)
        m_clearButton->setHidden(stringValue().empty());
}

}
