#include "QtDisplay.h"
#include "QtPane.h"
#include "QtWindow.h"
#include "qt_translation.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtGui/QStyleHints>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace embed_qt {

QtDisplay::QtDisplay(plix::EmbeddingEvents& events)
    : EmbeddingDisplay(events)
{
    qApp->installEventFilter(this);
    auto const tell = [this] { screensChanged(); };
    connect(qApp, &QGuiApplication::screenAdded, this, tell);
    connect(qApp, &QGuiApplication::screenRemoved, this, tell);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, tell);
}

void QtDisplay::add(QtPane& pane)
{
    m_panes.push_back(&pane);
}

void QtDisplay::remove(QtPane& pane)
{
    std::erase(m_panes, &pane);
}

std::vector<plix::HostScreen> QtDisplay::screens() const
{
    std::vector<plix::HostScreen> screens;
    auto const add = [&screens](QScreen const& screen) {
        screens.push_back({ rectFromGlobal(screen.geometry()), rectFromGlobal(screen.availableGeometry()),
            static_cast<float>(screen.devicePixelRatio()) });
    };
    auto const* const primary = QGuiApplication::primaryScreen();
    if (primary)
        add(*primary);
    for (auto const* const screen : QGuiApplication::screens()) {
        if (screen != primary)
            add(*screen);
    }
    if (screens.empty())
        screens.emplace_back();
    return screens;
}

// The cursor.

void QtDisplay::showCursor(QCursor const& cursor)
{
    for (auto* const pane : m_panes)
        pane->setCursor(cursor);
}

void QtDisplay::setCursor(plix::CursorShape shape)
{
    showCursor(QCursor(shapeFrom(shape)));
}

void QtDisplay::setCursor(plix::CursorPixels const& cursor)
{
    auto const* const bytes = reinterpret_cast<uchar const*>(cursor.pixels.data());
    QImage image(bytes, cursor.width, cursor.height, QImage::Format_ARGB32_Premultiplied);
    auto const scale = qApp->devicePixelRatio();
    auto pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(scale);
    showCursor(QCursor(pixmap, qRound(cursor.hotSpotX / scale), qRound(cursor.hotSpotY / scale)));
}

// Text.

void QtDisplay::startTextInput(plix::Rect caretOnScreen)
{
    m_caret = caretOnScreen;
    for (auto* const pane : m_panes)
        pane->noteTextInput();
}

void QtDisplay::stopTextInput()
{
    m_caret.reset();
    for (auto* const pane : m_panes)
        pane->noteTextInput();
}

void QtDisplay::beep()
{
    QApplication::beep();
}

double QtDisplay::doubleClickInterval() const
{
    return QGuiApplication::styleHints()->mouseDoubleClickInterval() / 1000.0;
}

// Windows.

std::unique_ptr<plix::EmbeddedWindow> QtDisplay::makeToolkitWindow(plix::HostWindowAttributes const& attributes)
{
    return std::make_unique<QtWindow>(*this, attributes);
}

bool QtDisplay::isOurs(QObject const* object) const
{
    return std::ranges::any_of(
        m_panes, [object](auto const* pane) { return pane == object || (pane->isWindow() && pane->windowHandle() == object); });
}

bool QtDisplay::eventFilter(QObject* object, QEvent* event)
{
    auto const type = event->type();
    auto const* const widget = qobject_cast<QWidget*>(object);
    if (widget && (type == QEvent::Move || type == QEvent::Show)) {
        for (auto* const pane : m_panes) {
            if (widget->isAncestorOf(pane))
                pane->notePlace();
        }
    }
    bool const isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!isPress || isOurs(object))
        return false;
    // Widgets get it from their native window: what a menu takes must not reach that either.
    auto const* const native = qobject_cast<QWindow*>(object);
    auto const* const press = static_cast<QMouseEvent*>(event);
    if (native) {
        auto const* const hit = QApplication::widgetAt(press->globalPosition().toPoint());
        if (isOurs(hit))
            return false;
    }
    return takesPressElsewhere(
        pointFromGlobal(press->globalPosition()), buttonFrom(press->button()), modifiersFrom(press->modifiers()));
}

}
