#include <plix/platform/host/desktop/XSession.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace plix {

namespace {

int ignoreError(x11::Connection*, XErrorEvent*)
{
    return 0;
}

int outliveLostConnection(x11::Connection*)
{
    return 0;
}

constexpr long s_longestProperty = 1L << 16;

PixelRect intersection(PixelRect a, PixelRect b)
{
    auto const inA = clippedToSize({ b.x - a.x, b.y - a.y, b.width, b.height }, a.width, a.height);
    return { inA.x + a.x, inA.y + a.y, inA.width, inA.height };
}

}

std::unique_ptr<XSession> XSession::open()
{
    Handle<x11::Connection> connection(XOpenDisplay(nullptr));
    if (!connection)
        return nullptr;
    return std::unique_ptr<XSession>(new XSession(std::move(connection)));
}

XSession::XSession(Handle<x11::Connection> connection)
    : m_owned(std::move(connection))
    , m_connection(m_owned.get())
    , m_root(DefaultRootWindow(m_connection))
{
    tolerateErrors();
    watch(m_connection);
    int errors = 0;
    if (XRRQueryExtension(m_connection, &m_randrEvents, &errors) != 0)
        XRRSelectInput(m_connection, m_root, RRScreenChangeNotifyMask);
    XSelectInput(m_connection, m_root, PropertyChangeMask | StructureNotifyMask);
    readScreens();
}

XSession::~XSession()
{
    if (m_isLost)
        static_cast<void>(m_owned.release());
}

void XSession::noteLoss(x11::Connection*, void* session)
{
    auto& self = *static_cast<XSession*>(session);
    self.m_isLost = true;
    if (auto* const wayOut = std::exchange(self.m_wayOut, nullptr))
        std::longjmp(*wayOut, 1);
}

void XSession::tolerateErrors()
{
    XSetErrorHandler(ignoreError);
    XSetIOErrorHandler(outliveLostConnection);
}

void XSession::watch(x11::Connection* connection)
{
    XSetIOErrorExitHandler(connection, noteLoss, this);
}

int XSession::descriptor() const
{
    return ConnectionNumber(m_connection);
}

::Atom XSession::atom(char const* name) const
{
    return XInternAtom(m_connection, name, x11::falseValue);
}

std::vector<unsigned long> longProperty(x11::Connection* connection, ::Window window, ::Atom property)
{
    ::Atom type = x11::none;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(
        connection, window, property, 0, s_longestProperty, x11::falseValue, AnyPropertyType, &type, &format, &count, &left, &data);
    std::unique_ptr<unsigned char, x11::Memory> const memory(data);
    if (!data || format != 32)
        return {};
    auto const* const values = reinterpret_cast<unsigned long const*>(data);
    return { values, values + count };
}

