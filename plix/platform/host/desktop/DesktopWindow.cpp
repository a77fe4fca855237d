#include <plix/platform/host/desktop/DesktopWindow.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/host/desktop/DesktopDisplay.h>
#include <plix/platform/host/window_placement.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

/// How long the window manager may take to put a window where it was asked to, before its own place is taken as the last word.
constexpr NSTimeInterval s_patience = 0.2;
constexpr NSTimeInterval s_liveResizeLook = 0.03;
constexpr int s_largestSide = 16384;
constexpr long s_iconicState = 3;

// Motif's hints, which window managers still read for what a frame offers.
constexpr long s_motifFunctionsAndDecorations = 1 | 2;
constexpr long s_motifResize = 2;
constexpr long s_motifMove = 4;
constexpr long s_motifMinimize = 8;
constexpr long s_motifMaximize = 16;
constexpr long s_motifClose = 32;

// EWMH 1.5.
constexpr long s_sourceIsApplication = 1;
constexpr long s_moveByPointer = 8;
constexpr long s_toggleState = 2;

::Atom atomOf(x11::Connection* connection, char const* name)
{
    return XInternAtom(connection, name, x11::falseValue);
}

std::uint32_t flagsFor(HostWindowAttributes const& attributes)
{
    std::uint32_t flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE;
    if (attributes.kind == HostWindowKind::popup)
        return flags | SDL_WINDOW_BORDERLESS | SDL_WINDOW_POPUP_MENU | SDL_WINDOW_SKIP_TASKBAR;
    if (attributes.kind == HostWindowKind::panel)
        flags |= SDL_WINDOW_UTILITY | SDL_WINDOW_SKIP_TASKBAR;
    return attributes.isTitled ? flags : flags | SDL_WINDOW_BORDERLESS;
}

PixelRect bounded(PixelRect pixels)
{
    return { pixels.x, pixels.y, std::clamp(pixels.width, 1, s_largestSide), std::clamp(pixels.height, 1, s_largestSide) };
}

}

DesktopWindow::DesktopWindow(DesktopDisplay& display, HostWindowAttributes const& attributes, HostWindowClient& client)
    : m_display(&display)
    , m_client(&client)
    , m_kind(attributes.kind)
    , m_isTitled(attributes.isTitled && attributes.kind != HostWindowKind::popup)
    , m_isResizable(attributes.isResizable)
{
    m_pixels = pixelsFor(attributes.contentRect);
    display.add(*this);
    if (display.isLost() || !display.session().survives([&] { makeNativeWindow(flagsFor(attributes)); }))
        return;
    auto const native = nativeWindow(m_window.get());
    m_connection = native.connection;
    m_native = native.window;
    m_number = SDL_GetWindowID(m_window.get());
    if (!isUsable())
        return;
    m_surface.emplace(m_connection, m_native);
    dress(attributes);
    setParent(attributes.parent);
    m_extents = display.frameExtents(attributes);
}

void DesktopWindow::makeNativeWindow(std::uint32_t flags)
{
    m_window.reset(SDL_CreateWindow("", m_pixels.x, m_pixels.y, m_pixels.width, m_pixels.height, flags));
}

DesktopWindow::~DesktopWindow()
{
    if (m_display)
        m_display->remove(*this);
    if (!isUsable())
        abandon();
    m_surface.reset();
}

bool DesktopWindow::isUsable() const
{
    return m_display && m_native != x11::none && !m_display->isLost();
}

void DesktopWindow::abandon()
{
    m_display = nullptr;
    if (m_surface)
        m_surface->abandon();
    // Without a server SDL can't take the window apart.
    static_cast<void>(m_window.release());
}

