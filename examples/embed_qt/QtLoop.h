#pragma once

#include <plix/hosting.h>

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <map>
#include <memory>
#include <utility>

namespace embed_qt {

/// Qt's event loop, which the library's timers, descriptors and waits share.
class QtLoop final : public QObject, public plix::ToolkitLoop {
public:
    /// From now on Qt wakes for what these events wait for.
    void serve(plix::EmbeddingEvents&);

    // plix::ToolkitLoop:
    void pass() override;
    int depth() const override;

protected:
    // QObject:
    bool event(QEvent*) override;

private:
    void prepareToSleep();
    void watch(std::vector<pollfd> const&);

    plix::EmbeddingEvents* m_events { nullptr };
    std::map<std::pair<int, QSocketNotifier::Type>, std::unique_ptr<QSocketNotifier>> m_notifiers;
    QTimer m_timer;
    bool m_isTurnPosted { false };
};

}
