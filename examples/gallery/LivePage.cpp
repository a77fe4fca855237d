#include "LivePage.h"

#include <cmath>

namespace gallery {

using namespace plix;

Ref<LivePage> LivePage::page(Ref<Transcript> const& transcript)
{
    auto const size = transcript->frame().size();
    auto page = make<LivePage>(Rect { 0, 0, size.width, size.height + rowHeight + 12 });
    transcript->setFrameOrigin({});
    page->addSubview(*transcript);
    return page;
}

void LivePage::addControl(Ref<NSView> const& control)
{
    float const top = bounds().height - Transcript::margin - rowHeight;
    control->setFrameOrigin({ m_x, top + std::floor((rowHeight - control->frame().height) / 2) });
    addSubview(*control);
    m_x = control->frame().maxX() + 10;
}

}