void DesktopWindow::dress(HostWindowAttributes const& attributes)
{
    // What was drawn stays where it is while the window grows, until the new frame is there.
    XSetWindowAttributes kept {};
    kept.bit_gravity = NorthWestGravity;
    XChangeWindowAttributes(m_connection, m_native, CWBitGravity, &kept);
    takePointerEvents();
    long functions = s_motifMove;
    functions |= attributes.isResizable ? s_motifResize | s_motifMaximize : 0;
    functions |= attributes.isMiniaturizable ? s_motifMinimize : 0;
    functions |= attributes.isClosable ? s_motifClose : 0;
    long const hints[] = { s_motifFunctionsAndDecorations, functions, m_isTitled ? 1 : 0, 0, 0 };
    auto const property = atomOf(m_connection, "_MOTIF_WM_HINTS");
    XChangeProperty(m_connection, m_native, property, property, 32, PropModeReplace, reinterpret_cast<unsigned char const*>(hints),
        static_cast<int>(std::size(hints)));
    writeHints();
}

void DesktopWindow::takePointerEvents()
{
    // SDL takes moves of the pointer by the input extension, which keeps the ordinary ones away, and those alone belong to a
    // button's grab.
    unsigned char nothing[XIMaskLen(XI_LASTEVENT)] {};
    XIEventMask mask { XIAllMasterDevices, sizeof nothing, nothing };
    XISelectEvents(m_connection, m_native, &mask, 1);
}

void DesktopWindow::writeHints()
{
    std::unique_ptr<XSizeHints, x11::Memory> const hints(XAllocSizeHints());
    hints->flags = USPosition | PPosition | USSize | PSize | PWinGravity | PMinSize;
    // The place is the content's, wherever the frame then comes to lie.
    hints->win_gravity = StaticGravity;
    hints->x = m_pixels.x;
    hints->y = m_pixels.y;
    hints->width = m_pixels.width;
    hints->height = m_pixels.height;
    auto const scale = backingScale();
    auto const pixels
        = [scale](float points) { return std::clamp(static_cast<int>(std::lround(points * scale)), 1, s_largestSide); };
    hints->min_width = m_isResizable ? pixels(m_minimum.width) : m_pixels.width;
    hints->min_height = m_isResizable ? pixels(m_minimum.height) : m_pixels.height;
    if (!m_isResizable || m_maximum.width > 0 || m_maximum.height > 0) {
        hints->flags |= PMaxSize;
        auto const limit = [pixels](float points) { return points > 0 ? pixels(points) : s_largestSide; };
        hints->max_width = m_isResizable ? std::max(limit(m_maximum.width), hints->min_width) : m_pixels.width;
        hints->max_height = m_isResizable ? std::max(limit(m_maximum.height), hints->min_height) : m_pixels.height;
    }
    XSetWMNormalHints(m_connection, m_native, hints.get());
}

PixelRect DesktopWindow::pixelsFor(Rect rect) const
{
    auto const& session = m_display->session();
    return bounded(session.space().pixelsFromRect(isPopup() ? popupRectOnScreen(rect, session.screens()) : rect));
}

Rect DesktopWindow::contentRect() const
{
    return m_display ? m_display->session().space().rectFromPixels(m_pixels) : Rect {};
}

void DesktopWindow::setContentRect(Rect rect)
{
    if (!isUsable())
        return;
    auto const pixels = pixelsFor(rect);
    if (pixels == m_pixels)
        return;
    place(pixels);
    m_client->hostWindowContentRectChanged(contentRect());
}

void DesktopWindow::place(PixelRect pixels)
{
    m_pixels = pixels;
    if (m_isVisible && !isPopup())
        m_waitsForPlaceUntil = clock().uptime() + s_patience;
    writeHints();
    XMoveResizeWindow(
        m_connection, m_native, pixels.x, pixels.y, static_cast<unsigned>(pixels.width), static_cast<unsigned>(pixels.height));
    XFlush(m_connection);
}

HostWindow::FrameExtents DesktopWindow::frameExtents() const
{
    return m_extents;
}

