#include <plix/platform/appkit/NSWindowController.h>

#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

namespace plix {

PLIX_DESCRIBE(NSWindowController)
{
    description.outlet("window", &NSWindowController::setWindow).action("showWindow:", &NSWindowController::showWindow);
}

NSWindowController::NSWindowController() = default;

NSWindowController::~NSWindowController()
{
    if (m_window && m_window->nextResponder() == this)
        m_window->setNextResponder(nullptr);
}

bool NSWindowController::init(Ref<NSWindow> const& window)
{
    setWindow(window);
    return true;
}

NSWindow* NSWindowController::window()
{
    if (!m_window && !m_triedToLoad) {
        Ref<NSWindowController> const protector(this);
        m_triedToLoad = true;
        windowWillLoad();
        loadWindow();
        if (m_window) {
            synchronizeWindowTitleWithDocumentName();
            windowDidLoad();
        }
    }
    return m_window.get();
}

bool NSWindowController::isWindowLoaded() const
{
    return m_window.get() != nullptr;
}

void NSWindowController::setWindow(Ref<NSWindow> const& window)
{
    if (m_window == window)
        return;
    auto& center = NSNotificationCenter::defaultCenter();
    if (m_window) {
        center.removeObserver(*this, NSWindowWillCloseNotification, m_window.get());
        m_window->setWindowController(nullptr);
        if (m_window->nextResponder() == this)
            m_window->setNextResponder(nullptr);
    }
    m_window = window;
    if (!window)
        return;
    window->setWindowController(this);
    window->setNextResponder(this);
    center.addObserver(*this, &NSWindowController::windowWillClose, NSWindowWillCloseNotification, window.get());
}

NSDocument* NSWindowController::document() const
{
    return m_document.get();
}

void NSWindowController::setDocument(NSDocument* document)
{
    m_document = document;
    if (m_window)
        synchronizeWindowTitleWithDocumentName();
}

void NSWindowController::showWindow(NSObject* sender)
{
    Ref<NSWindow> const shown(window());
    if (!shown)
        return;
    auto const* const panel = dynamic_cast<NSPanel const*>(shown.get());
    if (panel && panel->becomesKeyOnlyIfNeeded())
        shown->orderFront(sender);
    else
        shown->makeKeyAndOrderFront(sender);
}

void NSWindowController::close()
{
    if (Ref<NSWindow> const closed = m_window)
        closed->close();
}

void NSWindowController::windowWillClose()
{
    Ref<NSWindowController> const protector(this);
    Ref<NSDocument> const document(m_document.get());
    if (!document)
        return;
    document->removeWindowController(*this);
    if (m_closesDocument || document->windowControllers().empty())
        document->close();
}

void NSWindowController::synchronizeWindowTitleWithDocumentName()
{
    if (auto* const document = m_document.get(); document && m_window)
        m_window->setTitle(windowTitleForDocumentDisplayName(document->displayName()));
}

}
