#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace soak {

/// One thing that a person, the window system or a program does. Which window, view or key it meets is drawn from the lots when it
/// happens, so that an event stays what it is when others before it are left out.
struct RandomEvent {
    enum class Kind : std::uint8_t {
        move,
        click,
        drag,
        press,
        release,
        wheel,
        key,
        text,
        preedit,
        modifiers,
        time,
        resize,
        zoom,
        miniaturize,
        scale,
        look,
        focusLost,
        focusGained,
        close,
        losePixels,
        changePage,
        hideView,
        disableControl,
    };
    Kind kind { Kind::move };
    std::uint32_t lots[5] {};

    /// Below a limit, which is more than 0.
    int lot(int index, int limit) const { return static_cast<int>(lots[index] % static_cast<std::uint32_t>(limit)); }
    /// From 0 to 1.
    float share(int index) const { return static_cast<float>(lots[index] >> 8) / static_cast<float>(1U << 24); }
};

char const* name(RandomEvent::Kind);
/// Its name and lots.
std::string description(RandomEvent const&);

/// The events of one chapter of a run: always the same for the same numbers.
std::vector<RandomEvent> chapterEvents(std::uint32_t seed, std::uint32_t chapter, std::size_t count);

}
