#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

struct PluginModule;

/// A folder of resources: images, interface files, localised strings. Those in a folder for a language that the user reads
/// (`de.lproj`, `pt_BR.lproj`) come before those for all; then those of `Base.lproj` and `en.lproj`.
class PLIX_EXPORT NSBundle : public NSObject {
    PLIX_CLASS(NSBundle, NSObject);

public:
    /// The application's: the folder of the program, then `../share/<program>` beside that, then `<program>` in the folders of
    /// shared data.
    static NSBundle& mainBundle();
    /// This library's own.
    static NSBundle& libraryBundle();
    /// The plug-in that brought the class; else the bundle that the class's description names (the library's is "plix"); the main
    /// bundle for a class that names none.
    static NSBundle& bundleForClass(Class const&);
    /// The bundle at a folder, with its resources in it or in `Resources` or `Contents/Resources` below; one for each folder. Nil
    /// where there is no folder.
    static Ref<NSBundle> bundleWithPath(std::string const& path);
    /// Makes a bundle known to bundleForClass() under a name, or another one known under it.
    static void registerBundle(std::string const& name, NSBundle&);

    /// Of the first of these folders that there is; the others are looked into as well.
    bool init(std::vector<std::string> resourceFolders);

    // Where it is.
    std::string const& bundlePath() const { return m_bundlePath; }
    std::string const& resourcePath() const { return m_resourceFolders.front(); }
    /// From the file Info.plist; nil without one.
    ObjectValue objectForInfoDictionaryKey(std::string const& key) const;
    std::optional<std::string> bundleIdentifier() const;

    /// Loads the bundle's code, once; true also where it is loaded already, as the main bundle's and the library's are.
    ///
    /// A plug-in bundle is a folder `<Name>.bundle` with an `Info.plist` (in it or in its `Contents`) that names under
    /// `CFBundleExecutable` the module beside it, with or without its extension `.so`, and under `NSPrincipalClass` a class. The
    /// module is built for this library (see plugin_module.h; the build package's plix_add_plugin() makes such bundles) and stays
    /// until the process ends. Its classes are known to NSClassFromString() from then on. Where anything is wrong one line says so,
    /// no class is added, and a later call tries again. A module's code runs with all rights of the process.
    bool load();
    bool isLoaded() const { return m_isLoaded; }
    /// A class that the bundle's code has, loaded for that; nil where it has none of that name, or does not load.
    Class const* classNamed(std::string_view name);
    /// The class that `NSPrincipalClass` names, or the module's first where that is missing; nil without any.
    Class const* principalClass();

    /// The path of a resource that is there. The type is the extension, "" where the name has it already or needs none; the
    /// directory is one below the bundle's. nullopt where there is none, and for names that lead out of the bundle.
    std::optional<std::string> pathForResource(
        std::string_view name, std::string_view type = {}, std::string_view directory = {}) const;
    /// All resources of an extension in a directory ("" for any), for the user's languages and for all, each name once, in order of
    /// name.
    std::vector<std::string> pathsForResourcesOfType(std::string_view type, std::string_view directory = {}) const;
    /// An image with or without its extension, in the bundle or its directory `images`.
    std::optional<std::string> pathForImageResource(std::string_view name) const;

    /// The user's words for a key in a table ("" is `Localizable`). Where the table lacks it: the value, or the key without a
    /// value.
    std::string localizedStringForKey(std::string const& key, std::string const& value = {}, std::string const& table = {}) const;
    /// The bundle's languages that the user reads, preferred first, as they are searched.
    std::vector<std::string> preferredLocalizations() const;

private:
    using Table = std::map<std::string, std::string>;

    Table const& table(std::string const& name) const;
    std::optional<std::string> modulePath(std::string& fault) const;
    bool takeModule(PluginModule const*, std::string& fault);
    void forgetWhatSurroundingsTold() const;
    std::vector<std::string> const& searchedFolders() const;

    std::string m_bundlePath;
    std::vector<std::string> m_resourceFolders;
    mutable std::optional<ObjectValue::Dictionary> m_info;
    mutable std::vector<std::string> m_searchedFolders;
    mutable std::map<std::string, Table> m_tables;
    mutable std::vector<std::string> m_languages;
    /// Of a plug-in, in the module's order.
    std::vector<Class const*> m_classes;
    bool m_isLoaded { false };
};

/// The application's words for a key; the key itself where it has none.
PLIX_EXPORT std::string NSLocalizedString(std::string const& key);

}
