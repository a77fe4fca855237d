#include "controls_peer.h"
#include "qt_application.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QWidget>

#include <memory>
#include <set>

namespace plix::bench {

namespace {

/// Counts the direct children of a window that are painted.
class PaintedChildren : public QObject {
public:
    std::set<QObject*> seen;
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            seen.insert(object);
        return false;
    }
};

QWidget* widgetOf(ControlSample const& sample, QWidget* window)
{
    auto const text = QString::fromStdString(sample.text);
    switch (sample.kind) {
    case ControlKind::Label:
        return new QLabel(text, window);
    case ControlKind::Field:
        return new QLineEdit(text, window);
    case ControlKind::Button:
        return new QPushButton(text, window);
    case ControlKind::CheckBox: {
        auto* const box = new QCheckBox(text, window);
        box->setChecked(sample.isOn);
        return box;
    }
    case ControlKind::RadioButton: {
        auto* const button = new QRadioButton(text, window);
        button->setAutoExclusive(false);
        button->setChecked(sample.isOn);
        return button;
    }
    case ControlKind::PopUp: {
        auto* const box = new QComboBox(window);
        box->addItem(text);
        return box;
    }
    case ControlKind::Progress: {
        auto* const bar = new QProgressBar(window);
        bar->setTextVisible(false);
        bar->setValue(60);
        return bar;
    }
    case ControlKind::Box:
        return new QGroupBox(text, window);
    }
    return nullptr;
}

QWidget* addWidget(ControlSample const& sample, QWidget* window, PaintedChildren& painted)
{
    auto* const widget = widgetOf(sample, window);
    widget->setGeometry(static_cast<int>(sample.frame.x), static_cast<int>(sample.frame.y), static_cast<int>(sample.frame.width),
        static_cast<int>(sample.frame.height));
    widget->installEventFilter(&painted);
    return widget;
}

}

ControlsPeer qtControls(Size size, std::vector<ControlSample> const& samples)
{
    makeQtApplication();
    auto const window = std::make_shared<QWidget>();
    window->resize(static_cast<int>(size.width), static_cast<int>(size.height));
    QLabel* label = nullptr;
    PaintedChildren painted;
    for (auto const& sample : samples) {
        auto* const widget = addWidget(sample, window.get(), painted);
        if (!label)
            label = qobject_cast<QLabel*>(widget);
    }
    window->show();
    QApplication::processEvents();
    painted.seen.clear();
    window->repaint();

    ControlsPeer peer;
    peer.drawnControls = static_cast<int>(painted.seen.size());
    peer.drawWindow = [window] { window->repaint(); };
    peer.changeLabel = [window, label, isOther = false]() mutable {
        isOther = !isOther;
        label->setText(isOther ? QStringLiteral("Changed") : QStringLiteral("Another"));
        label->repaint();
    };
    return peer;
}

TabsPeer qtTabs(float windowWidth, std::vector<TabSample> const& samples)
{
    makeQtApplication();
    auto const tabs = std::make_shared<QTabWidget>();
    std::vector<QSize> sizes;
    PaintedChildren painted;
    for (auto const& sample : samples) {
        auto* const pane = new QWidget;
        for (auto const& control : sample.controls)
            addWidget(control, pane, painted);
        tabs->addTab(pane, QStringLiteral("Controls"));
        sizes.emplace_back(static_cast<int>(windowWidth), static_cast<int>(sample.windowHeight));
    }
    tabs->resize(sizes.front());
    tabs->show();
    QApplication::processEvents();

    TabsPeer peer;
    peer.selectOther = [tabs, sizes] {
        int const other = 1 - tabs->currentIndex();
        tabs->setCurrentIndex(other);
        tabs->resize(sizes[static_cast<std::size_t>(other)]);
        tabs->repaint();
    };
    peer.selectOther();
    QApplication::processEvents();
    painted.seen.clear();
    peer.selectOther();
    peer.drawnControls = static_cast<int>(painted.seen.size());
    return peer;
}

}
