#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/foundation/NSCharacterSet.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace plix {

/// Reads numbers and words off a string, from the front. Each operation first passes over the characters to be skipped; where it
/// then finds nothing it answers false, and location and out parameter stay as they were. Locations count UTF-16 units.
class PLIX_EXPORT NSScanner : public NSObject {
    PLIX_CLASS(NSScanner, NSObject);

public:
    /// At the text's beginning.
    static Ref<NSScanner> scannerWithString(std::string string);
    bool init() { return true; }
    bool init(std::string string);

    /// What is read.
    std::string const& string() const { return m_string; }
    long scanLocation() const;
    /// Raises NSRangeException outside the string.
    void setScanLocation(long location);
    /// True when only characters to be skipped are left.
    bool isAtEnd() const;

    /// Blanks and line ends unless set otherwise; nothing is skipped with the empty set.
    NSCharacterSet const& charactersToBeSkipped() const { return m_skipped; }
    void setCharactersToBeSkipped(NSCharacterSet set) { m_skipped = std::move(set); }
    /// Off at first; for scanString() and scanUpToString().
    bool caseSensitive() const { return m_caseSensitive; }
    void setCaseSensitive(bool caseSensitive) { m_caseSensitive = caseSensitive; }
    /// What separates a number's fraction; "." at first.
    void setDecimalSeparator(std::string separator) { m_decimalSeparator = std::move(separator); }

    // Numbers out of range give the nearest one of their type.
    bool scanInt(int& value);
    bool scanLongLong(std::int64_t& value);
    /// With or without 0x in front.
    bool scanHexInt(unsigned& value);
    bool scanFloat(float& value);
    bool scanDouble(double& value);

    // Reading text; false, and the place stays, where there is none of it here.
    bool scanString(std::string_view searched);
    bool scanString(std::string_view searched, std::string& value);
    bool scanCharactersFromSet(NSCharacterSet const&);
    bool scanCharactersFromSet(NSCharacterSet const&, std::string& value);
    /// All up to the string or the set's first character, which is not scanned; to the end where there is none.
    bool scanUpToString(std::string_view stop);
    bool scanUpToString(std::string_view stop, std::string& value);
    bool scanUpToCharactersFromSet(NSCharacterSet const&);
    bool scanUpToCharactersFromSet(NSCharacterSet const&, std::string& value);

private:
    std::size_t afterSkipped() const;
    bool take(std::size_t start, std::size_t end, std::string* value);
    /// Where the text matches at `byte`, the byte behind it; else npos.
    std::size_t matchAt(std::size_t byte, std::string_view searched) const;
    std::size_t findString(std::size_t byte, std::string_view searched) const;

    std::string m_string;
    std::string m_decimalSeparator { "." };
    NSCharacterSet m_skipped { NSCharacterSet::whitespaceAndNewlineCharacterSet() };
    std::size_t m_byte { 0 };
    bool m_caseSensitive { false };
};

}
