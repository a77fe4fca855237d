#include <plix/platform/host/desktop/WindowSurface.h>

#include <plix/platform/host/desktop/screen_space.h>

#include <algorithm>

#include <sys/ipc.h>
#include <sys/shm.h>

namespace plix {

namespace {

constexpr int s_bytesPerPixel = 4;
/// Memory is taken in steps, so that a window that grows under the pointer does not ask the server for a new segment each time.
constexpr std::size_t s_step = std::size_t { 1 } << 18;

bool s_attachFailed = false;

int noteFailure(x11::Connection*, XErrorEvent*)
{
    s_attachFailed = true;
    return 0;
}

/// A server on another machine knows the extension and refuses only the attaching.
bool attaches(x11::Connection* connection, XShmSegmentInfo& segment)
{
    XSync(connection, x11::falseValue);
    s_attachFailed = false;
    auto* const before = XSetErrorHandler(noteFailure);
    auto const isSent = XShmAttach(connection, &segment) != 0;
    XSync(connection, x11::falseValue);
    XSetErrorHandler(before);
    return isSent && !s_attachFailed;
}

}

WindowSurface::WindowSurface(x11::Connection* connection, ::Window window)
    : m_connection(connection)
    , m_window(window)
    , m_context(XCreateGC(connection, window, 0, nullptr))
{
}

WindowSurface::~WindowSurface()
{
    freeMemory();
    if (m_context)
        XFreeGC(m_connection, m_context);
}

bool WindowSurface::suits(x11::Connection* connection)
{
    auto const* const visual = DefaultVisual(connection, DefaultScreen(connection));
    auto const depth = DefaultDepth(connection, DefaultScreen(connection));
    return (depth == 24 || depth == 32) && visual->red_mask == 0xFF0000 && visual->green_mask == 0xFF00
        && visual->blue_mask == 0xFF;
}

PixelBuffer WindowSurface::lock(int width, int height)
{
    width = std::max(width, 1);
    height = std::max(height, 1);
    if (!m_image || m_image->width != width || m_image->height != height)
        resize(width, height);
    else if (m_isShared && LastKnownRequestProcessed(m_connection) < m_lastPut)
        XSync(m_connection, x11::falseValue);
    PixelBuffer buffer;
    buffer.pixels = reinterpret_cast<std::uint8_t*>(m_image->data);
    buffer.stride = m_image->bytes_per_line;
    buffer.width = width;
    buffer.height = height;
    buffer.keepsContent = m_hasContent;
    return buffer;
}

void WindowSurface::resize(int width, int height)
{
    if (m_image) {
        XSync(m_connection, x11::falseValue);
        m_image->data = nullptr;
        XDestroyImage(m_image);
        m_image = nullptr;
    }
    m_hasContent = false;
    auto const stride = static_cast<std::size_t>(width) * s_bytesPerPixel;
    auto const bytes = stride * static_cast<std::size_t>(height);
    if (bytes > m_capacity) {
        freeMemory();
        m_capacity = (bytes + s_step - 1) / s_step * s_step;
        m_isShared = XShmQueryExtension(m_connection) != 0 && allocateShared(m_capacity);
        if (!m_isShared)
            m_ownMemory.resize(m_capacity);
    }
    auto* const visual = DefaultVisual(m_connection, DefaultScreen(m_connection));
    auto const depth = static_cast<unsigned>(DefaultDepth(m_connection, DefaultScreen(m_connection)));
    auto* const data = m_isShared ? m_segment.shmaddr : reinterpret_cast<char*>(m_ownMemory.data());
    auto const imageWidth = static_cast<unsigned>(width);
    auto const imageHeight = static_cast<unsigned>(height);
    m_image = m_isShared
        ? XShmCreateImage(m_connection, visual, depth, ZPixmap, data, &m_segment, imageWidth, imageHeight)
        : XCreateImage(m_connection, visual, depth, ZPixmap, 0, data, imageWidth, imageHeight, 32, static_cast<int>(stride));
}

bool WindowSurface::allocateShared(std::size_t bytes)
{
    m_segment.shmid = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    if (m_segment.shmid < 0)
        return false;
    m_segment.shmaddr = static_cast<char*>(shmat(m_segment.shmid, nullptr, 0));
    m_segment.readOnly = x11::trueValue;
    auto const isMapped = m_segment.shmaddr != reinterpret_cast<char*>(-1);
    auto const isAttached = isMapped && attaches(m_connection, m_segment);
    // Marked now, the segment goes away with the last process that has it, however that ends.
    shmctl(m_segment.shmid, IPC_RMID, nullptr);
    if (isMapped && !isAttached)
        shmdt(m_segment.shmaddr);
    return isAttached;
}

void WindowSurface::freeMemory()
{
    if (m_image) {
        m_image->data = nullptr;
        XDestroyImage(m_image);
        m_image = nullptr;
    }
    if (m_isShared) {
        if (m_connection)
            XShmDetach(m_connection, &m_segment);
        shmdt(m_segment.shmaddr);
        m_isShared = false;
    }
    m_ownMemory = {};
    m_capacity = 0;
}

void WindowSurface::put(std::span<PixelRect const> rects)
{
    if (!m_image)
        return;
    m_hasContent = true;
    for (auto const& rect : rects) {
        auto const [x, y, width, height] = clippedToSize(rect, m_image->width, m_image->height);
        if (width == 0 || height == 0)
            continue;
        auto const putWidth = static_cast<unsigned>(width);
        auto const putHeight = static_cast<unsigned>(height);
        m_lastPut = NextRequest(m_connection);
        if (m_isShared)
            XShmPutImage(m_connection, m_window, m_context, m_image, x, y, x, y, putWidth, putHeight, x11::falseValue);
        else
            XPutImage(m_connection, m_window, m_context, m_image, x, y, x, y, putWidth, putHeight);
    }
    XFlush(m_connection);
}

bool WindowSurface::putAgain(PixelRect rect)
{
    if (!m_image || !m_hasContent)
        return false;
    put({ &rect, 1 });
    return true;
}

void WindowSurface::abandon()
{
    m_connection = nullptr;
    m_context = nullptr;
    freeMemory();
}

}
