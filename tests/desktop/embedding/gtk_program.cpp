// The example's window in GTK, which reports what happens in it.

#include "embedded_program.h"

#include <examples/embed_gtk/DemoWindow.h>
#include <examples/embed_gtk/PlixWidget.h>
#include <examples/embed_gtk/gtk_translation.h>

#include <plix/plix.h>

#include <gtk/gtk.h>

using namespace embed_gtk;

int main()
{
    if (gtk_init_check() == 0)
        return 1;
    DemoWindow demo;
    auto* const window = &demo.window()->parent_instance;
    bool isOpen = true;
    auto const destroyed = +[](GtkWidget*, bool* open) { *open = false; };
    g_signal_connect(window, "destroy", reinterpret_cast<GCallback>(destroyed), &isOpen);
    gtk_window_present(demo.window());
    plix::desktop::ToolkitHalf half;
    half.scale = static_cast<float>(gtk_widget_get_scale_factor(window));
    half.place = [&](std::string const& part) {
        auto* const widget = part == "add" ? demo.addButton() : demo.nameField();
        double x = 0;
        double y = 0;
        gtk_widget_translate_coordinates(widget, window, 0, 0, &x, &y);
        auto* const native = gtk_widget_get_native(window);
        double left = 0;
        double top = 0;
        gtk_native_get_surface_transform(native, &left, &top);
        auto const place = placeOf(gtk_native_get_surface(native));
        return plix::Rect { static_cast<float>(place.x + left + x), static_cast<float>(place.y + top + y),
            static_cast<float>(gtk_widget_get_width(widget)), static_cast<float>(gtk_widget_get_height(widget)) };
    };
    half.name = [&] { return gtk_editable_get_text(instanceOf<GtkEditable>(demo.nameField(), GTK_TYPE_EDITABLE)); };
    half.label = [&] { return gtk_label_get_text(instanceOf<GtkLabel>(demo.label(), GTK_TYPE_LABEL)); };
    half.addSecond = [&](plix::Ref<plix::NSView> const& view) {
        auto* const widget = PlixWidget::make(view);
        gtk_widget_set_size_request(widget, 300, 30);
        gtk_widget_set_vexpand(widget, 0);
        gtk_box_append(instanceOf<GtkBox>(gtk_widget_get_parent(demo.embedded()), GTK_TYPE_BOX), widget);
    };
    half.destroyEmbedded = [&] {
        auto* const box = instanceOf<GtkBox>(gtk_widget_get_parent(demo.embedded()), GTK_TYPE_BOX);
        gtk_box_remove(box, demo.embedded());
    };
    bool isReported = false;
    while (isOpen) {
        g_main_context_iteration(nullptr, 1);
        if (!isReported && gtk_widget_get_width(demo.embedded()) > 0 && gtk_window_is_active(demo.window()) != 0) {
            isReported = true;
            plix::desktop::reportEmbedded(demo.tree(), half);
        }
    }
    return 0;
}
