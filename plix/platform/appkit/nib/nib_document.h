#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

namespace plix {

struct NibKind;
struct NibObject;

/// A text of the document, and the key under which a table of localised texts may have another; without a key it stays.
struct NibText {
    std::string text;
    std::string key;
};

/// Looked for when the objects are made.
struct NibImageName {
    std::string name;
};

/// What an element says under a key of an archive.
struct NibValue {
    using Array = std::vector<NibValue>;
    std::variant<ObjectValue, NibText, NibImageName, NibObject const*, Array> value;
};

struct NibConnection {
    enum class Kind { outlet, action, doubleAction };
    Kind kind { Kind::outlet };
    /// The outlet's name or the action's selector.
    std::string name;
    NibObject const* destination { nullptr };
};

/// A property that the document's author added to an object.
struct NibProperty {
    std::string name;
    NibValue value;
};

/// An element that stands for an object, with everything that it says about it.
struct NibObject {
    NibKind const* kind { nullptr };
    /// Its place in NibDocument::objects.
    std::size_t index { 0 };
    /// Empty where it has none.
    std::string id;
    /// Its element and id, for messages.
    std::string label;
    /// The class that the author wants; empty for the kind's own.
    std::string customClass;
    std::vector<std::pair<std::string_view, NibValue>> values;
    std::vector<NibConnection> connections;
    std::vector<NibProperty> properties;

    /// Null where the element does not say it.
    NibValue const* value(std::string_view key) const;
};

/// An interface file, read and checked but with no object made yet: which objects there are, what is said about each, and how
/// they are connected. Never changes, and serves any number of loads.
struct NibDocument {
    std::deque<NibObject> objects;
    /// The objects of the first level, without the three that stand for the owner, the first responder and the application.
    std::vector<NibObject const*> topLevelObjects;
    std::unordered_map<std::string, NibObject*> objectOfID;
    /// What was met and is not known, each once.
    std::vector<std::string> warnings;

    /// Null where the bytes are no document of version 3, or a broken one; `problem` then says why, with the line where there is
    /// one.
    static std::unique_ptr<NibDocument const> read(std::span<std::uint8_t const> bytes, std::string& problem);
};

}
