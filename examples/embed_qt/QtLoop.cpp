#include "QtLoop.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <algorithm>
#include <cmath>

namespace embed_qt {

namespace {

QEvent::Type turnType()
{
    static auto const s_type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return s_type;
}

}

void QtLoop::serve(plix::EmbeddingEvents& events)
{
    m_events = &events;
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] { prepareToSleep(); });
}

void QtLoop::pass()
{
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

int QtLoop::depth() const
{
    return QThread::currentThread()->loopLevel();
}

void QtLoop::prepareToSleep()
{
    // Not at once: an operation that waits must be able to run Qt's loop, and here Qt is not ready for that.
    if (m_events->toolkitWillSleep()) {
        if (!std::exchange(m_isTurnPosted, true))
            QCoreApplication::postEvent(this, new QEvent(turnType()));
        return;
    }
    watch(m_events->watched());
    m_timer.stop();
    if (auto const deadline = m_events->deadline()) {
        constexpr double longest = 1e6;
        auto const seconds = std::clamp(*deadline - plix::clock().uptime(), 0.0, longest);
        m_timer.start(static_cast<int>(std::ceil(seconds * 1000)));
    }
}

bool QtLoop::event(QEvent* event)
{
    if (event->type() != turnType())
        return QObject::event(event);
    m_isTurnPosted = false;
    plix::takeTurn(*m_events);
    return true;
}

void QtLoop::watch(std::vector<pollfd> const& descriptors)
{
    std::vector<std::pair<int, QSocketNotifier::Type>> wanted;
    for (auto const& descriptor : descriptors) {
        if ((descriptor.events & POLLIN) != 0)
            wanted.emplace_back(descriptor.fd, QSocketNotifier::Read);
        if ((descriptor.events & POLLOUT) != 0)
            wanted.emplace_back(descriptor.fd, QSocketNotifier::Write);
    }
    std::erase_if(m_notifiers, [&wanted](auto const& entry) { return std::ranges::find(wanted, entry.first) == wanted.end(); });
    for (auto const& [number, type] : wanted) {
        auto& notifier = m_notifiers[{ number, type }];
        if (!notifier)
            notifier = std::make_unique<QSocketNotifier>(number, type);
    }
}

}
