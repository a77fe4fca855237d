#include "DemoWindow.h"
#include "QtHost.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

namespace embed_qt {

DemoWindow::DemoWindow()
{
    setWindowTitle("A view tree in Qt");
    m_name = new QLineEdit("Saturn");
    m_add = new QPushButton("Add planet");
    m_label = new QLabel("Nothing is selected");

    // Qt is the host from here on, and then the tree's views may be made.
    QtHost::shared();
    m_tree = plix::make<example::DemoTree>();
    m_embedded = new PlixWidget(m_tree->view());

    auto* const above = new QHBoxLayout;
    above->addWidget(m_name, 1);
    above->addWidget(m_add);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(above);
    column->addWidget(m_embedded, 1);
    column->addWidget(m_label);

    connect(m_add, &QPushButton::clicked, this, [this] { m_tree->addRow(m_name->text().toStdString()); });
    m_tree->setSelectionChanged([this](std::string const& line) { m_label->setText(QString::fromStdString(line)); });
}

}
