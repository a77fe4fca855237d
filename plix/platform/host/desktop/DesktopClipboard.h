#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/desktop/SelectionTransfer.h>
#include <plix/platform/host/desktop/x11.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace plix {

class XSession;

/// The window system's CLIPBOARD selection, text only. Long texts go and come in pieces; whoever does not answer is waited for a
/// second, and longer only as long as pieces keep coming.
class DesktopClipboard final : public Clipboard {
public:
    explicit DesktopClipboard(XSession&);
    ~DesktopClipboard() override;
    DesktopClipboard(DesktopClipboard const&) = delete;
    DesktopClipboard& operator=(DesktopClipboard const&) = delete;

    // Clipboard:
    std::optional<std::string> text() override;
    void setText(std::string_view) override;
    bool hasText() override;
    long changeCount() override;

private:
    void handle(XEvent&);
    void answer(XSelectionRequestEvent const&);
    bool provide(XSelectionRequestEvent const&, ::Atom target, ::Atom property);
    void provideMultiple(XSelectionRequestEvent const&);
    void continueTransfers(XPropertyEvent const&);
    bool isOwner() const;
    /// Asks the owner for a form of the selection.
    std::optional<std::string> fetch(::Atom target, NSTimeInterval patience);
    std::optional<std::string> takeProperty(::Atom& type);
    std::optional<std::string> receivePieces();
    /// Handles everything that comes until an event is the one that is meant; nothing where that takes too long.
    std::optional<XEvent> waitFor(std::function<bool(XEvent const&)> const& isMeant, NSTimeInterval patience);
    void readPending();

    XSession& m_session;
    x11::Connection* m_connection { nullptr };
    ::Window m_window { 0 };
    int m_fixesEvents { -1 };
    ::Atom m_clipboard { 0 };
    ::Atom m_place { 0 };
    ::Atom m_utf8 { 0 };
    ::Atom m_mimeUtf8 { 0 };
    ::Atom m_targets { 0 };
    ::Atom m_timestamp { 0 };
    ::Atom m_multiple { 0 };
    ::Atom m_incremental { 0 };
    std::shared_ptr<std::string const> m_text;
    ::Time m_ownedSince { 0 };
    std::vector<SelectionTransfer> m_transfers;
    long m_changeCount { 0 };
    /// What hasText() found, for as long as nobody sets the clipboard anew.
    std::optional<bool> m_hasText;
};

}
