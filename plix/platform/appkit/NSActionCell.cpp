#include <plix/platform/appkit/NSActionCell.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/foundation/NSCoder.h>

namespace plix {

PLIX_DESCRIBE(NSActionCell)
{
}

bool NSActionCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("tag", [&](ObjectValue const& value) { m_tag = value.intValue(); });
    coder.read("action", [&](ObjectValue const& value) { m_action = Selector(value.description()); });
    return true;
}

void NSActionCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_tag, "tag");
    coder.encodeObject(m_action.name(), "action");
}

NSActionCell::NSActionCell() = default;
NSActionCell::~NSActionCell() = default;

void NSActionCell::setTag(long tag)
{
    m_tag = tag;
}

void NSActionCell::setTarget(Ref<NSObject> const& target)
{
    m_target = target;
    m_function = nullptr;
}

void NSActionCell::setAction(Selector action)
{
    m_action = action;
    m_function = nullptr;
}

void NSActionCell::setActionFunction(Ref<NSObject> const& target, ActionFunction function)
{
    m_target = target;
    m_action = {};
    m_function = std::move(function);
}

void NSActionCell::sendAction()
{
    Ref<NSObject> const target(m_target.get());
    Ref<NSView> const view(controlView());
    if (m_function) {
        if (m_target.wasSet() && !target)
            return;
        auto const function = m_function; // the call may set another
        if (Ref<NSControl> const control = m_control.get())
            control->sendAction({}, target.get()); // nothing is sent, but radio buttons turn others off
        function(view.get());
    } else if (Ref<NSControl> const control = m_control.get()) {
        control->sendAction(m_action, target.get());
    } else if (m_action && NSApp) {
        NSApp->sendAction(m_action, target.get(), view ? static_cast<NSObject*>(view.get()) : this);
    }
}

// Asked for at each change of the look, so the class of the view is found out once.
void NSActionCell::setControlView(NSView* view)
{
    if (controlView() == view)
        return;
    Base::setControlView(view);
    m_control = Weak<NSControl>(dynamic_cast<NSControl*>(view));
}

void NSActionCell::looksChanged()
{
    Base::looksChanged();
    if (auto* control = m_control.get())
        control->updateCell(*this);
}

void NSActionCell::didSetValue()
{
    if (auto* control = isBeingEdited() ? m_control.get() : nullptr)
        control->editedCellChanged({}, *this);
}

void NSActionCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSActionCell&>(fresh);
    other.m_tag = m_tag;
    other.m_target = m_target;
    other.m_action = m_action;
    other.m_function = m_function;
    other.m_control = m_control;
}

}
