#include <plix/platform/foundation/NSCharacterSet.h>

#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <bitset>

namespace plix {

namespace {

constexpr char32_t lastCharacter = 0x10FFFF;

std::vector<NSCharacterSet::Range> merged(std::vector<NSCharacterSet::Range> ranges)
{
    std::erase_if(ranges, [](auto const& range) { return range.second < range.first || range.first > lastCharacter; });
    std::sort(ranges.begin(), ranges.end());
    std::vector<NSCharacterSet::Range> result;
    for (auto const& [first, last] : ranges) {
        if (!result.empty() && first <= result.back().second + 1)
            result.back().second = std::max(result.back().second, std::min(last, lastCharacter));
        else
            result.emplace_back(first, std::min(last, lastCharacter));
    }
    return result;
}

std::size_t find(std::string_view text, NSCharacterSet const& set, std::size_t byte, bool isMember)
{
    while (byte < text.size()) {
        auto const start = byte;
        if (set.characterIsMember(decodeUTF8(text, byte)) == isMember)
            return start;
    }
    return text.size();
}

}

struct NSCharacterSet::Members {
    explicit Members(std::vector<Range> given)
        : ranges(merged(std::move(given)))
    {
        for (auto const& [first, last] : ranges) {
            for (auto c = first; c <= last && c < ascii.size(); ++c)
                ascii.set(c);
        }
    }

    std::vector<Range> ranges;
    std::bitset<128> ascii;
};

NSCharacterSet::NSCharacterSet()
    : NSCharacterSet(std::make_shared<Members const>(std::vector<Range> {}))
{
}

NSCharacterSet::NSCharacterSet(std::shared_ptr<Members const> members)
    : m_members(std::move(members))
{
}

NSCharacterSet NSCharacterSet::characterSetWithRanges(std::vector<Range> ranges)
{
    return NSCharacterSet(std::make_shared<Members const>(std::move(ranges)));
}

NSCharacterSet NSCharacterSet::characterSetWithRange(char32_t first, char32_t last)
{
    return characterSetWithRanges({ { first, last } });
}

NSCharacterSet NSCharacterSet::characterSetWithCharactersInString(std::string_view characters)
{
    std::vector<Range> ranges;
    for (std::size_t byte = 0; byte < characters.size();) {
        auto const character = decodeUTF8(characters, byte);
        ranges.emplace_back(character, character);
    }
    return characterSetWithRanges(std::move(ranges));
}

NSCharacterSet const& NSCharacterSet::whitespaceCharacterSet()
{
    static auto const& s_set = *new NSCharacterSet(characterSetWithRanges({ { 0x09, 0x09 }, { 0x20, 0x20 }, { 0xA0, 0xA0 },
        { 0x1680, 0x1680 }, { 0x2000, 0x200A }, { 0x202F, 0x202F }, { 0x205F, 0x205F }, { 0x3000, 0x3000 } }));
    return s_set;
}

NSCharacterSet const& NSCharacterSet::whitespaceAndNewlineCharacterSet()
{
    static auto const& s_set = *new NSCharacterSet(
        whitespaceCharacterSet().setByUniting(characterSetWithRanges({ { 0x0A, 0x0D }, { 0x85, 0x85 }, { 0x2028, 0x2029 } })));
    return s_set;
}

bool NSCharacterSet::characterIsMember(char32_t character) const
{
    if (character < m_members->ascii.size())
        return m_members->ascii[character];
    auto const range = std::ranges::lower_bound(m_members->ranges, character, {}, &Range::second);
    return range != m_members->ranges.end() && range->first <= character;
}

NSCharacterSet NSCharacterSet::invertedSet() const
{
    std::vector<Range> gaps;
    char32_t next = 0;
    for (auto const& [first, last] : ranges()) {
        if (first > next)
            gaps.emplace_back(next, first - 1);
        next = last + 1;
    }
    if (next <= lastCharacter)
        gaps.emplace_back(next, lastCharacter);
    return characterSetWithRanges(std::move(gaps));
}

NSCharacterSet NSCharacterSet::setByUniting(NSCharacterSet const& other) const
{
    auto all = ranges();
    all.insert(all.end(), other.ranges().begin(), other.ranges().end());
    return characterSetWithRanges(std::move(all));
}

std::vector<NSCharacterSet::Range> const& NSCharacterSet::ranges() const
{
    return m_members->ranges;
}

std::size_t findCharacterInSet(std::string_view text, NSCharacterSet const& set, std::size_t byte)
{
    return find(text, set, byte, true);
}

std::size_t findCharacterNotInSet(std::string_view text, NSCharacterSet const& set, std::size_t byte)
{
    return find(text, set, byte, false);
}

std::string stringByTrimmingCharactersInSet(std::string_view text, NSCharacterSet const& set)
{
    auto const start = findCharacterNotInSet(text, set);
    auto end = start;
    for (auto byte = start; byte < text.size();) {
        if (!set.characterIsMember(decodeUTF8(text, byte)))
            end = byte;
    }
    return std::string(text.substr(start, end - start));
}

}
