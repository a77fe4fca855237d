#include <plix/controls/classes.h>

#include <plix/controls/PLIXButton.h>
#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/controls/PLIXImageView.h>
#include <plix/controls/PLIXPopUpButton.h>
#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/controls/PLIXTextAttachmentCell.h>
#include <plix/controls/TQComboBoxCell.h>
#include <plix/controls/TQPopUpButtonCell.h>
#include <plix/controls/TQSplitView.h>

namespace plix {

void registerControlClasses()
{
    PLIXButton::staticClass();
    PLIXChiseledTextField::staticClass();
    PLIXPopUpButton::staticClass();
    PLIXChiseledTextPopUpButton::staticClass();
    PLIXImageView::staticClass();
    PLIXSegmentedCell::staticClass();
    PLIXSegmentedControl::staticClass();
    PLIXSegmentedControlButton::staticClass();
    PLIXTabView::staticClass();
    PLIXTabViewItem::staticClass();
    TQPopUpButtonCell::staticClass();
    TQComboBoxCell::staticClass();
    TQSplitView::staticClass();
    PLIXTextAttachmentCell::staticClass();
}

}
