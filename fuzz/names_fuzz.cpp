#include "fuzz.h"

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/collation.h>
#include <plix/platform/foundation/path_operations.h>

using namespace plix;

static void checkPath(std::string_view path)
{
    auto const components = pathComponents(path);
    auto const whole = pathWithComponents(components);
    FUZZ_CHECK(stringByAppendingPathComponent(stringByDeletingLastPathComponent(path), lastPathComponent(path)) == whole);
    FUZZ_CHECK(lastPathComponent(path).size() <= path.size());
    auto const extension = pathExtension(path);
    FUZZ_CHECK(extension.find('/') == std::string::npos && extension.find('.') == std::string::npos);
    FUZZ_CHECK(stringByDeletingPathExtension(path).size() <= path.size());
}

// Two names, with a zero byte between.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const input(reinterpret_cast<char const*>(data), size);
    auto const a = input.substr(0, input.find('\0'));
    auto const b = input.substr(std::min(a.size() + 1, input.size()));
    checkPath(a);
    checkPath(b);
    for (unsigned const options : { 0U, 1U, 2U, 64U, 65U, 67U }) {
        FUZZ_CHECK(compare(a, b, options) == -compare(b, a, options));
        FUZZ_CHECK(compare(a, a, options) == NSOrderedSame);
    }
    auto const x = utf16FromUTF8(a), y = utf16FromUTF8(b);
    FUZZ_CHECK(collateFileNames(x, y) == -collateFileNames(y, x));
    return 0;
}
