#pragma once

#include "Form.h"
#include "Transcript.h"

namespace gallery {

/// A transcript with a row of controls below it, which act on what it shows.
class LivePage final : public Form {
public:
    static plix::Ref<LivePage> page(plix::Ref<Transcript> const&);

    /// To the right of the one before.
    void addControl(plix::Ref<plix::NSView> const&);

private:
    static constexpr float rowHeight = 28;

    float m_x { 28 };
};

}
