#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <iterator>

namespace plix {

PLIX_DESCRIBE(NSMutableAttributedString)
{
}

NSRange NSMutableAttributedString::characterRange(char const* operation, NSRange range) const
{
    checkRange(operation, range);
    auto const start = [this](long unit) { return m_positions.unitOfByte(m_text, m_positions.byteOfUnit(m_text, unit)); };
    long const first = start(range.location);
    return { first, start(range.end()) - first };
}

std::size_t NSMutableAttributedString::splitRunsAt(long index)
{
    long start = 0;
    for (std::size_t run = 0; run < m_runs.size(); ++run) {
        if (index == start)
            return run;
        long const length = m_runs[run].length;
        if (index < start + length) {
            Run const rest { start + length - index, m_runs[run].attributes };
            m_runs[run].length = index - start;
            m_runs.insert(m_runs.begin() + static_cast<std::ptrdiff_t>(run) + 1, rest);
            return run + 1;
        }
        start += length;
    }
    return m_runs.size();
}

/// Joins equal neighbours among the runs from one before `from` up to `to`.
void NSMutableAttributedString::joinRuns(std::size_t from, std::size_t to)
{
    std::size_t kept = from > 0 ? from - 1 : 0;
    to = std::min(to + 1, m_runs.size());
    if (kept >= to)
        return;
    for (auto run = kept + 1; run < to; ++run) {
        auto& before = m_runs[kept];
        if (before.attributes == m_runs[run].attributes || *before.attributes == *m_runs[run].attributes)
            before.length += m_runs[run].length;
        else if (++kept != run)
            m_runs[kept] = std::move(m_runs[run]);
    }
    m_runs.erase(m_runs.begin() + static_cast<std::ptrdiff_t>(kept) + 1, m_runs.begin() + static_cast<std::ptrdiff_t>(to));
}

void NSMutableAttributedString::replaceTextAndRuns(NSRange range, std::string_view text, std::vector<Run> runs)
{
    auto const firstByte = m_positions.byteOfUnit(m_text, range.location);
    auto const lastByte = m_positions.byteOfUnit(m_text, range.end());
    long const oldLength = length();
    auto const firstRun = splitRunsAt(range.location);
    auto const lastRun = splitRunsAt(range.end());
    auto const at = [this](std::size_t run) { return m_runs.begin() + static_cast<std::ptrdiff_t>(run); };
    auto const added = runs.size();
    m_runs.erase(at(firstRun), at(lastRun));
    m_runs.insert(at(firstRun), std::make_move_iterator(runs.begin()), std::make_move_iterator(runs.end()));
    joinRuns(firstRun, firstRun + added);
    m_text.replace(firstByte, lastByte - firstByte, text);
    m_positions.textChangedFrom(firstByte);
    long const change = length() - oldLength;
    if (range.length > 0 || !text.empty())
        didEdit(editedCharacters | editedAttributes, { range.location, range.length + change }, change);
}

void NSMutableAttributedString::replaceCharactersInRange(NSRange range, std::string_view text)
{
    range = characterRange("replaceCharactersInRange", range);
    std::string const valid = validUTF8(text);
    std::vector<Run> runs;
    if (!valid.empty()) {
        long start = 0;
        // What is replaced gives its attributes; where nothing is, the character before.
        long const source = range.length > 0 ? range.location : range.location - 1;
        runs.push_back({ utf16Length(valid), m_runs.empty() ? nullptr : m_runs[runAt(std::max(source, 0L), start)].attributes });
        if (!runs[0].attributes)
            runs[0].attributes = std::make_shared<Attributes const>();
    }
    replaceTextAndRuns(range, valid, std::move(runs));
}

void NSMutableAttributedString::replaceCharactersInRange(NSRange range, NSAttributedString const& string)
{
    range = characterRange("replaceCharactersInRange", range);
    // The string may be this one.
    std::string const text = string.string();
    replaceTextAndRuns(range, text, string.runs());
}

void NSMutableAttributedString::deleteCharactersInRange(NSRange range)
{
    replaceCharactersInRange(range, std::string_view {});
}

void NSMutableAttributedString::insertAttributedString(NSAttributedString const& string, long atIndex)
{
    replaceCharactersInRange({ atIndex, 0 }, string);
}

void NSMutableAttributedString::appendAttributedString(NSAttributedString const& string)
{
    replaceCharactersInRange({ length(), 0 }, string);
}

void NSMutableAttributedString::setAttributedString(NSAttributedString const& string)
{
    replaceCharactersInRange({ 0, length() }, string);
}

template <typename Change>
void NSMutableAttributedString::changeAttributes(char const* operation, NSRange range, Change const& change)
{
    range = characterRange(operation, range);
    if (range.length == 0)
        return;
    auto const first = splitRunsAt(range.location);
    auto const last = splitRunsAt(range.end());
    for (auto run = first; run < last; ++run) {
        auto& attributes = m_runs[run].attributes;
        auto changed = std::make_shared<Attributes>(*attributes);
        change(*changed);
        attributes = std::move(changed);
    }
    joinRuns(first, last);
    didEdit(editedAttributes, range, 0);
}

void NSMutableAttributedString::setAttributes(Attributes const& attributes, NSRange range)
{
    changeAttributes("setAttributes", range, [&](Attributes& changed) { changed = attributes; });
}

void NSMutableAttributedString::addAttribute(std::string_view name, ObjectValue const& value, NSRange range)
{
    changeAttributes("addAttribute", range, [&](Attributes& changed) { changed[std::string(name)] = value; });
}

void NSMutableAttributedString::addAttributes(Attributes const& attributes, NSRange range)
{
    changeAttributes("addAttributes", range, [&](Attributes& changed) {
        for (auto const& [name, value] : attributes)
            changed[name] = value;
    });
}

void NSMutableAttributedString::removeAttribute(std::string_view name, NSRange range)
{
    changeAttributes("removeAttribute", range, [&](Attributes& changed) { changed.erase(std::string(name)); });
}

}
