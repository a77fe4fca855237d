#include <tests/support/TextTest.h>

#include <plix/platform/appkit/field_editing.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

namespace plix {
namespace {

using NSTextField_ = TextTest;

TEST_F(NSTextField_, TypesIntoTheFieldThatWasClicked)
{
    clickCenter(*field);
    type("hello");
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(field->stringValue(), "hello");
}

}
}
