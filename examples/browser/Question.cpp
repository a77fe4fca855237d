#include "Question.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/NSFont.h>

namespace browser {

using namespace plix;

namespace {

constexpr Size panelSize { 380, 116 };
constexpr long agreedCode = 1;

Ref<NSButton> button(std::string const& title, float x, std::string_view key, Ref<NSPanel> const& panel, long code)
{
    auto made = make<NSButton>(Rect { x, 16, 96, 28 });
    made->setTitle(title);
    made->setKeyEquivalent(key);
    made->setActionFunction([weakly = Weak<NSPanel>(panel), code](NSObject*) {
        if (auto const sheet = weakly.ref())
            NSApp->endSheet(*sheet, code);
    });
    return made;
}

}

void ask(NSWindow& window, std::string const& question, std::string const& agree, std::function<void()> agreed)
{
    auto const panel = make<NSPanel>(rectWith({}, panelSize), NSTitledWindowMask, NSBackingStoreBuffered, false);
    auto const label = make<NSTextField>(Rect { 20, 56, panelSize.width - 40, 40 });
    label->setBezeled(false);
    label->setDrawsBackground(false);
    label->setEditable(false);
    label->setFont(NSFont::boldSystemFontOfSize(0));
    label->setStringValue(question);
    auto& content = *panel->contentView();
    content.addSubview(*label);
    content.addSubview(*button("Cancel", panelSize.width - 220, "\x1B", panel, 0));
    content.addSubview(*button(agree, panelSize.width - 116, "\r", panel, agreedCode));
    NSApp->beginSheet(*panel, window, [panel, agreed = std::move(agreed)](NSWindow&, long code) {
        panel->orderOut(nullptr);
        if (code == agreedCode)
            agreed();
    });
}

}
