#include <tests/support/MenuTest.h>

namespace plix {

PLIX_DESCRIBE(MenuReceiver)
{
    description.action("act:", &MenuReceiver::act);
}

void MenuReceiver::act(NSObject* sender)
{
    if (auto const* item = dynamic_cast<NSMenuItem*>(sender))
        chosen.push_back(item->title());
}

}
