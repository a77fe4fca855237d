#pragma once

namespace plix::bench {

/// One application for all peers of that library, without a display.
void makeQtApplication();

}
