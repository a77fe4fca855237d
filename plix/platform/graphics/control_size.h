#pragma once

namespace plix {

enum NSControlSize : int {
    NSRegularControlSize = 0,
    NSSmallControlSize = 1,
    NSMiniControlSize = 2,
};

}
