#include "qt_application.h"

#include <QApplication>

namespace plix::bench {

void makeQtApplication()
{
    if (QApplication::instance())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "plix_bench";
    static char* arguments[] = { name, nullptr };
    new QApplication(count, arguments);
}

}
