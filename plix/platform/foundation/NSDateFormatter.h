#pragma once

#include <plix/platform/foundation/NSFormatter.h>

#include <string>

namespace plix {

/// Dates as text by a format, in the local zone and the user's language (see formatDate() and parseDate()); with natural language
/// allowed it also takes dates as people write them (see parseNaturalDate()).
class PLIX_EXPORT NSDateFormatter : public NSFormatter {
    PLIX_CLASS(NSDateFormatter, NSFormatter);

public:
    /// By the user's short date format, without natural language.
    bool init();
    bool init(std::string dateFormat, bool allowNaturalLanguage);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // What it was made with.
    std::string const& dateFormat() const { return m_dateFormat; }
    bool allowsNaturalLanguage() const { return m_allowsNaturalLanguage; }

    // NSFormatter:
    /// Nil for what is no date.
    std::optional<std::string> stringForObjectValue(ObjectValue const& value) const override;
    /// Nothing but blanks is no date: the value is nil then, and the answer true.
    bool getObjectValue(ObjectValue& value, std::optional<std::string_view> string, std::string& errorDescription) const override;

private:
    void copyStateTo(NSObject& fresh) const override;

    std::string m_dateFormat;
    bool m_allowsNaturalLanguage { false };
};

}
