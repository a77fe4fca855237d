#include <plix/platform/appkit/NSDocumentController.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>

#include <algorithm>

namespace plix {

namespace {

constinit Global<NSDocumentController> s_shared;

}

PLIX_DESCRIBE(NSDocumentController)
{
}

NSDocumentController::NSDocumentController() = default;
NSDocumentController::~NSDocumentController() = default;

bool NSDocumentController::init()
{
    if (!s_shared)
        s_shared = Ref<NSDocumentController>(this);
    return true;
}

NSDocumentController& NSDocumentController::sharedDocumentController()
{
    if (!s_shared)
        make<NSDocumentController>();
    return *s_shared;
}

void NSDocumentController::addDocument(NSDocument& document)
{
    if (std::ranges::find(m_documents, &document, &Ref<NSDocument>::get) == m_documents.end())
        m_documents.emplace_back(document);
}

void NSDocumentController::removeDocument(NSDocument& document)
{
    Ref<NSDocument> const removed(document);
    std::erase(m_documents, removed);
}

NSDocument* NSDocumentController::currentDocument() const
{
    auto const* const main = NSApp ? NSApp->mainWindow() : nullptr;
    return main ? documentForWindow(*main) : nullptr;
}

NSDocument* NSDocumentController::documentForWindow(NSWindow const& window) const
{
    auto const* const controller = window.windowController();
    return controller ? controller->document() : nullptr;
}

}
