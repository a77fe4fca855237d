#include <plix/platform/appkit/nib/nib_document.h>

#include <plix/platform/appkit/nib/NibParser.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/foundation/CFXMLTree.h>

#include <algorithm>

namespace plix {

namespace {

constexpr XMLLimits limits { std::size_t { 16 } << 20, 256, 1'000'000 };

}

NibValue const* NibObject::value(std::string_view key) const
{
    auto const found = std::ranges::find(values, key, [](auto const& entry) { return entry.first; });
    return found == values.end() ? nullptr : &found->second;
}

std::unique_ptr<NibDocument const> NibDocument::read(std::span<std::uint8_t const> bytes, std::string& problem)
{
    registerNibClasses();
    auto const tree = CFXMLTree::treeWithData(bytes, problem, XMLWhitespace::Kept, limits);
    if (!tree)
        return nullptr;
    auto document = std::make_unique<NibDocument>();
    NibParser parser(*document);
    parser.parse(*tree->documentElement());
    problem = parser.problem();
    if (!problem.empty())
        return nullptr;
    return document;
}

}
