#include "browser_peer.h"
#include "qt_application.h"

#include <QDir>
#include <QEventLoop>
#include <QFileSystemModel>
#include <QImage>
#include <QTreeView>

#include <chrono>

namespace plix::bench {

double openFolderInQt(std::string const& path)
{
    makeQtApplication();
    QFileSystemModel model;
    model.setFilter(QDir::AllEntries | QDir::NoDotAndDotDot);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.resize(820, 500);
    view.setModel(&model);
    QImage image(820, 500, QImage::Format_RGB32);
    auto const begin = std::chrono::steady_clock::now();
    QEventLoop loop;
    QObject::connect(&model, &QFileSystemModel::directoryLoaded, &loop, &QEventLoop::quit);
    auto const folder = QString::fromStdString(path);
    view.setRootIndex(model.setRootPath(folder));
    while (model.rowCount(model.index(folder)) == 0)
        loop.exec();
    view.render(&image);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

}
