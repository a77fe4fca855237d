#include <plix/platform/foundation/NSBundle.h>

#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/path_resolution.h>
#include <plix/platform/foundation/plugin_classes.h>
#include <plix/platform/foundation/process_identity.h>
#include <plix/platform/foundation/property_list.h>
#include <plix/platform/foundation/strings_file.h>
#include <plix/platform/foundation/surroundings.h>

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>

namespace plix {

namespace {

constexpr std::size_t largestTable = std::size_t { 16 } << 20;

bool isFolder(std::string const& path)
{
    bool isDirectory = false;
    return NSFileManager::defaultManager().fileExistsAtPath(path, isDirectory) && isDirectory;
}

bool staysInside(std::string_view path)
{
    auto const components = pathComponents(path);
    return !isAbsolutePath(path) && path.find('\0') == std::string_view::npos
        && std::ranges::find(components, "..") == components.end();
}

std::vector<std::string> inSharedData(std::string const& name)
{
    auto folders = surroundings().dataFolders();
    for (auto& folder : folders)
        folder = stringByAppendingPathComponent(folder, name);
    return folders;
}

std::string folderOfProgram()
{
    return stringByDeletingLastPathComponent(processIdentity().executablePath());
}

std::vector<std::string> mainFolders()
{
    auto const beside = folderOfProgram();
    auto const name = lastPathComponent(processIdentity().executablePath());
    std::vector<std::string> folders { beside };
    folders.push_back(stringByStandardizingPath(stringByAppendingPathComponent(beside, "../share/" + name)));
    auto const shared = inSharedData(name);
    folders.insert(folders.end(), shared.begin(), shared.end());
    return folders;
}

/// The folder of the file that this code is in: the shared library, or the program.
std::string folderOfLibrary()
{
    Dl_info info {};
    auto const* const here = reinterpret_cast<void const*>(&folderOfLibrary);
    // Of the program it tells what it was started as, which need not be a path.
    if (dladdr(here, &info) == 0 || !info.dli_fname || !isAbsolutePath(info.dli_fname))
        return folderOfProgram();
    return stringByDeletingLastPathComponent(stringByResolvingSymlinksInPath(info.dli_fname));
}

std::vector<std::string> libraryFolders()
{
    std::vector<std::string> folders;
    if (auto const* set = std::getenv("PLIX_RESOURCES"))
        folders.emplace_back(set);
    folders.push_back(stringByStandardizingPath(stringByAppendingPathComponent(folderOfLibrary(), PLIX_INSTALLED_RESOURCES)));
    folders.push_back(stringByStandardizingPath(stringByAppendingPathComponent(folderOfProgram(), "../share/plix")));
    auto const shared = inSharedData("plix");
    folders.insert(folders.end(), shared.begin(), shared.end());
#ifdef PLIX_SOURCE_RESOURCES
    // A program that was built and not installed.
    folders.emplace_back(PLIX_SOURCE_RESOURCES);
#endif
    return folders;
}

/// The names that the folder of a language may have.
std::vector<std::string> folderNames(std::string const& language)
{
    static constexpr std::pair<std::string_view, std::string_view> oldNames[] = { { "en", "English" }, { "de", "German" },
        { "fr", "French" }, { "es", "Spanish" }, { "it", "Italian" }, { "nl", "Dutch" }, { "ja", "Japanese" } };
    std::vector<std::string> names { language };
    auto hyphenated = language;
    std::ranges::replace(hyphenated, '_', '-');
    names.push_back(hyphenated);
    for (auto end = language.rfind('_'); end != std::string::npos && end > 0; end = language.rfind('_', end - 1))
        names.push_back(language.substr(0, end));
    for (auto const& [code, name] : oldNames) {
        if (names.back() == code)
            names.emplace_back(name);
    }
    return names;
}

std::map<std::string, Ref<NSBundle>>& registered()
{
    static auto& s_registered = *new std::map<std::string, Ref<NSBundle>>;
    return s_registered;
}

}

PLIX_DESCRIBE(NSBundle)
{
}

NSBundle& NSBundle::mainBundle()
{
    static auto* const s_bundle = [] {
        auto bundle = make<NSBundle>(mainFolders());
        bundle->m_isLoaded = true;
        return bundle.leak();
    }();
    return *s_bundle;
}

NSBundle& NSBundle::libraryBundle()
{
    static auto* const s_bundle = [] {
        auto bundle = make<NSBundle>(libraryFolders());
        bundle->m_isLoaded = true;
        return bundle.leak();
    }();
    return *s_bundle;
}

NSBundle& NSBundle::bundleForClass(Class const& described)
{
    if (auto* plugin = pluginThatBrought(described))
        return *plugin;
    auto const& name = described.bundleName();
    auto const found = registered().find(name);
    if (found != registered().end())
        return *found->second;
    return name == "plix" ? libraryBundle() : mainBundle();
}

void NSBundle::registerBundle(std::string const& name, NSBundle& bundle)
{
    registered().insert_or_assign(name, Ref<NSBundle>(bundle));
}

Ref<NSBundle> NSBundle::bundleWithPath(std::string const& path)
{
    static auto& s_known = *new std::map<std::string, Ref<NSBundle>>;
    auto const resolved = stringByResolvingSymlinksInPath(path);
    if (!isFolder(resolved))
        return nullptr;
    auto& known = s_known[resolved];
    if (known)
        return known;
    known = make<NSBundle>(std::vector<std::string> { stringByAppendingPathComponent(resolved, "Contents/Resources"),
        stringByAppendingPathComponent(resolved, "Resources"), resolved });
    known->m_bundlePath = resolved;
    return known;
}

bool NSBundle::init(std::vector<std::string> resourceFolders)
{
    if (!Base::init() || resourceFolders.empty())
        return false;
    m_bundlePath = resourceFolders.front();
    auto const last = resourceFolders.back();
    std::erase_if(resourceFolders, [](auto const& folder) { return !isFolder(folder); });
    m_resourceFolders = std::move(resourceFolders);
    if (m_resourceFolders.empty())
        m_resourceFolders.push_back(last);
    else
        m_bundlePath = m_resourceFolders.front();
    return true;
}

ObjectValue NSBundle::objectForInfoDictionaryKey(std::string const& key) const
{
    if (!m_info) {
        m_info.emplace();
        auto folders = m_resourceFolders;
        folders.push_back(stringByAppendingPathComponent(m_bundlePath, "Contents"));
        folders.push_back(m_bundlePath);
        for (auto const& folder : folders) {
            auto const bytes = readFileBytes(stringByAppendingPathComponent(folder, "Info.plist"), largestTable);
            std::string error;
            auto const list = bytes ? propertyListFromXML(*bytes, error) : std::nullopt;
            if (list && list->isDictionary()) {
                m_info = *list->dictionary();
                break;
            }
        }
    }
    auto const found = m_info->find(key);
    return found == m_info->end() ? ObjectValue() : found->second;
}

std::optional<std::string> NSBundle::bundleIdentifier() const
{
    auto const identifier = objectForInfoDictionaryKey("CFBundleIdentifier");
    return identifier.isString() ? std::optional(*identifier.string()) : std::nullopt;
}

void NSBundle::forgetWhatSurroundingsTold() const
{
    auto const languages = surroundings().preferredLanguages();
    if (m_languages == languages && !m_searchedFolders.empty())
        return;
    m_languages = languages;
    m_tables.clear();
    m_searchedFolders.clear();
    auto const add = [&](std::string const& name) {
        for (auto const& folder : m_resourceFolders) {
            auto const localized = stringByAppendingPathComponent(folder, name + ".lproj");
            if (isFolder(localized) && std::ranges::find(m_searchedFolders, localized) == m_searchedFolders.end())
                m_searchedFolders.push_back(localized);
        }
    };
    for (auto const& language : languages) {
        for (auto const& name : folderNames(language))
            add(name);
    }
    m_searchedFolders.insert(m_searchedFolders.end(), m_resourceFolders.begin(), m_resourceFolders.end());
    add("Base");
    for (auto const& name : folderNames("en"))
        add(name);
}

std::vector<std::string> const& NSBundle::searchedFolders() const
{
    forgetWhatSurroundingsTold();
    return m_searchedFolders;
}

std::vector<std::string> NSBundle::preferredLocalizations() const
{
    std::vector<std::string> names;
    for (auto const& folder : searchedFolders()) {
        if (pathExtension(folder) != "lproj")
            continue;
        auto name = stringByDeletingPathExtension(lastPathComponent(folder));
        if (std::ranges::find(names, name) == names.end())
            names.push_back(std::move(name));
    }
    return names;
}

std::optional<std::string> NSBundle::pathForResource(std::string_view name, std::string_view type, std::string_view directory) const
{
    auto file = std::string(name);
    if (!type.empty())
        file.append(type.starts_with('.') ? "" : ".").append(type);
    auto const inside = stringByAppendingPathComponent(directory, file);
    if (name.empty() || !staysInside(inside))
        return {};
    for (auto const& folder : searchedFolders()) {
        auto path = stringByAppendingPathComponent(folder, inside);
        if (NSFileManager::defaultManager().fileExistsAtPath(path))
            return path;
    }
    return {};
}

std::vector<std::string> NSBundle::pathsForResourcesOfType(std::string_view type, std::string_view directory) const
{
    std::map<std::string, std::string> pathOfName;
    if (!staysInside(directory) && !directory.empty())
        return {};
    for (auto const& folder : searchedFolders()) {
        auto const searched = stringByAppendingPathComponent(folder, directory);
        for (auto const& name :
            NSFileManager::defaultManager().directoryContentsAtPath(searched).value_or(std::vector<std::string> {})) {
            if (type.empty() || pathExtension(name) == type)
                pathOfName.emplace(name, stringByAppendingPathComponent(searched, name));
        }
    }
    std::vector<std::string> paths;
    for (auto const& [name, path] : pathOfName)
        paths.push_back(path);
    return paths;
}

std::optional<std::string> NSBundle::pathForImageResource(std::string_view name) const
{
    for (auto const* directory : { "", "images" }) {
        for (auto const* type : { "", "png", "svg", "jpg", "jpeg", "tiff", "tif", "gif", "bmp" }) {
            auto path = pathForResource(name, type, directory);
            bool isDirectory = false;
            if (path && NSFileManager::defaultManager().fileExistsAtPath(*path, isDirectory) && !isDirectory)
                return path;
        }
    }
    return {};
}

NSBundle::Table const& NSBundle::table(std::string const& name) const
{
    forgetWhatSurroundingsTold();
    auto const known = m_tables.find(name);
    if (known != m_tables.end())
        return known->second;
    auto& table = m_tables[name];
    auto const path = pathForResource(name, "strings");
    auto const bytes = path ? readFileBytes(*path, largestTable) : std::nullopt;
    if (!bytes)
        return table;
    std::string error;
    if (auto read = parseStringsFile(*bytes, error)) {
        table = std::move(*read);
        return table;
    }
    // The same table may come as a property list.
    std::string ignored;
    auto const list = propertyListFromXML(*bytes, ignored);
    if (!list || !list->isDictionary()) {
        NSLog("NSBundle: " + validUTF8(*path) + " is passed over: " + error);
        return table;
    }
    for (auto const& [key, value] : *list->dictionary())
        table.emplace(key, value.description());
    return table;
}

std::string NSBundle::localizedStringForKey(std::string const& key, std::string const& value, std::string const& name) const
{
    auto const& strings = table(name.empty() ? "Localizable" : name);
    auto const found = strings.find(key);
    if (found != strings.end())
        return found->second;
    return value.empty() ? key : value;
}

std::string NSLocalizedString(std::string const& key)
{
    return NSBundle::mainBundle().localizedStringForKey(key);
}

}
