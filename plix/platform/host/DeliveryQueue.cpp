#include <plix/platform/host/DeliveryQueue.h>

#include <plix/platform/host/HostWindow.h>

#include <utility>

namespace plix {

namespace {

bool isSameMove(Delivery const& a, Delivery const& b)
{
    auto const areMoves = a.kind == Delivery::Kind::input && b.kind == Delivery::Kind::input
        && a.event.type == HostEvent::Type::mouseMoved && b.event.type == HostEvent::Type::mouseMoved;
    return areMoves && a.window == b.window && a.event.pressedButtons == b.event.pressedButtons
        && a.event.modifiers == b.event.modifiers;
}

bool isSameState(Delivery const& a, Delivery const& b)
{
    auto const isRepeatable = a.kind == Delivery::Kind::contentRectChanged || a.kind == Delivery::Kind::screensChanged;
    return isRepeatable && a.kind == b.kind && a.window == b.window;
}

bool isReturningFocus(Delivery const& a, Delivery const& b)
{
    return a.kind == Delivery::Kind::focusLost && b.kind == Delivery::Kind::focusGained && a.window == b.window;
}

}

void tellClient(HostWindowClient& client, Delivery const& delivery, HostWindow const& window, bool isMiniaturized)
{
    switch (delivery.kind) {
    case Delivery::Kind::input:
        client.hostWindowEvent(delivery.event);
        break;
    case Delivery::Kind::focusGained:
    case Delivery::Kind::focusLost:
        client.hostWindowFocusChanged(delivery.kind == Delivery::Kind::focusGained);
        break;
    case Delivery::Kind::closeRequested:
        client.hostWindowCloseRequested();
        break;
    case Delivery::Kind::contentRectChanged:
        client.hostWindowContentRectChanged(window.contentRect());
        break;
    case Delivery::Kind::needsRepaint:
        client.hostWindowNeedsRepaint(delivery.rect);
        break;
    case Delivery::Kind::scaleChanged:
        client.hostWindowScaleChanged(window.backingScale());
        break;
    case Delivery::Kind::miniaturizedChanged:
        client.hostWindowMiniaturizedChanged(isMiniaturized);
        break;
    case Delivery::Kind::liveResizeBegan:
    case Delivery::Kind::liveResizeEnded:
        client.hostWindowLiveResizeChanged(delivery.kind == Delivery::Kind::liveResizeBegan);
        break;
    case Delivery::Kind::screensChanged:
    case Delivery::Kind::quitWanted:
        break;
    }
}

void DeliveryQueue::push(Delivery delivery)
{
    if (!m_deliveries.empty() && isReturningFocus(m_deliveries.back(), delivery)) {
        m_deliveries.pop_back();
        return;
    }
    if (!m_deliveries.empty() && (isSameMove(m_deliveries.back(), delivery) || isSameState(m_deliveries.back(), delivery)))
        m_deliveries.pop_back();
    m_deliveries.push_back(std::move(delivery));
}

std::optional<Delivery> DeliveryQueue::pop()
{
    if (m_deliveries.empty())
        return {};
    auto delivery = std::move(m_deliveries.front());
    m_deliveries.pop_front();
    return delivery;
}

}
