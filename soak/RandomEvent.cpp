#include "RandomEvent.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace soak {

namespace {

struct KindRow {
    RandomEvent::Kind kind;
    char const* name;
    int weight;
};

using Kind = RandomEvent::Kind;

// In the order of the kinds.
constexpr KindRow kindRows[] {
    { Kind::move, "move", 140 },
    { Kind::click, "click", 220 },
    { Kind::drag, "drag", 60 },
    { Kind::press, "press", 8 },
    { Kind::release, "release", 16 },
    { Kind::wheel, "wheel", 60 },
    { Kind::key, "key", 260 },
    { Kind::text, "text", 50 },
    { Kind::preedit, "preedit", 8 },
    { Kind::modifiers, "modifiers", 8 },
    { Kind::time, "time", 110 },
    { Kind::resize, "resize", 6 },
    { Kind::zoom, "zoom", 2 },
    { Kind::miniaturize, "miniaturize", 2 },
    { Kind::scale, "scale", 1 },
    { Kind::look, "look", 2 },
    { Kind::focusLost, "focus lost", 5 },
    { Kind::focusGained, "focus gained", 12 },
    { Kind::close, "close", 3 },
    { Kind::losePixels, "lose pixels", 1 },
    { Kind::changePage, "change page", 1 },
    { Kind::hideView, "hide view", 4 },
    { Kind::disableControl, "disable control", 4 },
};

}

char const* name(RandomEvent::Kind kind)
{
    return kindRows[static_cast<std::size_t>(kind)].name;
}

std::string description(RandomEvent const& event)
{
    std::string text = name(event.kind);
    for (auto const lot : event.lots)
        text += ' ' + std::to_string(lot);
    return text;
}

std::vector<RandomEvent> chapterEvents(std::uint32_t seed, std::uint32_t chapter, std::size_t count)
{
    constexpr int sum = std::accumulate(
        std::begin(kindRows), std::end(kindRows), 0, [](int weights, KindRow const& row) { return weights + row.weight; });
    std::seed_seq seeds { seed, chapter };
    std::mt19937 lots(seeds);
    std::vector<RandomEvent> events(count);
    for (auto& event : events) {
        int lot = static_cast<int>(lots() % sum);
        event.kind = std::ranges::find_if(kindRows, [&](KindRow const& row) { return (lot -= row.weight) < 0; })->kind;
        for (auto& each : event.lots)
            each = static_cast<std::uint32_t>(lots());
    }
    return events;
}

}
