#include <plix/platform/host/desktop/DesktopClipboard.h>

#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/host/desktop/XSession.h>

#include <algorithm>
#include <cmath>

#include <poll.h>

namespace plix {

namespace {

constexpr NSTimeInterval s_patience = 1;
constexpr NSTimeInterval s_patienceForTargets = 0.5;
constexpr std::size_t s_longestText = std::size_t { 256 } << 20;
constexpr long s_unitsPerRead = 1L << 20;

std::string utf8FromLatin1(std::string_view text)
{
    std::string result;
    for (auto const character : text)
        appendUTF8(result, static_cast<unsigned char>(character));
    return result;
}

std::string latin1FromUTF8(std::string_view text)
{
    constexpr char32_t lastLatin1 = 0xFF;
    std::string result;
    for (std::size_t byte = 0; byte < text.size();) {
        auto const character = decodeUTF8(text, byte);
        result += character <= lastLatin1 ? static_cast<char>(static_cast<unsigned char>(character)) : '?';
    }
    return result;
}

}

DesktopClipboard::DesktopClipboard(XSession& session)
    : m_session(session)
    , m_connection(session.connection())
    , m_window(XCreateSimpleWindow(m_connection, session.root(), -1, -1, 1, 1, 0, 0, 0))
    , m_clipboard(session.atom("CLIPBOARD"))
    , m_place(session.atom("PLIX_SELECTION"))
    , m_utf8(session.atom("UTF8_STRING"))
    , m_mimeUtf8(session.atom("text/plain;charset=utf-8"))
    , m_targets(session.atom("TARGETS"))
    , m_timestamp(session.atom("TIMESTAMP"))
    , m_multiple(session.atom("MULTIPLE"))
    , m_incremental(session.atom("INCR"))
{
    XSelectInput(m_connection, m_window, PropertyChangeMask);
    int errors = 0;
    if (XFixesQueryExtension(m_connection, &m_fixesEvents, &errors) != 0) {
        XFixesSelectSelectionInput(m_connection, session.root(), m_clipboard,
            XFixesSetSelectionOwnerNotifyMask | XFixesSelectionWindowDestroyNotifyMask | XFixesSelectionClientCloseNotifyMask);
    }
    m_session.onSelectionEvent = [this](XEvent& event) { handle(event); };
}

DesktopClipboard::~DesktopClipboard()
{
    m_session.onSelectionEvent = nullptr;
    if (!m_session.isLost())
        XDestroyWindow(m_connection, m_window);
}

bool DesktopClipboard::isOwner() const
{
    return m_text != nullptr;
}

void DesktopClipboard::readPending()
{
    if (m_session.isLost())
        return;
    XSync(m_connection, x11::falseValue);
    m_session.dispatchPending();
}

long DesktopClipboard::changeCount()
{
    readPending();
    return m_changeCount;
}

void DesktopClipboard::setText(std::string_view text)
{
    if (m_session.isLost())
        return;
    m_text = std::make_shared<std::string const>(validUTF8(text));
    m_hasText = true;
    ++m_changeCount;
    // ICCCM 2.1 wants a time of the server's; a property change of our own tells one.
    XChangeProperty(m_connection, m_window, m_place, XA_STRING, 8, PropModeAppend, nullptr, 0);
    auto const isOurs = [this](XEvent const& event) { return event.type == PropertyNotify && event.xproperty.window == m_window; };
    auto const told = waitFor(isOurs, s_patience);
    m_ownedSince = told ? told->xproperty.time : CurrentTime;
    XSetSelectionOwner(m_connection, m_clipboard, m_window, m_ownedSince);
    XFlush(m_connection);
}

std::optional<std::string> DesktopClipboard::text()
{
    readPending();
    if (isOwner())
        return *m_text;
    if (m_session.isLost() || XGetSelectionOwner(m_connection, m_clipboard) == x11::none)
        return {};
    auto text = fetch(m_utf8, s_patience);
    if (!text && XGetSelectionOwner(m_connection, m_clipboard) != x11::none && m_hasText != false) {
        if (auto const latin1 = fetch(XA_STRING, s_patience))
            text = utf8FromLatin1(*latin1);
    }
    if (!text)
        return {};
    // Some programs count a terminating zero as a part of their text.
    if (!text->empty() && text->back() == '\0')
        text->pop_back();
    return isValidUTF8(*text) ? *std::move(text) : validUTF8(*text);
}

bool DesktopClipboard::hasText()
{
    readPending();
    if (isOwner())
        return true;
    if (m_session.isLost() || XGetSelectionOwner(m_connection, m_clipboard) == x11::none)
        return false;
    if (!m_hasText || m_fixesEvents < 0) {
        auto const answer = fetch(m_targets, s_patienceForTargets);
        std::vector<::Atom> targets(answer ? answer->size() / sizeof(::Atom) : 0);
        if (answer)
            std::copy_n(answer->data(), targets.size() * sizeof(::Atom), reinterpret_cast<char*>(targets.data()));
        m_hasText = std::ranges::any_of(
            targets, [this](::Atom target) { return target == m_utf8 || target == XA_STRING || target == m_mimeUtf8; });
    }
    return *m_hasText;
}

std::optional<XEvent> DesktopClipboard::waitFor(std::function<bool(XEvent const&)> const& isMeant, NSTimeInterval patience)
{
    auto const deadline = clock().uptime() + patience;
    while (!m_session.isLost()) {
        while (XPending(m_connection) > 0 && !m_session.isLost()) {
            XEvent event {};
            XNextEvent(m_connection, &event);
            if (isMeant(event))
                return event;
            m_session.dispatch(event);
        }
        auto const left = deadline - clock().uptime();
        if (left <= 0)
            return {};
        pollfd waiting { m_session.descriptor(), POLLIN, 0 };
        constexpr double millisecondsPerSecond = 1000;
        poll(&waiting, 1, static_cast<int>(std::ceil(left * millisecondsPerSecond)));
    }
    return {};
}

std::optional<std::string> DesktopClipboard::fetch(::Atom target, NSTimeInterval patience)
{
    XDeleteProperty(m_connection, m_window, m_place);
    XConvertSelection(m_connection, m_clipboard, target, m_place, m_window, CurrentTime);
    auto const isAnswer = [this, target](XEvent const& event) {
        return event.type == SelectionNotify && event.xselection.requestor == m_window && event.xselection.target == target;
    };
    auto const answer = waitFor(isAnswer, patience);
    if (!answer || answer->xselection.property == x11::none)
        return {};
    ::Atom type = x11::none;
    auto value = takeProperty(type);
    return type == m_incremental ? receivePieces() : value;
}

std::optional<std::string> DesktopClipboard::takeProperty(::Atom& type)
{
    std::string value;
    unsigned long left = 1;
    for (long offset = 0; left > 0 && value.size() < s_longestText; offset += s_unitsPerRead) {
        int format = 0;
        unsigned long count = 0;
        unsigned char* data = nullptr;
        auto const isRead = XGetWindowProperty(m_connection, m_window, m_place, offset, s_unitsPerRead, x11::falseValue,
                                AnyPropertyType, &type, &format, &count, &left, &data)
            == 0;
        std::unique_ptr<unsigned char, x11::Memory> const memory(data);
        if (!isRead || !data)
            return {};
        auto const bytesPerItem = format == 32 ? sizeof(long) : static_cast<std::size_t>(format) / 8;
        value.append(reinterpret_cast<char const*>(data), count * bytesPerItem);
    }
    XDeleteProperty(m_connection, m_window, m_place);
    return value;
}

std::optional<std::string> DesktopClipboard::receivePieces()
{
    auto const isPiece = [this](XEvent const& event) {
        return event.type == PropertyNotify && event.xproperty.window == m_window && event.xproperty.atom == m_place
            && event.xproperty.state == PropertyNewValue;
    };
    std::string text;
    while (waitFor(isPiece, s_patience)) {
        ::Atom type = x11::none;
        auto const piece = takeProperty(type);
        if (!piece)
            return {};
        if (piece->empty())
            return text;
        text += *piece;
        if (text.size() > s_longestText) {
            NSLog("The clipboard holds more text than can be pasted");
            return {};
        }
    }
    return {};
}

void DesktopClipboard::handle(XEvent& event)
{
    if (m_fixesEvents >= 0 && event.type == m_fixesEvents + XFixesSelectionNotify) {
        auto const& change = reinterpret_cast<XFixesSelectionNotifyEvent const&>(event);
        if (change.selection != m_clipboard || change.owner == m_window)
            return;
        ++m_changeCount;
        m_hasText.reset();
        return;
    }
    switch (event.type) {
    case SelectionRequest:
        answer(event.xselectionrequest);
        break;
    case SelectionClear:
        if (event.xselectionclear.selection == m_clipboard)
            m_text.reset();
        break;
    case PropertyNotify:
        continueTransfers(event.xproperty);
        break;
    case DestroyNotify:
        std::erase_if(m_transfers,
            [&event](SelectionTransfer const& transfer) { return transfer.requestor() == event.xdestroywindow.window; });
        break;
    default:
        break;
    }
}

void DesktopClipboard::continueTransfers(XPropertyEvent const& event)
{
    std::erase_if(m_transfers, [&event](SelectionTransfer& transfer) { return transfer.isMeant(event) && !transfer.sendNext(); });
}

void DesktopClipboard::answer(XSelectionRequestEvent const& request)
{
    XEvent reply {};
    reply.xselection.type = SelectionNotify;
    reply.xselection.requestor = request.requestor;
    reply.xselection.selection = request.selection;
    reply.xselection.target = request.target;
    reply.xselection.time = request.time;
    // ICCCM 2.2: old programs name no property and mean the target.
    auto const property = request.property != x11::none ? request.property : request.target;
    if (isOwner() && provide(request, request.target, property))
        reply.xselection.property = property;
    XSendEvent(m_connection, request.requestor, x11::falseValue, NoEventMask, &reply);
    XFlush(m_connection);
}

bool DesktopClipboard::provide(XSelectionRequestEvent const& request, ::Atom target, ::Atom property)
{
    auto const putLongs = [this, &request, property](::Atom type, std::span<long const> values) {
        XChangeProperty(m_connection, request.requestor, property, type, 32, PropModeReplace,
            reinterpret_cast<unsigned char const*>(values.data()), static_cast<int>(values.size()));
        return true;
    };
    if (target == m_targets) {
        ::Atom const offered[] = { m_targets, m_timestamp, m_multiple, m_utf8, m_mimeUtf8, XA_STRING };
        std::vector<long> const values(std::begin(offered), std::end(offered));
        return putLongs(XA_ATOM, values);
    }
    if (target == m_timestamp) {
        auto const time = static_cast<long>(m_ownedSince);
        return putLongs(XA_INTEGER, { &time, 1 });
    }
    if (target == m_multiple) {
        provideMultiple(request);
        return true;
    }
    if (target != m_utf8 && target != m_mimeUtf8 && target != XA_STRING)
        return false;
    auto const text = target == XA_STRING ? std::make_shared<std::string const>(latin1FromUTF8(*m_text)) : m_text;
    if (text->size() > SelectionTransfer::pieceSize(m_connection)) {
        auto part = request;
        part.property = property;
        m_transfers.emplace_back(m_connection, part, target, text);
        return true;
    }
    XChangeProperty(m_connection, request.requestor, property, target, 8, PropModeReplace,
        reinterpret_cast<unsigned char const*>(text->data()), static_cast<int>(text->size()));
    return true;
}

void DesktopClipboard::provideMultiple(XSelectionRequestEvent const& request)
{
    auto pairs = longProperty(m_connection, request.requestor, request.property);
    for (std::size_t index = 0; index + 1 < pairs.size(); index += 2) {
        auto const isNested = pairs[index] == m_multiple;
        if (isNested || !provide(request, pairs[index], pairs[index + 1]))
            pairs[index + 1] = x11::none;
    }
    auto const type = m_session.atom("ATOM_PAIR");
    XChangeProperty(m_connection, request.requestor, request.property, type, 32, PropModeReplace,
        reinterpret_cast<unsigned char const*>(pairs.data()), static_cast<int>(pairs.size()));
}

}
