#include <plix/platform/foundation/plugin_module.h>

namespace plix {

void functionThatNobodyWrote();

namespace {

class Unresolved : public NSObject {
    PLIX_CLASS(Unresolved, NSObject);
};

PLIX_DESCRIBE(Unresolved)
{
    functionThatNobodyWrote();
}

}

PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(Unresolved));

}