float DesktopWindow::backingScale() const
{
    return m_display ? m_display->session().space().scale : 1;
}

void DesktopWindow::setTitle(std::string_view title)
{
    if (isUsable())
        SDL_SetWindowTitle(m_window.get(), validUTF8(title).c_str());
}

void DesktopWindow::setSizeLimits(Size minimum, Size maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    if (isUsable())
        writeHints();
}

void DesktopWindow::setResizable(bool isResizable)
{
    m_isResizable = isResizable;
    if (isUsable())
        writeHints();
}

void DesktopWindow::setParent(HostWindow* parent)
{
    if (!isUsable())
        return;
    if (auto const* const window = dynamic_cast<DesktopWindow*>(parent))
        XSetTransientForHint(m_connection, m_native, window->native());
    else
        XDeleteProperty(m_connection, m_native, XA_WM_TRANSIENT_FOR);
}

void DesktopWindow::setAlpha(float alpha)
{
    if (isUsable())
        SDL_SetWindowOpacity(m_window.get(), std::clamp(alpha, 0.0F, 1.0F));
}

void DesktopWindow::show()
{
    if (!isUsable())
        return;
    m_order = m_display->nextOrder();
    if (m_isVisible && !m_isMiniaturized) {
        raise();
        return;
    }
    m_isVisible = true;
    place(m_pixels);
    XMapRaised(m_connection, m_native);
    XFlush(m_connection);
}

void DesktopWindow::hide()
{
    if (!isUsable() || !m_isVisible)
        return;
    m_isVisible = false;
    m_isMiniaturized = false;
    m_waitsForPlaceUntil.reset();
    XWithdrawWindow(m_connection, m_native, DefaultScreen(m_connection));
    XFlush(m_connection);
}

void DesktopWindow::raise()
{
    if (!isUsable())
        return;
    m_order = m_display->nextOrder();
    XRaiseWindow(m_connection, m_native);
    XFlush(m_connection);
}

void DesktopWindow::lower()
{
    if (!isUsable())
        return;
    XLowerWindow(m_connection, m_native);
    XFlush(m_connection);
}

void DesktopWindow::focus()
{
    if (!isUsable() || !m_isVisible || isPopup())
        return;
    auto const time = static_cast<long>(m_display->lastInputTime());
    if (m_display->session().hasWindowManager())
        sendToWindowManager(m_connection, m_native, atomOf(m_connection, "_NET_ACTIVE_WINDOW"), { s_sourceIsApplication, time, 0 });
    else
        XSetInputFocus(m_connection, m_native, RevertToParent, CurrentTime);
    XFlush(m_connection);
}

void DesktopWindow::miniaturize()
{
    if (!isUsable() || !m_isVisible)
        return;
    XIconifyWindow(m_connection, m_native, DefaultScreen(m_connection));
    XFlush(m_connection);
}

void DesktopWindow::deminiaturize()
{
    if (!isUsable() || !m_isVisible)
        return;
    m_waitsForPlaceUntil = clock().uptime() + s_patience;
    XMapWindow(m_connection, m_native);
    XFlush(m_connection);
}

void DesktopWindow::zoom()
{
    if (!isUsable())
        return;
    auto const horizontally = atomOf(m_connection, "_NET_WM_STATE_MAXIMIZED_HORZ");
    auto const vertically = atomOf(m_connection, "_NET_WM_STATE_MAXIMIZED_VERT");
    auto const state = atomOf(m_connection, "_NET_WM_STATE");
    sendToWindowManager(m_connection, m_native, state,
        { s_toggleState, static_cast<long>(horizontally), static_cast<long>(vertically), s_sourceIsApplication });
    XFlush(m_connection);
}

