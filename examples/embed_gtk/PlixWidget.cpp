#include "PlixWidget.h"
#include "PaneWindow.h"
#include "ToolkitHost.h"

#include <plix/plix.h>

namespace embed_gtk {

using Way = plix::EmbeddedTree::Way;

GtkWidget* PlixWidget::make(plix::Ref<plix::NSView> const& root)
{
    return (new PlixWidget(root))->widget();
}

PlixWidget::PlixWidget(plix::Ref<plix::NSView> const& root)
    : PaneWidget(ToolkitHost::shared().paneDisplay())
    , m_size(root->frame().size())
{
    gtk_widget_set_hexpand(widget(), 1);
    gtk_widget_set_vexpand(widget(), 1);
    auto& display = ToolkitHost::shared().paneDisplay();
    m_tree = std::make_unique<plix::EmbeddedTree>(display, std::make_unique<PaneWindow>(display, *this, m_size), root);
    m_tree->setFocusLeaves([this](Way way) {
        auto* const top = gtk_widget_get_ancestor(widget(), GTK_TYPE_WINDOW);
        return top && gtk_widget_child_focus(top, way == Way::forward ? GTK_DIR_TAB_FORWARD : GTK_DIR_TAB_BACKWARD) != 0;
    });
}

PlixWidget::~PlixWidget()
{
    m_tree.reset();
}

bool PlixWidget::focusComes(GtkDirectionType direction)
{
    if (!PaneWidget::focusComes(direction))
        return false;
    if (direction == GTK_DIR_TAB_FORWARD || direction == GTK_DIR_TAB_BACKWARD)
        m_tree->focusEnters(direction == GTK_DIR_TAB_FORWARD ? Way::forward : Way::backward);
    return true;
}

void PlixWidget::measure(GtkOrientation orientation, int& minimum, int& natural) const
{
    minimum = 1;
    natural = static_cast<int>(orientation == GTK_ORIENTATION_HORIZONTAL ? m_size.width : m_size.height);
}

void PlixWidget::mappedChanged(bool isMapped)
{
    if (isMapped)
        notePlace();
    if (m_tree)
        m_tree->setShown(isMapped);
}

}
