#include <plix/format/size_and_duration.h>

#include <plix/format/duration_text.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSUserDefaults.h>

namespace plix {

std::string PLIXLongStringForTimeInterval(double seconds)
{
    auto& bundle = NSBundle::mainBundle();
    return longTextForTimeInterval(seconds, [&](std::string_view key) { return bundle.localizedStringForKey(std::string(key)); });
}

std::string TimeIntervalDescription(double seconds)
{
    auto text = clockTextForTimeInterval(seconds);
    // Whole seconds have no point that a separator could replace. Looking for one is meant.
    if (text.find('.') != std::string::npos)
        text
            = textWithDecimalSeparator(text, NSUserDefaults::standardUserDefaults().stringForKey(NSDecimalSeparator).value_or("."));
    return text;
}

}
