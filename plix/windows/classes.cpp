#include <plix/windows/classes.h>

#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQDateRangePanel.h>
#include <plix/windows/TQLegacyDatePicker.h>

namespace plix {

void registerWindowClasses()
{
    PLIXWindow::staticClass();
    TQDateRangePanel::staticClass();
    TQLegacyDatePicker::staticClass();
}

}
