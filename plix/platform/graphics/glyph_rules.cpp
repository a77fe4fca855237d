#include <plix/platform/graphics/glyph_rules.h>

#include <algorithm>
#include <unordered_map>

namespace plix {

namespace {

using Slots = GlyphRules::Slots;

constexpr unsigned ignoresBaseGlyphs = 2;
constexpr unsigned ignoresLigatures = 4;
// A rule is a handful of glyphs; what claims more is damaged, or nothing that plain text is worth waiting for.
constexpr long largestTotalWork = 4'000'000;

struct Damaged { };

/// A place in a table. Reading beyond the table's end throws.
class TableReader {
public:
    TableReader(std::span<std::uint8_t const> table, long& work)
        : m_table(table)
        , m_work(&work)
    {
    }
    unsigned u16(std::size_t offset) const
    {
        if (--*m_work < 0 || m_start + offset + 2 > m_table.size())
            throw Damaged {};
        return static_cast<unsigned>(m_table[m_start + offset]) << 8U | m_table[m_start + offset + 1];
    }
    std::size_t u32(std::size_t offset) const { return static_cast<std::size_t>(u16(offset)) << 16U | u16(offset + 2); }
    TableReader at(std::size_t offset) const
    {
        TableReader moved = *this;
        moved.m_start += offset;
        return moved;
    }
    /// What the 16-bit offset at this place leads to.
    TableReader follow(std::size_t offset) const { return at(u16(offset)); }

private:
    std::span<std::uint8_t const> m_table;
    std::size_t m_start { 0 };
    long* m_work;
};

class RuleReader {
public:
    RuleReader(std::span<std::uint32_t const> glyphs, GlyphRules& rules)
        : m_rules(rules)
    {
        for (std::size_t slot = 0; slot < glyphs.size(); ++slot)
            m_slots[glyphs[slot]].set(slot);
        for (auto const& [glyph, slots] : m_slots)
            m_all |= slots;
    }

    void readTable(std::span<std::uint8_t const> table, std::span<unsigned const> lookups, bool isSubstitution)
    {
        if (table.empty())
            return;
        TableReader const header(table, m_work);
        auto const list = header.follow(8);
        for (unsigned const lookup : lookups) {
            if (lookup >= list.u16(0))
                throw Damaged {};
            m_isLive = false;
            readLookup(list.follow(2 + 2 * static_cast<std::size_t>(lookup)), isSubstitution);
            if (m_isLive)
                (isSubstitution ? m_rules.liveSubstitutions : m_rules.livePositionings).push_back(lookup);
        }
    }

private:
    using Pattern = std::vector<Slots>;

    void readLookup(TableReader const& lookup, bool isSubstitution)
    {
        unsigned const extensionType = isSubstitution ? 7 : 9;
        m_skipsGlyphs = (lookup.u16(2) & (ignoresBaseGlyphs | ignoresLigatures)) != 0;
        unsigned const count = lookup.u16(4);
        for (unsigned i = 0; i < count; ++i) {
            unsigned type = lookup.u16(0);
            auto table = lookup.follow(6 + 2 * static_cast<std::size_t>(i));
            if (type == extensionType) {
                type = table.u16(2);
                table = table.at(table.u32(4));
            }
            if (isSubstitution)
                readSubstitution(type, table);
            else
                readPositioning(type, table);
        }
    }

    void readSubstitution(unsigned type, TableReader const& table)
    {
        if (type >= 1 && type <= 3)
            enter({ coverage(table.follow(2)) });
        else if (type == 4)
            readLigatures(table);
        else if (type == 5)
            readContext(table);
        else if (type == 6)
            readChainContext(table);
        else if (type == 8)
            readReverseChain(table);
        else
            throw Damaged {};
    }

    void readPositioning(unsigned type, TableReader const& table)
    {
        if (type == 1) // Whatever the neighbours are: the glyph's own advance has it in.
            return;
        if (type == 2) {
            // A value for the second glyph would keep it from being the first of the next pair.
            if (table.u16(6) != 0)
                enter({ coverage(table.follow(2)) });
        } else if (type == 3) {
            enter({ coverage(table.follow(2)) });
        } else if (type >= 4 && type <= 6) {
            enter({ coverage(table.follow(2)) }); // The marks; what they are attached to does not move.
        } else if (type == 7) {
            readContext(table);
        } else if (type == 8) {
            readChainContext(table);
        } else {
            throw Damaged {};
        }
    }

    Slots slotsOf(unsigned glyph) const
    {
        auto const found = m_slots.find(glyph);
        return found == m_slots.end() ? Slots {} : found->second;
    }

