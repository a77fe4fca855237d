#include "system_pages.h"
#include "FixedWorld.h"
#include "LivePage.h"
#include "page_parts.h"

#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/machine_identity.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/host/media_components.h>
#include <plix/platform/host/sound_volume.h>
#include <plix/system/identity.h>
#include <plix/system/media_exporters.h>
#include <plix/system/name_comparison.h>
#include <plix/system/sounds.h>
#include <plix/system/unique_names.h>
#include <plix/system/xml_path.h>

#include <algorithm>
#include <array>

namespace gallery {

using namespace plix;

namespace {

Ref<NSView> makeUniqueNamesPage()
{
    auto const transcript = make<Transcript>();
    FixedWorld const world;
    std::string const folder = world.folder() + "/";
    auto& files = NSFileManager::defaultManager();
    for (auto const* name : { "report.txt", "report 1.txt", "notes" })
        files.createFileAtPath(folder + name, nullptr);
    auto const unique = [&](std::string const& name, bool keepsExtension) {
        transcript->show("PLIXUniqueFilePathAtPath(folder + " + quotedText(name) + (keepsExtension ? ", true)" : ", false)"),
            lastPathComponent(PLIXUniqueFilePathAtPath(folder + name, keepsExtension).value_or("nil")));
    };
    transcript->run("// In a folder with “report.txt”, “report 1.txt” and “notes”");
    unique("letter.txt", true);
    unique("report.txt", true);
    unique("report.txt", false);
    unique("notes", true);
    unique("nowhere/report.txt", true);
    SHOW(PLIXUniqueFilePathAtPath("report.txt", true));
    SHOW(PLIXUniqueFilePathAtPath(std::nullopt, true));
    transcript->addHeading("Names for a moment");
    SHOW(PLIXUniqueString().size());
    SHOW(PLIXUniqueString() == PLIXUniqueString());
    SHOW(PLIXTempFolderName().starts_with('.'));
    SHOW(PLIXTempFileName() == PLIXTempFileName());
    return transcript;
}

Ref<NSView> makeMachineIdentityPage()
{
    auto const transcript = make<Transcript>();
    SHOW(systemVersionFromText("0x1049"));
    SHOW(systemVersionFromText("4169"));
    SHOW(systemVersionFromText("tea"));
    SHOW(PLIXProcessIDString().empty());
    RUN(auto& identity = machineIdentity());
    RUN(auto const version = identity.systemVersion());
    RUN(identity.setSystemVersion(0x1050));
    SHOW(PLIXSystemVersion() == 0x1050);
    RUN(identity.setSystemVersion(version));
    transcript->addHeading("What this machine says");
    auto const first = transcript->add("PLIXMACAddressString()", "–");
    transcript->add("PLIXProcessIDString()", "–");
    transcript->add("PLIXSystemVersion()", "–");
    transcript->add("PLIXQuickTimeVersionString()", "–");
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("Ask", [first, transcript = transcript.get()] {
        transcript->update(first, PLIXMACAddressString());
        transcript->update(first + 1, PLIXProcessIDString());
        std::array<char, 16> digits {};
        std::snprintf(digits.data(), digits.size(), "0x%04X", PLIXSystemVersion());
        transcript->setResult(first + 2, digits.data());
        transcript->update(first + 3, PLIXQuickTimeVersionString());
    }));
    return page;
}

Ref<NSView> makeNameComparisonPage()
{
    auto const transcript = make<Transcript>();
    SHOW(PLIXCompareDirectoryContents("File 9", "File 10"));
    SHOW(PLIXCompareDirectoryContents("FILE", "file"));
    SHOW(PLIXCompareDirectoryContents("\u00C4rger", "Zug"));
    SHOW(PLIXCompareLastPathComponent("\u00C4rger", "Zug"));
    SHOW(PLIXCompareLastPathComponent("File 9", "File 10"));
    SHOW(PLIXCompareLastPathComponent("r\u00E9sum\u00E9", "RESUME"));
    SHOW(PLIXCompareLastPathComponent(std::nullopt, "file"));
    transcript->addHeading("Sorted");
    RUN(std::vector<std::string> names { "Zug 2", "\u00E4rger", "zug 10", "Zug 1", ".hidden" });
    RUN(std::sort(names.begin(), names.end(), [](auto const& a, auto const& b) { return PLIXCompareLastPathComponent(a, b) < 0; }));
    SHOW(names);
    RUN(std::sort(names.begin(), names.end(), [](auto const& a, auto const& b) { return PLIXCompareDirectoryContents(a, b) < 0; }));
    SHOW(names);
    return transcript;
}

Ref<NSView> makeXmlPathPage()
{
    auto const transcript = make<Transcript>();
    RUN(std::string error);
    RUN(auto const tree = CFXMLTree::treeWithData("<menu><hot><tea>Assam</tea><tea>Sencha</tea></hot><cold/></menu>", error));
    SHOW(TQXMLTreeAtPath(tree, "menu/hot/tea")->text());
    SHOW(TQXMLTreeAtPath(tree, "/menu/hot")->childCount());
    SHOW(TQXMLTreeAtPath(tree, "menu/cold")->childCount());
    SHOW(TQXMLTreeAtPath(tree, "menu/cold/tea"));
    SHOW(TQXMLTreeAtPath(tree, "hot"));
    SHOW(TQXMLTreeAtPath(tree, "/") == tree);
    SHOW(TQXMLTreeAtPath(tree, std::nullopt) == tree);
    SHOW(TQXMLTreeAtPath(nullptr, "menu"));
    return transcript;
}

Ref<NSView> makeMediaPage()
{
    auto const transcript = make<Transcript>();
    auto const code = [&](char const* mediaType) {
        auto const number = fileTypeForMediaType(mediaType);
        std::string text;
        for (int shift = 24; number != 0 && shift >= 0; shift -= 8)
            text += static_cast<char>(number >> shift & 0xFF);
        transcript->show("fileTypeForMediaType(" + quotedText(mediaType) + ")", text);
    };
    SHOW(fourCharCode("MooV"));
    SHOW(fourCharCode("WA") == fourCharCode("WA  "));
    for (auto const* mediaType : { "video/quicktime", "audio/x-wav", "video/x-matroska", "tea" })
        code(mediaType);
    RUN(ComponentDescription const muxer { movieExportType, fourCharCode("MooV"), fourCharCode("plix"), canMovieExportFiles, 0 });
    SHOW(matchesComponent({}, muxer));
    SHOW(matchesComponent({ movieExportType, 0, 0, 0, 0 }, muxer));
    SHOW(matchesComponent({ 0, fourCharCode("WAVE"), 0, 0, 0 }, muxer));
    SHOW(matchesComponent({ 0, 0, 0, 0, canMovieExportFiles }, muxer));
    transcript->addHeading("What writes media on this machine");
    auto const first = transcript->add("availableComponents().size()", "–");
    transcript->add("availableComponents().front().at(\"name\")", "–");
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("List", [first, transcript = transcript.get()] {
        auto const components = availableComponents();
        transcript->update(first, components.size());
        transcript->update(first + 1, components.empty() ? ObjectValue() : components.front().at("name"));
    }));
    return page;
}

