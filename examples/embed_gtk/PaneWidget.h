#pragma once

#include "PaneDisplay.h"

#include <plix/hosting.h>

#include <gtk/gtk.h>

#include <functional>
#include <span>
#include <string>

namespace embed_gtk {

/// A widget that shows the pixels of one of the library's windows and passes on what a person does in it. The C++ half of a
/// GtkWidget: that one owns this, and it goes when the widget is disposed of.
class PaneWidget : public Pane {
public:
    /// Makes the widget, which nobody holds yet.
    explicit PaneWidget(PaneDisplay&);
    ~PaneWidget() override;
    PaneWidget(PaneWidget const&) = delete;
    PaneWidget& operator=(PaneWidget const&) = delete;

    GtkWidget* widget() const { return m_widget; }
    /// Whose pixels it shows; null for none. The window must live until it is taken away again.
    void setPlace(plix::EmbeddedWindow* place) { m_place = place; }
    plix::EmbeddedWindow* place() const { return m_place; }
    plix::Rect rectOnScreen() const;
    float scale() const;
    void notePlace();

    // Pane:
    GdkSurface* surface() const override;
    void setCursor(GdkCursor*) override;
    void noteTextInput() override;

    // Called by the GtkWidget.
    void snapshot(GtkSnapshot*);
    /// GTK's focus comes along that way; false to let it pass.
    virtual bool focusComes(GtkDirectionType);
    virtual void measure(GtkOrientation, int& minimum, int& natural) const;

protected:
    PaneDisplay& display() const { return m_display; }
    /// On a screen or off it.
    virtual void mappedChanged(bool) { }

private:
    void connectControllers();
    void connectInputMethod();
    void followWindow();
    void updateFocus();
    bool handleEvent(GdkEvent*);
    bool handlePressElsewhere(GdkEvent*);
    void handleKey(GdkEvent*, bool isPress);
    void committed(char const* text);
    void preeditChanged();

    PaneDisplay& m_display;
    GtkWidget* m_widget { nullptr };
    GtkWindow* m_window { nullptr };
    GtkEventController* m_capture { nullptr };
    GtkIMContext* m_inputMethod { nullptr };
    plix::EmbeddedWindow* m_place { nullptr };
    std::string m_committed;
    unsigned m_heldKey { 0 };
    bool m_isFiltering { false };
    bool m_hasPreedit { false };
    bool m_hasFocus { false };
};

}
