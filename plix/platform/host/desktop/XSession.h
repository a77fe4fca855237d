#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/desktop/screen_space.h>
#include <plix/platform/host/desktop/x11.h>

#include <csetjmp>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace plix {

/// Our own connection to the window system beside the one that windows and keys come by: for what belongs to the whole desktop
/// (screens, resources, pointer) and for the clipboard, whose exchanges must not be mixed with input.
class XSession {
public:
    /// Null where no display answers.
    static std::unique_ptr<XSession> open();
    ~XSession();
    XSession(XSession const&) = delete;
    XSession& operator=(XSession const&) = delete;

    x11::Connection* connection() const { return m_connection; }
    ::Window root() const { return m_root; }
    int descriptor() const;
    ::Atom atom(char const* name) const;

    /// The server closed the connection. From then on every call here answers something harmless.
    bool isLost() const { return m_isLost; }
    /// Counts a connection of somebody else's as part of this one: when it breaks, this one is lost too.
    void watch(x11::Connection*);
    /// Calls into a library that takes answers of the server for granted. Where the connection breaks meanwhile, the call is left
    /// as it stands and the answer is false; that library can't be used any more then. `call` holds nothing that wants to be
    /// destroyed.
    template <typename Call> bool survives(Call call)
    {
        std::jmp_buf wayOut;
        m_wayOut = &wayOut;
        // NOLINTNEXTLINE(cert-err52-cpp): the C library above us knows no exceptions.
        if (setjmp(wayOut) != 0)
            return false;
        call();
        m_wayOut = nullptr;
        return true;
    }
    /// Windows of other programs go away while we talk about them; that is no reason to end, which is what the X library would do.
    static void tolerateErrors();

    ScreenSpace const& space() const { return m_space; }
    std::vector<HostScreen> const& screens() const { return m_screens; }

    struct Pointer {
        int x { 0 };
        int y { 0 };
        unsigned mask { 0 };
    };
    Pointer pointer() const;

    /// Whether a window manager of the EWMH kind runs.
    bool hasWindowManager() const;

    /// Hands out what has arrived without blocking; true where there was anything.
    bool dispatchPending();
    bool hasPending() const;
    void dispatch(XEvent&);

    std::function<void(XEvent&)> onSelectionEvent;
    /// The screens are other ones, or the scale is.
    std::function<void()> onScreensChanged;

private:
    explicit XSession(Handle<x11::Connection>);
    static void noteLoss(x11::Connection*, void* session);
    void readScreens();
    std::vector<PixelRect> monitors() const;
    std::optional<PixelRect> workArea() const;
    std::optional<std::string> resource(char const* name) const;

    Handle<x11::Connection> m_owned;
    x11::Connection* m_connection { nullptr };
    ::Window m_root { 0 };
    int m_randrEvents { -1 };
    bool m_isLost { false };
    std::jmp_buf* m_wayOut { nullptr };
    ScreenSpace m_space;
    std::vector<HostScreen> m_screens;
};

/// Reads a property of 32-bit values; empty where it is not there or of another form.
std::vector<unsigned long> longProperty(x11::Connection*, ::Window, ::Atom property);
/// Sends a request to the window manager about a window (EWMH, client messages to the root window).
void sendToWindowManager(x11::Connection*, ::Window, ::Atom message, std::initializer_list<long> data);

}
