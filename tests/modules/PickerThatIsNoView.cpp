#include <plix/platform/foundation/plugin_module.h>

namespace plix {
namespace {

class PLIXTextDatePicker : public NSObject {
    PLIX_CLASS(PLIXTextDatePicker, NSObject);

public:
    bool init() { return Base::init(); }
};

PLIX_DESCRIBE(PLIXTextDatePicker)
{
}

}

PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(PLIXTextDatePicker));

}
