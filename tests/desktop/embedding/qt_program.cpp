// The example's window in Qt, which reports what happens in it.

#include "embedded_program.h"

#include <examples/embed_qt/DemoWindow.h>

#include <plix/plix.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>

int main(int argc, char** argv)
{
    QApplication qt(argc, argv);
    embed_qt::DemoWindow window;
    window.show();
    plix::desktop::ToolkitHalf half;
    half.scale = static_cast<float>(qt.devicePixelRatio());
    half.place = [&window](std::string const& part) {
        QWidget const& widget = part == "add" ? static_cast<QWidget&>(window.addButton()) : window.nameField();
        auto const corner = widget.mapToGlobal(QPoint(0, 0));
        return plix::Rect { static_cast<float>(corner.x()), static_cast<float>(corner.y()), static_cast<float>(widget.width()),
            static_cast<float>(widget.height()) };
    };
    half.name = [&window] { return window.nameField().text().toStdString(); };
    half.label = [&window] { return window.label().text().toStdString(); };
    half.addSecond = [&window](plix::Ref<plix::NSView> const& view) {
        auto* const widget = new embed_qt::PlixWidget(view);
        widget->setMinimumSize(widget->sizeHint());
        window.layout()->addWidget(widget);
    };
    half.destroyEmbedded = [&window] { delete window.embedded(); };
    QTimer::singleShot(0, &window, [&] { plix::desktop::reportEmbedded(window.tree(), half); });
    return QApplication::exec();
}
