#include "sheet_pages.h"
#include "Desk.h"
#include "PictureView.h"
#include "StateSheet.h"
#include "boxes_page.h"
#include "buttons_page.h"
#include "chiseled_page.h"
#include "combos_page.h"
#include "dates_page.h"
#include "image_views_page.h"
#include "labels_page.h"
#include "live_page.h"
#include "sounds_page.h"
#include "speech_page.h"
#include "tables_page.h"
#include "tabs_page.h"
#include "text_page.h"
#include "windows_page.h"

#include <plix/controls/PLIXButton.h>
#include <plix/controls/PLIXImageView.h>
#include <plix/controls/PLIXPopUpButton.h>
#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/speech/PLIXSpeakingTextField.h>

#include <algorithm>

namespace gallery {

using namespace plix;

namespace {

Ref<NSControl> field(std::string_view text, NSTextFieldBezelStyle style)
{
    auto const made = make<NSTextField>(Rect { 0, 0, 110, 22 });
    made->setStringValue(text);
    made->setBezelStyle(style);
    static_cast<NSTextFieldCell*>(made->cell())->setPlaceholderString("Nothing yet");
    return made;
}

template <typename Label> Ref<NSControl> label()
{
    auto const made = make<Label>(Rect { 0, 0, 110, 18 });
    made->setBezeled(false);
    made->setDrawsBackground(false);
    made->setEditable(false);
    made->setStringValue("A label");
    return made;
}

template <typename View> Ref<NSControl> picture()
{
    auto const made = make<View>(Rect { 0, 0, 48, 40 });
    made->setImageFrameStyle(NSImageFrameGrayBezel);
    made->setImage(NSImage::imageNamed("NSApplicationIcon"));
    return made;
}

template <typename Segments> Ref<NSControl> segments()
{
    auto const made = make<Segments>(Rect { 0, 0, 116, 24 });
    made->setSegmentCount(2);
    made->setLabel("One", 0);
    made->setLabel("Two", 1);
    made->setSelectedSegment(0);
    return made;
}

Ref<NSControl> scroller()
{
    auto const made = make<NSScroller>(Rect { 0, 0, 110, 15 });
    made->setEnabled(true);
    made->setFloatValue(0.3F, 0.4F);
    return made;
}

/// What the sheets of single families don't have.
Ref<NSView> makeRestOfStates()
{
    auto sheet = make<StateSheet>(Size { 126, 26 });
    sheet->addHeading("Text");
    sheet->addRow("Field", [] { return field("Some text", NSTextFieldSquareBezel); });
    sheet->addRow("Empty", [] { return field("", NSTextFieldSquareBezel); });
    sheet->addRow("Round", [] { return field("Some text", NSTextFieldRoundedBezel); });
    sheet->addRow("Label", label<NSTextField>);
    sheet->addRow("Speaking", label<PLIXSpeakingTextField>);
    sheet->addHeading("Others");
    sheet->addRow("Segments", segments<PLIXSegmentedControl>);
    sheet->addRow("Image", picture<NSImageView>);
    sheet->addRow("Image, plix", picture<PLIXImageView>);
    sheet->addRow("Scroller", scroller);
    sheet->sizeToRows();
    return sheet;
}

Ref<NSView> makeAllStatesPage()
{
    auto desk = make<Desk>(Rect {});
    Size size;
    for (auto const& sheet : { makeButtonsPage(), makeCombosPage(), makeDatesPage(), makeRestOfStates() }) {
        sheet->setFrameOrigin({ 0, size.height });
        desk->addSubview(*sheet);
        size = { std::max(size.width, sheet->frame().width), sheet->frame().maxY() };
    }
    desk->setFrameSize(size);
    return desk;
}

constexpr Page familyPages[] {
    { "all_states", "All states", statesSection, "sheet_pages.cpp", makeAllStatesPage },
    { "live", "Live controls", statesSection, "live_page.cpp", makeLivePage },
    { "pictures", "Pictures", statesSection, "PictureView.cpp", makePicturesPage },
    { "text", "Text", statesSection, "text_page.cpp", makeTextPage },
    { "buttons", "Buttons", statesSection, "buttons_page.cpp", makeButtonsPage },
    { "menus", "Menus", statesSection, "menus_page.cpp", makeMenusPage },
    { "combos", "Combo boxes and dates", statesSection, "combos_page.cpp", makeCombosPage },
    { "dates", "Dates in panels", statesSection, "dates_page.cpp", makeDatesPage },
    { "boxes", "Boxes and progress", statesSection, "boxes_page.cpp", makeBoxesPage },
    { "image_views", "Image views and segments", statesSection, "image_views_page.cpp", makeImageViewsPage },
    { "tables", "Tables and outlines", statesSection, "tables_page.cpp", makeTablesPage },
    { "tabs", "Tab views", statesSection, "tabs_page.cpp", makeTabsPage },
    { "alerts", "Alerts", statesSection, "windows_page.cpp", makeAlertsPage },
    { "progress", "Progress windows", statesSection, "windows_page.cpp", makeProgressPage },
    { "backgrounds", "Window backgrounds", statesSection, "windows_page.cpp", makeBackgroundsPage },
    { "labels", "Engraved labels", statesSection, "labels_page.cpp", makeLabelsPage },
    { "many_labels", "300 engraved labels", statesSection, "labels_page.cpp", makeManyLabelsPage },
    { "chiseled", "Engraved titles", statesSection, "chiseled_page.cpp", makeChiseledPage },
    { "sounds", "Sounds", statesSection, "sounds_page.cpp", makeSoundsPage },
    { "speech", "Speech", statesSection, "speech_page.cpp", makeSpeechPage },
};

}

std::span<Page const> sheetPages()
{
    return familyPages;
}

}