Ref<NSView> makeSoundNamesPage()
{
    auto const transcript = make<Transcript>();
    SHOW(packedVolume({ 1, 0.5F }) == 0x00800100);
    SHOW(beepVolumeFraction(0x01000100));
    SHOW(beepVolumeFraction(0x00800000));
    SHOW(beepVolumeFraction(0));
    SHOW(soundGain(2));
    SHOW(stereoVolume({}).has_value());
    SHOW(TQQTSoundPlay("/no/such/sound.wav", 1));
    SHOW(TQAlertSoundPlay(42));
    transcript->addHeading("What this machine has");
    auto const first = transcript->add("PLIXSystemSoundPaths().size()", "–");
    transcript->add("lastPathComponent(PLIXSystemSoundPaths().front())", "–");
    transcript->add("TQSystemVolume()", "–");
    transcript->add("TQAlertVolume()", "–");
    auto const page = LivePage::page(transcript);
    page->addControl(pushButton("Ask", [first, transcript = transcript.get()] {
        auto const sounds = PLIXSystemSoundPaths();
        transcript->update(first, sounds.size());
        transcript->update(first + 1, sounds.empty() ? "" : lastPathComponent(sounds.front()));
        transcript->update(first + 2, TQSystemVolume());
        transcript->update(first + 3, TQAlertVolume());
    }));
    page->addControl(pushButton("Play the First", [] {
        auto const sounds = PLIXSystemSoundPaths();
        if (!sounds.empty())
            TQQTSoundPlay(sounds.front(), 1);
    }));
    return page;
}

constexpr Page all[] {
    { "unique_names", "Unique names", filesSection, "system_pages.cpp", makeUniqueNamesPage },
    { "MachineIdentity", "MachineIdentity", filesSection, "system_pages.cpp", makeMachineIdentityPage },
    { "name_comparison", "Names in order", filesSection, "system_pages.cpp", makeNameComparisonPage },
    { "xml_path", "Paths through documents", filesSection, "system_pages.cpp", makeXmlPathPage },
    { "Media", "Media", soundSection, "system_pages.cpp", makeMediaPage },
    { "sound_names", "Sounds of the system", soundSection, "system_pages.cpp", makeSoundNamesPage },
};

}

std::span<Page const> systemPages()
{
    return all;
}

}
