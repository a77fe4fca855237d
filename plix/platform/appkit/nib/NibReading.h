#pragma once

#include <plix/platform/appkit/nib/nib_document.h>
#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/graphics/geometry.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class CFXMLTree;
class NibParser;

/// A word of an attribute and what it means.
struct NibWord {
    std::string_view word;
    int value;
};

/// One element that stands for an object, as those see it who read its kind: an operation takes an attribute, or the child element
/// with that key, and keeps what it says under a key of the archive. What the element does not say is left out. A value of another
/// type refuses the document; an unknown word is warned of and left out.
class NibReading {
public:
    /// The path is what the keys of its localised texts begin with.
    NibReading(NibParser&, CFXMLTree const& element, NibObject&, std::string path);

    bool has(std::string_view attribute) const;
    /// "" without it.
    std::string_view word(std::string_view attribute) const;

    void flag(std::string_view attribute, std::string_view key);
    void integer(std::string_view attribute, std::string_view key);
    void number(std::string_view attribute, std::string_view key);
    /// The number of the child element with that key, an `integer` or `real`.
    void numberOf(std::string_view child, std::string_view key);
    /// An attribute, or a child element `string` with that key. Localised.
    void text(std::string_view attribute, std::string_view key);
    /// The same for an attribute that tables of texts call otherwise.
    void text(std::string_view attribute, std::string_view key, std::string_view translatedAs);
    /// The same for what is the same in every language.
    void code(std::string_view attribute, std::string_view key);
    void choice(std::string_view attribute, std::string_view key, std::span<NibWord const> words);
    /// The sum of the words that a child element says YES to. Other words are passed over.
    void mask(std::string_view child, std::string_view key, std::span<NibWord const> words);
    void rect(std::string_view child, std::string_view key);
    void point(std::string_view child, std::string_view key);
    void size(std::string_view child, std::string_view key);
    /// As the text "{location, length}".
    void range(std::string_view child, std::string_view key);
    void font(std::string_view child, std::string_view key);
    /// An element `nil` with that key gives nil.
    void color(std::string_view child, std::string_view key);
    void image(std::string_view attribute, std::string_view key);
    void attributedText(std::string_view child, std::string_view key);
    /// The child element with that key, an object of that role.
    void object(std::string_view child, std::string_view key, std::string_view role);
    /// What is in the child element of that name, objects of that role.
    void objects(std::string_view list, std::string_view key, std::string_view role);
    /// The object whose id the attribute is, of that role.
    void reference(std::string_view attribute, std::string_view key, std::string_view role);

    std::optional<bool> flagValue(std::string_view attribute);
    bool flagValue(std::string_view attribute, bool otherwise) { return flagValue(attribute).value_or(otherwise); }
    std::optional<long> integerValue(std::string_view attribute);
    std::optional<double> numberValue(std::string_view attribute);
    std::optional<unsigned> maskValue(std::string_view child, std::span<NibWord const> words);
    std::optional<std::string> textValue(std::string_view attribute);
    std::optional<Rect> rectValue(std::string_view child);
    std::optional<Size> sizeValue(std::string_view child);
    /// The texts in the elements `string` of the child element of that name.
    std::vector<std::string> strings(std::string_view list);
    /// Reads the child element with that key, where there is one, as something that is no object.
    void part(std::string_view child, FunctionRef<void(NibReading&)>);
    /// The same for each element in the child element of that name.
    void parts(std::string_view list, FunctionRef<void(NibReading&)>);

    NibObject& object() { return *m_object; }
    void set(std::string_view key, NibValue value);
    void set(std::string_view key, ObjectValue value) { set(key, NibValue { std::move(value) }); }
    /// What is kept under the key, or nil.
    NibValue value(std::string_view key) const;
    void warn(std::string const& what);
    /// Whether any operation has looked at this child of the element.
    bool hasRead(CFXMLTree const& child) const;

private:
    CFXMLTree const* childWithKey(std::string_view key);
    /// Likewise; an element `nil` sets nil and is none.
    CFXMLTree const* childUnlessNil(std::string_view child, std::string_view key);
    CFXMLTree const* childNamed(std::string_view name);
    template <typename Value>
    std::optional<Value> plain(std::string_view attribute, std::optional<Value> (*read)(std::string_view));
    /// Numbers of a child element, each there and within bounds; nothing without the element.
    std::optional<std::vector<float>> numbers(std::string_view child, std::span<std::string_view const> attributes);
    void refuse(std::string const& reason);
    std::string keyFor(std::string_view name) const;

    NibParser* m_parser;
    CFXMLTree const* m_element;
    NibObject* m_object;
    std::string m_path;
    std::vector<CFXMLTree const*> m_read;
};

}
