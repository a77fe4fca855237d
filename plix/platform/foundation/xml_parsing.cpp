#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/CFXMLTree.h>
#include <plix/platform/foundation/strings_file.h>

#include <algorithm>
#include <charconv>
#include <optional>

#include <pugixml.hpp>

namespace plix {

namespace {

// As a fragment, because text outside the element would be dropped without a word otherwise.
constexpr auto parserOptions = (pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment) & ~pugi::parse_escapes;

/// Why a document is refused and where, in bytes.
struct Refusal {
    std::string reason;
    std::ptrdiff_t offset { -1 };
};

std::string lowercase(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

/// The encoding that the declaration at the document's start names; "utf-8" without one.
std::string declaredEncoding(std::string_view text)
{
    auto const declaration = text.starts_with("<?xml") ? text.substr(0, text.find("?>")) : std::string_view {};
    auto const at = declaration.find("encoding");
    if (at == std::string_view::npos)
        return "utf-8";
    auto const open = declaration.find_first_of("\"'", at);
    auto const close = open == std::string_view::npos ? open : declaration.find(declaration[open], open + 1);
    return close == std::string_view::npos ? std::string() : lowercase(declaration.substr(open + 1, close - open - 1));
}

std::optional<std::string> textOfBytes(std::span<std::uint8_t const> bytes, Refusal& refusal)
{
    auto const startsWith = [&](std::initializer_list<int> mark) {
        return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
    };
    if (startsWith({ 0xFE, 0xFF }) || startsWith({ 0xFF, 0xFE }))
        return textOfFile(bytes);
    if (startsWith({ 0xEF, 0xBB, 0xBF }))
        bytes = bytes.subspan(3);
    std::string text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    auto const encoding = declaredEncoding(text);
    if (encoding == "iso-8859-1") {
        std::string converted;
        for (auto const byte : bytes)
            appendUTF8(converted, byte);
        return converted;
    }
    if (encoding != "utf-8" && encoding != "utf8" && encoding != "us-ascii") {
        refusal = { "its encoding \"" + encoding + "\" is not known" };
        return {};
    }
    if (!isValidUTF8(text)) {
        refusal = { "it is not UTF-8" };
        return {};
    }
    return text;
}

bool isXMLCharacter(char32_t c)
{
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD)
        || (c >= 0x10000 && c <= 0x10FFFF);
}

/// The character that `reference` (what stands between & and ;) is; 0 where it is none.
char32_t characterOfReference(std::string_view reference)
{
    struct {
        std::string_view name;
        char32_t character;
    } static constexpr known[] = { { "amp", U'&' }, { "lt", U'<' }, { "gt", U'>' }, { "quot", U'"' }, { "apos", U'\'' } };
    for (auto const& entity : known) {
        if (entity.name == reference)
            return entity.character;
    }
    if (!reference.starts_with('#') || reference.size() < 2)
        return 0;
    bool const isHexadecimal = reference[1] == 'x';
    auto const digits = reference.substr(isHexadecimal ? 2 : 1);
    std::uint32_t code = 0;
    auto const result = std::from_chars(digits.data(), digits.data() + digits.size(), code, isHexadecimal ? 16 : 10);
    bool const isWhole = result.ec == std::errc {} && result.ptr == digits.data() + digits.size();
    return isWhole && isXMLCharacter(code) ? static_cast<char32_t>(code) : 0;
}

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

class TreeBuilder {
public:
    TreeBuilder(XMLWhitespace whitespace, XMLLimits const& limits)
        : m_whitespace(whitespace)
        , m_limits(limits)
    {
    }

    /// Null where the document is refused.
    Ref<CFXMLTree> build(pugi::xml_node document)
    {
        auto tree = make<CFXMLTree>(CFXMLNode {});
        std::size_t depth = 0;
        CFXMLTree* parent = tree.get();
        for (auto node = document.first_child(); node;) {
            auto made = converted(node, depth == 0);
            if (isRefused())
                return nullptr;
            auto* const child = made.get();
            if (made)
                parent->appendChild(std::move(made));
            if (node.first_child() && child) {
                if (++depth > m_limits.depth) {
                    refuse(node, "its elements are nested too deep");
                    return nullptr;
                }
                parent = child;
                node = node.first_child();
                continue;
            }
            while (!node.next_sibling() && depth > 0) {
                node = node.parent();
                parent = parent->parent();
                --depth;
            }
            node = node.next_sibling();
        }
        if (m_roots == 0)
            refuse(document, "it has no element");
        return isRefused() ? nullptr : tree;
    }
    Refusal const& refusal() const { return m_refusal; }

private:
    bool isRefused() const { return !m_refusal.reason.empty(); }
    void refuse(pugi::xml_node node, std::string reason)
    {
        if (!isRefused())
            m_refusal = { std::move(reason), node.offset_debug() };
    }

