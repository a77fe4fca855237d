#include <plix/platform/appkit/NSDocument.h>

#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSDocument)
{
}

NSDocument::NSDocument() = default;
NSDocument::~NSDocument() = default;

void NSDocument::addWindowController(NSWindowController& controller)
{
    if (std::ranges::find(m_windowControllers, &controller, &Ref<NSWindowController>::get) != m_windowControllers.end())
        return;
    Ref<NSWindowController> const added(controller);
    if (auto* const other = controller.document(); other && other != this)
        other->removeWindowController(controller);
    m_windowControllers.push_back(added);
    controller.setDocument(this);
}

void NSDocument::removeWindowController(NSWindowController& controller)
{
    Ref<NSWindowController> const removed(controller);
    if (std::erase(m_windowControllers, removed) > 0)
        controller.setDocument(nullptr);
}

void NSDocument::showWindows()
{
    Ref<NSDocument> const protector(this);
    for (auto const& controller : std::vector(m_windowControllers))
        controller->showWindow(this);
}

void NSDocument::close()
{
    if (m_isClosing)
        return;
    Ref<NSDocument> const protector(this);
    m_isClosing = true;
    for (auto const& controller : std::vector(m_windowControllers))
        controller->close();
    m_windowControllers.clear();
    NSDocumentController::sharedDocumentController().removeDocument(*this);
    m_isClosing = false;
}

void NSDocument::setFileName(std::string_view path)
{
    if (m_fileName == path)
        return;
    m_fileName = path;
    for (auto const& controller : std::vector(m_windowControllers))
        controller->synchronizeWindowTitleWithDocumentName();
}

std::string NSDocument::displayName() const
{
    return m_fileName.empty() ? "Untitled" : m_fileName.substr(m_fileName.find_last_of('/') + 1);
}

void NSDocument::updateChangeCount(NSDocumentChangeType change)
{
    m_changeCount = change == NSChangeCleared ? 0 : m_changeCount + (change == NSChangeDone ? 1 : -1);
    for (auto const& controller : m_windowControllers) {
        if (controller->isWindowLoaded())
            controller->window()->setDocumentEdited(isDocumentEdited());
    }
}

}
