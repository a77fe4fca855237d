#include "qt_translation.h"

#include <plix/hosting.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtGui/QWheelEvent>

#include <cmath>
#include <utility>

namespace embed_qt {

namespace {

double bottomOfScreen()
{
    auto const* const screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().y() + screen->geometry().height() : 0;
}

constexpr std::pair<Qt::KeyboardModifier, plix::HostModifier> s_modifiers[] = {
    { Qt::ShiftModifier, plix::HostModifierShift },
    { Qt::ControlModifier, plix::HostModifierControl },
    { Qt::AltModifier, plix::HostModifierAlternate },
    { Qt::MetaModifier, plix::HostModifierCommand },
};

constexpr Qt::MouseButton s_buttons[] = { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton };

}

plix::Point pointFromGlobal(QPointF point)
{
    return { static_cast<float>(point.x()), static_cast<float>(bottomOfScreen() - point.y()) };
}

plix::Rect rectFromGlobal(QRectF rect)
{
    auto const corner = pointFromGlobal(rect.bottomLeft());
    return { corner.x, corner.y, static_cast<float>(rect.width()), static_cast<float>(rect.height()) };
}

QRect globalFromRect(plix::Rect rect)
{
    auto const whole = [](double value) { return static_cast<int>(std::lround(value)); };
    auto const top = whole(bottomOfScreen() - double { rect.maxY() });
    auto const left = whole(double { rect.x });
    return { left, top, whole(double { rect.maxX() }) - left, whole(bottomOfScreen() - double { rect.y }) - top };
}

std::uint32_t modifiersFrom(Qt::KeyboardModifiers modifiers)
{
    std::uint32_t result = 0;
    for (auto const& [theirs, ours] : s_modifiers)
        result |= modifiers.testFlag(theirs) ? static_cast<std::uint32_t>(ours) : 0U;
    return result;
}

int buttonFrom(Qt::MouseButton button)
{
    auto const* const found = std::find(std::begin(s_buttons), std::end(s_buttons), button);
    return static_cast<int>(found - std::begin(s_buttons));
}

std::uint32_t buttonsFrom(Qt::MouseButtons buttons)
{
    std::uint32_t result = 0;
    for (auto const button : s_buttons)
        result |= buttons.testFlag(button) ? 1U << buttonFrom(button) : 0U;
    return result;
}

plix::ToolkitKey keyFrom(QKeyEvent const& event)
{
    plix::ToolkitKey key;
    key.keysym = event.nativeVirtualKey();
    key.text = event.text().toStdString();
    key.modifiers = modifiersFrom(event.modifiers());
    key.keyCode = static_cast<std::uint16_t>(event.nativeScanCode());
    key.isRepeat = event.isAutoRepeat();
    // Qt says a letter's key in capitals; what Control makes of it stands in the text's place.
    auto const text = event.text().toUcs4();
    auto const code = static_cast<char32_t>(event.key());
    if (!text.isEmpty() && text.first() >= 0x20 && text.first() != 0x7F)
        key.character = text.first();
    else if (code < static_cast<char32_t>(Qt::Key_Escape))
        key.character = event.modifiers().testFlag(Qt::ShiftModifier) ? code : QChar::toLower(code);
    return key;
}

plix::Size linesFrom(QWheelEvent const& event)
{
    constexpr float linesPerNotch = 3;
    constexpr float anglePerNotch = 120;
    auto const lines = [](int angle) { return static_cast<float>(angle) / anglePerNotch * linesPerNotch; };
    return { lines(event.angleDelta().x()), lines(event.angleDelta().y()) };
}

Qt::CursorShape shapeFrom(plix::CursorShape shape)
{
    using plix::CursorShape;
    switch (shape) {
    case CursorShape::arrow:
        return Qt::ArrowCursor;
    case CursorShape::iBeam:
        return Qt::IBeamCursor;
    case CursorShape::crosshair:
        return Qt::CrossCursor;
    case CursorShape::pointingHand:
        return Qt::PointingHandCursor;
    case CursorShape::openHand:
        return Qt::OpenHandCursor;
    case CursorShape::closedHand:
        return Qt::ClosedHandCursor;
    case CursorShape::resizeLeftRight:
        return Qt::SizeHorCursor;
    case CursorShape::resizeUpDown:
        return Qt::SizeVerCursor;
    case CursorShape::resizeDiagonalDown:
        return Qt::SizeFDiagCursor;
    case CursorShape::resizeDiagonalUp:
        return Qt::SizeBDiagCursor;
    case CursorShape::notAllowed:
        return Qt::ForbiddenCursor;
    case CursorShape::wait:
        return Qt::WaitCursor;
    case CursorShape::hidden:
        return Qt::BlankCursor;
    }
    return Qt::ArrowCursor;
}

}
