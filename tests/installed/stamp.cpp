#include <plix/platform/appkit/NSView.h>
#include <plix/platform/foundation/plugin_module.h>

namespace plix {
namespace {

/// A class of a module: the program that loads it knows no more than that it is a view.
class Stamp : public NSView {
    PLIX_CLASS(Stamp, NSView);

public:
    bool isFlipped() const override { return true; }
};

PLIX_DESCRIBE(Stamp)
{
}

}

PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(Stamp));

}
