#include <plix/tables/PLIXTableView.h>

#include <plix/drawing/text_height.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>

namespace plix {

namespace {

constexpr float messageFontSize = 15.0F;

}

PLIX_DESCRIBE(PLIXTableView)
{
    description.action("deleteBackward:", &PLIXTableView::deleteBackward);
}

PLIXTableView::PLIXTableView() = default;
PLIXTableView::~PLIXTableView() = default;

bool PLIXTableView::init()
{
    return Base::init();
}

bool PLIXTableView::init(Rect frame)
{
    return Base::init(frame);
}

bool PLIXTableView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("emptyString", [&](ObjectValue const& value) {
        if (value)
            m_emptyString = value.description();
    });
    coder.read(
        "emptyAttributedString", [&](ObjectValue const& value) { m_emptyAttributedString = value.as<NSAttributedString>(); });
    return true;
}

void PLIXTableView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_emptyString ? ObjectValue(*m_emptyString) : ObjectValue(), "emptyString");
    coder.encodeObject(m_emptyAttributedString, "emptyAttributedString");
}

void PLIXTableView::setEmptyAttributedString(Ref<NSAttributedString> const& text)
{
    m_emptyAttributedString = text;
}

// MARK: hooks

void PLIXTableView::takeHooks(HookSource const& source)
{
    m_hooks = source.hooks<PLIXTableViewDelegate>();
    Base::takeHooks(source);
}

void PLIXTableView::takeDataSource(HookSource const& source)
{
    m_dataHooks = source.hooks<PLIXTableViewDataSource>();
    Base::takeDataSource(source);
}

void PLIXTableView::setDelegateHooks(PLIXTableViewDelegate hooks)
{
    Base::setDelegateHooks(hooks);
    m_hooks = std::move(hooks);
}

void PLIXTableView::setDataSourceHooks(PLIXTableViewDataSource hooks)
{
    m_dataHooks = hooks;
    Base::setDataSourceHooks(std::move(hooks));
}

void PLIXTableView::tellReturnKey()
{
    if (m_hooks.returnKey)
        m_hooks.returnKey(*this, *this);
}

void PLIXTableView::tellDeleteBackward()
{
    if (m_hooks.deleteBackward)
        m_hooks.deleteBackward(*this, *this);
}

void PLIXTableView::tellArrowKeyChangedSelection(NSNotification const& notification)
{
    if (delegateHooks().tableViewSelectionIsChanging)
        delegateHooks().tableViewSelectionIsChanging(notification);
}

Ref<NSImage> PLIXTableView::customHighlightImage(long row)
{
    return m_hooks.customHighlightImageForRow ? m_hooks.customHighlightImageForRow(*this, row) : nullptr;
}

// By item, though a table has none; that is meant.
HighlightImage PLIXTableView::dropHighlightImage(long row)
{
    bool const hasImage = m_hooks.customHighlightImageForItem && m_hooks.customHighlightImageForItem(*this, itemAtRow(row));
    return hasImage ? HighlightImage::custom : HighlightImage::none;
}

// MARK: right clicks

void PLIXTableView::rightMouseDown(NSEvent& event)
{
    selectAndShowMenu(event);
}

void PLIXTableView::selectForMenu(long row)
{
    if (m_dataHooks.tableviewShouldSelectRow) {
        if (isRowSelected(row) || (m_dataHooks.shouldSelectRow && !m_dataHooks.shouldSelectRow(*this, row)))
            return;
    }
    selectRowIndexes(NSIndexSet::indexSetWithIndex(row), false);
    display();
}

// MARK: drawing

void PLIXTableView::drawRect(Rect rect)
{
    Ref<PLIXTableView> const protector(this);
    if (m_hooks.willDrawRect)
        m_hooks.willDrawRect(*this, rect);
    Base::drawRect(rect);
    if (numberOfRows() == 0)
        drawEmptyMessage();
}

Ref<NSAttributedString> PLIXTableView::emptyMessage() const
{
    if (m_emptyAttributedString || !m_emptyString)
        return m_emptyAttributedString;
    auto const style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    style->setAlignment(NSCenterTextAlignment);
    return make<NSAttributedString>(*m_emptyString,
        Attributes {
            { NSParagraphStyleAttributeName, style },
            { NSFontAttributeName, NSFont::boldSystemFontOfSize(messageFontSize) },
            { NSForegroundColorAttributeName, NSColor::colorWithCalibratedWhite(0.5F, 1.0F) },
        });
}

void PLIXTableView::drawEmptyMessage() const
{
    auto const message = emptyMessage();
    auto const* visible = superview();
    if (!message || !visible)
        return;
    float const height = PLIXAttributedStringHeightForWidth(*message, emptyMessageWidth(visible->frame()));
    auto const rect = emptyMessageRect(visible->frame(), visible->bounds(), height);
    auto const context = NSGraphicsContext::currentContext();
    if (!rect || !context)
        return;
    GraphicsState const saved(context);
    context->setShouldSmoothFonts(false);
    message->drawInRect(*rect);
}

}
