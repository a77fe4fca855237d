#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/Weak.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plix {

/// By the platform's codes.
enum class CFXMLNodeTypeCode {
    Document = 1,
    Element = 2,
    ProcessingInstruction = 4,
    Comment = 5,
    Text = 6,
    CDATASection = 7,
    DocumentType = 11,
    Whitespace = 12,
};

/// What a node of a tree says.
struct PLIX_EXPORT CFXMLNode {
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    CFXMLNodeTypeCode typeCode { CFXMLNodeTypeCode::Document };
    /// An element's or instruction's name, the text of anything else; entities and character references are resolved.
    std::string string;
    /// What follows the name of a processing instruction.
    std::string instruction;
    /// An element's, in the order of the document; no name comes twice.
    Attributes attributes;

    /// Null where there is none of that name.
    std::string const* attribute(std::string_view name) const;
};

/// What a document from outside may have at most; one that has more is refused.
struct XMLLimits {
    std::size_t bytes { std::size_t { 32 } << 20 };
    std::size_t depth { 256 };
    std::size_t nodes { 2'000'000 };
};

/// Text nodes of nothing but blanks between elements.
enum class XMLWhitespace { Kept, Skipped };

/// A node of a document and what is in it. Each tree holds its children; the parent is held by nobody below it.
class PLIX_EXPORT CFXMLTree : public NSObject {
    PLIX_CLASS(CFXMLTree, NSObject);

public:
    bool init(CFXMLNode node);

    /// Reads a document in UTF-8, UTF-16 with a byte order mark, or ISO 8859-1 where it says so. Nothing outside the document is
    /// ever looked at, and no entity but XML's five is known. Null where it is no well-formed document or beyond the limits;
    /// `error` then says why, with the line.
    static Ref<CFXMLTree> treeWithData(
        std::span<std::uint8_t const> bytes, std::string& error, XMLWhitespace = XMLWhitespace::Kept, XMLLimits const& = {});
    static Ref<CFXMLTree> treeWithData(
        std::string_view text, std::string& error, XMLWhitespace = XMLWhitespace::Kept, XMLLimits const& = {});

    // The node and those below it, in the document's order.
    CFXMLNode const& node() const { return m_node; }
    bool isElement() const { return m_node.typeCode == CFXMLNodeTypeCode::Element; }
    bool isElement(std::string_view name) const { return isElement() && m_node.string == name; }
    std::vector<Ref<CFXMLTree>> const& children() const { return m_children; }
    long childCount() const { return static_cast<long>(m_children.size()); }
    /// Raises NSRangeException outside the children.
    CFXMLTree& childAtIndex(long index) const;
    /// Nil for a document, and once what was above is gone.
    CFXMLTree* parent() const { return m_parent.get(); }
    void appendChild(Ref<CFXMLTree> child);

    /// The first child element of that name; null without one.
    CFXMLTree* childElement(std::string_view name) const;
    /// The element of a document; null of anything else.
    CFXMLTree* documentElement() const;
    /// All text below, one after the other.
    std::string text() const;

private:
    CFXMLNode m_node;
    std::vector<Ref<CFXMLTree>> m_children;
    Weak<CFXMLTree> m_parent;
};

/// The text as XML writes it between tags and in attributes. Characters that XML cannot say become U+FFFD.
PLIX_EXPORT std::string xmlEscaped(std::string_view text);

}
