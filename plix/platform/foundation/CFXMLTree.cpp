#include <plix/platform/foundation/CFXMLTree.h>

#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(CFXMLTree)
{
}

std::string const* CFXMLNode::attribute(std::string_view name) const
{
    auto const found = std::ranges::find(attributes, name, &Attributes::value_type::first);
    return found == attributes.end() ? nullptr : &found->second;
}

bool CFXMLTree::init(CFXMLNode node)
{
    m_node = std::move(node);
    return true;
}

CFXMLTree& CFXMLTree::childAtIndex(long index) const
{
    if (index < 0 || index >= childCount())
        raiseRangeException("CFXMLTree::childAtIndex", index, childCount());
    return *m_children[static_cast<std::size_t>(index)];
}

void CFXMLTree::appendChild(Ref<CFXMLTree> child)
{
    child->m_parent = Weak<CFXMLTree>(*this);
    m_children.push_back(std::move(child));
}

CFXMLTree* CFXMLTree::childElement(std::string_view name) const
{
    auto const found = std::ranges::find_if(m_children, [&](auto const& child) { return child->isElement(name); });
    return found == m_children.end() ? nullptr : found->get();
}

CFXMLTree* CFXMLTree::documentElement() const
{
    auto const found = std::ranges::find_if(m_children, [](auto const& child) { return child->isElement(); });
    bool const isThere = m_node.typeCode == CFXMLNodeTypeCode::Document && found != m_children.end();
    return isThere ? found->get() : nullptr;
}

std::string CFXMLTree::text() const
{
    switch (m_node.typeCode) {
    case CFXMLNodeTypeCode::Text:
    case CFXMLNodeTypeCode::CDATASection:
    case CFXMLNodeTypeCode::Whitespace:
        return m_node.string;
    default:
        break;
    }
    std::string text;
    for (auto const& child : m_children)
        text += child->text();
    return text;
}

std::string xmlEscaped(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t byte = 0; byte < text.size();) {
        auto const character = decodeUTF8(text, byte);
        switch (character) {
        case U'&':
            escaped += "&amp;";
            break;
        case U'<':
            escaped += "&lt;";
            break;
        case U'>':
            escaped += "&gt;";
            break;
        case U'"':
            escaped += "&quot;";
            break;
        case U'\r':
            // As it stands, readers would take it for a line end.
            escaped += "&#13;";
            break;
        default:
            bool const isSayable
                = (character >= 0x20 || character == U'\t' || character == U'\n') && character != 0xFFFE && character != 0xFFFF;
            appendUTF8(escaped, isSayable ? character : U'\uFFFD');
        }
    }
    return escaped;
}

}
