#pragma once

#include <plix/platform/base/Ref.h>

#include <functional>
#include <string>

namespace plix {

class NSWindow;

}

namespace browser {

/// Asks on a sheet of a window; Escape and Cancel refuse, Return and the other button agree.
void ask(plix::NSWindow&, std::string const& question, std::string const& agree, std::function<void()> agreed);

}
