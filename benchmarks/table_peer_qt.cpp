#include "qt_application.h"
#include "table_peer.h"

#include <QAbstractItemModel>
#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTableView>
#include <QTreeView>

namespace plix::bench {

namespace {

class Rows : public QAbstractTableModel {
public:
    explicit Rows(int rows)
        : m_rows(rows)
    {
    }
    int rowCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : tableColumns; }
    QVariant data(QModelIndex const& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        formatTableCell(m_text, index.row(), index.column());
        return QString::fromLatin1(m_text.data(), static_cast<qsizetype>(m_text.size()));
    }
    void reload()
    {
        beginResetModel();
        endResetModel();
    }

private:
    int m_rows;
    mutable std::string m_text;
};

struct Table {
    explicit Table(long rows)
        : model(static_cast<int>(rows))
        , image(tableWidth, tableHeight, QImage::Format_ARGB32_Premultiplied)
    {
        view.setModel(&model);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setShowGrid(false);
        view.verticalHeader()->hide();
        view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        view.verticalHeader()->setMinimumSectionSize(tableRowHeight);
        view.verticalHeader()->setDefaultSectionSize(tableRowHeight);
        view.horizontalHeader()->setDefaultSectionSize(tableColumnWidth);
        view.resize(tableWidth, tableHeight);
        view.show();
        for (int row : { 3, 10, 11 })
            view.selectionModel()->select(model.index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QApplication::processEvents();
    }
    void draw() { view.render(&image); }

    QTableView view;
    Rows model;
    QImage image;
    bool isScrolled { false };
};

class Tree : public QAbstractItemModel {
public:
    Tree(int roots, int children)
        : m_roots(roots)
        , m_children(children)
    {
    }
    QModelIndex index(int row, int column, QModelIndex const& parent) const override
    {
        return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row() + 1) : 0);
    }
    QModelIndex parent(QModelIndex const& index) const override
    {
        return index.internalId() == 0 ? QModelIndex() : createIndex(static_cast<int>(index.internalId()) - 1, 0, quintptr(0));
    }
    int rowCount(QModelIndex const& parent) const override
    {
        return !parent.isValid() ? m_roots : parent.internalId() == 0 && parent.column() == 0 ? m_children : 0;
    }
    int columnCount(QModelIndex const&) const override { return tableColumns; }
    QVariant data(QModelIndex const& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        formatTableCell(m_text, index.row(), index.column());
        return QString::fromLatin1(m_text.data(), static_cast<qsizetype>(m_text.size()));
    }

private:
    int m_roots;
    int m_children;
    mutable std::string m_text;
};

struct Outline {
    Outline(int roots, int children)
        : model(roots, children)
        , image(tableWidth, tableHeight, QImage::Format_ARGB32_Premultiplied)
        , count(roots)
    {
        view.setModel(&model);
        view.setUniformRowHeights(true);
        view.setAnimated(false);
        view.header()->setDefaultSectionSize(tableColumnWidth);
        view.resize(tableWidth, tableHeight);
        view.show();
        QApplication::processEvents();
    }
    void expandAll()
    {
        for (int root = 0; root < count; ++root)
            view.setExpanded(model.index(root, 0, {}), true);
        view.render(&image);
    }

    QTreeView view;
    Tree model;
    QImage image;
    int count;
};

}

TablePeer qtTable(long rows)
{
    makeQtApplication();
    auto const table = std::make_shared<Table>(rows);
    auto const scrollRow = [table] {
        table->isScrolled = !table->isScrolled;
        table->view.verticalScrollBar()->setValue(table->isScrolled ? tableRowHeight : 0);
        QApplication::processEvents();
    };
    table->view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    return { table, [table] { table->draw(); }, scrollRow,
        [table] {
            table->model.reload();
            QApplication::processEvents();
        } };
}

OutlinePeer qtOutline(int roots, int children)
{
    makeQtApplication();
    auto const outline = std::make_shared<Outline>(roots, children);
    return { outline, [outline] { outline->view.collapseAll(); }, [outline] { outline->expandAll(); },
        [outline] { outline->view.render(&outline->image); } };
}

}
