#pragma once

#include <plix/platform/base/Ref.h>

#include <string>

namespace plix {

class NSWindow;

}

namespace browser {

/// Asks on a sheet of a window and waits for the answer; Escape and Cancel refuse, Return and the other button agree. False also
/// where the window is closed meanwhile.
bool ask(plix::NSWindow&, std::string const& question, std::string const& consequence, std::string const& agree);

}
