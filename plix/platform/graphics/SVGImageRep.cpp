#include <plix/platform/graphics/SVGImageRep.h>

#include <plix/platform/graphics/LoadedLibrary.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/context_internals.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#ifdef PLIX_SVG
#include <librsvg/rsvg.h>
#endif

namespace plix {

#ifdef PLIX_SVG

template <> struct HandleDeleter<RsvgHandle> {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
};

namespace {

/// Loaded with the first drawing.
struct SVGLibrary {
    decltype(&rsvg_handle_new_from_data) newFromData { nullptr };
    decltype(&rsvg_handle_get_intrinsic_size_in_pixels) sizeInPixels { nullptr };
    decltype(&rsvg_handle_get_intrinsic_dimensions) dimensions { nullptr };
    decltype(&rsvg_handle_render_document) render { nullptr };
    bool isLoaded { false };

    static SVGLibrary const& shared()
    {
        static SVGLibrary const s_library;
        return s_library;
    }

private:
    SVGLibrary()
    {
        LoadedLibrary library("librsvg-2.so.2");
        library.find(newFromData, "rsvg_handle_new_from_data");
        library.find(sizeInPixels, "rsvg_handle_get_intrinsic_size_in_pixels");
        library.find(dimensions, "rsvg_handle_get_intrinsic_dimensions");
        library.find(render, "rsvg_handle_render_document");
        isLoaded = library.isComplete();
    }
};

}

struct SVGDocument {
    Handle<RsvgHandle> handle;

    static std::shared_ptr<SVGDocument> read(FileBytes bytes)
    {
        if (!SVGLibrary::shared().isLoaded)
            return nullptr;
        auto document = std::make_shared<SVGDocument>();
        // Without a base address nothing outside is loaded.
        document->handle.reset(SVGLibrary::shared().newFromData(bytes.data(), bytes.size(), nullptr));
        return document->handle ? document : nullptr;
    }
    Size size() const
    {
        constexpr Size withoutAny { 100, 100 };
        double width = 0;
        double height = 0;
        if (SVGLibrary::shared().sizeInPixels(handle.get(), &width, &height))
            return { static_cast<float>(width), static_cast<float>(height) };
        gboolean hasWidth = FALSE;
        gboolean hasHeight = FALSE;
        gboolean hasBox = FALSE;
        RsvgLength ignored {};
        RsvgRectangle box {};
        SVGLibrary::shared().dimensions(handle.get(), &hasWidth, &ignored, &hasHeight, &ignored, &hasBox, &box);
        return hasBox ? Size { static_cast<float>(box.width), static_cast<float>(box.height) } : withoutAny;
    }
    bool render(cairo_t* cairo, double width, double height) const
    {
        RsvgRectangle const viewport { 0, 0, width, height };
        return SVGLibrary::shared().render(handle.get(), cairo, &viewport, nullptr);
    }
};

#else

struct SVGDocument {
    static std::shared_ptr<SVGDocument> read(FileBytes) { return nullptr; }
    Size size() const { return {}; }
    bool render(cairo_t*, double, double) const { return false; }
};

#endif

namespace {

constexpr std::size_t largestDrawing = 8U * 1024 * 1024;
constexpr std::size_t searchedForMark = 1024;

}

PLIX_DESCRIBE(SVGImageRep)
{
}

SVGImageRep::SVGImageRep() = default;

SVGImageRep::~SVGImageRep() = default;

bool SVGImageRep::isSVG(FileBytes bytes)
{
    std::string_view const start(reinterpret_cast<char const*>(bytes.data()), std::min(bytes.size(), searchedForMark));
    return bytes.size() <= largestDrawing && start.find('<') != std::string_view::npos
        && start.find("<svg") != std::string_view::npos;
}

bool SVGImageRep::init(FileBytes bytes)
{
    m_document = SVGDocument::read(bytes);
    if (!m_document)
        return false;
    auto const size = m_document->size();
    bool const isUsable = isAcceptableSize(std::lround(std::ceil(size.width)), std::lround(std::ceil(size.height)));
    setSize(size);
    return isUsable;
}

Ref<NSBitmapImageRep> SVGImageRep::bitmapAt(int pixelsWide, int pixelsHigh) const
{
    if (m_bitmap && m_bitmap->pixelsWide() == pixelsWide && m_bitmap->pixelsHigh() == pixelsHigh)
        return m_bitmap;
    auto bitmap = make<NSBitmapImageRep>(pixelsWide, pixelsHigh);
    auto const context = bitmap ? NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap) : nullptr;
    if (!context)
        return nullptr;
    auto* cairo = context->internals().cairo.get();
    cairo_identity_matrix(cairo);
    if (!m_document->render(cairo, pixelsWide, pixelsHigh))
        return nullptr;
    context->flushGraphics();
    bitmap->contentChanged();
    bitmap->setSize(size());
    m_bitmap = bitmap;
    return bitmap;
}

bool SVGImageRep::draw(ImageDrawing const& drawing) const
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || drawing.source.isEmpty() || drawing.destination.isEmpty())
        return false;
    auto const matrix = context->internals().matrix();
    double const scaleX = std::hypot(matrix.xx, matrix.yx) * drawing.destination.width / drawing.source.width;
    double const scaleY = std::hypot(matrix.xy, matrix.yy) * drawing.destination.height / drawing.source.height;
    double const wide = std::ceil(size().width * scaleX - 1e-3);
    double const high = std::ceil(size().height * scaleY - 1e-3);
    if (!(wide >= 1 && high >= 1 && wide * high <= static_cast<double>(NSBitmapImageRep::maximumPixels)))
        return false;
    auto const bitmap = bitmapAt(static_cast<int>(wide), static_cast<int>(high));
    return bitmap && bitmap->draw(drawing);
}

void SVGImageRep::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& rep = static_cast<SVGImageRep&>(fresh);
    rep.m_document = m_document;
    rep.m_bitmap = m_bitmap ? m_bitmap->copy() : nullptr;
}

}
