#pragma once

#include "QtPane.h"

#include <memory>

namespace embed_qt {

/// A Qt widget with a view tree of the library's in it. Everything works that works in a window: menus open, alerts run, Tab goes
/// through the tree and on to Qt's next widget.
///
///     auto* const widget = new embed_qt::PlixWidget(view, parent);
///     layout->addWidget(widget);
class PlixWidget final : public QtPane {
public:
    /// The view fills the widget. There must be a QApplication; the first widget installs Qt as the library's host.
    explicit PlixWidget(plix::Ref<plix::NSView> const&, QWidget* parent = nullptr);
    ~PlixWidget() override;

    /// The window that the view is in.
    plix::NSWindow& window() const { return m_tree->window(); }

    // QWidget:
    QSize sizeHint() const override { return m_sizeHint; }

protected:
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;
    void focusInEvent(QFocusEvent*) override;

private:
    std::unique_ptr<plix::EmbeddedTree> m_tree;
    QSize m_sizeHint;
};

}
