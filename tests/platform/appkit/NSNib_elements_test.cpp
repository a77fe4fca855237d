#include <tests/support/NibTest.h>

#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSDatePickerCell.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSFontManager.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSTextStorage.h>

namespace plix {
namespace {

/// A view that says what it was asked for.
class NibCanvas : public NSView {
    PLIX_CLASS(NibCanvas, NSView);

public:
    using NSView::init;
    bool init(NSCoder& coder)
    {
        wasReadFromCoder = true;
        return NSView::init(coder);
    }
    void setLevel(int value) { level = value; }
    void setScale(double value) { scale = value; }
    void setCaption(std::string_view value) { caption = value; }
    void setFill(Ref<NSColor> const& value) { fill = value; }
    void setShadowed(bool value) { isShadowed = value; }
    void setPicture(Ref<NSImage> const& value) { picture = value; }

    bool wasReadFromCoder { false };
    bool isShadowed { false };
    int level { 0 };
    double scale { 0 };
    std::string caption;
    Ref<NSColor> fill { NSColor::redColor() };
    Ref<NSImage> picture;
};

PLIX_DESCRIBE(NibCanvas)
{
    description.property("level", &NibCanvas::setLevel)
        .property("scale", &NibCanvas::setScale)
        .property("caption", &NibCanvas::setCaption)
        .property("fill", &NibCanvas::setFill)
        .property("picture", &NibCanvas::setPicture)
        .property("shadowed", &NibCanvas::setShadowed);
}

/// A view whose author forgot that an init hides those of its base.
class NibPlate : public NSView {
    PLIX_CLASS(NibPlate, NSView);

public:
    bool init(Rect frame) { return NSView::init(frame); }
};

PLIX_DESCRIBE(NibPlate)
{
}

/// A view that can't be read.
class NibRefuser : public NSView {
    PLIX_CLASS(NibRefuser, NSView);

public:
    bool init(NSCoder&) { return false; }
};

PLIX_DESCRIBE(NibRefuser)
{
}

/// A window whose init does more.
class NibWindow : public NSWindow {
    PLIX_CLASS(NibWindow, NSWindow);

public:
    using NSWindow::init;
    bool init(Rect content, unsigned styleMask, NSBackingStoreType backing, bool defer)
    {
        styleOfInit = styleMask;
        return NSWindow::init(content, styleMask, backing, defer);
    }
    unsigned styleOfInit { 0 };
};

PLIX_DESCRIBE(NibWindow)
{
}

class NibElements : public NibTest {
protected:
    NibElements()
    {
        NibCanvas::staticClass();
        NibPlate::staticClass();
        NibRefuser::staticClass();
        NibWindow::staticClass();
    }
};

// MARK: cells and controls

TEST_F(NibElements, TextFieldCells)
{
    auto const field = loadFirst<NSTextField>(document(R"(<textField id="1"><textFieldCell key="cell" controlSize="small"
        lineBreakMode="truncatingMiddle" selectable="YES" enabled="NO" alignment="right" title="A &amp; B" bezelStyle="round"
        borderStyle="border" refusesFirstResponder="YES" tag="4" id="2">
        <color key="backgroundColor" name="selectedControlColor" catalog="System" colorSpace="catalog"/>
        </textFieldCell></textField>)"));
    ASSERT_TRUE(field);
    auto const& cell = static_cast<NSTextFieldCell&>(*field->cell());
    EXPECT_EQ(cell.stringValue(), "A & B");
    EXPECT_EQ(cell.controlSize(), NSSmallControlSize);
    EXPECT_EQ(cell.lineBreakMode(), NSLineBreakByTruncatingMiddle);
    EXPECT_EQ(cell.alignment(), NSRightTextAlignment);
    EXPECT_EQ(cell.bezelStyle(), NSTextFieldRoundedBezel);
    EXPECT_EQ(cell.backgroundColor(), NSColor::selectedControlColor().get());
    EXPECT_TRUE(cell.isSelectable());
    EXPECT_FALSE(cell.isEditable());
    EXPECT_FALSE(cell.isEnabled());
    EXPECT_TRUE(cell.isBordered());
    EXPECT_FALSE(cell.isBezeled());
    EXPECT_TRUE(cell.refusesFirstResponder());
    EXPECT_EQ(field->tag(), 4);
}

TEST_F(NibElements, ButtonsOfAllTypes)
{
    auto const made = load(document(R"(<button id="1"><buttonCell key="cell" type="radio" title="R" imagePosition="left" state="on"
        id="2"><behavior key="behavior" changeContents="YES" doesNotDimImage="YES" lightByContents="YES"/></buttonCell></button>
        <button id="3"><buttonCell key="cell" type="bevel" title="B" alternateTitle="C" bezelStyle="regularSquare" imagePosition="above"
        borderStyle="borderAndBezel" transparent="YES" keyEquivalent="k" id="4">
        <behavior key="behavior" pushIn="YES" changeBackground="YES" changeGray="YES" lightByGray="YES"/>
        <modifierMask key="keyEquivalentModifierMask" command="YES" option="YES"/></buttonCell></button>)"));
    ASSERT_EQ(made.size(), 2U);
    auto const& radio = static_cast<NSButton&>(*made[0]);
    auto const reference = make<NSButton>(Rect {});
    reference->setButtonType(NSRadioButton);
    auto const& radioCell = static_cast<NSButtonCell&>(*radio.cell());
    auto const& referenceCell = static_cast<NSButtonCell&>(*reference->cell());
    EXPECT_EQ(radioCell.highlightsBy(), referenceCell.highlightsBy());
    EXPECT_EQ(radioCell.showsStateBy(), referenceCell.showsStateBy());
    EXPECT_FALSE(radioCell.imageDimsWhenDisabled());
    EXPECT_EQ(radio.state(), NSOnState);
    auto const& bevel = static_cast<NSButton&>(*made[1]);
    auto const& cell = static_cast<NSButtonCell&>(*bevel.cell());
    EXPECT_EQ(cell.highlightsBy(), NSPushInCellMask | NSChangeGrayCellMask);
    EXPECT_EQ(cell.showsStateBy(), NSChangeBackgroundCellMask | NSChangeGrayCellMask);
    EXPECT_EQ(cell.keyEquivalentModifierMask(), NSCommandKeyMask | NSAlternateKeyMask);
    EXPECT_EQ(bevel.alternateTitle(), "C");
    EXPECT_EQ(bevel.keyEquivalent(), "k");
    EXPECT_EQ(bevel.imagePosition(), NSImageAbove);
    EXPECT_TRUE(bevel.isBordered());
    EXPECT_TRUE(bevel.isTransparent());
}

TEST_F(NibElements, TitlesWithAttributes)
{
    constexpr std::string_view title = R"(<attributedString key="attributedTitle"><fragment content="Red"><attributes>
        <color key="NSColor" red="1" green="0" blue="0" alpha="1"/></attributes></fragment></attributedString>)";
    auto const objects = load(document(R"(<button id="1"><buttonCell key="cell" id="2">)" + std::string(title)
        + R"(</buttonCell></button><menuItem id="3">)" + std::string(title) + "</menuItem>"));
    ASSERT_EQ(objects.size(), 2U);
    auto const onButton = static_cast<NSButton&>(*objects[0]).attributedTitle();
    EXPECT_EQ(onButton->string(), "Red");
    EXPECT_EQ(onButton->attributesAtIndex(0).at(NSForegroundColorAttributeName).as<NSColor>()->redComponent(), 1);
    EXPECT_EQ(static_cast<NSMenuItem&>(*objects[1]).attributedTitle()->string(), "Red");
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibElements, PopUpButtons)
{
    auto const button = loadFirst<NSPopUpButton>(document(R"(<popUpButton id="1"><popUpButtonCell key="cell" pullsDown="NO"
        selectedItem="5" id="2"><menu key="menu" id="3"><items><menuItem title="One" tag="10" id="4"/>
        <menuItem title="Two" tag="20" id="5"/><menuItem isSeparatorItem="YES" id="6"/></items></menu></popUpButtonCell></popUpButton>)"));
    ASSERT_TRUE(button);
    EXPECT_EQ(button->numberOfItems(), 3);
    EXPECT_EQ(button->titleOfSelectedItem(), "Two");
    EXPECT_EQ(button->itemAtIndex(0)->tag(), 10);
    EXPECT_TRUE(button->itemAtIndex(2)->isSeparatorItem());
    EXPECT_FALSE(button->pullsDown());
}

TEST_F(NibElements, ASelectedItemThatTheMenuLacksIsNamed)
{
    EXPECT_TRUE(loadFirst<NSPopUpButton>(document(R"(<popUpButton id="1"><popUpButtonCell key="cell" selectedItem="5" id="2">
        <menu key="menu" id="3"/></popUpButtonCell></popUpButton>)")));
    EXPECT_EQ(lines("popUpButtonCell 2: its menu has no item 5"), 1);
}

TEST_F(NibElements, ComboBoxes)
{
    auto const box = loadFirst<NSComboBox>(document(R"(<comboBox id="1"><comboBoxCell key="cell" completes="YES" editable="YES"
        numberOfVisibleItems="7" title="Red" id="2"><objectValues><string>Red</string><string base64-UTF8="YES">R3LDvG4</string>
        </objectValues></comboBoxCell></comboBox>)"));
    ASSERT_TRUE(box);
    EXPECT_EQ(box->objectValues(), (ObjectValue::Array { "Red", "Grün" }));
    EXPECT_EQ(box->numberOfVisibleItems(), 7);
    EXPECT_EQ(box->stringValue(), "Red");
    EXPECT_TRUE(box->completes());
}

TEST_F(NibElements, SegmentedControls)
{
    auto const control = loadFirst<NSSegmentedControl>(document(R"(<segmentedControl id="1"><segmentedCell key="cell"
        trackingMode="selectAny" id="2"><segments><segment label="Left" width="50"/><segment label="Mid" selected="YES" tag="3"/>
        <segment enabled="NO" toolTip="Tip"/></segments></segmentedCell></segmentedControl>)"));
    ASSERT_TRUE(control);
    EXPECT_EQ(control->segmentCount(), 3);
    EXPECT_EQ(control->labelForSegment(0), "Left");
    EXPECT_EQ(control->widthForSegment(0), 50);
    EXPECT_TRUE(control->isSelectedForSegment(1));
    EXPECT_FALSE(control->isSelectedForSegment(0));
    EXPECT_FALSE(control->isEnabledForSegment(2));
    EXPECT_TRUE(control->isEnabledForSegment(1));
    auto const& cell = static_cast<NSSegmentedCell&>(*control->cell());
    EXPECT_EQ(cell.tagForSegment(1), 3);
    EXPECT_EQ(cell.toolTipForSegment(2), "Tip");
    EXPECT_EQ(cell.trackingMode(), NSSegmentSwitchTrackingSelectAny);
}

TEST_F(NibElements, DatePickers)
{
    auto const picker = loadFirst<NSDatePicker>(document(R"(<datePicker id="1"><datePickerCell key="cell" drawsBackground="NO"
        datePickerStyle="textField" id="2"><calendarDate key="date" timeIntervalSinceReferenceDate="86400"/>
        <date key="maxDate" timeIntervalSinceReferenceDate="172800"/>
        <datePickerElements key="datePickerElements" year="YES" month="YES" day="YES"/></datePickerCell></datePicker>)"));
    ASSERT_TRUE(picker);
    auto const& cell = static_cast<NSDatePickerCell&>(*picker->cell());
    EXPECT_EQ(picker->dateValue().timeIntervalSinceReferenceDate, 86400);
    EXPECT_EQ(cell.maxDate()->timeIntervalSinceReferenceDate, 172800);
    EXPECT_FALSE(cell.minDate());
    EXPECT_EQ(cell.datePickerElements(), static_cast<unsigned>(NSYearMonthDayDatePickerElementFlag));
    EXPECT_EQ(cell.datePickerStyle(), NSTextFieldDatePickerStyle);
    EXPECT_FALSE(cell.drawsBackground());
}

TEST_F(NibElements, ImageViews)
{
    auto const picture = make<NSImage>(Size { 5, 6 });
    picture->setName("nib picture");
    auto const view = loadFirst<NSImageView>(document(R"(<imageView id="1"><imageCell key="cell" image="nib picture"
        imageScaling="axesIndependently" imageAlignment="topLeft" imageFrameStyle="groove" id="2"/></imageView>)"));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->image(), picture.get());
    auto const& cell = static_cast<NSImageCell&>(*view->cell());
    EXPECT_EQ(cell.imageScaling(), NSScaleToFit);
    EXPECT_EQ(cell.imageAlignment(), NSImageAlignTopLeft);
    EXPECT_EQ(cell.imageFrameStyle(), NSImageFrameGroove);
    picture->setName("");
}

TEST_F(NibElements, AnImageThatIsNotThereIsNone)
{
    auto const view = loadFirst<NSImageView>(
        document(R"(<imageView id="1"><imageCell key="cell" image="no such picture" id="2"/></imageView>)"));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_EQ(lines("the image \"no such picture\" is not there"), 1);
}

TEST_F(NibElements, ProgressIndicators)
{
    auto const bar = loadFirst<NSProgressIndicator>(document(
        R"(<progressIndicator minValue="2" maxValue="12" doubleValue="7" indeterminate="YES" displayedWhenStopped="NO"
        controlSize="small" style="spinning" bezeled="NO" id="1"/>)"));
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->minValue(), 2);
    EXPECT_EQ(bar->maxValue(), 12);
    EXPECT_EQ(bar->doubleValue(), 7);
    EXPECT_TRUE(bar->isIndeterminate());
    EXPECT_FALSE(bar->isDisplayedWhenStopped());
    EXPECT_FALSE(bar->isBezeled());
    EXPECT_EQ(bar->style(), NSProgressIndicatorSpinningStyle);
    EXPECT_EQ(bar->controlSize(), NSSmallControlSize);
}

TEST_F(NibElements, FormattersOfCells)
{
    auto const objects = load(document(R"(<textField id="1"><textFieldCell key="cell" id="2"><dateFormatter key="formatter"
        dateFormat="%Y" id="3"/></textFieldCell></textField><dateFormatter dateFormat="%H" id="4"/>
        <textField id="5"><textFieldCell key="cell" id="6"><connections><outlet property="formatter" destination="4" id="7"/>
        </connections></textFieldCell></textField>)"));
    ASSERT_EQ(objects.size(), 3U);
    auto const* within = dynamic_cast<NSDateFormatter*>(static_cast<NSControl&>(*objects[0]).cell()->formatter());
    ASSERT_TRUE(within);
    EXPECT_EQ(within->dateFormat(), "%Y");
    EXPECT_EQ(static_cast<NSControl&>(*objects[2]).cell()->formatter(), objects[1].get());
}

// MARK: views

TEST_F(NibElements, BoxesAndWhatIsInThem)
{
    auto const box
        = loadFirst<NSBox>(document(R"(<box title="Name" borderType="line" titlePosition="belowTop" boxType="secondary" id="1">
        <rect key="frame" x="10" y="20" width="200" height="100"/><font key="titleFont" metaFont="smallSystem"/>
        <view key="contentView" id="2"><rect key="frame" x="1" y="1" width="198" height="80"/><subviews>
        <button id="3"><rect key="frame" x="5" y="6" width="70" height="20"/></button></subviews></view></box>)"));
    ASSERT_TRUE(box);
    EXPECT_EQ(box->frame(), (Rect { 10, 20, 200, 100 }));
    EXPECT_EQ(box->title(), "Name");
    EXPECT_EQ(box->borderType(), NSLineBorder);
    EXPECT_EQ(box->titlePosition(), NSBelowTop);
    EXPECT_EQ(box->boxType(), NSBoxSecondary);
    EXPECT_EQ(box->titleFont(), NSFont::systemFontOfSize(11).get());
    ASSERT_EQ(box->contentView()->subviews().size(), 1U);
    EXPECT_EQ(box->contentView()->subviews()[0]->frame(), (Rect { 5, 6, 70, 20 }));
}

TEST_F(NibElements, ScrollViewsWithTables)
{
    auto const scrolled = loadFirst<NSScrollView>(document(R"(<scrollView autohidesScrollers="YES" horizontalLineScroll="9"
        horizontalPageScroll="8" verticalLineScroll="7" verticalPageScroll="6" hasHorizontalScroller="NO" borderType="line" id="1">
        <rect key="frame" x="0" y="0" width="200" height="150"/><clipView key="contentView" drawsBackground="NO" id="2"><subviews>
        <tableView columnAutoresizingStyle="uniform" alternatingRowBackgroundColors="YES" multipleSelection="NO" emptySelection="NO"
        columnReordering="NO" autosaveColumns="NO" rowHeight="21" headerView="4" id="3">
        <size key="intercellSpacing" width="5" height="4"/><tableViewGridLines key="gridStyleMask" vertical="YES" horizontal="YES"/>
        <tableColumns><tableColumn identifier="Name" editable="NO" width="84" minWidth="40" maxWidth="500" id="8">
        <tableHeaderCell key="headerCell" title="The name" alignment="center"/><textFieldCell key="dataCell" alignment="right" id="9"/>
        <tableColumnResizingMask key="resizingMask" userResizable="YES"/></tableColumn>
        <tableColumn identifier="Kind" hidden="YES" width="30" id="10"/></tableColumns></tableView></subviews></clipView>
        <scroller key="horizontalScroller" hidden="YES" id="5"/><scroller key="verticalScroller" hidden="YES" doubleValue="1" id="6"/>
        <tableHeaderView key="headerView" id="4"><rect key="frame" x="0" y="0" width="180" height="17"/></tableHeaderView></scrollView>)"));
    ASSERT_TRUE(scrolled);
    auto const* table = dynamic_cast<NSTableView*>(scrolled->documentView());
    ASSERT_TRUE(table);
    EXPECT_EQ(scrolled->borderType(), NSLineBorder);
    EXPECT_EQ(scrolled->verticalLineScroll(), 7);
    EXPECT_EQ(scrolled->horizontalPageScroll(), 8);
    EXPECT_FALSE(scrolled->hasHorizontalScroller());
    EXPECT_TRUE(scrolled->hasVerticalScroller());
    EXPECT_FALSE(scrolled->drawsBackground());
    EXPECT_EQ(table->columnAutoresizingStyle(), NSTableViewUniformColumnAutoresizingStyle);
    EXPECT_EQ(table->rowHeight(), 21);
    EXPECT_EQ(table->intercellSpacing(), (Size { 5, 4 }));
    EXPECT_EQ(table->gridStyleMask(), 3U);
    EXPECT_TRUE(table->usesAlternatingRowBackgroundColors());
    EXPECT_FALSE(table->allowsMultipleSelection());
    EXPECT_FALSE(table->allowsEmptySelection());
    EXPECT_FALSE(table->allowsColumnReordering());
    ASSERT_TRUE(table->headerView());
    EXPECT_EQ(table->headerView()->frame().height, 17);
    auto const* column = table->tableColumnWithIdentifier("Name");
    ASSERT_TRUE(column);
    EXPECT_EQ(column->minWidth(), 40);
    EXPECT_EQ(column->maxWidth(), 500);
    EXPECT_EQ(column->headerCell()->stringValue(), "The name");
    EXPECT_EQ(column->dataCell()->alignment(), NSRightTextAlignment);
    EXPECT_EQ(column->resizingMask(), static_cast<unsigned>(NSTableColumnUserResizingMask));
    EXPECT_FALSE(column->isEditable());
    EXPECT_TRUE(table->tableColumnWithIdentifier("Kind")->isHidden());
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibElements, ATableWithoutAHeaderHasNone)
{
    auto const table = loadFirst<NSTableView>(document(R"(<tableView id="1"/>)"));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->headerView(), nullptr);
}

TEST_F(NibElements, OutlineViews)
{
    auto const outline = loadFirst<NSOutlineView>(document(R"(<outlineView indentationPerLevel="23" outlineTableColumn="3" id="1">
        <tableColumns><tableColumn identifier="a" id="2"/><tableColumn identifier="b" id="3"/></tableColumns></outlineView>)"));
    ASSERT_TRUE(outline);
    EXPECT_EQ(outline->indentationPerLevel(), 23);
    EXPECT_EQ(outline->outlineTableColumn()->identifier(), "b");
}

TEST_F(NibElements, TabViews)
{
    auto const tabs = loadFirst<NSTabView>(document(R"(<tabView type="bottomTabsBezelBorder" controlSize="small" initialItem="3"
        drawsBackground="NO" allowsTruncatedLabels="YES" id="1"><rect key="frame" x="0" y="0" width="300" height="200"/>
        <font key="font" metaFont="smallSystem"/><tabViewItems><tabViewItem label="One" identifier="1" id="2"><view key="view" id="4"/>
        </tabViewItem><tabViewItem label="Two" identifier="2" id="3"><view key="view" id="5"><subviews><customView id="6"/></subviews>
        </view></tabViewItem></tabViewItems></tabView>)"));
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->tabViewType(), NSBottomTabsBezelBorder);
    EXPECT_EQ(tabs->controlSize(), NSSmallControlSize);
    EXPECT_EQ(tabs->font()->pointSize(), 11);
    EXPECT_FALSE(tabs->drawsBackground());
    EXPECT_TRUE(tabs->allowsTruncatedLabels());
    EXPECT_EQ(tabs->numberOfTabViewItems(), 2);
    ASSERT_TRUE(tabs->selectedTabViewItem());
    EXPECT_EQ(tabs->selectedTabViewItem()->label(), "Two");
    EXPECT_EQ(tabs->selectedTabViewItem()->identifier(), "2");
    EXPECT_EQ(tabs->selectedTabViewItem()->view()->subviews().size(), 1U);
}

TEST_F(NibElements, TextViews)
{
    auto const view = loadFirst<NSTextView>(document(R"(<textView editable="NO" drawsBackground="NO" allowsUndo="YES" id="1">
        <rect key="frame" x="0" y="0" width="100" height="40"/><size key="minSize" width="100" height="40"/>
        <size key="maxSize" width="400" height="10000000"/><color key="insertionPointColor" red="1" green="0" blue="0"/>
        <attributedString key="textStorage"><fragment content="Bold"><attributes><font key="NSFont" metaFont="systemBold"/></attributes>
        </fragment><fragment><string key="content"> and plain</string></fragment></attributedString></textView>)"));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->string(), "Bold and plain");
    EXPECT_EQ(view->textStorage()->attributesAtIndex(0).at(NSFontAttributeName).as<NSFont>(), NSFont::boldSystemFontOfSize(13));
    EXPECT_EQ(view->minSize(), (Size { 100, 40 }));
    EXPECT_EQ(view->insertionPointColor()->redComponent(), 1);
    EXPECT_FALSE(view->isEditable());
    EXPECT_TRUE(view->isSelectable());
    EXPECT_FALSE(view->drawsBackground());
    EXPECT_TRUE(view->allowsUndo());
}

TEST_F(NibElements, SplitViewsKeepTheFramesOfTheirPanes)
{
    auto const split = loadFirst<NSSplitView>(document(R"(<splitView vertical="YES" dividerStyle="paneSplitter" id="1">
        <rect key="frame" x="0" y="0" width="210" height="90"/><subviews>
        <customView id="2"><rect key="frame" x="0" y="0" width="80" height="90"/></customView>
        <customView id="3"><rect key="frame" x="86" y="0" width="124" height="90"/></customView></subviews></splitView>)"));
    ASSERT_TRUE(split);
    EXPECT_TRUE(split->isVertical());
    EXPECT_TRUE(split->isPaneSplitter());
    EXPECT_EQ(split->subviews()[0]->frame().width, 80);
}

TEST_F(NibElements, HiddenViewsAndTheirBounds)
{
    auto const view = loadFirst<NSView>(document(R"(<customView hidden="YES" autoresizesSubviews="NO" focusRingType="none" id="1">
        <rect key="frame" x="0" y="0" width="10" height="20"/><rect key="bounds" x="1" y="2" width="20" height="40"/></customView>)"));
    ASSERT_TRUE(view);
    EXPECT_TRUE(view->isHidden());
    EXPECT_FALSE(view->autoresizesSubviews());
    EXPECT_EQ(view->focusRingType(), NSFocusRingTypeNone);
    EXPECT_EQ(view->bounds(), (Rect { 1, 2, 20, 40 }));
}

// MARK: menus and windows

TEST_F(NibElements, Menus)
{
    auto const menu = loadFirst<NSMenu>(document(R"(<menu title="Main" autoenablesItems="NO" id="1"><items>
        <menuItem title="Find" tag="3" state="mixed" enabled="NO" indentationLevel="2" keyEquivalent="f" toolTip="Tip" id="2">
        <modifierMask key="keyEquivalentModifierMask" command="YES" shift="YES"/></menuItem>
        <menuItem title="Plain" keyEquivalent="p" id="3"/><menuItem isSeparatorItem="YES" id="4"/>
        <menuItem title="More" id="5"><modifierMask key="keyEquivalentModifierMask"/><menu key="submenu" title="Less" id="6"><items>
        <menuItem title="Deep" hidden="YES" id="7"/></items></menu></menuItem></items></menu>)"));
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title(), "Main");
    EXPECT_FALSE(menu->autoenablesItems());
    ASSERT_EQ(menu->numberOfItems(), 4);
    auto const& find = *menu->itemAtIndex(0);
    EXPECT_EQ(find.tag(), 3);
    EXPECT_EQ(find.state(), NSMixedState);
    EXPECT_FALSE(find.isEnabled());
    EXPECT_EQ(find.indentationLevel(), 2);
    EXPECT_EQ(find.keyEquivalent(), "f");
    EXPECT_EQ(find.keyEquivalentModifierMask(), NSCommandKeyMask | NSShiftKeyMask);
    EXPECT_EQ(find.toolTip(), "Tip");
    EXPECT_EQ(menu->itemAtIndex(1)->keyEquivalentModifierMask(), static_cast<unsigned>(NSCommandKeyMask));
    EXPECT_TRUE(menu->itemAtIndex(2)->isSeparatorItem());
    auto const& more = *menu->itemAtIndex(3);
    EXPECT_EQ(more.keyEquivalentModifierMask(), 0U);
    EXPECT_EQ(more.submenu()->supermenu(), menu.get());
    EXPECT_TRUE(more.submenu()->itemAtIndex(0)->isHidden());
}

TEST_F(NibElements, TheMainMenuGoesToTheApplicationThatOwnsTheFile)
{
    auto const text = document(R"(<menu title="Main" systemMenu="main" id="1"/>)");
    load(text);
    EXPECT_EQ(app().mainMenu(), nullptr);
    nib(text)->instantiateNibWithOwner(&app());
    ASSERT_TRUE(app().mainMenu());
    EXPECT_EQ(app().mainMenu()->title(), "Main");
}

TEST_F(NibElements, WindowsThatAreVisibleAtLaunchComeOnScreen)
{
    auto const objects = load(document(R"(<window title="Seen" id="1"><windowStyleMask key="styleMask" titled="YES"/>
        <rect key="contentRect" x="10" y="20" width="200" height="100"/></window>
        <window title="Unseen" visibleAtLaunch="NO" id="2"><rect key="contentRect" x="10" y="20" width="200" height="100"/></window>)"));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_TRUE(static_cast<NSWindow&>(*objects[0]).isVisible());
    EXPECT_FALSE(static_cast<NSWindow&>(*objects[1]).isVisible());
}

TEST_F(NibElements, WindowsAreMadeByTheContentRectangleInitOfTheirClass)
{
    auto const window
        = loadFirst<NibWindow>(document(R"(<window visibleAtLaunch="NO" customClass="NibWindow" hidesOnDeactivate="YES"
        hasShadow="NO" id="1"><windowStyleMask key="styleMask" titled="YES" utility="YES"/>
        <rect key="contentRect" x="10" y="20" width="200" height="100"/><size key="minSize" width="50" height="60"/>
        <size key="maxSize" width="500" height="600"/><color key="backgroundColor" white="0.5" alpha="1"/></window>)"));
    ASSERT_TRUE(window);
    EXPECT_EQ(window->styleOfInit, NSTitledWindowMask | NSUtilityWindowMask);
    EXPECT_EQ(window->contentRectForFrameRect(window->frame()), (Rect { 10, 20, 200, 100 }));
    EXPECT_EQ(window->minSize(), (Size { 50, 60 }));
    EXPECT_EQ(window->maxSize(), (Size { 500, 600 }));
    EXPECT_TRUE(window->hidesOnDeactivate());
    EXPECT_FALSE(window->hasShadow());
    EXPECT_EQ(window->backgroundColor()->whiteComponent(), 0.5F);
}

// MARK: classes and attributes

TEST_F(NibElements, CustomClassesAreReadByTheirOwnInit)
{
    auto const canvas = loadFirst<NibCanvas>(document(R"(<customView id="1" customClass="NibCanvas">
        <rect key="frame" x="1" y="2" width="3" height="4"/></customView>)"));
    ASSERT_TRUE(canvas);
    EXPECT_TRUE(canvas->wasReadFromCoder);
    EXPECT_EQ(canvas->frame(), (Rect { 1, 2, 3, 4 }));
}

TEST_F(NibElements, AClassThatHidesTheInitOfItsBaseIsReadByIt)
{
    auto const plate = loadFirst<NibPlate>(document(R"(<customView id="1" customClass="NibPlate">
        <rect key="frame" x="1" y="2" width="3" height="4"/></customView>)"));
    ASSERT_TRUE(plate);
    EXPECT_EQ(plate->frame(), (Rect { 1, 2, 3, 4 }));
}

TEST_F(NibElements, AViewThatCannotBeReadIsLeftOut)
{
    auto const view = loadFirst<NSView>(document(R"(<customView id="1"><subviews><customView id="2" customClass="NibRefuser"/>
        <customView id="3"/></subviews><connections><outlet property="nextKeyView" destination="2" id="4"/></connections></customView>)"));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->subviews().size(), 1U);
    EXPECT_EQ(lines("customView 2: no NibRefuser could be made"), 1);
    EXPECT_EQ(lines("customView 1: its outlet \"nextKeyView\" does not take customView 2"), 1);
}

TEST_F(NibElements, UnknownClassesBecomeThatOfTheirElement)
{
    auto const objects = load(document(R"(<button id="1" customClass="Nonesuch"/><customView id="2" customClass="NSMenu"/>
        <customObject id="3" customClass="Neither"/><window visibleAtLaunch="NO" id="4" customClass="NSButton"/>)"));
    ASSERT_EQ(objects.size(), 4U);
    EXPECT_TRUE(objects[0]->isMemberOfClass(NSButton::staticClass()));
    EXPECT_TRUE(objects[1]->isMemberOfClass(NSView::staticClass()));
    EXPECT_TRUE(objects[3]->isMemberOfClass(NSWindow::staticClass()));
    EXPECT_EQ(lines("button 1: its class \"Nonesuch\" is not known; NSButton stands in"), 1);
    EXPECT_EQ(lines("customView 2: its class \"NSMenu\" is no NSView; NSView stands in"), 1);
    EXPECT_EQ(lines("customObject 3: its class \"Neither\" is not known; NSObject stands in"), 1);
    EXPECT_EQ(lines("window 4: its class \"NSButton\" is no NSWindow; NSWindow stands in"), 1);
    EXPECT_EQ(log.size(), 4U);
}

TEST_F(NibElements, UnknownElementsBecomeTheNearestKnownOnes)
{
    auto const view = loadFirst<NSView>(document(R"(<customView id="1"><subviews><searchField id="2"><rect key="frame" x="1" y="2"
        width="30" height="4"/><searchFieldCell key="cell" title="Find" id="3"/></searchField><visualEffectView id="4"><subviews>
        <button id="5"/></subviews></visualEffectView><slider id="6"><sliderCell key="cell" tag="6" id="7"/></slider></subviews>
        <gestures/></customView>)"));
    ASSERT_TRUE(view);
    auto const& subviews = view->subviews();
    ASSERT_EQ(subviews.size(), 3U);
    EXPECT_TRUE(subviews[0]->isMemberOfClass(NSTextField::staticClass()));
    EXPECT_EQ(static_cast<NSTextField&>(*subviews[0]).stringValue(), "Find");
    EXPECT_TRUE(subviews[1]->isMemberOfClass(NSView::staticClass()));
    EXPECT_EQ(subviews[1]->subviews().size(), 1U);
    EXPECT_TRUE(subviews[2]->isMemberOfClass(NSControl::staticClass()));
    EXPECT_EQ(subviews[2]->tag(), 6);
    EXPECT_EQ(lines("searchField 2: its kind is not known; a NSTextField stands in"), 1);
    EXPECT_EQ(lines("visualEffectView 4: its kind is not known; a NSView stands in"), 1);
    EXPECT_EQ(lines("customView 1: its gestures is not known"), 1);
}

TEST_F(NibElements, AttributesOfTheAuthor)
{
    auto const canvas = loadFirst<NibCanvas>(document(R"(<customView id="1" customClass="NibCanvas"><userDefinedRuntimeAttributes>
        <userDefinedRuntimeAttribute type="number" keyPath="level"><integer key="value" value="7"/></userDefinedRuntimeAttribute>
        <userDefinedRuntimeAttribute type="number" keyPath="scale"><real key="value" value="1.5"/></userDefinedRuntimeAttribute>
        <userDefinedRuntimeAttribute type="string" keyPath="caption" value="Text"/>
        <userDefinedRuntimeAttribute type="boolean" keyPath="shadowed" value="YES"/>
        <userDefinedRuntimeAttribute type="boolean" keyPath="hidden" value="YES"/>
        <userDefinedRuntimeAttribute type="color" keyPath="fill"><color key="value" red="1" green="0" blue="0"/>
        </userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></customView>)"));
    ASSERT_TRUE(canvas);
    EXPECT_EQ(canvas->level, 7);
    EXPECT_EQ(canvas->scale, 1.5);
    EXPECT_EQ(canvas->caption, "Text");
    EXPECT_TRUE(canvas->isShadowed);
    EXPECT_TRUE(canvas->isHidden());
    ASSERT_TRUE(canvas->fill);
    EXPECT_EQ(canvas->fill->redComponent(), 1);
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibElements, AttributesThatDoNotFitAreNamed)
{
    EXPECT_TRUE(loadFirst<NibCanvas>(document(R"(<customView id="1" customClass="NibCanvas"><userDefinedRuntimeAttributes>
        <userDefinedRuntimeAttribute type="string" keyPath="level" value="seven"/>
        <userDefinedRuntimeAttribute type="boolean" keyPath="caption" value="YES"/>
        <userDefinedRuntimeAttribute type="string" keyPath="fill" value="red"/>
        <userDefinedRuntimeAttribute type="string" keyPath="nonesuch" value="x"/></userDefinedRuntimeAttributes></customView>)")));
    for (auto const* name : { "level", "caption", "fill", "nonesuch" })
        EXPECT_EQ(lines("customView 1: its attribute \"" + std::string(name) + "\" could not be set"), 1);
}

TEST_F(NibElements, AttributesOfTheAuthorInEveryType)
{
    struct Row {
        char const* type;
        char const* value;
        char const* expected;
    };
    for (auto const& row : {
             Row { "point", R"(<point key="value" x="1" y="2.5"/>)", "{1, 2.5}" },
             Row { "size", R"(<size key="value" width="3" height="4"/>)", "{3, 4}" },
             Row { "rect", R"(<rect key="value" x="1" y="2" width="3" height="4"/>)", "{{1, 2}, {3, 4}}" },
             Row { "range", R"(<range key="value" location="5" length="6"/>)", "{5, 6}" },
             Row { "string", R"(<string key="value">long text</string>)", "long text" },
             Row { "localizedString", R"(<string key="value">words</string>)", "words" },
         }) {
        auto const canvas = loadFirst<NibCanvas>(document(R"(<customView id="1" customClass="NibCanvas">
            <userDefinedRuntimeAttributes><userDefinedRuntimeAttribute keyPath="caption" type=")"
            + std::string(row.type) + "\">" + row.value
            + "</userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></customView>"));
        ASSERT_TRUE(canvas) << row.type;
        EXPECT_EQ(canvas->caption, row.expected) << row.type;
    }
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibElements, AttributesOfTheAuthorMayBeImagesAndNil)
{
    auto const canvas = loadFirst<NibCanvas>(document(R"(<customView id="1" customClass="NibCanvas"><userDefinedRuntimeAttributes>
        <userDefinedRuntimeAttribute type="image" keyPath="picture" value="windowbackground"/>
        <userDefinedRuntimeAttribute type="nil" keyPath="fill"/></userDefinedRuntimeAttributes></customView>)"));
    ASSERT_TRUE(canvas);
    EXPECT_EQ(canvas->picture, NSImage::imageNamed("windowbackground"));
    EXPECT_TRUE(canvas->picture);
    EXPECT_FALSE(canvas->fill);
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibElements, AttributesOfTheAuthorThatCannotBeReadAreLeftAsTheyAre)
{
    struct Row {
        char const* attribute;
        char const* line;
    };
    for (auto const& row : {
             Row { R"(type="gradient" value="x">)", "the type of its attribute \"fill\" is not known" },
             Row { R"(type="color">)", "its attribute \"fill\" has no value" },
             Row { R"(type="color"><color key="value" name="nonesuch" catalog="System" colorSpace="catalog"/>)",
                 "the color \"nonesuch\" is not known" },
         }) {
        log.clear();
        auto const canvas = loadFirst<NibCanvas>(document(
            R"(<customView id="1" customClass="NibCanvas"><userDefinedRuntimeAttributes><userDefinedRuntimeAttribute keyPath="fill" )"
            + std::string(row.attribute) + "</userDefinedRuntimeAttribute></userDefinedRuntimeAttributes></customView>"));
        ASSERT_TRUE(canvas) << row.line;
        EXPECT_TRUE(canvas->fill) << row.line;
        EXPECT_EQ(lines(row.line), 1);
        EXPECT_EQ(log.size(), 1U) << row.line;
    }
}

TEST_F(NibElements, XmlAttributesAndBitsOfMasksThatAreNotKnownArePassedOver)
{
    auto const view = loadFirst<NSView>(document(R"(<customView id="1" fixedFrame="YES">
        <autoresizingMask key="autoresizingMask" widthSizable="YES" sticky="YES"/></customView>)"));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->autoresizingMask(), unsigned { NSViewWidthSizable });
    EXPECT_EQ(log, std::vector<std::string> {});
}

TEST_F(NibElements, WhatTabsAndBoxesDoNotTakeIsNamed)
{
    ASSERT_TRUE(loadFirst<NSTabView>(
        document(R"(<tabView id="1"><tabViewItems><tabViewItem label="A" id="2" toolTip="tip"/></tabViewItems></tabView>)")));
    EXPECT_EQ(lines("tabViewItem 2: its toolTip is not known"), 1);
    ASSERT_TRUE(loadFirst<NSBox>(
        document(R"(<box id="3"><color key="borderColor" red="1" green="0" blue="0" colorSpace="calibratedRGB"/></box>)")));
    EXPECT_EQ(lines("box 3: its color is not known"), 1);
    EXPECT_EQ(log.size(), 2U);
}

// MARK: connections

TEST_F(NibElements, ConnectionsThatCannotBeMadeAreNamed)
{
    owner = make<NibOwner>();
    load(documentWithOwner(R"(<button id="1"><connections><action selector="choose:" target="2" id="a1"/>
        <outlet property="nonesuch" destination="2" id="a2"/><outlet property="nextKeyView" destination="2" id="a3"/></connections></button>
        <customObject id="2" customClass="NibHelper"><connections><action selector="choose:" target="-2" id="a4"/></connections>
        </customObject>)",
        R"(<outlet property="window" destination="1" id="b1"/><outlet property="missing" destination="1" id="b2"/>)"));
    EXPECT_EQ(lines("button 1: its action \"choose:\" is none of customObject 2"), 1);
    EXPECT_EQ(lines("button 1: it has no outlet \"nonesuch\""), 1);
    EXPECT_EQ(lines("button 1: its outlet \"nextKeyView\" does not take customObject 2"), 1);
    EXPECT_EQ(lines("customObject 2: it sends no action \"choose:\""), 1);
    EXPECT_EQ(lines("customObject -2: its outlet \"window\" does not take button 1"), 1);
    EXPECT_EQ(lines("customObject -2: it has no outlet \"missing\""), 1);
    EXPECT_EQ(log.size(), 6U);
    EXPECT_FALSE(owner->window);
}

TEST_F(NibElements, DoubleClicksOfTables)
{
    auto const table = loadFirst<NSTableView>(documentWithOwner(R"(<tableView id="1"><connections>
        <action trigger="doubleAction" selector="choose:" target="-2" id="2"/></connections></tableView>)"));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->doubleAction(), Selector("choose:"));
    EXPECT_EQ(table->target(), owner.get());
    EXPECT_FALSE(table->action());
}

TEST_F(NibElements, CellsAndMenuItemsSendActionsToo)
{
    auto const objects = load(documentWithOwner(R"(<segmentedControl id="1"><segmentedCell key="cell" id="2"><connections>
        <action selector="choose:" target="-2" id="3"/></connections></segmentedCell></segmentedControl>
        <menuItem title="Item" id="4"><connections><action selector="choose:" target="-2" id="5"/></connections></menuItem>)"));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(static_cast<NSControl&>(*objects[0]).action(), Selector("choose:"));
    EXPECT_EQ(static_cast<NSMenuItem&>(*objects[1]).target(), owner.get());
}

TEST_F(NibElements, SharedObjectsAreNotMadeAgain)
{
    auto const objects = load(document(R"(<customObject id="1" customClass="NSApplication"/>
        <customObject id="2" customClass="NSFontManager"/>)"));
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0].get(), &app());
    EXPECT_EQ(objects[1].get(), &NSFontManager::sharedFontManager());
}

TEST_F(NibElements, WithoutAnOwnerItsConnectionsAreNamed)
{
    auto const loaded = nib(documentWithOwner(
        R"(<customObject id="1" customClass="NibHelper"/>)", R"(<outlet property="helper" destination="1" id="2"/>)"));
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->instantiateNibWithOwner(nullptr));
    EXPECT_EQ(lines("customObject -2: it is not there to be connected to \"helper\""), 1);
    EXPECT_EQ(NibHelper::alive, 0);
}

}
}
