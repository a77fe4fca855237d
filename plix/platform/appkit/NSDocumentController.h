#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>

#include <vector>

namespace plix {

/// Holds the open documents.
class PLIX_EXPORT NSDocumentController : public NSObject {
    PLIX_CLASS(NSDocumentController, NSObject);

public:
    NSDocumentController();
    ~NSDocumentController() override;
    /// The first one made becomes the shared one.
    bool init();

    /// The application's, made when it is first asked for.
    static NSDocumentController& sharedDocumentController();

    // The documents that are open. It holds them.
    std::vector<Ref<NSDocument>> const& documents() const { return m_documents; }
    virtual void addDocument(NSDocument&);
    virtual void removeDocument(NSDocument&);
    /// The document of the main window, or null.
    NSDocument* currentDocument() const;
    NSDocument* documentForWindow(NSWindow const&) const;

private:
    std::vector<Ref<NSDocument>> m_documents;
};

}
