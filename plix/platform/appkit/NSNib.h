#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/export.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class NSBundle;
class NSData;
class NSImage;
struct NibDocument;
struct NibText;

/// An interface file: an XIB document of version 3, read and checked once, from which windows, views and other objects are made any
/// number of times. What is read of one is listed in docs/interface-files.md.
///
/// The objects are made by their classes' initialisers, then connected by what the classes' descriptions say of outlets and
/// actions, then told awakeFromNib, the owner last; then windows that are visible at launch come on screen. An element, word or
/// class that is not known, and what can't be connected, is named in one logged line and left out; XML attributes and bits of masks
/// that are not known are passed over. A broken document is refused whole, with one logged line.
///
/// Texts are the user's: where the file's bundle has a table of the file's name, its entry for "<object id>.<attribute>"
/// ("12.title") stands for the text of the document.
class PLIX_EXPORT NSNib : public NSObject {
    PLIX_CLASS(NSNib, NSObject);

public:
    using NSObject::init;
    NSNib();
    ~NSNib() override;

    /// The interface file of that name, with or without the extension, in the bundle; null means the main bundle. Nil where there
    /// is none or it is refused.
    bool init(std::string_view nibName, NSBundle* bundle);
    /// The document itself; images and tables of texts come from the bundle.
    bool init(NSData const& document, NSBundle* bundle);

    /// Makes the objects, with the owner in the place of the document's, which keeps the top-level objects alive as long as it
    /// lives. False where the document can't be built; the owner is untouched then.
    bool instantiateNibWithOwner(NSObject* owner);
    /// The same with the objects handed to the caller alone, in the order of the document. Null is the form without.
    bool instantiateNibWithOwner(NSObject* owner, std::vector<Ref<NSObject>>* topLevelObjects);

private:
    friend PLIX_EXPORT bool loadNibNamed(std::string_view name, NSObject* owner);
    bool readFile(std::string const& path);
    bool read(std::vector<std::uint8_t> const& bytes);
    std::string localized(NibText const&) const;
    Ref<NSImage> imageNamed(std::string const& name) const;

    std::string m_name;
    Ref<NSBundle> m_bundle;
    std::unique_ptr<NibDocument const> m_document;
};

/// NSBundle's operation: loads the interface file of that name for an owner. It is looked for in the bundle of the owner's class,
/// then in the main bundle, then in the library's. False where there is none, or it is refused.
PLIX_EXPORT bool loadNibNamed(std::string_view name, NSObject* owner);

}
