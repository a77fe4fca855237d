#include <tests/support/TextTest.h>

#include <plix/platform/base/utf16.h>

namespace plix {

std::size_t TextTest::byteOf(std::string const& text, long unit)
{
    return byteOffsetOfUnit(text, unit);
}

TextTest::Marked TextTest::parse(std::string_view marked)
{
    Marked result;
    auto const first = marked.find_first_of("|[");
    if (first == std::string_view::npos)
        return { std::string(marked), { NSNotFound, 0 } };
    result.text = marked.substr(0, first);
    long const start = utf16Length(result.text);
    if (marked[first] == '|') {
        result.text += marked.substr(first + 1);
        result.selection = { start, 0 };
        return result;
    }
    auto const end = marked.find(']', first);
    result.selection = { start, utf16Length(marked.substr(first + 1, end - first - 1)) };
    result.text += marked.substr(first + 1, end - first - 1);
    result.text += marked.substr(end + 1);
    return result;
}

}
