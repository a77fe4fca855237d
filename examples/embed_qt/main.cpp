#include "DemoWindow.h"

#include <examples/support/example_options.h>

#include <plix/plix.h>

#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>

#include <iostream>

int main(int argc, char** argv)
{
    QApplication qt(argc, argv);
    auto const options = example::parseOptions(argc, argv);
    if (options.showsHelp || !options.problem.empty()) {
        std::cerr << options.problem << (options.problem.empty() ? "" : "\n");
        std::cout << "embed_qt: a view tree in a window of Qt's. Scale with QT_SCALE_FACTOR=2.\n\n"
                  << "  --screenshot FILE          write what the window shows as PNG and end\n"
                     "  --dark                     the dark look of the tree\n"
                     "  --exit-after-first-frame   end as soon as the window has been drawn\n"
                     "  --help                     this\n";
        return options.problem.empty() ? 0 : 2;
    }
    if (options.isDark)
        plix::setCurrentAppearance(plix::Appearance::dark);

    embed_qt::DemoWindow window;
    window.show();
    bool isWritten = true;
    if (!options.screenshot.empty() || options.exitsAfterFirstFrame) {
        QTimer::singleShot(0, &window, [&] {
            if (!options.screenshot.empty())
                isWritten = window.grab().save(QString::fromStdString(options.screenshot), "PNG");
            QApplication::quit();
        });
    }
    QApplication::exec();
    if (!isWritten)
        std::cerr << "could not write " << options.screenshot << '\n';
    return isWritten ? 0 : 1;
}
