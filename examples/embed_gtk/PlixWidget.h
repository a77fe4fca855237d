#pragma once

#include "PaneWidget.h"

#include <memory>

namespace embed_gtk {

/// A GTK widget with a view tree of the library's in it. Everything works that works in a window: menus open, alerts run, Tab goes
/// through the tree and on to GTK's next widget.
///
///     gtk_box_append(box, embed_gtk::PlixWidget::make(view));
class PlixWidget final : public PaneWidget {
public:
    /// The view fills the widget, whose natural size is the view's; the widget expands. The first one installs GTK as the
    /// library's host. Answers a widget that nobody holds yet, as GTK's own functions do.
    static GtkWidget* make(plix::Ref<plix::NSView> const&);
    ~PlixWidget() override;

    // PaneWidget:
    bool focusComes(GtkDirectionType) override;
    void measure(GtkOrientation, int& minimum, int& natural) const override;

protected:
    void mappedChanged(bool isMapped) override;

private:
    explicit PlixWidget(plix::Ref<plix::NSView> const&);

    std::unique_ptr<plix::EmbeddedTree> m_tree;
    plix::Size m_size;
};

}
