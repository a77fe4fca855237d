#include <plix/platform/appkit/NSNib.h>

#include <plix/platform/appkit/nib/NibLoader.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

namespace {

constexpr std::size_t largestFile = std::size_t { 16 } << 20;

/// Names are often given with the extension of a compiled interface file.
std::string baseName(std::string_view name)
{
    auto const extension = pathExtension(name);
    return extension == "xib" || extension == "nib" ? stringByDeletingPathExtension(name) : std::string(name);
}

std::optional<std::string> pathOfNib(std::string_view name, NSBundle const& bundle)
{
    return bundle.pathForResource(baseName(name), "xib");
}

}

PLIX_DESCRIBE(NSNib)
{
}

NSNib::NSNib() = default;
NSNib::~NSNib() = default;

bool NSNib::init(std::string_view nibName, NSBundle* bundle)
{
    m_bundle = bundle ? bundle : &NSBundle::mainBundle();
    m_name = baseName(nibName);
    if (auto const path = pathOfNib(nibName, *m_bundle))
        return readFile(*path);
    NSLog("interface file \"" + validUTF8(nibName) + "\" could not be read");
    return false;
}

bool NSNib::init(NSData const& document, NSBundle* bundle)
{
    m_bundle = bundle ? bundle : &NSBundle::mainBundle();
    auto const bytes = document.bytes();
    return read({ bytes.begin(), bytes.end() });
}

bool NSNib::readFile(std::string const& path)
{
    m_name = baseName(lastPathComponent(path));
    auto const bytes = readFileBytes(path, largestFile);
    if (!bytes)
        NSLog("interface file \"" + m_name + "\" could not be read");
    return bytes && read(*bytes);
}

bool NSNib::read(std::vector<std::uint8_t> const& bytes)
{
    std::string problem;
    m_document = NibDocument::read(bytes, problem);
    if (!m_document)
        NSLog("interface file \"" + m_name + "\" is refused: " + problem);
    return m_document != nullptr;
}

std::string NSNib::localized(NibText const& text) const
{
    if (text.key.empty() || m_name.empty())
        return text.text;
    auto words = m_bundle->localizedStringForKey(text.key, text.text, m_name);
    return words == text.key ? text.text : words; // for an empty text the key is answered where there is no entry
}

Ref<NSImage> NSNib::imageNamed(std::string const& name) const
{
    if (auto image = NSImage::imageNamed(name))
        return image;
    auto const path = m_bundle->pathForImageResource(name);
    auto image = path ? make<NSImage>(std::string_view(*path)) : nullptr;
    return image && image->isValid() ? image : nullptr;
}

bool NSNib::instantiateNibWithOwner(NSObject* owner)
{
    return instantiateNibWithOwner(owner, nullptr);
}

bool NSNib::instantiateNibWithOwner(NSObject* owner, std::vector<Ref<NSObject>>* topLevelObjects)
{
    Ref<NSNib> const protector(this);
    NibLoader loader(*m_document, owner,
        { [this](NibText const& text) { return localized(text); }, [this](std::string const& name) { return imageNamed(name); } });
    bool const isLoaded = loader.load();
    for (auto const& warning : m_document->warnings)
        NSLog("interface file \"" + m_name + "\": " + warning);
    for (auto const& warning : loader.warnings())
        NSLog("interface file \"" + m_name + "\": " + warning);
    if (!isLoaded) {
        NSLog("interface file \"" + m_name + "\" is refused: " + loader.problem());
        return false;
    }
    if (topLevelObjects) {
        *topLevelObjects = loader.topLevelObjects();
    } else if (owner) {
        for (auto const& object : loader.topLevelObjects())
            owner->keepAlive(object);
    }
    return true;
}

bool loadNibNamed(std::string_view name, NSObject* owner)
{
    auto* const own = owner ? &NSBundle::bundleForClass(owner->describedClass()) : &NSBundle::mainBundle();
    for (auto* const bundle : { own, &NSBundle::mainBundle(), &NSBundle::libraryBundle() }) {
        auto const path = pathOfNib(name, *bundle);
        if (!path)
            continue;
        auto const nib = make<NSNib>();
        nib->m_bundle = bundle;
        return nib->readFile(*path) && nib->instantiateNibWithOwner(owner);
    }
    NSLog("interface file \"" + validUTF8(name) + "\" is not there");
    return false;
}

}
