#include <plix/inspector/view_fields.h>

#include <plix/inspector/event_log.h>
#include <plix/platform/appkit/view_geometry.h>
#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <array>
#include <utility>

namespace plix {

namespace {

constexpr std::size_t longestTitle = 40;
constexpr std::size_t longestValue = 200;

/// On one line, no longer than so many characters.
std::string shortened(std::string const& text, std::size_t longest)
{
    std::string shown;
    std::size_t count = 0;
    for (std::size_t byte = 0; byte < text.size(); ++count) {
        if (count == longest)
            return shown + "…";
        auto const start = byte;
        auto const character = decodeUTF8(text, byte);
        if (character < U' ')
            shown += ' ';
        else
            shown.append(text, start, byte - start);
    }
    return shown;
}

bool isOfIdentifier(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') || byte == '_'
        || byte == '~';
}

/// What stands in brackets at the end of a text: arguments of functions and templates, and functions without a name.
void dropBrackets(std::string& text)
{
    auto const isClosing = [](char byte) { return byte == ')' || byte == '>' || byte == '}'; };
    auto const isOpening = [](char byte) { return byte == '(' || byte == '<' || byte == '{'; };
    while (!text.empty() && isClosing(text.back())) {
        int depth = 0;
        do {
            depth += isClosing(text.back()) ? 1 : isOpening(text.back()) ? -1 : 0;
            text.pop_back();
        } while (depth > 0 && !text.empty());
    }
}

std::string yesOrNo(bool value)
{
    return value ? "Yes" : "No";
}

bool findPath(ViewNode const& node, std::uint64_t id, std::vector<ViewNode const*>& path)
{
    path.push_back(&node);
    if (node.id == id)
        return true;
    for (auto const& child : node.children) {
        if (findPath(child, id, path))
            return true;
    }
    path.pop_back();
    return false;
}

}

std::string shortTypeName(std::string_view name)
{
    static constexpr std::string_view scope = "::";
    static constexpr std::string_view constant = " const";
    std::string shown;
    for (std::size_t at = 0; at < name.size();) {
        if (name.substr(at, scope.size()) != scope) {
            shown += name[at++];
            continue;
        }
        at += scope.size();
        if (shown.ends_with(constant))
            shown.resize(shown.size() - constant.size());
        dropBrackets(shown);
        while (!shown.empty() && isOfIdentifier(shown.back()))
            shown.pop_back();
    }
    return shown;
}

std::vector<ViewNode const*> pathToView(ViewNode const& top, std::uint64_t id)
{
    std::vector<ViewNode const*> path;
    findPath(top, id, path);
    return path;
}

std::string nodeTitle(ViewNode const& node)
{
    return node.title.empty() ? node.className : node.className + " \"" + shortened(node.title, longestTitle) + "\"";
}

std::string frameText(Rect rect)
{
    return shortNumber(rect.x) + ", " + shortNumber(rect.y) + "   " + shortNumber(rect.width) + " × " + shortNumber(rect.height);
}

std::string autoresizingText(unsigned mask)
{
    static constexpr std::array<std::pair<unsigned, char const*>, 6> names { { { NSViewMinXMargin, "Min X Margin" },
        { NSViewWidthSizable, "Width" }, { NSViewMaxXMargin, "Max X Margin" }, { NSViewMinYMargin, "Min Y Margin" },
        { NSViewHeightSizable, "Height" }, { NSViewMaxYMargin, "Max Y Margin" } } };
    std::string text;
    for (auto const& [bit, name] : names) {
        if (mask & bit)
            text += (text.empty() ? "" : ", ") + std::string(name);
    }
    return text.empty() ? "None" : text;
}

std::vector<FieldRow> fieldRows(ViewFacts const& facts)
{
    std::vector<FieldRow> rows {
        { "Class", facts.className },
        { "Frame", frameText(facts.frame) },
        { "Bounds", frameText(facts.bounds) },
        { "In window", frameText(facts.inWindow) },
        { "Hidden", yesOrNo(facts.isHidden) },
        { "Flipped", yesOrNo(facts.isFlipped) },
        { "Opaque", yesOrNo(facts.isOpaque) },
    };
    if (facts.isEnabled)
        rows.push_back({ "Enabled", yesOrNo(*facts.isEnabled) });
    rows.push_back({ "First responder", yesOrNo(facts.isFirstResponder) });
    rows.push_back({ "Tag", std::to_string(facts.tag) });
    rows.push_back({ "Tool tip", shortened(facts.toolTip, longestValue) });
    rows.push_back({ "Autoresizing", autoresizingText(facts.autoresizingMask) });
    rows.push_back({ "Next key view", facts.nextKeyView.empty() ? "None" : facts.nextKeyView });
    if (!facts.cell)
        return rows;
    rows.push_back({ "Cell", facts.cell->className });
    rows.push_back({ "Cell value", shortened(facts.cell->value, longestValue) });
    rows.push_back({ "Cell state", facts.cell->state == 0 ? "Off" : facts.cell->state < 0 ? "Mixed" : "On" });
    rows.push_back(
        { "Cell font", facts.cell->fontName.empty() ? "None" : facts.cell->fontName + " " + shortNumber(facts.cell->fontSize) });
    return rows;
}

}
