#include <tests/support/TextTest.h>

#include <plix/platform/base/utf16.h>

namespace plix {

std::size_t TextTest::byteOf(std::string const& text, long unit)
{
    return byteOffsetOfUnit(text, unit);
}

}
