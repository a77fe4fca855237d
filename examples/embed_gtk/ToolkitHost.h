#pragma once

#include "GLibLoop.h"
#include "PaneDisplay.h"
#include "TextClipboard.h"

#include <plix/hosting.h>

namespace embed_gtk {

/// The machine as GTK shows it. Sound and speech are not among what it offers.
class ToolkitHost final : public plix::Host {
public:
    ToolkitHost();
    ~ToolkitHost() override;

    /// The one in use, made and installed with the first call, when GTK is there.
    static ToolkitHost& shared();

    PaneDisplay& paneDisplay() { return m_display; }

    // plix::Host:
    std::string_view name() const override { return "gtk"; }
    plix::Display& display() override { return m_display; }
    plix::Clipboard& clipboard() override { return m_clipboard; }
    plix::EventSource& events() override { return m_events; }

private:
    GLibLoop m_loop;
    plix::EmbeddingEvents m_events { m_loop };
    PaneDisplay m_display { m_events };
    TextClipboard m_clipboard { m_loop };
};

}
