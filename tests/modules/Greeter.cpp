#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/plugin_module.h>

namespace plix {
namespace {

class Greeter : public NSObject {
    PLIX_CLASS(Greeter, NSObject);

public:
    bool init() { return Base::init(); }
    void greet(NSObject*) { NSLog("a module greets"); }
};

PLIX_DESCRIBE(Greeter)
{
    description.action("greet:", &Greeter::greet);
}

class LouderGreeter : public Greeter {
    PLIX_CLASS(LouderGreeter, Greeter);
};

PLIX_DESCRIBE(LouderGreeter)
{
}

}

PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(LouderGreeter), PLIX_PLUGIN_CLASS(Greeter));

}