bool DesktopWindow::beginInteractiveMove()
{
    if (!isUsable() || !m_isVisible || !m_display->session().hasWindowManager())
        return false;
    auto const pointer = m_display->session().pointer();
    // The press that led here holds the pointer for us; the window manager can have it only after that.
    XUngrabPointer(m_connection, CurrentTime);
    sendToWindowManager(m_connection, m_native, atomOf(m_connection, "_NET_WM_MOVERESIZE"),
        { pointer.x, pointer.y, s_moveByPointer, Button1, s_sourceIsApplication });
    XFlush(m_connection);
    m_display->releaseButtons(*this);
    return true;
}

PixelBuffer DesktopWindow::lockPixels()
{
    if (!isUsable())
        return {};
    auto buffer = m_surface->lock(m_pixels.width, m_pixels.height);
    buffer.scale = backingScale();
    return buffer;
}

void DesktopWindow::present(std::span<PixelRect const> rects)
{
    if (isUsable())
        m_surface->put(rects);
}

void DesktopWindow::requestAttention()
{
    if (!isUsable() || m_display->hasFocus(*this))
        return;
    m_wantsAttention = true;
    SDL_FlashWindow(m_window.get(), SDL_FLASH_UNTIL_FOCUSED);
}

void DesktopWindow::cancelAttention()
{
    if (!isUsable() || !m_wantsAttention)
        return;
    m_wantsAttention = false;
    SDL_FlashWindow(m_window.get(), SDL_FLASH_CANCEL);
}

void DesktopWindow::noteExposed(PixelRect exposed)
{
    if (!isUsable() || m_surface->putAgain(exposed))
        return;
    m_display->queue().push(
        { Delivery::Kind::needsRepaint, m_number, {}, contentRectFromPixels(exposed, m_pixels.height, backingScale()) });
}

void DesktopWindow::noteMapped(bool isMapped)
{
    m_isMapped = isMapped;
    m_isGeometryStale = isMapped;
    if (isMapped && m_waitsForPlaceUntil)
        m_waitsForPlaceUntil = clock().uptime() + s_patience;
}

void DesktopWindow::noteProperty(::Atom property)
{
    if (!isUsable())
        return;
    m_areExtentsStale |= property == atomOf(m_connection, "_NET_FRAME_EXTENTS");
    m_isStateStale |= property == atomOf(m_connection, "WM_STATE") || property == atomOf(m_connection, "_NET_WM_STATE");
}

void DesktopWindow::readState()
{
    m_isStateStale = false;
    auto const atoms = longProperty(m_connection, m_native, atomOf(m_connection, "_NET_WM_STATE"));
    auto const has
        = [this, &atoms](char const* name) { return std::ranges::find(atoms, atomOf(m_connection, name)) != atoms.end(); };
    m_isZoomed = has("_NET_WM_STATE_MAXIMIZED_HORZ") && has("_NET_WM_STATE_MAXIMIZED_VERT");
    auto const state = longProperty(m_connection, m_native, atomOf(m_connection, "WM_STATE"));
    auto const isIconic = m_isVisible && !state.empty() && static_cast<long>(state[0]) == s_iconicState;
    if (isIconic == m_isMiniaturized)
        return;
    m_isMiniaturized = isIconic;
    // Window managers like to let a window fly to its place.
    if (!isIconic)
        m_waitsForPlaceUntil = clock().uptime() + s_patience;
    m_display->queue().push({ Delivery::Kind::miniaturizedChanged, m_number });
}

void DesktopWindow::readExtents()
{
    m_areExtentsStale = false;
    auto const sides = longProperty(m_connection, m_native, atomOf(m_connection, "_NET_FRAME_EXTENTS"));
    if (sides.size() < 4 || !m_isTitled)
        return;
    auto const scale = backingScale();
    auto const side = [&sides, scale](std::size_t index) { return static_cast<float>(sides[index]) / scale; };
    FrameExtents const extents { side(0), side(1), side(2), side(3) };
    if (extents == m_extents)
        return;
    m_extents = extents;
    m_display->rememberExtents(extents, m_isResizable);
    m_display->queue().push({ Delivery::Kind::contentRectChanged, m_number });
}

