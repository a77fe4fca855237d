#include "fuzz.h"

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/strings_file.h>

using namespace plix;

static std::string quoted(std::string const& text)
{
    std::string result = "\"";
    for (char const c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '"';
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string error;
    auto const table = parseStringsFile({ data, size }, error);
    FUZZ_CHECK(table.has_value() == error.empty());
    if (!table)
        return 0;
    std::string written;
    for (auto const& [key, value] : *table) {
        FUZZ_CHECK(isValidUTF8(key) && isValidUTF8(value));
        written += quoted(key) + " = " + quoted(value) + ";\n";
    }
    FUZZ_CHECK(parseStringsFile({ reinterpret_cast<std::uint8_t const*>(written.data()), written.size() }, error) == table);
    return 0;
}