    Ref<CFXMLTree> converted(pugi::xml_node source, bool isTop)
    {
        if (++m_nodes > m_limits.nodes) {
            refuse(source, "it has too many nodes");
            return nullptr;
        }
        CFXMLNode node;
        switch (source.type()) {
        case pugi::node_element:
            return element(source, isTop);
        case pugi::node_pcdata:
            if (isTop || (m_whitespace == XMLWhitespace::Skipped && isBlank(source.value())))
                return outsideElements(source);
            node.typeCode = isBlank(source.value()) ? CFXMLNodeTypeCode::Whitespace : CFXMLNodeTypeCode::Text;
            node.string = resolved(source, source.value());
            break;
        case pugi::node_cdata:
            if (isTop)
                return outsideElements(source);
            node.typeCode = CFXMLNodeTypeCode::CDATASection;
            node.string = source.value();
            break;
        case pugi::node_comment:
            node.typeCode = CFXMLNodeTypeCode::Comment;
            node.string = source.value();
            break;
        case pugi::node_pi:
            node.typeCode = CFXMLNodeTypeCode::ProcessingInstruction;
            node.string = source.name();
            node.instruction = source.value();
            break;
        case pugi::node_doctype:
            node.typeCode = CFXMLNodeTypeCode::DocumentType;
            node.string = source.value();
            break;
        default:
            return nullptr;
        }
        return make<CFXMLTree>(std::move(node));
    }

    Ref<CFXMLTree> outsideElements(pugi::xml_node source)
    {
        if (source.type() == pugi::node_cdata || !isBlank(source.value()))
            refuse(source, "there is text outside its element");
        return nullptr;
    }

    Ref<CFXMLTree> element(pugi::xml_node source, bool isTop)
    {
        if (isTop && ++m_roots > 1)
            refuse(source, "it has more than one element at the top");
        CFXMLNode node { CFXMLNodeTypeCode::Element, source.name(), {}, {} };
        for (auto const attribute : source.attributes())
            node.attributes.emplace_back(attribute.name(), resolved(source, attribute.value()));
        std::vector<std::string_view> names;
        for (auto const& attribute : node.attributes)
            names.push_back(attribute.first);
        std::ranges::sort(names);
        if (std::ranges::adjacent_find(names) != names.end())
            refuse(source, "an element has an attribute twice");
        return make<CFXMLTree>(std::move(node));
    }

    std::string resolved(pugi::xml_node source, std::string_view text)
    {
        std::string result;
        while (!text.empty()) {
            auto const mark = std::min(text.find('&'), text.size());
            result += text.substr(0, mark);
            text.remove_prefix(mark);
            if (text.empty())
                break;
            auto const end = text.find(';');
            auto const character = end == std::string_view::npos ? 0 : characterOfReference(text.substr(1, end - 1));
            if (!character) {
                refuse(source, "it refers to an entity that is not known");
                break;
            }
            appendUTF8(result, character);
            text.remove_prefix(end + 1);
        }
        return result;
    }

    XMLWhitespace m_whitespace;
    XMLLimits const& m_limits;
    Refusal m_refusal;
    std::size_t m_nodes { 0 };
    std::size_t m_roots { 0 };
};

std::string described(Refusal const& refusal, std::string_view text)
{
    if (refusal.offset < 0)
        return refusal.reason;
    auto const before = text.substr(0, static_cast<std::size_t>(refusal.offset));
    return "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ": " + refusal.reason;
}

bool hasOnlyXMLCharacters(std::string_view text, Refusal& refusal)
{
    for (std::size_t byte = 0; byte < text.size();) {
        auto const start = byte;
        if (!isXMLCharacter(decodeUTF8(text, byte))) {
            refusal = { "it holds a character that XML does not allow", static_cast<std::ptrdiff_t>(start) };
            return false;
        }
    }
    return true;
}

Ref<CFXMLTree> parsed(std::string const& text, XMLWhitespace whitespace, XMLLimits const& limits, Refusal& refusal)
{
    pugi::xml_document document;
    auto const result = document.load_buffer(text.data(), text.size(), parserOptions, pugi::encoding_utf8);
    if (!result) {
        auto reason = lowercase(result.description());
        refusal = { std::move(reason), result.status == pugi::status_no_document_element ? -1 : result.offset };
        return nullptr;
    }
    TreeBuilder builder(whitespace, limits);
    auto tree = builder.build(document);
    refusal = builder.refusal();
    return tree;
}

}

Ref<CFXMLTree> CFXMLTree::treeWithData(
    std::span<std::uint8_t const> bytes, std::string& error, XMLWhitespace whitespace, XMLLimits const& limits)
{
    Refusal refusal;
    if (bytes.size() > limits.bytes) {
        error = "it is too large";
        return nullptr;
    }
    auto const text = textOfBytes(bytes, refusal);
    Ref<CFXMLTree> tree;
    if (text && hasOnlyXMLCharacters(*text, refusal))
        tree = parsed(*text, whitespace, limits, refusal);
    if (!tree)
        error = described(refusal, text ? *text : std::string());
    return tree;
}

Ref<CFXMLTree> CFXMLTree::treeWithData(std::string_view text, std::string& error, XMLWhitespace whitespace, XMLLimits const& limits)
{
    return treeWithData(std::span(reinterpret_cast<std::uint8_t const*>(text.data()), text.size()), error, whitespace, limits);
}

}
