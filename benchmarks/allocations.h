#pragma once

namespace plix::bench {

/// How many times operator new was called in this program so far: by our own code and the C++ library, not by C libraries.
long allocationCount();

}
