#include "allocations.h"
#include "bench.h"

#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/Weak.h>

#include <memory>

namespace plix::bench {

namespace {

class Counter : public NSObject {
public:
    long value { 0 };
};

struct SharedCounter {
    virtual ~SharedCounter() = default;
    long value { 0 };
};

}

PLIX_FIGURE("object.make")
{
    figure.setUnit("ns");
    figure.timeAgainst("std::make_shared", { [] { keep(make<Counter>()); } }, { [] { keep(std::make_shared<SharedCounter>()); } });
}

PLIX_FIGURE("object.copy_reference")
{
    auto const object = make<Counter>();
    auto const shared = std::make_shared<SharedCounter>();
    figure.setUnit("ns");
    figure.timeAgainst(
        "std::shared_ptr", { [&] { keep(Ref<Counter>(object)); } }, { [&] { keep(std::shared_ptr<SharedCounter>(shared)); } });
}

PLIX_FIGURE("object.make_allocations")
{
    auto const before = allocationCount();
    auto const object = make<Counter>();
    figure.count(static_cast<double>(allocationCount() - before));
    keep(object);
}

}
