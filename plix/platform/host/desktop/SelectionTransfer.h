#pragma once

#include <plix/platform/host/desktop/x11.h>

#include <cstddef>
#include <memory>
#include <string>

namespace plix {

/// A text on its way to another program that asked for the selection and that it is too long for in one piece (ICCCM 2.7.2, INCR):
/// each time that the program has taken a piece away, the next is put there, and an empty one ends it.
class SelectionTransfer {
public:
    SelectionTransfer(x11::Connection*, XSelectionRequestEvent const&, ::Atom type, std::shared_ptr<std::string const> text);

    /// Whether a piece was taken from this transfer's place.
    bool isMeant(XPropertyEvent const&) const;
    ::Window requestor() const { return m_requestor; }
    /// Puts the next piece; false after the last, empty one.
    bool sendNext();

    /// The longest text that goes in one piece.
    static std::size_t pieceSize(x11::Connection*);

private:
    x11::Connection* m_connection { nullptr };
    ::Window m_requestor { 0 };
    ::Atom m_property { 0 };
    ::Atom m_type { 0 };
    std::shared_ptr<std::string const> m_text;
    std::size_t m_sent { 0 };
};

}
