#pragma once

#include <plix/platform/base/export.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plix {

/// A set of characters, by their Unicode scalar values. A value; copies share what they hold.
class PLIX_EXPORT NSCharacterSet {
public:
    /// From the first character to the last, both within.
    using Range = std::pair<char32_t, char32_t>;

    /// The empty set.
    NSCharacterSet();
    static NSCharacterSet characterSetWithCharactersInString(std::string_view characters);
    /// From the first to the last, both in it.
    static NSCharacterSet characterSetWithRange(char32_t first, char32_t last);
    /// Of ranges in any order.
    static NSCharacterSet characterSetWithRanges(std::vector<Range> ranges);

    /// Blanks within a line: the Unicode category Zs and the tabulator.
    static NSCharacterSet const& whitespaceCharacterSet();
    /// Those and U+000A to U+000D, U+0085, U+2028, U+2029.
    static NSCharacterSet const& whitespaceAndNewlineCharacterSet();

    // By Unicode category:
    /// L*, M* and N*.
    static NSCharacterSet const& alphanumericCharacterSet();
    /// L* and M*.
    static NSCharacterSet const& letterCharacterSet();
    /// Lu and Lt.
    static NSCharacterSet const& uppercaseLetterCharacterSet();
    static NSCharacterSet const& lowercaseLetterCharacterSet();
    /// Nd.
    static NSCharacterSet const& decimalDigitCharacterSet();
    static NSCharacterSet const& punctuationCharacterSet();
    static NSCharacterSet const& symbolCharacterSet();
    /// Cc and Cf.
    static NSCharacterSet const& controlCharacterSet();

    // What is in it, and sets made of it.
    bool characterIsMember(char32_t) const;
    NSCharacterSet invertedSet() const;
    NSCharacterSet setByUniting(NSCharacterSet const& other) const;
    /// In order and apart from each other.
    std::vector<Range> const& ranges() const;

    friend bool operator==(NSCharacterSet const& a, NSCharacterSet const& b) { return a.ranges() == b.ranges(); }

private:
    struct Members;
    explicit NSCharacterSet(std::shared_ptr<Members const> members);

    std::shared_ptr<Members const> m_members;
};

/// The byte at which the first character that is in the set (or is not) begins, from `byte` on; the text's size where there is
/// none.
PLIX_EXPORT std::size_t findCharacterInSet(std::string_view text, NSCharacterSet const&, std::size_t byte = 0);
PLIX_EXPORT std::size_t findCharacterNotInSet(std::string_view text, NSCharacterSet const&, std::size_t byte = 0);
/// The text without the set's characters at both ends.
PLIX_EXPORT std::string stringByTrimmingCharactersInSet(std::string_view text, NSCharacterSet const&);

}
