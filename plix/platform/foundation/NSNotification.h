#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <string>

namespace plix {

/// What an observer is told: the name, the object that it is about (may be nil) and further values.
struct NSNotification {
    std::string name;
    Ref<NSObject> object;
    ObjectValue::Dictionary userInfo;
};

}
