#include <plix/platform/appkit/progress_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr double wayThereAndBack = 2;
constexpr double faintestSpoke = 0.15;

}

double progressFraction(double value, double least, double greatest)
{
    if (!(greatest > least) || !(value > least))
        return 0;
    return std::min(1.0, (value - least) / (greatest - least));
}

Rect progressDoneRect(Rect bar, double fraction)
{
    if (!(fraction > 0))
        return { bar.x, bar.y, 0, bar.height };
    float const width = static_cast<float>(std::floor(std::min(fraction, 1.0) * bar.width));
    return { bar.x, bar.y, std::min(bar.width, std::max(1.F, width)), bar.height };
}

Rect progressMovingRect(Rect bar, double seconds)
{
    double const phase = std::fmod(std::max(0.0, seconds), wayThereAndBack) / wayThereAndBack;
    // Slows down at both ends.
    double const place = 0.5 - 0.5 * std::cos(phase * 2 * 3.14159265358979323846);
    float const width = std::round(bar.width / 3);
    return { bar.x + static_cast<float>(std::round(place * (bar.width - width))), bar.y, width, bar.height };
}

double progressSpokeStrength(int spoke, double seconds)
{
    auto const head = static_cast<int>(std::floor(std::fmod(std::max(0.0, seconds), 1.0) * progressSpokes));
    int const behind = ((head - spoke) % progressSpokes + progressSpokes) % progressSpokes;
    double const fading = 1 - static_cast<double>(behind) / progressSpokes;
    return faintestSpoke + (1 - faintestSpoke) * fading * fading;
}

}
