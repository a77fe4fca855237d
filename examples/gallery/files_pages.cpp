#include "files_pages.h"
#include "FixedWorld.h"
#include "LivePage.h"
#include "page_parts.h"

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/graphics/NSColor.h>

#include <algorithm>

namespace gallery {

using namespace plix;

namespace {

Ref<NSData> dataOf(std::string_view text)
{
    return make<NSData>(std::vector<std::uint8_t>(text.begin(), text.end()));
}

std::string textOf(Ref<NSData> const& data)
{
    return data ? std::string(data->bytes().begin(), data->bytes().end()) : "";
}

/// With the folders above it.
void write(std::string const& path, std::string_view text)
{
    auto& files = NSFileManager::defaultManager();
    files.createDirectoriesAtPath(stringByDeletingLastPathComponent(path));
    files.createFileAtPath(path, dataOf(text).get());
}

// MARK: files

Ref<NSView> makeNSFileManagerPage()
{
    auto const transcript = make<Transcript>();
    FixedWorld const world;
    auto const at = [&](char const* name) { return world.folder() + "/" + name; };
    RUN(auto& files = NSFileManager::defaultManager());
    SHOW(files.createDirectoriesAtPath(at("tea/green")));
    SHOW(files.createFileAtPath(at("tea/list"), dataOf("Sencha").get()));
    SHOW(files.fileExistsAtPath(at("tea/list")));
    SHOW(files.fileAttributesAtPath(at("tea/list"), false)->size);
    SHOW(files.setPosixPermissions(at("tea/list"), 0640));
    SHOW(files.fileAttributesAtPath(at("tea/list"), false)->posixPermissions == 0640);
    SHOW(files.createSymbolicLinkAtPath(at("link"), "tea/list"));
    SHOW(files.pathContentOfSymbolicLinkAtPath(at("link")));
    SHOW(files.contentsEqualAtPath(at("link"), at("tea/list")));
    SHOW(files.copyPath(at("tea"), at("copy")));
    SHOW(files.copyPath(at("tea"), at("copy")));
    SHOW(files.copyPath(at("tea"), at("tea/within")));
    SHOW(files.movePath(at("copy/list"), at("moved")));
    SHOW(files.directoryContentsAtPath(at("copy")));
    SHOW(files.directoryContentsAtPath(at("nowhere")));
    SHOW(files.removeFileAtPath(at("tea")));
    SHOW(files.fileExistsAtPath(at("link")));
    return transcript;
}

Ref<NSView> makeNSBundlePage()
{
    auto const transcript = make<Transcript>();
    FixedWorld const world("de_AT");
    std::string const path = world.folder() + "/Tea.bundle";
    write(path + "/Info.plist", "<plist><dict><key>CFBundleIdentifier</key><string>org.example.tea</string></dict></plist>");
    write(path + "/Resources/en.lproj/Localizable.strings", "\"Cup\" = \"Cup\";");
    write(path + "/Resources/de.lproj/Localizable.strings", "/* Drinking */ \"Cup\" = \"Tasse\";");
    write(path + "/Resources/de.lproj/welcome.txt", "Willkommen");
    write(path + "/Resources/leaf.txt", "green");
    transcript->run("// Tea.bundle, whose texts are in English and German, for a reader of Austrian German");
    RUN(auto const bundle = NSBundle::bundleWithPath(path));
    SHOW(lastPathComponent(bundle->bundlePath()));
    SHOW(bundle->bundleIdentifier());
    SHOW(bundle->preferredLocalizations());
    SHOW(bundle->localizedStringForKey("Cup"));
    SHOW(bundle->localizedStringForKey("Saucer"));
    SHOW(bundle->localizedStringForKey("Saucer", "Untertasse"));
    SHOW(bundle->pathForResource("welcome", "txt")->substr(path.size()));
    SHOW(bundle->pathForResource("leaf", "txt")->substr(path.size()));
    SHOW(bundle->pathForResource("spoon", "txt"));
    SHOW(bundle->pathForResource("../../secret", "txt"));
    SHOW(bundle->pathsForResourcesOfType("txt").size());
    SHOW(bundle == NSBundle::bundleWithPath(path));
    SHOW(NSBundle::bundleWithPath(path + "/nowhere"));
    SHOW(NSBundle::libraryBundle().pathForImageResource("none"));
    return transcript;
}

Ref<NSView> makeLocalizedStringsPage()
{
    auto const transcript = make<Transcript>();
    FixedWorld const world("fr_FR");
    std::string const path = world.folder() + "/Tea.bundle";
    write(path + "/fr.lproj/Localizable.strings",
        "/* A note\n   for translators */\n\"1 cup\" = \"1 tasse\";\n\"%i cups\" = \"%i tasses\";\nYes = Oui;\n"
        "\"It’s \\\"hot\\\"\\n\" = \"C’est \\U00AB chaud \\U00BB\";");
    write(path + "/fr.lproj/Broken.strings", "\"1 cup\" = \"1 tasse\"\n\"2 cups\" = ");
    transcript->addHeading("fr.lproj/Localizable.strings");
    auto const source = textOf(NSFileManager::defaultManager().contentsAtPath(path + "/fr.lproj/Localizable.strings"));
    transcript->run(source.substr(0, source.find_last_not_of('\n') + 1));
    transcript->addHeading("What it gives");
    auto const bundle = NSBundle::bundleWithPath(path);
    SHOW(bundle->localizedStringForKey("1 cup"));
    SHOW(bundle->localizedStringForKey("%i cups"));
    SHOW(bundle->localizedStringForKey("Yes"));
    SHOW(bundle->localizedStringForKey("It’s \"hot\"\n"));
    SHOW(bundle->localizedStringForKey("No"));
    RUN(std::string logged);
    RUN(auto const sink = installLogSink([&](std::string_view line) { logged = line.substr(line.rfind('/') + 1); }));
    SHOW(bundle->localizedStringForKey("1 cup", "A cup", "Broken"));
    RUN(installLogSink(sink));
    SHOW(logged);
    return transcript;
}

Ref<NSView> makeNSUserDefaultsPage()
{
    auto const transcript = make<Transcript>();
    RUN(FixedWorld const world("de_DE"));
    RUN(auto const defaults = make<NSUserDefaults>("Teapot"));
    RUN(defaults->registerDefaults({ { "cups", 2 }, { "sort", "Assam" } }));
    SHOW(defaults->integerForKey("cups"));
    RUN(defaults->setInteger(4, "cups"));
    SHOW(defaults->integerForKey("cups"));
    SHOW(defaults->stringForKey("cups"));
    SHOW(defaults->stringForKey("sort"));
    SHOW(defaults->objectForKey("milk"));
    SHOW(defaults->boolForKey("milk"));
    SHOW(defaults->stringForKey(NSDecimalSeparator));
    SHOW(defaults->stringArrayForKey(NSWeekDayNameArray)->at(6));
    transcript->addHeading("The command line comes first");
    RUN(defaults->setVolatileDomain(defaultsFromArguments({ "tea", "-cups", "12" }), NSArgumentDomain));
    SHOW(defaults->integerForKey("cups"));
    SHOW(defaults->synchronize());
    SHOW(make<NSUserDefaults>("Teapot")->integerForKey("cups"));
    RUN(defaults->removeObjectForKey("cups"));
    return transcript;
}

Ref<NSView> makePropertyListsPage()
{
    auto const transcript = make<Transcript>();
    FixedWorld const world;
    RUN(auto const defaults = make<NSUserDefaults>("Teapot"));
    RUN(defaults->setObject(ObjectValue::Array { "Assam", 2, 0.5, true }, "order"));
    RUN(defaults->setObject(NSDate(), "since"));
    RUN(defaults->setObject(dataOf("tea"), "key"));
    SHOW(defaults->synchronize());
    transcript->addHeading("config/Teapot/defaults.plist");
    auto text = textOf(NSFileManager::defaultManager().contentsAtPath(world.configFolder() + "/Teapot/defaults.plist"));
    std::replace(text.begin(), text.end(), '\t', ' ');
    transcript->run(text.substr(text.find("<dict>"), text.find("</plist>") - text.find("<dict>") - 1));
    transcript->addHeading("Read back");
    RUN(auto const read = make<NSUserDefaults>("Teapot"));
    SHOW(read->arrayForKey("order") == defaults->arrayForKey("order"));
    SHOW(read->objectForKey("since"));
    return transcript;
}

// MARK: documents

Ref<NSView> makeNSArchiverPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const orange = NSColor::colorWithCalibratedRed(1, 0.5F, 0, 1));
    RUN(ObjectValue const root(ObjectValue::Array { orange, "peel", orange }));
    RUN(auto const data = NSArchiver::archivedDataWithRootObject(root));
    SHOW(std::string(data->bytes().begin(), data->bytes().begin() + 8));
    SHOW(data->length());
    RUN(auto const read = NSUnarchiver::unarchiveObjectWithData(*data));
    SHOW(read == root);
    SHOW(read->array()->at(0).isIdentical(read->array()->at(2)));
    SHOW(read->array()->at(0).isIdentical(orange));
    transcript->addHeading("Damaged");
    RUN(std::vector<std::uint8_t> bytes(data->bytes().begin(), data->bytes().end()));
    RUN(bytes.back() ^= 1);
    RUN(std::string logged);
    RUN(auto const sink = installLogSink([&](std::string_view line) { logged = line; }));
    SHOW(NSUnarchiver::unarchiveObjectWithData(*make<NSData>(bytes)));
    SHOW(NSUnarchiver::unarchiveObjectWithData(*make<NSData>()));
    RUN(installLogSink(sink));
    SHOW(logged);
    return transcript;
}

