#pragma once

#include <plix/platform/appkit/NSResponder.h>

#include <string>
#include <string_view>

namespace plix {

/// Looks after one window of a document, or of none. Stands behind its window in the responder chain. Holds the window; the
/// document holds it.
class PLIX_EXPORT NSWindowController : public NSResponder {
    PLIX_CLASS(NSWindowController, NSResponder);

public:
    NSWindowController();
    ~NSWindowController() override;
    bool init() { return true; }
    bool init(Ref<NSWindow> const&);

    /// Asks loadWindow() for one where there is none yet. May be null.
    NSWindow* window();
    void setWindow(Ref<NSWindow> const&);
    bool isWindowLoaded() const;
    /// Overridden to make the window and hand it to setWindow().
    virtual void loadWindow() { }
    virtual void windowWillLoad() { }
    virtual void windowDidLoad() { }

    // The document that the window shows.
    NSDocument* document() const;
    virtual void setDocument(NSDocument*);
    /// Whether the document closes with this window, though it has others.
    bool shouldCloseDocument() const { return m_closesDocument; }
    void setShouldCloseDocument(bool closes) { m_closesDocument = closes; }

    /// Shows the window, as key window unless it is a panel that takes the keyboard only when needed.
    virtual void showWindow(NSObject* sender);
    virtual void close();
    /// The window's title for a document of that name; here the name itself.
    virtual std::string windowTitleForDocumentDisplayName(std::string_view name) { return std::string(name); }
    void synchronizeWindowTitleWithDocumentName();

private:
    void windowWillClose();

    Ref<NSWindow> m_window;
    Weak<NSDocument> m_document;
    bool m_triedToLoad { false };
    bool m_closesDocument { false };
};

}
