#include <plix/format/duration_text.h>

#include <plix/format/number_text.h>

#include <cmath>
#include <limits>

namespace plix {

namespace {

// fmod(interval, 60) without its fraction. In 32 bits that is the remainder of whole seconds, which is much faster.
std::int32_t secondsOfMinute(double interval, std::int32_t total)
{
    return total != std::numeric_limits<std::int32_t>::min() ? total % 60 : truncatedTo32Bits(std::fmod(interval, 60.0));
}

// What nearly all intervals are: three numbers of two digits.
std::string shortClock(int hours, int minutes, int seconds)
{
    auto const digit = [](int value) { return static_cast<char>('0' + value); };
    char const text[] = { digit(hours / 10), digit(hours % 10), ':', digit(minutes / 10), digit(minutes % 10), ':',
        digit(seconds / 10), digit(seconds % 10) };
    return std::string(text, sizeof text);
}

}

std::string longTextForTimeInterval(double interval, UnitWords const& words)
{
    int const total = truncatedTo32Bits(interval);
    int const days = total / 86400;
    int const hours = total / 3600 % 24;
    int const minutes = total / 60 % 60;
    int const seconds = secondsOfMinute(interval, total);

    std::string text;
    auto const append = [&](int count, std::string_view one, std::string_view many, bool follows) {
        if (count < 1)
            return;
        if (follows)
            text += ", ";
        appendInteger(text, count);
        text += ' ';
        text += words(count == 1 ? one : many);
    };
    append(days, "day", "days", false);
    append(hours, "hour", "hours", days > 0);
    append(minutes, "minute", "minutes", days > 0 || hours >= 1);
    if (days == 0)
        append(seconds, "second", "seconds", hours >= 1 || minutes >= 1);
    return text.empty() ? "--:--:--:--" : text;
}

std::string clockTextForTimeInterval(double interval)
{
    int const total = truncatedTo32Bits(interval);
    int const seconds = secondsOfMinute(interval, total);

    if (total >= 0 && total < 100 * 3600)
        return shortClock(total / 3600, total / 60 % 60, seconds);
    std::string text;
    appendTwoDigits(text, total / 3600);
    text += ':';
    appendTwoDigits(text, total / 60 % 60);
    text += ':';
    if (std::isfinite(interval))
        appendTwoDigits(text, seconds);
    else
        appendInteger(text, seconds);
    return text;
}

std::string textWithDecimalSeparator(std::string_view text, std::string_view separator)
{
    std::string replaced;
    for (char const c : text) {
        if (c == '.')
            replaced += separator;
        else
            replaced += c;
    }
    return replaced;
}

}
