#pragma once

#include <plix/hosting.h>

#include <QtCore/QObject>

#include <vector>

class QCursor;
class QWidget;

namespace embed_qt {

class QtPane;

/// Qt's screens, pointer and windows.
class QtDisplay final : public QObject, public plix::EmbeddingDisplay {
public:
    explicit QtDisplay(plix::EmbeddingEvents&);

    // Told by panes: where pixels of the library's windows are shown.
    void add(QtPane&);
    void remove(QtPane&);
    /// Where the caret of the text that is edited is on screen; nullopt while none is.
    std::optional<plix::Rect> const& caret() const { return m_caret; }

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
    // QObject:
    bool eventFilter(QObject*, QEvent*) override;

private:
    void showCursor(QCursor const&);
    bool isOurs(QObject const*) const;

    std::vector<QtPane*> m_panes;
    std::optional<plix::Rect> m_caret;
};

}
