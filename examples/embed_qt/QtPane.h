#pragma once

#include <plix/hosting.h>

#include <QtWidgets/QWidget>

#include <span>

namespace embed_qt {

class QtDisplay;

/// A widget that shows the pixels of one of the library's windows and passes on what a person does in it.
class QtPane : public QWidget {
public:
    explicit QtPane(QtDisplay&, QWidget* parent = nullptr, Qt::WindowFlags = {});
    ~QtPane() override;

    /// Whose pixels it shows; null for none. The window must live until it is taken away again.
    void setPlace(plix::EmbeddedWindow*);
    plix::EmbeddedWindow* place() const { return m_place; }

    // Told by the window and the display.
    void repaintPixels(std::span<plix::PixelRect const>);
    void notePlace();
    void noteTextInput();

    plix::Rect rectOnScreen() const;

    // QWidget:
    QVariant inputMethodQuery(Qt::InputMethodQuery) const override;

protected:
    QtDisplay& display() const { return m_display; }

    // QWidget:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void moveEvent(QMoveEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void enterEvent(QEnterEvent*) override;
    void leaveEvent(QEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void keyReleaseEvent(QKeyEvent*) override;
    void inputMethodEvent(QInputMethodEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool wantsShortcut(QKeyEvent const&) const;

    QtDisplay& m_display;
    plix::EmbeddedWindow* m_place { nullptr };
    bool m_isPainting { false };
    bool m_hasPreedit { false };
};

}