    template <typename Visit> void eachCovered(TableReader const& table, Visit const& visit) const
    {
        unsigned const format = table.u16(0);
        unsigned const count = table.u16(2);
        for (std::size_t i = 0; i < count; ++i) {
            if (format == 1) {
                visit(table.u16(4 + 2 * i), static_cast<unsigned>(i));
            } else if (format == 2) {
                eachInRange(table.at(4 + 6 * i), visit);
            } else {
                throw Damaged {};
            }
        }
    }
    template <typename Visit> void eachInRange(TableReader const& range, Visit const& visit) const
    {
        unsigned const first = range.u16(0);
        unsigned const last = range.u16(2);
        unsigned const index = range.u16(4);
        // Ranges may be long, the glyphs that matter are few.
        for (auto const& [glyph, slots] : m_slots) {
            if (glyph >= first && glyph <= last)
                visit(glyph, index + (glyph - first));
        }
    }
    Slots coverage(TableReader const& table) const
    {
        Slots slots;
        eachCovered(table, [&](unsigned glyph, unsigned) { slots |= slotsOf(glyph); });
        return slots;
    }
    /// Of each class its slots; class 0 is all that no other class names.
    std::unordered_map<unsigned, Slots> classes(TableReader const& table) const
    {
        std::unordered_map<unsigned, Slots> classes;
        Slots named;
        auto const enterClass = [&](Slots const& slots, unsigned number) {
            if (number == 0 || slots.none())
                return;
            classes[number] |= slots;
            named |= slots;
        };
        unsigned const format = table.u16(0);
        if (format == 1) {
            unsigned const first = table.u16(2);
            unsigned const count = table.u16(4);
            for (auto const& [glyph, slots] : m_slots) {
                if (glyph >= first && glyph - first < count)
                    enterClass(slots, table.u16(6 + 2 * static_cast<std::size_t>(glyph - first)));
            }
        } else if (format == 2) {
            unsigned const count = table.u16(2);
            for (std::size_t i = 0; i < count; ++i) {
                auto const range = table.at(4 + 6 * i);
                for (auto const& [glyph, slots] : m_slots) {
                    if (glyph >= range.u16(0) && glyph <= range.u16(2))
                        enterClass(slots, range.u16(4));
                }
            }
        } else {
            throw Damaged {};
        }
        classes[0] = m_all & ~named;
        return classes;
    }

    void readLigatures(TableReader const& table)
    {
        eachCovered(table.follow(2), [&](unsigned glyph, unsigned index) {
            auto const first = slotsOf(glyph);
            if (first.none())
                return;
            auto const set = table.follow(6 + 2 * static_cast<std::size_t>(index));
            unsigned const count = set.u16(0);
            for (std::size_t i = 0; i < count; ++i) {
                auto const ligature = set.follow(2 + 2 * i);
                Pattern pattern { first };
                unsigned const components = ligature.u16(2);
                for (std::size_t k = 1; k < components; ++k)
                    pattern.push_back(slotsOf(ligature.u16(4 + 2 * (k - 1))));
                enter(pattern);
            }
        });
    }

    /// Reads `count` 16-bit values from `offset` on as parts of a pattern, and moves the offset behind them.
    template <typename SlotsOfValue>
    static void addParts(
        Pattern& pattern, TableReader const& table, std::size_t& offset, unsigned count, SlotsOfValue const& slots, bool isReversed)
    {
        Pattern parts;
        for (unsigned i = 0; i < count; ++i, offset += 2)
            parts.push_back(slots(table.u16(offset)));
        if (isReversed)
            std::reverse(parts.begin(), parts.end());
        pattern.insert(pattern.end(), parts.begin(), parts.end());
    }

    /// A rule of formats 1 and 2: its first input glyph is what its set stands for.
    template <typename Backtrack, typename Input, typename Lookahead>
    void readRule(TableReader const& rule, bool isChain, Slots const& first, Backtrack const& backtrack, Input const& input,
        Lookahead const& lookahead)
    {
        Pattern pattern;
        std::size_t offset = 0;
        if (isChain) {
            unsigned const count = rule.u16(0);
            offset = 2;
            addParts(pattern, rule, offset, count, backtrack, true);
        }
        pattern.push_back(first);
        unsigned const inputCount = rule.u16(offset);
        unsigned actions = isChain ? 0 : rule.u16(offset + 2);
        offset += isChain ? 2 : 4;
        addParts(pattern, rule, offset, inputCount > 0 ? inputCount - 1 : 0, input, false);
        if (isChain) {
            unsigned const count = rule.u16(offset);
            offset += 2;
            addParts(pattern, rule, offset, count, lookahead, false);
            actions = rule.u16(offset);
        }
        // A rule without actions only keeps later ones from applying.
        if (actions > 0)
            enter(pattern);
    }

