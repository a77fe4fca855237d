#pragma once

#include <plix/platform/appkit/NSCell.h>

namespace plix {

class NSControl;

/// A cell with a target, an action and a tag, which tells its control when it looks different.
class PLIX_EXPORT NSActionCell : public NSCell {
    PLIX_CLASS(NSActionCell, NSCell);

public:
    using NSCell::init;
    /// The target is not archived.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;
    NSActionCell();
    ~NSActionCell() override;

    // NSCell:
    long tag() const override { return m_tag; }
    void setTag(long) override;
    using NSCell::setTarget;
    /// Held weakly. Nil: the action goes along the responder chain.
    NSObject* target() const override { return m_target.get(); }
    void setTarget(Ref<NSObject> const&) override;
    Selector action() const override { return m_action; }
    void setAction(Selector) override;
    void setActionFunction(Ref<NSObject> const& target, ActionFunction) override;
    void sendAction() override;
    bool hasAction() const override { return m_action || m_function; }
    void setControlView(NSView*) override;

protected:
    // NSCell:
    void looksChanged() override;
    void didSetValue() override;
    void copyStateTo(NSObject& fresh) const override;

private:
    long m_tag { 0 };
    Weak<NSObject> m_target;
    Selector m_action;
    ActionFunction m_function;
    Weak<NSControl> m_control;
};

}
