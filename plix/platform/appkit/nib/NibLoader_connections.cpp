#include <plix/platform/appkit/nib/NibLoader.h>

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/base/Class.h>

namespace plix {

void NibLoader::setProperties(NibObject const& described)
{
    auto const object = m_made[described.index].object;
    for (auto const& property : described.properties) {
        auto const* setter = object ? object->describedClass().property(property.name) : nullptr;
        if (!setter || !(*setter)(*object, value(property.value)))
            warn(described, "its attribute \"" + property.name + "\" could not be set");
    }
}

void NibLoader::connect(NibObject const& described)
{
    auto const source = m_made[described.index].object;
    for (auto const& connection : described.connections) {
        if (!source)
            warn(described, "it is not there to be connected to \"" + connection.name + "\"");
        else if (connection.kind == NibConnection::Kind::outlet)
            connectOutlet(described, *source, connection);
        else
            connectAction(described, *source, connection);
    }
}

void NibLoader::connectOutlet(NibObject const& described, NSObject& source, NibConnection const& connection)
{
    auto const* outlet = source.describedClass().outlet(connection.name);
    auto const destination = m_made[connection.destination->index].object;
    if (!outlet)
        warn(described, "it has no outlet \"" + connection.name + "\"");
    else if (!destination || !(*outlet)(source, destination.get()))
        warn(described, "its outlet \"" + connection.name + "\" does not take " + connection.destination->label);
}

void NibLoader::connectAction(NibObject const& described, NSObject& source, NibConnection const& connection)
{
    Selector const action(connection.name);
    auto const target = m_made[connection.destination->index].object;
    bool const isForFirstResponder = connection.destination->id == "-1";
    if (!isForFirstResponder && (!target || !target->respondsToSelector(action))) {
        warn(described, "its action \"" + connection.name + "\" is none of " + connection.destination->label);
        return;
    }
    auto const set = [&](auto& sender) {
        sender.setTarget(target);
        sender.setAction(action);
    };
    if (auto* const table = dynamic_cast<NSTableView*>(&source); table && connection.kind == NibConnection::Kind::doubleAction) {
        table->setTarget(target);
        table->setDoubleAction(action);
    } else if (auto* const control = dynamic_cast<NSControl*>(&source)) {
        set(*control);
    } else if (auto* const cell = dynamic_cast<NSCell*>(&source)) {
        set(*cell);
    } else if (auto* const item = dynamic_cast<NSMenuItem*>(&source)) {
        set(*item);
    } else {
        warn(described, "it sends no action \"" + connection.name + "\"");
    }
}

}
