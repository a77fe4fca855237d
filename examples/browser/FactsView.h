#pragma once

#include "file_facts.h"

#include <plix/platform/appkit/NSView.h>

#include <vector>

namespace browser {

/// Labels at the right of one column, values at the left of the next, a line each. As high as its lines.
class FactsView : public plix::NSView {
    PLIX_CLASS(FactsView, plix::NSView);

public:
    using plix::NSView::init;

    void setFacts(std::vector<FileFact>);
    std::vector<FileFact> const& facts() const { return m_facts; }
    /// Changes one value, or adds a line.
    void setFact(FileFact);

    bool isFlipped() const override { return true; }

private:
    void addLine(FileFact const&, float top);

    std::vector<FileFact> m_facts;
};

}