    /// Formats 1 and 2 of contexts and chained contexts.
    void readRuleSets(TableReader const& table, bool isChain)
    {
        if (table.u16(0) == 1) {
            auto const slots = [this](unsigned glyph) { return slotsOf(glyph); };
            eachCovered(table.follow(2), [&](unsigned glyph, unsigned index) {
                if (slotsOf(glyph).any())
                    eachRule(table, 6 + 2 * static_cast<std::size_t>(index),
                        [&](TableReader const& rule) { readRule(rule, isChain, slotsOf(glyph), slots, slots, slots); });
            });
            return;
        }
        auto const covered = coverage(table.follow(2));
        auto const backtrack = isChain ? classes(table.follow(4)) : std::unordered_map<unsigned, Slots> {};
        auto const input = classes(table.follow(isChain ? 6 : 4));
        auto const lookahead = isChain ? classes(table.follow(8)) : std::unordered_map<unsigned, Slots> {};
        auto const in = [](auto const& classes) {
            return [&classes](unsigned number) {
                auto const found = classes.find(number);
                return found == classes.end() ? Slots {} : found->second;
            };
        };
        std::size_t const counts = isChain ? 10 : 6;
        for (unsigned number = 0; number < table.u16(counts); ++number) {
            auto const first = in(input)(number)&covered;
            if (first.any())
                eachRule(table, counts + 2 + 2 * static_cast<std::size_t>(number),
                    [&](TableReader const& rule) { readRule(rule, isChain, first, in(backtrack), in(input), in(lookahead)); });
        }
    }
    template <typename Visit> static void eachRule(TableReader const& table, std::size_t setOffset, Visit const& visit)
    {
        if (table.u16(setOffset) == 0)
            return;
        auto const set = table.follow(setOffset);
        unsigned const count = set.u16(0);
        for (std::size_t i = 0; i < count; ++i)
            visit(set.follow(2 + 2 * i));
    }

    auto coverageAt(TableReader const& table) const
    {
        return [this, table](unsigned offset) { return coverage(table.at(offset)); };
    }

    void readContext(TableReader const& table)
    {
        if (table.u16(0) != 3) {
            readRuleSets(table, false);
            return;
        }
        Pattern pattern;
        std::size_t offset = 6;
        addParts(pattern, table, offset, table.u16(2), coverageAt(table), false);
        if (table.u16(4) > 0)
            enter(pattern);
    }

    void readChainContext(TableReader const& table)
    {
        if (table.u16(0) != 3) {
            readRuleSets(table, true);
            return;
        }
        Pattern pattern;
        std::size_t offset = 2;
        for (bool const isBacktrack : { true, false, false }) {
            unsigned const count = table.u16(offset);
            offset += 2;
            addParts(pattern, table, offset, count, coverageAt(table), isBacktrack);
        }
        if (table.u16(offset) > 0)
            enter(pattern);
    }

    void readReverseChain(TableReader const& table)
    {
        Pattern backtrack;
        std::size_t offset = 6;
        addParts(backtrack, table, offset, table.u16(4), coverageAt(table), true);
        backtrack.push_back(coverage(table.follow(2)));
        unsigned const lookahead = table.u16(offset);
        offset += 2;
        addParts(backtrack, table, offset, lookahead, coverageAt(table), false);
        enter(backtrack);
    }

    /// A rule that needs a glyph which is not there never applies. Of another one, two neighbours are enough to tell where it
    /// may; the two that meet most rarely are taken.
    void enter(Pattern const& pattern)
    {
        if (pattern.empty() || std::any_of(pattern.begin(), pattern.end(), [](auto const& slots) { return slots.none(); }))
            return;
        m_isLive = true;
        if (pattern.size() == 1 || m_skipsGlyphs) {
            auto const rarest = std::min_element(
                pattern.begin(), pattern.end(), [](auto const& a, auto const& b) { return a.count() < b.count(); });
            m_rules.alone |= *rarest;
            return;
        }
        std::size_t best = 0;
        auto const meetings = [&](std::size_t i) { return pattern[i].count() * pattern[i + 1].count(); };
        for (std::size_t i = 1; i + 1 < pattern.size(); ++i) {
            if (meetings(i) < meetings(best))
                best = i;
        }
        for (std::size_t first = 0; first < GlyphRules::slotCount; ++first) {
            if (pattern[best][first])
                m_rules.pairs[first] |= pattern[best + 1];
        }
        m_rules.rules.push_back({ pattern, best });
    }

    GlyphRules& m_rules;
    std::unordered_map<std::uint32_t, Slots> m_slots;
    Slots m_all;
    bool m_skipsGlyphs { false };
    bool m_isLive { false };
    long m_work { largestTotalWork };
};

}

GlyphRules readGlyphRules(std::span<std::uint8_t const> substitution, std::span<unsigned const> substitutionLookups,
    std::span<std::uint8_t const> positioning, std::span<unsigned const> positioningLookups, std::span<std::uint32_t const> glyphs)
{
    GlyphRules rules;
    try {
        RuleReader reader(glyphs, rules);
        reader.readTable(substitution, substitutionLookups, true);
        reader.readTable(positioning, positioningLookups, false);
    } catch (Damaged const&) {
        rules.giveUp();
    }
    return rules;
}

bool GlyphRules::mayApply(std::span<int const> text) const
{
    auto const at = [text](std::size_t index) { return static_cast<std::size_t>(text[index]); };
    auto const matches = [&](Rule const& rule, std::size_t start) {
        for (std::size_t i = 0; i < rule.pattern.size(); ++i) {
            if (!rule.pattern[i][at(start + i)])
                return false;
        }
        return true;
    };
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (!pairs[at(i)][at(i + 1)])
            continue;
        for (auto const& rule : rules) {
            bool const isInside = i >= rule.key && i - rule.key + rule.pattern.size() <= text.size();
            if (isInside && rule.pattern[rule.key][at(i)] && matches(rule, i - rule.key))
                return true;
        }
    }
    return false;
}

}
