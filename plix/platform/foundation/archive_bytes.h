#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace plix {

/// An archive as a tree of plain values, between its bytes and its objects. The format stands at NSArchiver.

struct ArchiveReference {
    std::uint32_t index { 0 };
};

struct ArchiveNode {
    using Array = std::vector<ArchiveNode>;
    using Dictionary = std::map<std::string, ArchiveNode>;
    /// An ObjectValue holds no array, dictionary or object here, but for NSData.
    std::variant<ObjectValue, ArchiveReference, Array, Dictionary> value;
};

struct ArchiveFrame {
    std::string className;
    std::vector<ArchiveNode> sequence;
    std::map<std::string, ArchiveNode> keyed;
};

struct ArchiveTree {
    std::vector<ArchiveFrame> objects;
    ArchiveNode root;
};

std::vector<std::uint8_t> archiveBytes(ArchiveTree const&);
/// Nothing where the bytes are no whole archive within the bounds, and why. Every reference points to an object of the tree.
std::optional<ArchiveTree> archiveTree(std::span<std::uint8_t const>, std::string& problem);

}
