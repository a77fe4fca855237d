#include "Question.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/TQAlert.h>

namespace browser {

using namespace plix;

bool ask(NSWindow& window, std::string const& question, std::string const& consequence, std::string const& agree)
{
    auto const alert = make<TQAlert>("", question, consequence, Ref<NSImage>(NSApp->applicationIconImage()), agree, "Cancel", "");
    return alert && alert->runAsSheetForWindow(window) == alert->button1()->tag();
}

}
