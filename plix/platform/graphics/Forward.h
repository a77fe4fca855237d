#pragma once

#include <plix/platform/base/Forward.h>

namespace plix {

class NSAffineTransform;
class NSAttributedString;
class NSBezierPath;
class NSBitmapImageRep;
class NSColor;
class NSFont;
class NSGraphicsContext;
class NSImage;
class NSImageRep;
class NSShadow;
struct AffineTransform;
struct ColorComponents;
struct PixelBuffer;
struct Point;
struct Rect;
struct Size;

}