void sendToWindowManager(x11::Connection* connection, ::Window window, ::Atom message, std::initializer_list<long> data)
{
    XEvent event {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = message;
    event.xclient.format = 32;
    std::copy(data.begin(), data.end(), event.xclient.data.l);
    XSendEvent(
        connection, DefaultRootWindow(connection), x11::falseValue, SubstructureNotifyMask | SubstructureRedirectMask, &event);
}

std::optional<std::string> XSession::resource(char const* name) const
{
    // Read from the root window each time: the library's own copy is from when the connection was opened.
    ::Atom type = x11::none;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(m_connection, m_root, XA_RESOURCE_MANAGER, 0, s_longestProperty, x11::falseValue, XA_STRING, &type, &format,
        &count, &left, &data);
    std::unique_ptr<unsigned char, x11::Memory> const memory(data);
    if (!data || format != 8)
        return {};
    XrmInitialize();
    auto* const database = XrmGetStringDatabase(reinterpret_cast<char const*>(data));
    if (!database)
        return {};
    char* kind = nullptr;
    XrmValue value {};
    std::optional<std::string> result;
    if (XrmGetResource(database, name, name, &kind, &value) != 0 && value.addr)
        result = value.addr;
    XrmDestroyDatabase(database);
    return result;
}

std::vector<PixelRect> XSession::monitors() const
{
    std::vector<PixelRect> result;
    int count = 0;
    if (m_randrEvents >= 0) {
        std::unique_ptr<XRRMonitorInfo, decltype(&XRRFreeMonitors)> const infos(
            XRRGetMonitors(m_connection, m_root, x11::trueValue, &count), XRRFreeMonitors);
        for (int index = 0; infos && index < count; ++index) {
            auto const& info = infos.get()[index];
            PixelRect const rect { info.x, info.y, info.width, info.height };
            if (rect.width > 0 && rect.height > 0)
                result.insert(info.primary != 0 ? result.begin() : result.end(), rect);
        }
    }
    if (result.empty()) {
        XWindowAttributes attributes {};
        XGetWindowAttributes(m_connection, m_root, &attributes);
        result.push_back({ 0, 0, attributes.width, attributes.height });
    }
    return result;
}

std::optional<PixelRect> XSession::workArea() const
{
    auto const values = longProperty(m_connection, m_root, atom("_NET_WORKAREA"));
    if (values.size() < 4)
        return {};
    auto const desktops = longProperty(m_connection, m_root, atom("_NET_CURRENT_DESKTOP"));
    auto const desktop = desktops.empty() || desktops[0] >= values.size() / 4 ? 0 : desktops[0];
    auto const at
        = [&values, desktop](std::size_t side) { return static_cast<int>(static_cast<long>(values[desktop * 4 + side])); };
    return PixelRect { at(0), at(1), at(2), at(3) };
}

void XSession::readScreens()
{
    auto const pixels = monitors();
    auto const* const environment = std::getenv("PLIX_SCALE");
    auto const dotsPerInch = resource("Xft.dpi");
    m_space.scale = chosenScale(environment ? std::optional<std::string_view>(environment) : std::nullopt, dotsPerInch);
    m_space.mainScreen = pixels.front();
    auto const work = workArea();
    m_screens.clear();
    for (auto const& screen : pixels) {
        auto const usable = work ? intersection(screen, *work) : screen;
        auto const isUsable = usable.width > 0 && usable.height > 0;
        m_screens.push_back({ m_space.rectFromPixels(screen), m_space.rectFromPixels(isUsable ? usable : screen), m_space.scale });
    }
}

XSession::Pointer XSession::pointer() const
{
    Pointer result;
    if (m_isLost)
        return result;
    ::Window window = 0;
    int ignored = 0;
    XQueryPointer(m_connection, m_root, &window, &window, &result.x, &result.y, &ignored, &ignored, &result.mask);
    return result;
}

bool XSession::hasWindowManager() const
{
    return !m_isLost && !longProperty(m_connection, m_root, atom("_NET_SUPPORTING_WM_CHECK")).empty();
}

bool XSession::hasPending() const
{
    return !m_isLost && XPending(m_connection) > 0;
}

bool XSession::dispatchPending()
{
    bool hadEvents = false;
    while (hasPending() && !m_isLost) {
        XEvent event {};
        XNextEvent(m_connection, &event);
        dispatch(event);
        hadEvents = true;
    }
    return hadEvents;
}

void XSession::dispatch(XEvent& event)
{
    auto const isScreenChange = m_randrEvents >= 0 && event.type == m_randrEvents + RRScreenChangeNotify;
    if (isScreenChange)
        XRRUpdateConfiguration(&event);
    auto const isRootProperty = event.type == PropertyNotify && event.xproperty.window == m_root
        && (event.xproperty.atom == XA_RESOURCE_MANAGER || event.xproperty.atom == atom("_NET_WORKAREA")
            || event.xproperty.atom == atom("_NET_CURRENT_DESKTOP"));
    auto const isRootResize = event.type == ConfigureNotify && event.xconfigure.window == m_root;
    if (isScreenChange || isRootProperty || isRootResize) {
        auto const before = m_screens;
        readScreens();
        if (before != m_screens && onScreensChanged)
            onScreensChanged();
        return;
    }
    if (onSelectionEvent)
        onSelectionEvent(event);
}

}
