#include <plix/format/time_interval_text.h>

#include <plix/format/number_text.h>
#include <plix/platform/base/ObjectValue.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

int componentOf(long code)
{
    return code >= TQTimeIntervalSeconds && code <= TQTimeIntervalWeeks ? static_cast<int>(code) : -1;
}

// What is no number becomes the minimum.
double clamped(double seconds, TimeIntervalFormat const& format)
{
    double const atLeast = format.minimumTimeInterval < seconds ? seconds : format.minimumTimeInterval;
    return format.maximumTimeInterval < atLeast ? format.maximumTimeInterval : atLeast;
}

void appendWholeUnits(std::string& text, double seconds, long code)
{
    auto const units = truncatedTo64Bits(seconds / _TQTimeIntervalComponentScalar(componentOf(code)));
    appendTwoDigits(text, units % static_cast<std::int64_t>(_TQTimeIntervalComponentBase(componentOf(code))));
}

void appendMilliseconds(std::string& text, double seconds)
{
    if (seconds < 10)
        text += '0';
    appendFixed(text, seconds, 3);
}

}

double _TQTimeIntervalComponentScalar(int component)
{
    switch (component) {
    case TQTimeIntervalMinutes:
        return 60.0;
    case TQTimeIntervalHours:
        return 3600.0;
    case TQTimeIntervalDays:
        return 86400.0;
    case TQTimeIntervalWeeks:
        return 604800.0;
    default:
        return 1.0;
    }
}

double _TQTimeIntervalComponentBase(int component)
{
    switch (component) {
    case TQTimeIntervalSeconds:
    case TQTimeIntervalMinutes:
        return 60.0;
    case TQTimeIntervalHours:
        return 24.0;
    case TQTimeIntervalDays:
        return 7.0;
    default:
        return 1.0;
    }
}

long TimeIntervalFormat::componentCount() const
{
    return minimumComponent > maximumComponent ? 1 : long { maximumComponent } - minimumComponent + 1;
}

std::string textForTimeInterval(double seconds, TimeIntervalFormat const& format)
{
    seconds = clamped(seconds, format);
    std::string text;
    if (format.componentStyle != 0)
        return text;
    long const lowest = format.minimumComponent;
    long const highest = format.maximumComponent;
    bool const hasMilliseconds = lowest == TQTimeIntervalSeconds && format.showsMilliseconds;
    if (format.componentCount() <= 1) {
        if (hasMilliseconds)
            appendFixed(text, seconds, 3);
        else // by the base, which is meant: hours alone show 24ths of a second count
            appendInteger(text, truncatedTo64Bits(seconds / _TQTimeIntervalComponentBase(componentOf(lowest))));
        return text;
    }
    appendInteger(text, truncatedTo64Bits(seconds / _TQTimeIntervalComponentScalar(componentOf(highest))));
    text += format.componentSeparator;
    for (long component = highest - 1; component > lowest; --component) {
        appendWholeUnits(text, seconds, component);
        text += format.componentSeparator;
    }
    if (hasMilliseconds)
        appendMilliseconds(text, std::fmod(seconds, _TQTimeIntervalComponentBase(TQTimeIntervalSeconds)));
    else
        appendWholeUnits(text, seconds, lowest);
    return text;
}

double valueForComponentText(std::string_view text, long component)
{
    return doubleValue(text) * _TQTimeIntervalComponentScalar(componentOf(component));
}

double timeIntervalForText(std::optional<std::string_view> text, TimeIntervalFormat const& format)
{
    double total = 0;
    if (text) {
        std::string_view const separator = format.componentSeparator;
        if (format.componentStyle == 0) {
            for (long component = format.minimumComponent;; ++component) {
                auto const found = separator.empty() ? std::string_view::npos : text->rfind(separator);
                auto const pieceStart = found == std::string_view::npos ? 0 : found + separator.size();
                total += valueForComponentText(text->substr(pieceStart), component);
                if (found == std::string_view::npos)
                    break;
                text = text->substr(0, found);
            }
        }
        total = clamped(total, format);
    } else {
        bool const hasZero = format.minimumTimeInterval <= 0 && 0 <= format.maximumTimeInterval;
        total = hasZero ? 0 : format.minimumTimeInterval;
    }
    return format.showsMilliseconds ? total : truncatedTo32Bits(total);
}

}
