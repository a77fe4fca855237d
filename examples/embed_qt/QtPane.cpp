#include "QtPane.h"
#include "QtDisplay.h"
#include "qt_translation.h"

#include <QtGui/QEnterEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

#include <algorithm>
#include <utility>

namespace embed_qt {

QtPane::QtPane(QtDisplay& display, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_display(display)
{
    setMouseTracking(true);
    // Every pixel is painted: nothing has to be erased before.
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_display.add(*this);
}

QtPane::~QtPane()
{
    m_display.remove(*this);
}

void QtPane::setPlace(plix::EmbeddedWindow* place)
{
    m_place = place;
}

plix::Rect QtPane::rectOnScreen() const
{
    return rectFromGlobal(QRectF(QPointF(mapToGlobal(QPoint(0, 0))), QSizeF(size())));
}

void QtPane::notePlace()
{
    if (m_place)
        m_place->placed(rectOnScreen(), static_cast<float>(devicePixelRatioF()));
}

// Pixels.

void QtPane::repaintPixels(std::span<plix::PixelRect const> rects)
{
    if (m_isPainting)
        return;
    auto const scale = devicePixelRatioF();
    for (auto const& [x, y, width, height] : rects)
        update(QRectF(x / scale, y / scale, width / scale, height / scale).toAlignedRect());
}

void QtPane::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    m_isPainting = true;
    // The screen that the widget is on may be another one since.
    notePlace();
    if (m_place)
        plix::drawEmbeddedWindow(*m_place);
    m_isPainting = false;
    auto const pixels = m_place ? m_place->shownPixels() : plix::PixelBuffer {};
    if (!pixels.pixels) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    QImage image(pixels.pixels, pixels.width, pixels.height, pixels.stride, QImage::Format_RGB32);
    image.setDevicePixelRatio(static_cast<qreal>(pixels.scale));
    painter.drawImage(QPoint(0, 0), image);
}

void QtPane::resizeEvent(QResizeEvent*)
{
    notePlace();
}

void QtPane::moveEvent(QMoveEvent*)
{
    notePlace();
}

// The pointer.

void QtPane::mousePressEvent(QMouseEvent* event)
{
    m_display.buttonPressed(
        m_place, pointFromGlobal(event->globalPosition()), buttonFrom(event->button()), modifiersFrom(event->modifiers()));
}

void QtPane::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void QtPane::mouseReleaseEvent(QMouseEvent* event)
{
    m_display.buttonReleased(
        m_place, pointFromGlobal(event->globalPosition()), buttonFrom(event->button()), modifiersFrom(event->modifiers()));
}

void QtPane::mouseMoveEvent(QMouseEvent* event)
{
    m_display.buttonsHeld(buttonsFrom(event->buttons()));
    m_display.pointerMoved(m_place, pointFromGlobal(event->globalPosition()), modifiersFrom(event->modifiers()));
}

void QtPane::enterEvent(QEnterEvent* event)
{
    m_display.pointerMoved(m_place, pointFromGlobal(event->globalPosition()), modifiersFrom(QGuiApplication::keyboardModifiers()));
}

void QtPane::leaveEvent(QEvent*)
{
    m_display.pointerLeft(pointFromGlobal(QPointF(QCursor::pos())), modifiersFrom(QGuiApplication::keyboardModifiers()));
}

void QtPane::wheelEvent(QWheelEvent* event)
{
    m_display.wheelTurned(m_place, pointFromGlobal(event->globalPosition()), linesFrom(*event), modifiersFrom(event->modifiers()));
}

// The keyboard.

void QtPane::keyPressEvent(QKeyEvent* event)
{
    if (m_place)
        m_display.keyPressed(*m_place, keyFrom(*event));
}

void QtPane::keyReleaseEvent(QKeyEvent* event)
{
    if (m_place && !event->isAutoRepeat())
        m_display.keyReleased(*m_place, keyFrom(*event));
}

bool QtPane::wantsShortcut(QKeyEvent const& event) const
{
    if (!m_display.caret())
        return false;
    auto const isPlain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    constexpr QKeySequence::StandardKey ours[] = { QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste,
        QKeySequence::SelectAll, QKeySequence::Undo, QKeySequence::Redo };
    return (isPlain && !event.text().isEmpty())
        || std::ranges::any_of(ours, [&event](auto key) { return const_cast<QKeyEvent&>(event).matches(key); });
}

bool QtPane::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && wantsShortcut(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool QtPane::focusNextPrevChild(bool)
{
    return false;
}

void QtPane::focusInEvent(QFocusEvent*)
{
    if (m_place)
        m_display.focusChanged(*m_place, true);
}

void QtPane::focusOutEvent(QFocusEvent*)
{
    if (m_place)
        m_display.focusChanged(*m_place, false);
}

// Text.

void QtPane::noteTextInput()
{
    setAttribute(Qt::WA_InputMethodEnabled, m_display.caret().has_value());
    if (hasFocus())
        QGuiApplication::inputMethod()->update(Qt::ImEnabled | Qt::ImCursorRectangle);
}

void QtPane::inputMethodEvent(QInputMethodEvent* event)
{
    if (!m_place)
        return;
    auto const preedit = event->preeditString();
    auto caret = static_cast<long>(preedit.size());
    for (auto const& attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor)
            caret = attribute.start;
    }
    if (std::exchange(m_hasPreedit, !preedit.isEmpty()) || m_hasPreedit)
        m_display.preeditChanged(*m_place, event->commitString().isEmpty() ? preedit.toStdString() : std::string(), caret);
    m_display.textEntered(*m_place, event->commitString().toStdString());
    if (!event->commitString().isEmpty() && m_hasPreedit)
        m_display.preeditChanged(*m_place, preedit.toStdString(), caret);
    event->accept();
}

QVariant QtPane::inputMethodQuery(Qt::InputMethodQuery query) const
{
    auto const& caret = m_display.caret();
    if (query == Qt::ImEnabled)
        return caret.has_value();
    if (query == Qt::ImCursorRectangle && caret) {
        auto const global = globalFromRect(*caret);
        return QRect(mapFromGlobal(global.topLeft()), global.size());
    }
    return QWidget::inputMethodQuery(query);
}

}
