#include <plix/platform/foundation/plugin_module.h>

namespace plix {
namespace {

class NSBundle : public NSObject {
    PLIX_CLASS(NSBundle, NSObject);
};

PLIX_DESCRIBE(NSBundle)
{
}

class FirstOfTwo : public NSObject {
    PLIX_CLASS(FirstOfTwo, NSObject);
};

PLIX_DESCRIBE(FirstOfTwo)
{
}

}

PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(FirstOfTwo), PLIX_PLUGIN_CLASS(NSBundle));

}
