#pragma once

#include "QtClipboard.h"
#include "QtDisplay.h"
#include "QtLoop.h"

#include <plix/hosting.h>

namespace embed_qt {

/// The machine as Qt shows it. Sound and speech are not among what it offers.
class QtHost final : public plix::Host {
public:
    QtHost();
    ~QtHost() override;

    /// The one in use, made and installed with the first call, when the QApplication is there.
    static QtHost& shared();

    QtDisplay& qtDisplay() { return m_display; }

    // plix::Host:
    std::string_view name() const override { return "qt"; }
    plix::Display& display() override { return m_display; }
    plix::Clipboard& clipboard() override { return m_clipboard; }
    plix::EventSource& events() override { return m_events; }

private:
    QtLoop m_loop;
    plix::EmbeddingEvents m_events { m_loop };
    QtDisplay m_display { m_events };
    QtClipboard m_clipboard;
};

}
