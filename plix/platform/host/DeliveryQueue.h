#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/host/HostEvent.h>

#include <cstdint>
#include <deque>
#include <optional>

namespace plix {

/// Something that a client is to be told. Windows are named by number: one may be gone when its turn comes.
struct Delivery {
    enum class Kind {
        input,
        focusGained,
        focusLost,
        closeRequested,
        contentRectChanged,
        needsRepaint,
        scaleChanged,
        miniaturizedChanged,
        liveResizeBegan,
        liveResizeEnded,
        screensChanged,
        quitWanted,
    };

    Kind kind { Kind::input };
    std::uint32_t window { 0 };
    HostEvent event {};
    Rect rect {};
};

class HostWindow;
class HostWindowClient;

/// Tells the client of that window, by what the delivery is; what concerns the whole display is no window's.
PLIX_EXPORT void tellClient(HostWindowClient&, Delivery const&, HostWindow const&, bool isMiniaturized);

/// What has arrived and is not told yet, in order. Clients are told one at a time, since one that is told may ask for more.
class PLIX_EXPORT DeliveryQueue {
public:
    /// Moves of the pointer that nobody has seen replace each other; losing the focus and getting it back at once is nothing.
    void push(Delivery);
    std::optional<Delivery> pop();
    bool isEmpty() const { return m_deliveries.empty(); }

private:
    std::deque<Delivery> m_deliveries;
};

}
