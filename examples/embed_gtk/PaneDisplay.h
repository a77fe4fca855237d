#pragma once

#include <plix/hosting.h>

#include <gtk/gtk.h>

#include <vector>

namespace embed_gtk {

/// Something of GTK's in which a window of the library's is shown.
class Pane {
public:
    virtual ~Pane() = default;
    virtual GdkSurface* surface() const = 0;
    virtual void setCursor(GdkCursor*) = 0;
    virtual void noteTextInput() { }
};

/// GDK's screens, pointer and windows.
class PaneDisplay final : public plix::EmbeddingDisplay {
public:
    explicit PaneDisplay(plix::EmbeddingEvents&);

    // Told by panes.
    void add(Pane& pane) { m_panes.push_back(&pane); }
    void remove(Pane& pane) { std::erase(m_panes, &pane); }
    /// What a person does with the pointer in the surface that has this window. False for an event that is nothing of that.
    bool takePointerEvent(plix::EmbeddedWindow*, GdkEvent*);

    /// Where the caret of the text that is edited is on screen; nullopt while none is.
    std::optional<plix::Rect> const& caret() const { return m_caret; }
    /// The surface of that window, or of the one with the keyboard; null where there is neither.
    GdkSurface* surfaceFor(plix::EmbeddedWindow const*) const;

    // plix::EmbeddingDisplay:
    std::vector<plix::HostScreen> screens() const override;
    void setCursor(plix::CursorShape) override;
    void setCursor(plix::CursorPixels const&) override;
    void startTextInput(plix::Rect caretOnScreen) override;
    void stopTextInput() override;
    void beep() override;
    double doubleClickInterval() const override;

protected:
    std::unique_ptr<plix::EmbeddedWindow> makeToolkitWindow(plix::HostWindowAttributes const&) override;

private:
    void showCursor(GdkCursor*);
    void tellTextInput();

    std::vector<Pane*> m_panes;
    std::optional<plix::Rect> m_caret;
};

}
