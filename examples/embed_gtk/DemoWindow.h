#pragma once

#include <examples/embed/DemoTree.h>

#include <gtk/gtk.h>

namespace embed_gtk {

/// A window of GTK's with a view tree of the library's in the middle of it: GTK's button adds a row to the tree's table, and what
/// is selected there is said by GTK's label. Lives until the window is destroyed at the latest.
class DemoWindow {
public:
    DemoWindow();
    ~DemoWindow();
    DemoWindow(DemoWindow const&) = delete;
    DemoWindow& operator=(DemoWindow const&) = delete;

    GtkWindow* window() const { return m_window; }
    GtkWidget* embedded() const { return m_embedded; }
    GtkWidget* nameField() const { return m_name; }
    GtkWidget* addButton() const { return m_add; }
    GtkWidget* label() const { return m_label; }
    example::DemoTree& tree() const { return *m_tree; }

private:
    GtkWindow* m_window { nullptr };
    GtkWidget* m_name { nullptr };
    GtkWidget* m_add { nullptr };
    GtkWidget* m_label { nullptr };
    GtkWidget* m_embedded { nullptr };
    plix::Ref<example::DemoTree> m_tree;
};

}
