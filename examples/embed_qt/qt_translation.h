#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/Display.h>

#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/qnamespace.h>

class QKeyEvent;
class QWheelEvent;

namespace plix {

struct ToolkitKey;

}

namespace embed_qt {

// Qt's screen has y downwards from the primary screen's upper left corner, in pixels that do not depend on the device: those are
// the library's points.
plix::Point pointFromGlobal(QPointF);
plix::Rect rectFromGlobal(QRectF);
/// To whole pixels of Qt's.
QRect globalFromRect(plix::Rect);

std::uint32_t modifiersFrom(Qt::KeyboardModifiers);
/// 0 left, 1 right, 2 middle, then the side buttons.
int buttonFrom(Qt::MouseButton);
std::uint32_t buttonsFrom(Qt::MouseButtons);
plix::ToolkitKey keyFrom(QKeyEvent const&);
/// A notch of the wheel is three lines; a touchpad's fractions stay fractions.
plix::Size linesFrom(QWheelEvent const&);
Qt::CursorShape shapeFrom(plix::CursorShape);

}
