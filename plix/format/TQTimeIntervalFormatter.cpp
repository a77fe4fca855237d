#include <plix/format/TQTimeIntervalFormatter.h>

namespace plix {

PLIX_DESCRIBE(TQTimeIntervalFormatter)
{
}

bool TQTimeIntervalFormatter::init()
{
    return TQTimeIntervalFormatter::init(TQTimeIntervalSeconds, TQTimeIntervalWeeks);
}

bool TQTimeIntervalFormatter::init(int minimumComponent, int maximumComponent)
{
    return TQTimeIntervalFormatter::init(minimumComponent, maximumComponent, -4294967295.0, 4294967295.0, ":", 0);
}

bool TQTimeIntervalFormatter::init(int minimumComponent, int maximumComponent, double minimumTimeInterval,
    double maximumTimeInterval, std::optional<std::string> componentSeparator, int componentStyle)
{
    if (!Base::init())
        return false;
    m_format.minimumComponent = minimumComponent;
    m_format.maximumComponent = maximumComponent;
    m_format.showsMilliseconds = false;
    m_format.minimumTimeInterval = minimumTimeInterval;
    m_format.maximumTimeInterval = maximumTimeInterval;
    setComponentSeparator(std::move(componentSeparator));
    m_format.componentStyle = componentStyle;
    return true;
}

void TQTimeIntervalFormatter::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<TQTimeIntervalFormatter&>(fresh).m_format = m_format;
}

void TQTimeIntervalFormatter::setComponentSeparator(std::optional<std::string> separator)
{
    m_format.componentSeparator = separator ? std::move(*separator) : ":";
}

double TQTimeIntervalFormatter::_valueForComponentString(std::string_view string, long componentType) const
{
    return valueForComponentText(string, componentType);
}

std::optional<std::string> TQTimeIntervalFormatter::stringForObjectValue(ObjectValue const& value) const
{
    return value.isNumber() ? textForTimeInterval(value.doubleValue(), m_format) : "0";
}

bool TQTimeIntervalFormatter::getObjectValue(ObjectValue& value, std::optional<std::string_view> string, std::string&) const
{
    value = timeIntervalForText(string, m_format);
    return string.has_value();
}

}
