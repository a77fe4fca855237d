#include <plix/platform/foundation/NSDateFormatter.h>

#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/locale_values.h>

namespace plix {

PLIX_DESCRIBE(NSDateFormatter)
{
}

bool NSDateFormatter::init()
{
    return NSDateFormatter::init(currentDateNames()->shortDateFormat, false);
}

bool NSDateFormatter::init(std::string dateFormat, bool allowNaturalLanguage)
{
    if (!Base::init())
        return false;
    m_dateFormat = std::move(dateFormat);
    m_allowsNaturalLanguage = allowNaturalLanguage;
    return true;
}

bool NSDateFormatter::init(NSCoder& coder)
{
    if (!NSDateFormatter::init())
        return false;
    coder.read("dateFormat", [&](ObjectValue const& value) { m_dateFormat = value.description(); });
    coder.read("allowsNaturalLanguage", [&](ObjectValue const& value) { m_allowsNaturalLanguage = value.boolValue(); });
    return true;
}

void NSDateFormatter::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_dateFormat, "dateFormat");
    coder.encodeBool(m_allowsNaturalLanguage, "allowsNaturalLanguage");
}

void NSDateFormatter::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& formatter = static_cast<NSDateFormatter&>(fresh);
    formatter.m_dateFormat = m_dateFormat;
    formatter.m_allowsNaturalLanguage = m_allowsNaturalLanguage;
}

std::optional<std::string> NSDateFormatter::stringForObjectValue(ObjectValue const& value) const
{
    auto const* date = value.date();
    if (!date)
        return {};
    return NSCalendarDate(*date).descriptionWithCalendarFormat(m_dateFormat);
}

bool NSDateFormatter::getObjectValue(
    ObjectValue& value, std::optional<std::string_view> string, std::string& errorDescription) const
{
    if (!string)
        return false;
    if (string->find_first_not_of(" \t\n\r") == std::string_view::npos) {
        value = nullptr;
        return true;
    }
    auto date = NSCalendarDate::dateWithString(*string, m_dateFormat);
    if (!date && m_allowsNaturalLanguage)
        date = NSCalendarDate::dateWithNaturalLanguageString(*string);
    if (!date) {
        errorDescription = "This is not a date.";
        return false;
    }
    value = NSDate(*date);
    return true;
}

}
