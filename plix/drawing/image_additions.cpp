#include <plix/drawing/image_additions.h>

#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

namespace {

Ref<NSImage> imageInBundle(NSBundle const& bundle, std::string_view name, std::string_view type)
{
    auto path = bundle.pathForResource(name, type);
    if (!path)
        path = bundle.pathForResource(name, type, "images");
    return path ? make<NSImage>(std::string_view(*path)) : nullptr;
}

}

Ref<NSImage> imageNamed(std::string_view name, Class const* cls)
{
    if (!cls)
        return nullptr;
    auto const& bundle = NSBundle::bundleForClass(*cls);
    if (auto image = imageInBundle(bundle, name, {}))
        return image;
    for (auto const& type : NSImage::imageUnfilteredFileTypes()) {
        if (auto image = imageInBundle(bundle, name, type))
            return image;
    }
    return nullptr;
}

void test(NSImage const& image)
{
    imageNamed("blah", &image.isa());
}

PicHandle picHandle(NSImage const&)
{
    return nullptr;
}

}
