#include "DemoWindow.h"
#include "gtk_translation.h"

#include <examples/support/example_options.h>

#include <plix/plix.h>

#include <gtk/gtk.h>

#include <iostream>

namespace {

/// What the window shows now. False where it can't be written.
bool writePicture(GtkWidget* window, std::string const& path)
{
    using namespace embed_gtk;
    GRef<GdkPaintable> const paintable(gtk_widget_paintable_new(window));
    auto* const snapshot = gtk_snapshot_new();
    auto const scale = gtk_widget_get_scale_factor(window);
    auto const width = gtk_widget_get_width(window) * scale;
    auto const height = gtk_widget_get_height(window) * scale;
    gdk_paintable_snapshot(paintable.get(), snapshot, width, height);
    auto* const node = gtk_snapshot_free_to_node(snapshot);
    auto* const renderer = gtk_native_get_renderer(gtk_widget_get_native(window));
    GRef<GdkTexture> const texture(node && renderer ? gsk_renderer_render_texture(renderer, node, nullptr) : nullptr);
    if (node)
        gsk_render_node_unref(node);
    return texture && gdk_texture_save_to_png(texture.get(), path.c_str()) != 0;
}

}

int main(int argc, char** argv)
{
    auto const options = example::parseOptions(argc, argv);
    if (options.showsHelp || !options.problem.empty()) {
        std::cerr << options.problem << (options.problem.empty() ? "" : "\n");
        std::cout << "embed_gtk: a view tree in a window of GTK's. Scale with GDK_SCALE=2.\n\n"
                  << "  --screenshot FILE          write what the window shows as PNG and end\n"
                     "  --dark                     the dark look of the tree\n"
                     "  --exit-after-first-frame   end as soon as the window has been drawn\n"
                     "  --help                     this\n";
        return options.problem.empty() ? 0 : 2;
    }
    if (gtk_init_check() == 0) {
        std::cerr << "embed_gtk: no display answers\n";
        return 1;
    }
    if (options.isDark)
        plix::setCurrentAppearance(plix::Appearance::dark);

    embed_gtk::DemoWindow demo;
    auto* const window = &demo.window()->parent_instance;
    struct State {
        bool isOpen { true };
        int frames { 0 };
    } state;
    auto const destroyed = +[](GtkWidget*, State* changed) { changed->isOpen = false; };
    g_signal_connect(window, "destroy", reinterpret_cast<GCallback>(destroyed), &state);
    gtk_window_present(demo.window());
    auto const ticked = +[](GtkWidget*, GdkFrameClock*, gpointer changed) -> gboolean {
        return ++static_cast<State*>(changed)->frames < 3 ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
    };
    gtk_widget_add_tick_callback(window, ticked, &state, nullptr);
    bool const endsSoon = !options.screenshot.empty() || options.exitsAfterFirstFrame;
    while (state.isOpen && !(endsSoon && state.frames >= 3))
        g_main_context_iteration(nullptr, 1);
    if (options.screenshot.empty() || writePicture(window, options.screenshot))
        return 0;
    std::cerr << "could not write " << options.screenshot << '\n';
    return 1;
}
