#include <plix/system/xml_path.h>

#include <plix/platform/foundation/path_operations.h>

namespace plix {

Ref<CFXMLTree> TQXMLTreeAtPath(Ref<CFXMLTree> const& tree, std::optional<std::string_view> path)
{
    if (!tree || !path)
        return tree;
    auto* found = tree.get();
    for (auto const& component : pathComponents(*path)) {
        if (component == "/") // only in front and at the end
            continue;
        found = found->childElement(component);
        if (!found)
            return nullptr;
    }
    return found;
}

}
