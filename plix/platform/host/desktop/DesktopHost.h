#pragma once

#include <plix/platform/host/Host.h>

#include <memory>
#include <string>

namespace plix {

/// The machine's own desktop: windows of the X window system, the clipboard that programs share. Null where no display answers or
/// it can't be used; `whyNot` then says it in a few words.
std::unique_ptr<Host> makeDesktopHost(std::string& whyNot);

}