/// What is archived on the page of coders.
class Cup : public NSObject {
    PLIX_CLASS(Cup, NSObject);

public:
    bool init(std::string text)
    {
        tea = std::move(text);
        return true;
    }
    bool init(NSCoder& coder)
    {
        tea = coder.decodeStringForKey("tea");
        sugar = coder.decodeIntForKey("sugar");
        return true;
    }
    void encodeWithCoder(NSCoder& coder) const override
    {
        coder.encodeObject(tea, "tea");
        coder.encodeInt(sugar, "sugar");
    }
    std::string description() const override { return tea + " with " + std::to_string(sugar); }

    std::string tea;
    int sugar { 0 };
};

PLIX_DESCRIBE(Cup)
{
}

Ref<NSView> makeNSCoderPage()
{
    auto const transcript = make<Transcript>();
    transcript->run("bool Cup::init(NSCoder& coder)\n{\n    tea = coder.decodeStringForKey(\"tea\");\n"
                    "    sugar = coder.decodeIntForKey(\"sugar\");\n    return true;\n}");
    transcript->run("void Cup::encodeWithCoder(NSCoder& coder) const\n{\n    coder.encodeObject(tea, \"tea\");\n"
                    "    coder.encodeInt(sugar, \"sugar\");\n}");
    RUN(auto const cup = make<Cup>("Darjeeling"));
    RUN(cup->sugar = 3);
    RUN(auto const data = NSArchiver::archivedDataWithRootObject(cup));
    RUN(auto const read = NSUnarchiver::unarchiveObjectWithData(*data)->as<Cup>());
    SHOW(read);
    SHOW(read == cup);
    transcript->addNote("Keys that are missing read as nil, 0, false or \"\"; what is not read disturbs nobody.");
    return transcript;
}

