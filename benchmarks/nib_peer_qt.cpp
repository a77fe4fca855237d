#include "nib_peer.h"
#include "qt_application.h"

#include <QApplication>
#include <QBuffer>
#include <QUiLoader>
#include <QWidget>

#include <memory>

namespace plix::bench {

namespace {

std::string property(std::string const& name, std::string const& value)
{
    return "<property name=\"" + name + "\">" + value + "</property>\n";
}

std::string geometry(int x, int y, int width, int height)
{
    auto const part = [](char const* name, int value) {
        return "<" + std::string(name) + ">" + std::to_string(value) + "</" + std::string(name) + ">";
    };
    return property("geometry", "<rect>" + part("x", x) + part("y", y) + part("width", width) + part("height", height) + "</rect>");
}

std::string widget(NibSample const& sample, int number)
{
    static constexpr char const* classes[] = { "QLabel", "QLineEdit", "QPushButton", "QCheckBox" };
    auto const* name = classes[static_cast<int>(sample.kind)];
    auto text = "<widget class=\"" + std::string(name) + "\" name=\"view" + std::to_string(number) + "\">\n"
        + geometry(sample.x, sample.y, sample.width, sample.height) + property("text", "<string>" + sample.text + "</string>");
    if (sample.kind == NibViewKind::CheckBox)
        text += property("checked", "<bool>true</bool>");
    return text + "</widget>\n";
}

}

NibPeer qtNib(int width, int height, std::vector<NibGroup> const& groups)
{
    makeQtApplication();
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\">\n<class>Form</class>\n"
                       "<widget class=\"QWidget\" name=\"Form\">\n"
        + geometry(0, 0, width, height);
    int number = 0;
    for (auto const& group : groups) {
        text += "<widget class=\"QFrame\" name=\"group" + std::to_string(number) + "\">\n" + geometry(0, 0, width, height);
        for (auto const& sample : group)
            text += widget(sample, number++);
        text += "</widget>\n";
    }
    text += "</widget>\n</ui>\n";
    auto const bytes = std::make_shared<QByteArray>(QByteArray::fromStdString(text));
    auto const loader = std::make_shared<QUiLoader>();
    auto const load = [bytes, loader] {
        QBuffer buffer(bytes.get());
        buffer.open(QIODevice::ReadOnly);
        return std::unique_ptr<QWidget>(loader->load(&buffer));
    };
    NibPeer peer;
    if (auto const form = load())
        peer.madeViews = static_cast<int>(form->findChildren<QWidget*>().size()) + 1;
    peer.load = [load] { load(); };
    return peer;
}

}
