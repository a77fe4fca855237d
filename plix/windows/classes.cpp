#include <plix/windows/classes.h>

#include <plix/windows/PLIXProgressWindow.h>
#include <plix/windows/PLIXProgressWindowNIBLoader.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQAlert.h>
#include <plix/windows/TQDateRangePanel.h>
#include <plix/windows/TQLegacyDatePicker.h>

namespace plix {

void registerWindowClasses()
{
    PLIXWindow::staticClass();
    TQAlert::staticClass();
    PLIXProgressWindow::staticClass();
    PLIXProgressWindowNIBLoader::staticClass();
    TQDateRangePanel::staticClass();
    TQLegacyDatePicker::staticClass();
}

}
