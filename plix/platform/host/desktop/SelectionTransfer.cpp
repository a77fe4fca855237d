#include <plix/platform/host/desktop/SelectionTransfer.h>

#include <algorithm>

namespace plix {

SelectionTransfer::SelectionTransfer(
    x11::Connection* connection, XSelectionRequestEvent const& request, ::Atom type, std::shared_ptr<std::string const> text)
    : m_connection(connection)
    , m_requestor(request.requestor)
    , m_property(request.property)
    , m_type(type)
    , m_text(std::move(text))
{
    XSelectInput(connection, m_requestor, PropertyChangeMask | StructureNotifyMask);
    auto const atLeast = static_cast<long>(m_text->size());
    XChangeProperty(connection, m_requestor, m_property, XInternAtom(connection, "INCR", x11::falseValue), 32, PropModeReplace,
        reinterpret_cast<unsigned char const*>(&atLeast), 1);
}

bool SelectionTransfer::isMeant(XPropertyEvent const& event) const
{
    return event.window == m_requestor && event.atom == m_property && event.state == PropertyDelete;
}

bool SelectionTransfer::sendNext()
{
    auto const size = std::min(m_text->size() - m_sent, pieceSize(m_connection));
    XChangeProperty(m_connection, m_requestor, m_property, m_type, 8, PropModeReplace,
        reinterpret_cast<unsigned char const*>(m_text->data() + m_sent), static_cast<int>(size));
    m_sent += size;
    if (size == 0)
        XSelectInput(m_connection, m_requestor, NoEventMask);
    XFlush(m_connection);
    return size != 0;
}

std::size_t SelectionTransfer::pieceSize(x11::Connection* connection)
{
    constexpr std::size_t longest = std::size_t { 1 } << 20;
    constexpr std::size_t bytesPerUnit = 4;
    // Half of what one request may hold leaves room for its header and for the other side's limits.
    return std::min(longest, static_cast<std::size_t>(XMaxRequestSize(connection)) * bytesPerUnit / 2);
}

}
