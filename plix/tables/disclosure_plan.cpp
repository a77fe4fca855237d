#include <plix/tables/disclosure_plan.h>

namespace plix {

Point disclosureOrigin(Rect firstCell, Size image)
{
    auto const cut = [](float value) { return static_cast<float>(static_cast<int>(value)); };
    return { cut(firstCell.x - image.width), firstCell.y + cut((firstCell.height - image.height) * 0.5F) };
}

}
