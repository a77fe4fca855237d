#include <tests/support/NibTest.h>

#include <plix/library_classes.h>

namespace plix {
namespace {

/// The library's own classes in interface files: each element becomes exactly what it asks for, without a word.
TEST_F(NibTest, KnowsTheLibrarysClassesByTheirNames)
{
    ASSERT_TRUE(libraryClassesAreListed);
    struct {
        std::string_view element;
        std::string_view className;
    } const rows[] = {
        { "customView", "PLIXButton" },
        { "customView", "PLIXChiseledTextField" },
        { "textField", "PLIXChiseledTextField" },
        { "customView", "PLIXChiseledTextPopUpButton" },
        { "imageView", "PLIXImageView" },
        { "popUpButton", "PLIXPopUpButton" },
        { "popUpButtonCell", "TQPopUpButtonCell" },
        { "comboBoxCell", "TQComboBoxCell" },
        { "segmentedControl", "PLIXSegmentedControl" },
        { "segmentedCell", "PLIXSegmentedCell" },
        { "splitView", "TQSplitView" },
        { "tabView", "PLIXTabView" },
        { "tabViewItem", "PLIXTabViewItem" },
        { "tableView", "PLIXTableView" },
        { "outlineView", "PLIXOutlineView" },
        { "tableHeaderView", "PLIXNSTableHeaderView" },
        { "textFieldCell", "PLIXImageAndTextCell" },
        { "window", "PLIXWindow" },
        { "customView", "TQLegacyDatePicker" },
        { "customFormatter", "TQTimeIntervalFormatter" },
        { "textField", "PLIXSpeakingTextField" },
    };
    for (auto const& row : rows) {
        auto const objects = load(document("<" + std::string(row.element) + " id=\"1\" visibleAtLaunch=\"NO\" customClass=\""
            + std::string(row.className) + "\"/>"));
        ASSERT_EQ(objects.size(), 1U) << row.className;
        EXPECT_EQ(objects[0]->isa().name(), row.className);
    }
    EXPECT_EQ(log, std::vector<std::string> {});
}

}
}