void DesktopWindow::settle()
{
    if (!isUsable())
        return;
    if (m_isStateStale)
        readState();
    if (m_areExtentsStale)
        readExtents();
    if (m_isLiveResizing)
        trackLiveResize();
    auto const now = clock().uptime();
    auto const isLate = m_isMapped && m_waitsForPlaceUntil && now >= *m_waitsForPlaceUntil;
    // While the window manager puts its frame around a window, that is anywhere.
    if ((!m_isGeometryStale && !isLate) || !m_isVisible || !m_isMapped)
        return;
    m_isGeometryStale = false;
    auto const actual = nativePixels();
    if (actual == m_pixels || isLate)
        m_waitsForPlaceUntil.reset();
    if (!m_waitsForPlaceUntil && actual != m_pixels)
        adopt(actual);
}

PixelRect DesktopWindow::nativePixels() const
{
    ::Window root = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned ignored = 0;
    if (XGetGeometry(m_connection, m_native, &root, &x, &y, &width, &height, &ignored, &ignored) == 0)
        return m_pixels;
    ::Window child = 0;
    if (XTranslateCoordinates(m_connection, m_native, root, 0, 0, &x, &y, &child) == 0)
        return m_pixels;
    return { x, y, static_cast<int>(width), static_cast<int>(height) };
}

void DesktopWindow::adopt(PixelRect actual)
{
    auto const isResize = actual.width != m_pixels.width || actual.height != m_pixels.height;
    auto const isButtonHeld = (m_display->session().pointer().mask & (Button1Mask | Button2Mask | Button3Mask)) != 0;
    // A button that is held and that we were not told of is the window manager's: a person drags the frame.
    if (isResize && !m_isLiveResizing && isButtonHeld && !m_display->hasPressedButtons()) {
        m_isLiveResizing = true;
        m_display->queue().push({ Delivery::Kind::liveResizeBegan, m_number });
    }
    m_pixels = actual;
    m_display->queue().push({ Delivery::Kind::contentRectChanged, m_number });
}

void DesktopWindow::trackLiveResize()
{
    if ((m_display->session().pointer().mask & (Button1Mask | Button2Mask | Button3Mask)) != 0)
        return;
    m_isLiveResizing = false;
    m_isGeometryStale = true;
    m_display->queue().push({ Delivery::Kind::liveResizeEnded, m_number });
}

std::optional<NSTimeInterval> DesktopWindow::settleTime() const
{
    if (m_isLiveResizing)
        return clock().uptime() + s_liveResizeLook;
    return m_isMapped ? m_waitsForPlaceUntil : std::nullopt;
}

void DesktopWindow::noteScreensChanged(float scaleBefore)
{
    if (!isUsable())
        return;
    auto const scale = backingScale();
    auto pixels = m_pixels;
    if (scale != scaleBefore) {
        auto const factor = scale / scaleBefore;
        pixels.width = static_cast<int>(std::lround(static_cast<float>(pixels.width) * factor));
        pixels.height = static_cast<int>(std::lround(static_cast<float>(pixels.height) * factor));
    }
    auto const& session = m_display->session();
    auto const content = session.space().rectFromPixels(pixels);
    auto const [left, right, top, bottom] = m_extents;
    Rect const frame { content.x - left, content.y - bottom, content.width + left + right, content.height + top + bottom };
    auto const back = isPopup() ? popupRectOnScreen(frame, session.screens()) : frameBackOnScreen(frame, session.screens());
    auto const placed = session.space().pixelsFromRect(NSOffsetRect(content, back.x - frame.x, back.y - frame.y));
    if (bounded(placed) != m_pixels)
        place(bounded(placed));
    if (scale != scaleBefore)
        m_client->hostWindowScaleChanged(scale);
    m_client->hostWindowContentRectChanged(contentRect());
}

}