Ref<NSView> makeCFXMLTreePage()
{
    auto const transcript = make<Transcript>();
    RUN(std::string error);
    RUN(auto const tree
        = CFXMLTree::treeWithData("<menu lang='en'><tea>Assam &amp; milk</tea><tea/><!-- no coffee --></menu>", error));
    RUN(auto* const menu = tree->documentElement());
    SHOW(menu->node().string);
    SHOW(*menu->node().attribute("lang"));
    SHOW(menu->childCount());
    SHOW(menu->childElement("tea")->text());
    SHOW(menu->childElement("coffee") == nullptr);
    SHOW(menu->childAtIndex(2).node().typeCode == CFXMLNodeTypeCode::Comment);
    SHOW(menu->childAtIndex(2).node().string);
    SHOW(menu->childAtIndex(1).parent() == menu);
    SHOW(menu->childAtIndex(9).childCount());
    transcript->addHeading("Broken");
    SHOW(CFXMLTree::treeWithData("<menu><tea></menu>", error));
    SHOW(error);
    SHOW(CFXMLTree::treeWithData("<menu>&secret;</menu>", error));
    SHOW(error);
    SHOW(xmlEscaped("Tom & \"Jerry\" <3"));
    return transcript;
}

Ref<NSView> makeCFXMLNodePage()
{
    auto const transcript = make<Transcript>();
    RUN(CFXMLNode const node { CFXMLNodeTypeCode::Element, "tea", {}, { { "sort", "Assam" }, { "cups", "2" } } });
    RUN(auto const tree = make<CFXMLTree>(node));
    SHOW(tree->node().string);
    SHOW(tree->isElement("tea"));
    SHOW(*tree->node().attribute("cups"));
    SHOW(tree->node().attribute("milk") == nullptr);
    RUN(tree->appendChild(make<CFXMLTree>(CFXMLNode { CFXMLNodeTypeCode::Text, "hot", {}, {} })));
    SHOW(tree->text());
    SHOW(tree->childAtIndex(0).isElement());
    SHOW(CFXMLNodeTypeCode::Element);
    SHOW(CFXMLNodeTypeCode::Comment);
    SHOW(CFXMLNode().typeCode == CFXMLNodeTypeCode::Document);
    return transcript;
}

