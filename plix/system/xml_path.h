#pragma once

#include <plix/platform/foundation/CFXMLTree.h>

#include <optional>
#include <string_view>

namespace plix {

/// The element below a tree that element names lead to, "servers/server/name"; at each level the first of the name is followed. A
/// slash in front changes nothing, and no path or "/" gives the tree itself. Nil for nil, and where an element is not there.
PLIX_EXPORT Ref<CFXMLTree> TQXMLTreeAtPath(Ref<CFXMLTree> const& tree, std::optional<std::string_view> path);

}
