#include "fuzz.h"

#include <plix/format/time_interval_text.h>

#include <climits>
#include <cmath>

using namespace plix;

// Three bytes choose the format, a line the separator; the rest is the text.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size < 3)
        return 0;
    TimeIntervalFormat format;
    format.minimumComponent = data[0] % 16 - 4;
    format.maximumComponent = data[0] / 16 - 4;
    format.showsMilliseconds = data[1] % 2 != 0;
    format.componentStyle = data[1] / 2 % 4 == 0;
    if (data[2] % 4 == 0) {
        format.minimumTimeInterval = data[2] - 100;
        format.maximumTimeInterval = data[2] * 1000;
    } else if (data[2] % 4 == 1) {
        format.maximumTimeInterval = 1e300;
    }
    std::string_view text(reinterpret_cast<char const*>(data + 3), size - 3);
    if (auto const line = text.find('\n'); line != std::string_view::npos) {
        format.componentSeparator = text.substr(0, line);
        text.remove_prefix(line + 1);
    }

    auto const interval = timeIntervalForText(text, format);
    FUZZ_CHECK(!std::isnan(interval));
    if (format.showsMilliseconds)
        FUZZ_CHECK(interval >= format.minimumTimeInterval && interval <= format.maximumTimeInterval);
    else
        FUZZ_CHECK(interval == std::trunc(interval) && interval >= INT_MIN && interval <= INT_MAX);

    auto const written = textForTimeInterval(interval, format);
    FUZZ_CHECK(written.empty() == (format.componentStyle != 0));
    // Whole parts that follow each other come back, as long as nothing but they decides.
    TimeIntervalFormat const plain;
    if (format.componentStyle == 0 && interval >= 0 && interval < 1e9) {
        auto const whole = std::trunc(interval);
        FUZZ_CHECK(timeIntervalForText(textForTimeInterval(whole, plain), plain) == whole);
    }
    return 0;
}
