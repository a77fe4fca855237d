#include <plix/windows/PLIXProgressWindow.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/PLIXProgressWindowNIBLoader.h>
#include <plix/windows/classes.h>

namespace plix {

PLIX_DESCRIBE(PLIXProgressWindow)
{
    description.bundle("plix")
        .action("cancelButton:", &PLIXProgressWindow::cancelButton)
        .outlet<NSView>("progressView", [](auto& window, auto const& value) { window.m_progressView = value; })
        .outlet<NSImageView>("iconView", [](auto& window, auto const& value) { window.m_iconView = value; })
        .outlet<NSProgressIndicator>(
            "progressIndicator", [](auto& window, auto const& value) { window.m_progressIndicator = value; })
        .outlet<NSTextField>("titleField", [](auto& window, auto const& value) { window.m_titleField = value; })
        .outlet<NSTextField>("stepField", [](auto& window, auto const& value) { window.m_stepField = value; })
        .outlet<NSButton>("cancelButton", [](auto& window, auto const& value) { window.m_cancelButton = value; });
}

PLIXProgressWindow::PLIXProgressWindow() = default;
PLIXProgressWindow::~PLIXProgressWindow() = default;

Ref<PLIXProgressWindow> PLIXProgressWindow::instead()
{
    registerWindowClasses();
    auto const loader = make<PLIXProgressWindowNIBLoader>();
    if (!loadNibNamed("ProgressWindow", loader.get()) || !loader->progressWindow())
        return nullptr;
    Ref<PLIXProgressWindow> window(loader->progressWindow());
    window->m_cancelHidden = false;
    if (window->m_iconView)
        window->m_iconView->setImage(Ref<NSImage>(NSApp->applicationIconImage()));
    return window;
}

Ref<PLIXProgressWindow> PLIXProgressWindow::progressWindow()
{
    return make<PLIXProgressWindow>();
}

void PLIXProgressWindow::takeHooks(HookSource const& source)
{
    // The delegate that goes may be the last that holds the window.
    Ref<PLIXProgressWindow> const protector(this);
    m_hooks = source.hooks<PLIXProgressWindowDelegate>();
    m_delegate = Ref<NSObject>(source.object());
}

void PLIXProgressWindow::cancelButton(NSObject*)
{
    Ref<PLIXProgressWindow> const protector(this);
    Ref<NSObject> const delegate(m_delegate);
    auto const canceled = m_hooks.progressWindowCanceled;
    if (canceled)
        canceled(*this);
}

void PLIXProgressWindow::setCancelHidden(bool hidden)
{
    if (hidden == m_cancelHidden)
        return;
    Ref<PLIXProgressWindow> const protector(this);
    auto const button = m_cancelButton;
    if (button) {
        button->setEnabled(!hidden);
        button->setHidden(hidden);
    }
    float const width = button ? button->bounds().width : 0;
    Rect changed = frame();
    changed.width += hidden ? -width : width;
    setFrame(changed, true);
    m_cancelHidden = hidden;
}

}
