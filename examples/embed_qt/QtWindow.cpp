#include "QtWindow.h"
#include "QtDisplay.h"
#include "qt_translation.h"

#include <plix/plix.h>

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

namespace embed_qt {

namespace {

Qt::WindowFlags flagsFor(plix::HostWindowAttributes const& attributes)
{
    if (attributes.kind == plix::HostWindowKind::popup)
        return Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;
    Qt::WindowFlags flags = attributes.kind == plix::HostWindowKind::panel ? Qt::Dialog : Qt::Window;
    if (!attributes.isTitled)
        return flags | Qt::FramelessWindowHint;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    flags.setFlag(Qt::WindowCloseButtonHint, attributes.isClosable);
    flags.setFlag(Qt::WindowMinimizeButtonHint, attributes.isMiniaturizable);
    flags.setFlag(Qt::WindowMaximizeButtonHint, attributes.isResizable);
    return flags;
}

float scaleAt(QRect const& global)
{
    auto const* screen = QGuiApplication::screenAt(global.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? static_cast<float>(screen->devicePixelRatio()) : 1.0F;
}

/// The pane of a window of its own, which has a frame to tell of.
class TopLevelPane final : public QtPane {
public:
    using QtPane::QtPane;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        if (place())
            display().closeRequested(*place());
    }
    void showEvent(QShowEvent* event) override
    {
        QtPane::showEvent(event);
        notePlace();
    }
    void changeEvent(QEvent* event) override
    {
        QtPane::changeEvent(event);
        if (event->type() == QEvent::WindowStateChange && place())
            place()->setMiniaturized(isMinimized());
    }
    void moveEvent(QMoveEvent* event) override
    {
        QtPane::moveEvent(event);
        if (!place() || !isVisible())
            return;
        auto const outside = frameGeometry();
        auto const inside = geometry();
        place()->framed({ static_cast<float>(inside.left() - outside.left()), static_cast<float>(outside.right() - inside.right()),
            static_cast<float>(inside.top() - outside.top()), static_cast<float>(outside.bottom() - inside.bottom()) });
    }
};

}

QtWindow::QtWindow(QtDisplay& display, plix::HostWindowAttributes const& attributes)
    : EmbeddedWindow(display, attributes, scaleAt(globalFromRect(attributes.contentRect)))
    , m_pane(new TopLevelPane(display, nullptr, flagsFor(attributes)))
    , m_isOwnWindow(true)
{
    m_pane->setPlace(this);
    m_pane->setAttribute(Qt::WA_ShowWithoutActivating, kind() == plix::HostWindowKind::popup);
    m_pane->setFocusPolicy(kind() == plix::HostWindowKind::popup ? Qt::NoFocus : Qt::StrongFocus);
    m_pane->setGeometry(globalFromRect(attributes.contentRect));
}

QtWindow::QtWindow(QtDisplay& display, QtPane& widget)
    : EmbeddedWindow(
        display, { .contentRect = widget.rectOnScreen(), .isTitled = false }, static_cast<float>(widget.devicePixelRatioF()))
    , m_pane(&widget)
{
    m_pane->setPlace(this);
}

QtWindow::~QtWindow()
{
    if (!m_pane)
        return;
    m_pane->setPlace(nullptr);
    if (!m_isOwnWindow)
        return;
    m_pane->hide();
    // Qt may be within one of the widget's own events.
    m_pane->deleteLater();
}

void QtWindow::pixelsChanged(std::span<plix::PixelRect const> rects)
{
    if (m_pane)
        m_pane->repaintPixels(rects);
}

void QtWindow::wantsPlace(plix::Rect rect)
{
    if (!m_isOwnWindow)
        return EmbeddedWindow::wantsPlace(rect);
    auto const global = globalFromRect(rect);
    auto const scale = m_pane->isVisible() ? static_cast<float>(m_pane->devicePixelRatioF()) : scaleAt(global);
    placed(rectFromGlobal(global), scale);
    if (!attributes().isResizable && kind() != plix::HostWindowKind::popup)
        m_pane->setFixedSize(global.size());
    m_pane->setGeometry(global);
}

void QtWindow::attachToParent()
{
    auto const* const above = dynamic_cast<QtWindow*>(parent());
    auto const* const widget = above && above->m_pane ? above->m_pane->window() : QApplication::activeWindow();
    if (auto* const native = m_pane->windowHandle())
        native->setTransientParent(widget && widget != m_pane ? widget->windowHandle() : nullptr);
}

void QtWindow::visibilityChanged()
{
    if (!m_isOwnWindow || !m_pane)
        return;
    if (!isVisible()) {
        m_pane->hide();
        return;
    }
    auto const* const modal = plix::NSApp ? plix::NSApp->modalWindow() : nullptr;
    m_pane->setWindowModality(modal && modal->hostWindow() == this ? Qt::ApplicationModal : Qt::NonModal);
    m_pane->winId();
    attachToParent();
    m_pane->show();
}

void QtWindow::setParent(plix::HostWindow* parent)
{
    EmbeddedWindow::setParent(parent);
    if (m_isOwnWindow && m_pane)
        attachToParent();
}

void QtWindow::focus()
{
    if (!m_pane || kind() == plix::HostWindowKind::popup)
        return;
    m_pane->activateWindow();
    m_pane->setFocus(Qt::OtherFocusReason);
}

// What a window of its own has besides.

void QtWindow::setTitle(std::string_view title)
{
    if (m_isOwnWindow)
        m_pane->setWindowTitle(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
}

void QtWindow::setSizeLimits(plix::Size minimum, plix::Size maximum)
{
    if (!m_isOwnWindow || kind() == plix::HostWindowKind::popup)
        return;
    if (!attributes().isResizable) {
        m_pane->setFixedSize(m_pane->size());
        return;
    }
    auto const limit = [](float side) { return side > 0 ? qCeil(static_cast<qreal>(side)) : QWIDGETSIZE_MAX; };
    m_pane->setMinimumSize(qCeil(static_cast<qreal>(minimum.width)), qCeil(static_cast<qreal>(minimum.height)));
    m_pane->setMaximumSize(limit(maximum.width), limit(maximum.height));
}

void QtWindow::setAlpha(float alpha)
{
    if (m_isOwnWindow)
        m_pane->setWindowOpacity(static_cast<qreal>(alpha));
}

void QtWindow::raise()
{
    EmbeddedWindow::raise();
    if (m_isOwnWindow)
        m_pane->raise();
}

void QtWindow::lower()
{
    if (m_isOwnWindow)
        m_pane->lower();
}

void QtWindow::miniaturize()
{
    if (m_isOwnWindow)
        m_pane->showMinimized();
}

void QtWindow::deminiaturize()
{
    if (m_isOwnWindow)
        m_pane->showNormal();
}

void QtWindow::zoom()
{
    if (m_isOwnWindow)
        m_pane->setWindowState(m_pane->windowState() ^ Qt::WindowMaximized);
}

bool QtWindow::isZoomed() const
{
    return m_isOwnWindow && m_pane->isMaximized();
}

bool QtWindow::beginInteractiveMove()
{
    return m_isOwnWindow && m_pane->windowHandle() && m_pane->windowHandle()->startSystemMove();
}

void QtWindow::requestAttention()
{
    if (m_pane)
        QApplication::alert(m_pane->window());
}

}
