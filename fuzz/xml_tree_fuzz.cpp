#include "fuzz.h"

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/CFXMLTree.h>

#include <set>

using namespace plix;

static constexpr XMLLimits limits { .bytes = 1 << 20, .depth = 64, .nodes = 10'000 };

static std::size_t checkedNodes(CFXMLTree const& tree, std::size_t depth)
{
    FUZZ_CHECK(depth <= limits.depth + 1);
    auto const& node = tree.node();
    FUZZ_CHECK(isValidUTF8(node.string));
    FUZZ_CHECK(!tree.isElement() || !node.string.empty());
    std::set<std::string> names;
    for (auto const& [name, value] : node.attributes)
        FUZZ_CHECK(names.insert(name).second && isValidUTF8(value));
    std::size_t nodes = 1;
    for (auto const& child : tree.children()) {
        FUZZ_CHECK(child->parent() == &tree);
        FUZZ_CHECK(tree.isElement() || tree.node().typeCode == CFXMLNodeTypeCode::Document);
        nodes += checkedNodes(*child, depth + 1);
    }
    return nodes;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    for (auto const whitespace : { XMLWhitespace::Kept, XMLWhitespace::Skipped }) {
        std::string error;
        auto const tree = CFXMLTree::treeWithData(std::span(data, size), error, whitespace, limits);
        FUZZ_CHECK((tree == nullptr) == !error.empty());
        if (!tree)
            continue;
        FUZZ_CHECK(tree->documentElement());
        FUZZ_CHECK(checkedNodes(*tree, 0) <= limits.nodes + 1);
        // The text, written again, is read as it is.
        auto const text = tree->text();
        auto const again = CFXMLTree::treeWithData("<r>" + xmlEscaped(text) + "</r>", error);
        FUZZ_CHECK(again && again->text() == text);
    }
    return 0;
}
