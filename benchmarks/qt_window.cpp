// The peer of start.*_desktop: a window of Qt's widgets with the same list, the files of a folder with their sizes.

#include <QAbstractTableModel>
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>
#include <QWidget>

namespace {

class FolderModel : public QAbstractTableModel {
public:
    FolderModel(QString const& folder, QStyle& style)
        : m_files(QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name | QDir::DirsFirst))
        , m_fileIcon(style.standardIcon(QStyle::SP_FileIcon))
        , m_folderIcon(style.standardIcon(QStyle::SP_DirIcon))
    {
    }
    int rowCount(QModelIndex const& = {}) const override { return static_cast<int>(m_files.size()); }
    int columnCount(QModelIndex const& = {}) const override { return 2; }
    QVariant data(QModelIndex const& index, int role) const override
    {
        auto const& file = m_files[index.row()];
        if (role == Qt::DisplayRole)
            return index.column() == 0 ? file.fileName() : QLocale().formattedDataSize(file.size());
        if (role == Qt::DecorationRole && index.column() == 0)
            return file.isDir() ? m_folderIcon : m_fileIcon;
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return section == 0 ? QStringLiteral("Name") : QStringLiteral("Size");
    }

private:
    QFileInfoList m_files;
    QIcon m_fileIcon;
    QIcon m_folderIcon;
};

}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    auto const folder = application.arguments().value(1, QStringLiteral("."));
    QWidget window;
    window.setWindowTitle(QDir(folder).dirName());
    QVBoxLayout layout(&window);
    layout.addWidget(new QLabel(folder));
    FolderModel model(folder, *application.style());
    QTableView table;
    table.setModel(&model);
    table.verticalHeader()->hide();
    table.setShowGrid(false);
    table.setAlternatingRowColors(true);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    layout.addWidget(&table);
    layout.addWidget(new QLabel(QStringLiteral("%1 items").arg(model.rowCount())));
    window.resize(640, 460);
    window.move(320, 200);
    window.show();
    return application.exec();
}
