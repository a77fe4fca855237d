#include "autosize_peer.h"
#include "qt_application.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHeaderView>
#include <QTableView>

#include <memory>

namespace plix::bench {

namespace {

constexpr int columnCount = 8;
constexpr int measuredColumn = 3;
constexpr int rowHeight = 17;

class Model final : public QAbstractTableModel {
public:
    Model(long rows, std::string (*textOfRow)(long))
        : m_rows(static_cast<int>(rows))
        , m_textOfRow(textOfRow)
    {
    }
    int rowCount(QModelIndex const& parent) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(QModelIndex const&) const override { return bench::columnCount; }
    QVariant data(QModelIndex const& index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(QString::fromStdString(m_textOfRow(index.row()))) : QVariant();
    }

private:
    int m_rows;
    std::string (*m_textOfRow)(long);
};

}

std::function<void()> qtAutosize(long rows, std::string (*textOfRow)(long))
{
    makeQtApplication();
    auto const model = std::make_shared<Model>(rows, textOfRow);
    auto const table = std::make_shared<QTableView>();
    table->setWordWrap(false);
    table->setModel(model.get());
    table->verticalHeader()->hide();
    table->verticalHeader()->setMinimumSectionSize(1);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->horizontalHeader()->setResizeContentsPrecision(-1); // every row
    table->resize(1000, 800);
    table->show();
    QCoreApplication::processEvents();
    return [model, table] {
        table->setColumnWidth(measuredColumn, 50);
        table->resizeColumnToContents(measuredColumn);
    };
}

}