// MARK: system

Ref<NSView> makeNSProcessInfoPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto& process = NSProcessInfo::processInfo());
    SHOW(process.processIdentifier() > 0);
    SHOW(process.arguments().empty());
    SHOW(process.environment().contains("NO SUCH VARIABLE"));
    RUN(auto const name = process.processName());
    RUN(process.setProcessName("Teapot"));
    SHOW(process.processName());
    RUN(process.setProcessName(name));
    transcript->addHeading("What this machine says");
    auto const first = transcript->add("process.processIdentifier()", "–");
    transcript->add("process.hostName()", "–");
    transcript->add("process.processName()", "–");
    transcript->add("process.environment().size()", "–");
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("Ask", [first, transcript = transcript.get()] {
        auto const& asked = NSProcessInfo::processInfo();
        transcript->update(first, asked.processIdentifier());
        transcript->update(first + 1, asked.hostName());
        transcript->update(first + 2, asked.processName());
        transcript->update(first + 3, asked.environment().size());
    }));
    return page;
}

Ref<NSView> makeSurroundingsPage()
{
    auto const transcript = make<Transcript>();
    auto const date = NSDate::dateWithTimeIntervalSince1970(1215876225);
    for (auto const& [locale, zone] :
        { std::pair { "en_US", "EST5EDT,M3.2.0,M11.1.0" }, { "de_DE", "CET-1CEST,M3.5.0,M10.5.0/3" }, { "fr_FR", "<-03>3" } }) {
        transcript->addHeading(std::string("FixedWorld const world(\"") + locale + "\", \"" + zone + "\");");
        FixedWorld const world(locale, zone);
        SHOW(surroundings().localeIdentifier());
        SHOW(surroundings().homeFolder());
        SHOW(NSCalendarDate(date).descriptionWithCalendarFormat("%A, %e %B, %H:%M"));
        SHOW(NSUserDefaults::standardUserDefaults().stringForKey(NSDecimalSeparator));
    }
    transcript->addNote("FixedWorld is this gallery’s: a class of Surroundings and Clock that is installed while it lives.");
    return transcript;
}

constexpr Page all[] {
    { "NSFileManager", "NSFileManager", filesSection, "files_pages.cpp", makeNSFileManagerPage },
    { "NSBundle", "NSBundle", filesSection, "files_pages.cpp", makeNSBundlePage },
    { "localized_strings", "Localized strings", filesSection, "files_pages.cpp", makeLocalizedStringsPage },
    { "NSUserDefaults", "NSUserDefaults", filesSection, "files_pages.cpp", makeNSUserDefaultsPage },
    { "property_lists", "Property lists", filesSection, "files_pages.cpp", makePropertyListsPage },
    { "NSArchiver", "NSArchiver", filesSection, "files_pages.cpp", makeNSArchiverPage },
    { "NSCoder", "NSCoder", filesSection, "files_pages.cpp", makeNSCoderPage },
    { "CFXMLTree", "CFXMLTree", filesSection, "files_pages.cpp", makeCFXMLTreePage },
    { "CFXMLNode", "CFXMLNode", filesSection, "files_pages.cpp", makeCFXMLNodePage },
    { "NSProcessInfo", "NSProcessInfo", filesSection, "files_pages.cpp", makeNSProcessInfoPage },
    { "Surroundings", "Surroundings", filesSection, "files_pages.cpp", makeSurroundingsPage },
};

}

std::span<Page const> filesPages()
{
    return all;
}

}
