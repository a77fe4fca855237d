#pragma once

#include <plix/platform/host/HostWindow.h>
#include <plix/platform/host/desktop/x11.h>

#include <cstdint>
#include <span>
#include <vector>

namespace plix {

/// The pixels of one window, in memory that the server reads directly where it can (MIT-SHM), else sent to it.
class WindowSurface {
public:
    WindowSurface(x11::Connection*, ::Window);
    ~WindowSurface();
    WindowSurface(WindowSurface const&) = delete;
    WindowSurface& operator=(WindowSurface const&) = delete;

    /// Whether this display's pixels are the 32-bit ones that PixelBuffer describes.
    static bool suits(x11::Connection*);

    /// The pixels in a size, after the server has read the last frame. A new size, or no content yet, is said by keepsContent.
    PixelBuffer lock(int width, int height);
    /// Shows rectangles of what is in the buffer.
    void put(std::span<PixelRect const>);
    /// Shows a part again; false where nothing has been put yet.
    bool putAgain(PixelRect);
    /// After the connection was lost: gives the memory back without talking to the server.
    void abandon();

private:
    void resize(int width, int height);
    bool allocateShared(std::size_t bytes);
    void freeMemory();

    x11::Connection* m_connection { nullptr };
    ::Window m_window { 0 };
    ::GC m_context { nullptr };
    XImage* m_image { nullptr };
    XShmSegmentInfo m_segment {};
    std::size_t m_capacity { 0 };
    std::vector<std::uint8_t> m_ownMemory;
    bool m_isShared { false };
    bool m_hasContent { false };
    unsigned long m_lastPut { 0 };
};

}
