#include <plix/platform/graphics/NSImage.h>

#include <plix/platform/base/NamedObjects.h>
#include <plix/platform/foundation/NSBundle.h>

#include <filesystem>

namespace plix {

namespace {

/// Never taken down: named images live as long as the process.
NamedObjects<NSImage>& registry()
{
    static auto* const s_registry = new NamedObjects<NSImage>;
    return *s_registry;
}

std::vector<std::string>& resourceFolders()
{
    static auto* const s_folders = new std::vector<std::string>;
    return *s_folders;
}

Ref<NSImage> imageInFolder(std::string const& folder, std::string_view name)
{
    auto const path = (std::filesystem::path(folder) / name).string();
    if (auto image = make<NSImage>(std::string_view(path)))
        return image;
    for (auto const& type : NSImage::imageUnfilteredFileTypes()) {
        if (auto image = make<NSImage>(std::string_view(path + "." + type)))
            return image;
    }
    return nullptr;
}

Ref<NSImage> findImage(std::string_view name)
{
    auto const& folders = resourceFolders();
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
        if (auto image = imageInFolder(*folder, name))
            return image;
    }
    for (auto const* bundle : { &NSBundle::mainBundle(), &NSBundle::libraryBundle() }) {
        if (auto const path = bundle->pathForImageResource(name)) {
            if (auto image = make<NSImage>(std::string_view(*path)))
                return image;
        }
    }
    return nullptr;
}

}

Ref<NSImage> NSImage::imageNamed(std::string_view name)
{
    return registry().named(name, findImage);
}

void NSImage::addResourceFolder(std::string_view path)
{
    resourceFolders().emplace_back(path);
}

bool NSImage::setName(std::string_view name)
{
    return registry().rename(*this, m_name, name);
}

std::vector<std::string> const& NSImage::imageUnfilteredFileTypes()
{
    static auto const& s_types = *new std::vector<std::string> { "png", "tiff", "tif", "jpg", "jpeg", "gif", "bmp", "svg" };
    return s_types;
}

}
