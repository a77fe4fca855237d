#include "fuzz.h"

#include <plix/system/xml_path.h>

using namespace plix;

// The first line is the path, the rest the document.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const input(reinterpret_cast<char const*>(data), size);
    auto const path = input.substr(0, input.find('\n'));
    auto const text = input.substr(std::min(path.size() + 1, size));
    std::string error;
    auto const document = CFXMLTree::treeWithData(text, error);
    FUZZ_CHECK(document || !error.empty());

    auto const found = TQXMLTreeAtPath(document, path);
    if (!found)
        return 0;
    FUZZ_CHECK(found == document || found->isElement());
    // The names on the way up are a path that leads down again, if no earlier elements bear them too.
    std::string back;
    for (auto* tree = found.get(); tree != document.get(); tree = tree->parent()) {
        FUZZ_CHECK(tree != nullptr);
        back.insert(0, "/" + tree->node().string);
    }
    FUZZ_CHECK(TQXMLTreeAtPath(document, back) == found);
    return 0;
}
