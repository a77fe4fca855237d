#include <plix/tables/table_shadows.h>

#include <plix/platform/graphics/NSColor.h>

namespace plix {

Global<NSShadow> plixTableView_StandardShadow;
Global<NSShadow> plixTableView_DeactivatedShadow;

namespace {

Ref<NSShadow> sharedShadow(Global<NSShadow>& shadow, float alpha)
{
    if (!shadow) {
        auto const made = make<NSShadow>();
        made->setShadowOffset({ 0.0F, -1.0F });
        made->setShadowBlurRadius(1.0F);
        made->setShadowColor(NSColor::colorWithCalibratedRed(0, 0, 0, alpha));
        shadow = made;
    }
    return shadow;
}

}

Ref<NSShadow> standardTableShadow()
{
    return sharedShadow(plixTableView_StandardShadow, 0.8F);
}

Ref<NSShadow> deactivatedTableShadow()
{
    return sharedShadow(plixTableView_DeactivatedShadow, 0.3F);
}

}
