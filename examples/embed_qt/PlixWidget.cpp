#include "PlixWidget.h"
#include "QtHost.h"
#include "QtWindow.h"

#include <plix/plix.h>

#include <QtGui/QFocusEvent>

namespace embed_qt {

PlixWidget::PlixWidget(plix::Ref<plix::NSView> const& root, QWidget* parent)
    : QtPane(QtHost::shared().qtDisplay(), parent)
    , m_sizeHint(qRound(static_cast<qreal>(root->frame().width)), qRound(static_cast<qreal>(root->frame().height)))
{
    setFocusPolicy(Qt::StrongFocus);
    resize(m_sizeHint);
    auto& display = QtHost::shared().qtDisplay();
    m_tree = std::make_unique<plix::EmbeddedTree>(display, std::make_unique<QtWindow>(display, *this), root);
    m_tree->setFocusLeaves(
        [this](plix::EmbeddedTree::Way way) { return QWidget::focusNextPrevChild(way == plix::EmbeddedTree::Way::forward); });
}

PlixWidget::~PlixWidget() = default;

void PlixWidget::showEvent(QShowEvent*)
{
    notePlace();
    m_tree->setShown(true);
}

void PlixWidget::hideEvent(QHideEvent*)
{
    m_tree->setShown(false);
}

void PlixWidget::focusInEvent(QFocusEvent* event)
{
    QtPane::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason)
        m_tree->focusEnters(plix::EmbeddedTree::Way::forward);
    else if (event->reason() == Qt::BacktabFocusReason)
        m_tree->focusEnters(plix::EmbeddedTree::Way::backward);
}

}
