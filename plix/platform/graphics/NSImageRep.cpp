#include <plix/platform/graphics/NSImageRep.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/image_codecs.h>
#include <plix/platform/graphics/image_files.h>

namespace plix {

PLIX_DESCRIBE(NSImageRep)
{
}

std::vector<Ref<NSImageRep>> NSImageRep::imageRepsWithContentsOfFile(std::string_view path)
{
    auto const bytes = readImageFile(std::string(path));
    return bytes ? imageRepsWithBytes(*bytes) : std::vector<Ref<NSImageRep>> {};
}

std::vector<Ref<NSImageRep>> NSImageRep::imageRepsWithData(NSData const& data)
{
    return imageRepsWithBytes(data.bytes());
}

bool NSImageRep::draw() const
{
    return drawAtPoint({});
}

bool NSImageRep::drawAtPoint(Point point) const
{
    return drawInRect(rectWith(point, m_size));
}

bool NSImageRep::drawInRect(Rect rect) const
{
    return draw({ rect, rectWith({}, m_size) });
}

bool NSImageRep::draw(ImageDrawing const&) const
{
    return false;
}

void NSImageRep::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& rep = static_cast<NSImageRep&>(fresh);
    rep.m_size = m_size;
    rep.m_pixelsWide = m_pixelsWide;
    rep.m_pixelsHigh = m_pixelsHigh;
    rep.m_bitsPerSample = m_bitsPerSample;
    rep.m_hasAlpha = m_hasAlpha;
    rep.m_colorSpaceName = m_colorSpaceName;
}

}
