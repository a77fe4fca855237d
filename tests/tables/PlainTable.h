#pragma once

#include <plix/platform/graphics/NSBezierPath.h>
#include <tests/support/StyledTableTest.h>

#include <cmath>

namespace plix {

/// The table of StyledTableTest, and what it looks like.
class PlainTable : public StyledTableTest {
protected:
    void TearDown() override { NSBezierPath::setDefaultLineWidth(1); }
    void activate()
    {
        window->makeKeyWindow();
        window->makeFirstResponder(table.get());
    }
    ColorComponents colorAt(Ref<NSBitmapImageRep> const& shown, Point point) const
    {
        auto const place = inWindow(*table, { point.x, point.y, 1, 1 });
        return Pixels(shown).colorAt(place.x, place.y);
    }
    void hideTexts()
    {
        source->value = [](NSTableColumn&, long) { return ObjectValue(""); };
        table->reloadData();
    }
    static testing::AssertionResult near(ColorComponents const& a, ColorComponents const& b, float tolerance = 0.02F)
    {
        bool const isNear = std::abs(a.red - b.red) < tolerance && std::abs(a.green - b.green) < tolerance
            && std::abs(a.blue - b.blue) < tolerance;
        return isNear ? testing::AssertionSuccess()
                      : testing::AssertionFailure()
                << a.red << " " << a.green << " " << a.blue << " instead of " << b.red << " " << b.green << " " << b.blue;
    }
};

}
