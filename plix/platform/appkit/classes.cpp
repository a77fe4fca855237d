#include <plix/platform/appkit/classes.h>

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSDatePickerCell.h>
#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSSound.h>
#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextAttachmentCell.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindowController.h>

namespace plix {

void registerAppKitClasses()
{
    NSResponder::staticClass();
    NSApplication::staticClass();
    NSWindow::staticClass();
    NSPanel::staticClass();
    NSView::staticClass();
    NSWindowController::staticClass();
    NSEvent::staticClass();
    NSCursor::staticClass();
    NSScreen::staticClass();
    NSPasteboard::staticClass();
    NSDocument::staticClass();
    NSDocumentController::staticClass();
    NSCell::staticClass();
    NSActionCell::staticClass();
    NSTextFieldCell::staticClass();
    NSControl::staticClass();
    NSTextField::staticClass();
    NSMenu::staticClass();
    NSMenuItem::staticClass();
    NSNib::staticClass();
    NSButtonCell::staticClass();
    NSButton::staticClass();
    NSText::staticClass();
    NSTextView::staticClass();
    NSPopUpButtonCell::staticClass();
    NSPopUpButton::staticClass();
    NSImageCell::staticClass();
    NSImageView::staticClass();
    NSBox::staticClass();
    NSProgressIndicator::staticClass();
    NSSegmentedControl::staticClass();
    NSSegmentedCell::staticClass();
    NSComboBox::staticClass();
    NSComboBoxCell::staticClass();
    NSDatePicker::staticClass();
    NSDatePickerCell::staticClass();
    NSSpeechSynthesizer::staticClass();
    NSSplitView::staticClass();
    NSTabView::staticClass();
    NSTabViewItem::staticClass();
    NSTableColumn::staticClass();
    NSTableCornerView::staticClass();
    NSTableHeaderCell::staticClass();
    NSTableHeaderView::staticClass();
    NSTableView::staticClass();
    NSOutlineView::staticClass();
    NSTextAttachmentCell::staticClass();
    NSTextAttachment::staticClass();
    NSScroller::staticClass();
    NSClipView::staticClass();
    NSScrollView::staticClass();
    NSSound::staticClass();
}

}
