#include "DemoWindow.h"
#include "PlixWidget.h"
#include "ToolkitHost.h"
#include "gtk_translation.h"

namespace embed_gtk {

DemoWindow::DemoWindow()
    : m_window(instanceOf<GtkWindow>(gtk_window_new(), GTK_TYPE_WINDOW))
    , m_name(gtk_entry_new())
    , m_add(gtk_button_new_with_label("Add planet"))
    , m_label(gtk_label_new("Nothing is selected"))
{
    constexpr int gap = 8;
    gtk_window_set_title(m_window, "A view tree in GTK");
    gtk_editable_set_text(instanceOf<GtkEditable>(m_name, GTK_TYPE_EDITABLE), "Saturn");
    gtk_widget_set_hexpand(m_name, 1);
    gtk_widget_set_halign(m_label, GTK_ALIGN_START);

    // GTK is the host from here on, and then the tree's views may be made.
    ToolkitHost::shared();
    m_tree = plix::make<example::DemoTree>();
    m_embedded = PlixWidget::make(m_tree->view());

    auto* const above = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, gap);
    auto* const column = gtk_box_new(GTK_ORIENTATION_VERTICAL, gap);
    auto const append = [](GtkWidget* box, GtkWidget* child) { gtk_box_append(instanceOf<GtkBox>(box, GTK_TYPE_BOX), child); };
    append(above, m_name);
    append(above, m_add);
    append(column, above);
    append(column, m_embedded);
    append(column, m_label);
    for (auto const set :
        { gtk_widget_set_margin_top, gtk_widget_set_margin_bottom, gtk_widget_set_margin_start, gtk_widget_set_margin_end })
        set(column, gap);
    gtk_window_set_child(m_window, column);

    auto const clicked = +[](GtkWidget*, DemoWindow* self) {
        self->m_tree->addRow(gtk_editable_get_text(instanceOf<GtkEditable>(self->m_name, GTK_TYPE_EDITABLE)));
    };
    g_signal_connect(m_add, "clicked", reinterpret_cast<GCallback>(clicked), this);
    m_tree->setSelectionChanged(
        [this](std::string const& line) { gtk_label_set_text(instanceOf<GtkLabel>(m_label, GTK_TYPE_LABEL), line.c_str()); });
}

DemoWindow::~DemoWindow()
{
    m_tree->setSelectionChanged({});
}

}
