#include "page_search.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

namespace gallery {

namespace {

/// Of a class, or of a topic in lower case.
constexpr std::pair<std::string_view, std::string_view> otherWords[] {
    { "MenuView", "context menu" },
    { "NSAlert", "message box dialog" },
    { "NSArchiver", "serialize save archive" },
    { "NSBezierPath", "curve line circle oval" },
    { "NSBox", "group frame separator" },
    { "NSBundle", "resources localization plug-in" },
    { "NSButton", "push check box checkbox radio switch toggle disclosure help" },
    { "NSButtonCell", "check box checkbox radio switch" },
    { "NSCalendarDate", "day month year" },
    { "NSColor", "colour rgb hsb" },
    { "NSComboBox", "dropdown drop-down choice completion" },
    { "NSCursor", "pointer mouse" },
    { "NSDatePicker", "calendar day time" },
    { "NSFileManager", "folder directory copy move" },
    { "NSFont", "typeface bold" },
    { "NSImage", "picture photo icon" },
    { "NSImageView", "picture photo icon" },
    { "NSMenu", "popup pop-up context submenu" },
    { "NSMenuItem", "popup shortcut" },
    { "NSNib", "interface xib file" },
    { "NSOutlineView", "tree hierarchy disclosure" },
    { "NSPanel", "dialog palette" },
    { "NSPasteboard", "clipboard copy paste" },
    { "NSPopUpButton", "popup pull-down dropdown choice menu select" },
    { "NSProgressIndicator", "bar spinner busy wait" },
    { "NSScanner", "parse" },
    { "NSScrollView", "wheel scrollbar" },
    { "NSScroller", "scrollbar" },
    { "NSSegmentedControl", "segments choice" },
    { "NSSound", "audio play beep" },
    { "NSSpeechSynthesizer", "voice talk read" },
    { "NSSplitView", "divider pane splitter" },
    { "NSTabView", "tabs pane notebook" },
    { "NSTableView", "list grid rows columns" },
    { "NSTextField", "label input edit entry" },
    { "NSTextView", "editor multi-line rich" },
    { "NSTimer", "interval clock repeat" },
    { "NSUndoManager", "redo" },
    { "NSUserDefaults", "settings preferences configuration" },
    { "PLIXBitstream", "bits golomb" },
    { "PLIXChiseledTextField", "label engraved" },
    { "PLIXChiseledTextPopUpButton", "popup engraved" },
    { "PLIXOutlineView", "tree hierarchy" },
    { "PLIXPopUpButton", "popup pull-down menu" },
    { "PLIXProgressWindow", "dialog bar wait cancel" },
    { "PLIXSegmentedControl", "segments engraved" },
    { "PLIXSpeakingTextField", "voice typing" },
    { "PLIXSpeechSynthesizer", "voice talk read" },
    { "PLIXTabView", "tabs pane" },
    { "PLIXTableView", "list grid rows columns highlight" },
    { "PLIXWindow", "texture background" },
    { "TQAlert", "message box dialog warning" },
    { "TQComboBoxCell", "dropdown" },
    { "TQDateRangePanel", "calendar dialog" },
    { "TQPopUpButtonCell", "popup dropdown" },
    { "TQSplitView", "divider pane splitter" },
    { "TQTimeIntervalFormatter", "duration hours minutes seconds" },
    { "buttons", "check box checkbox radio switch popup segments disclosure help" },
    { "combos", "dropdown calendar" },
    { "image_views", "picture segments" },
    { "labels", "engraved" },
    { "live", "check box radio popup combo segments progress" },
    { "menus", "popup context submenu shortcut" },
    { "tables", "list tree grid rows columns" },
    { "text", "label input edit entry" },
};

/// Lower case, without hyphens.
std::string plain(std::string_view text)
{
    std::string result;
    for (char const character : text) {
        if (character != '-')
            result += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    return result;
}

std::vector<std::string> wordsIn(std::string_view query)
{
    std::vector<std::string> words(1);
    for (char const character : plain(query)) {
        if (!std::isspace(static_cast<unsigned char>(character)))
            words.back() += character;
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

bool matches(Page const& page, std::vector<std::string> const& words)
{
    std::string text;
    for (std::string_view const part :
        { std::string_view(page.name), std::string_view(page.title), std::string_view(page.section), wordsOfPage(page.name) })
        text += plain(part) + '\n';
    return std::ranges::all_of(words, [&](auto const& word) { return text.find(word) != std::string::npos; });
}

}

std::vector<Page const*> pagesMatching(std::span<Page const> pages, std::string_view query)
{
    auto const words = wordsIn(query);
    std::vector<Page const*> matching;
    for (auto const& page : pages) {
        if (matches(page, words))
            matching.push_back(&page);
    }
    return matching;
}

Page const* bestMatch(std::vector<Page const*> const& matching, std::string_view query)
{
    std::string wanted;
    for (auto const& word : wordsIn(query))
        wanted += word;
    Page const* best = nullptr;
    int bestRank = 4;
    for (auto const* page : matching) {
        auto const name = plain(page->name);
        int const rank = name == wanted ? 0 : name.starts_with(wanted) ? 1 : name.find(wanted) != std::string::npos ? 2 : 3;
        if (rank < bestRank) {
            best = page;
            bestRank = rank;
        }
    }
    return best;
}

std::string_view wordsOfPage(std::string_view name)
{
    auto const* const found = std::ranges::lower_bound(otherWords, name, {}, [](auto const& entry) { return entry.first; });
    return found != std::end(otherWords) && found->first == name ? found->second : std::string_view {};
}

Page const* pageNamed(std::span<Page const> pages, std::string_view name)
{
    auto const found = std::ranges::find(pages, name, [](Page const& page) { return std::string_view(page.name); });
    return found == pages.end() ? nullptr : &*found;
}

bool isClassPage(Page const& page)
{
    std::string_view const name = page.name;
    auto const isLower = [](unsigned char character) { return std::islower(character) != 0; };
    return !isLower(static_cast<unsigned char>(name.front())) && name.find('_') == name.npos && std::ranges::any_of(name, isLower);
}

std::string_view listedName(Page const& page)
{
    return isClassPage(page) ? page.name : page.title;
}

}
