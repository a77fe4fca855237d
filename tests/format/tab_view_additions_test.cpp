#include <plix/format/tab_view_additions.h>

#include <plix/platform/base/exceptions.h>

#include <tests/support/TabTest.h>

namespace plix {
namespace {

TEST_F(TabTest, IsFoundByItsIdentifier)
{
    EXPECT_EQ(tabViewItemWithIdentifier(*tabs, "Columns"), &item(1));
    item(2).setIdentifier(7);
    EXPECT_EQ(tabViewItemWithIdentifier(*tabs, 7), &item(2));
}

TEST_F(TabTest, AnUnknownIdentifierRaises)
{
    EXPECT_THROW(tabViewItemWithIdentifier(*tabs, "Elsewhere"), NSRangeException);
    EXPECT_THROW(tabViewItemWithIdentifier(*tabs, nullptr), NSRangeException);
    EXPECT_THROW(tabViewItemWithIdentifier(*make<NSTabView>(), "Columns"), NSRangeException);
}

}
}
