#pragma once

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/graphics/NSColor.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/SystemVersion.h>

#include <string>
#include <vector>

namespace plix {

/// Engraved labels on a 10.4 machine, whose default colours nobody has asked for yet.
template <typename Machine = HeadlessTest> class ChiseledTestOn : public Machine {
protected:
    void SetUp() override
    {
        Machine::SetUp();
        forgetDefaults();
    }
    void TearDown() override { forgetDefaults(); }

    static void forgetDefaults()
    {
        for (auto* global :
            { &PLIXChiseledTextField_ActiveColor, &PLIXChiseledTextField_ShadowActiveColor, &PLIXChiseledTextField_InactiveColor,
                &PLIXChiseledTextField_ShadowInactiveColor, &PLIXChiseledTextField_DisabledColor })
            *global = nullptr;
    }

    static constexpr Rect usualFrame { 10, 12, 120, 20 };
    static Ref<PLIXChiseledTextField> label(std::string_view text = "Engraved", Rect frame = usualFrame)
    {
        auto made = make<PLIXChiseledTextField>(frame);
        made->setStringValue(text);
        return made;
    }
    /// Five colours that no default is.
    static void colorAll(PLIXChiseledTextField& label)
    {
        label.setActiveColor(NSColor::redColor());
        label.setShadowActiveColor(NSColor::greenColor());
        label.setInactiveColor(NSColor::blueColor());
        label.setShadowInactiveColor(NSColor::yellowColor());
        label.setDisabledColor(NSColor::brownColor());
    }
    /// Which of the label's own colours it and its shadow are in.
    static std::string look(PLIXChiseledTextField const& label)
    {
        if (label.textColor() == label.disabledColor())
            return label.shadow()->textColor() == label.shadowInactiveColor() ? "disabled" : "mixed";
        if (label.textColor() == label.activeColor())
            return label.shadow()->textColor() == label.shadowActiveColor() ? "active" : "mixed";
        if (label.textColor() == label.inactiveColor())
            return label.shadow()->textColor() == label.shadowInactiveColor() ? "inactive" : "mixed";
        return "other";
    }

    SystemVersion m_system { 0x1049 };
};

using ChiseledTest = ChiseledTestOn<>;
using ChiseledRetinaTest = ChiseledTestOn<RetinaTest>;

}
