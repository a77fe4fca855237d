#pragma once

#include "PlixWidget.h"

#include <examples/embed/DemoTree.h>

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QWidget>

namespace embed_qt {

/// A window of Qt's with a view tree of the library's in the middle of it: Qt's button adds a row to the tree's table, and what is
/// selected there is said by Qt's label.
class DemoWindow final : public QWidget {
public:
    DemoWindow();

    example::DemoTree& tree() const { return *m_tree; }
    PlixWidget* embedded() const { return m_embedded; }
    QLineEdit& nameField() const { return *m_name; }
    QPushButton& addButton() const { return *m_add; }
    QLabel& label() const { return *m_label; }

private:
    plix::Ref<example::DemoTree> m_tree;
    PlixWidget* m_embedded { nullptr };
    QLineEdit* m_name { nullptr };
    QPushButton* m_add { nullptr };
    QLabel* m_label { nullptr };
};

}
