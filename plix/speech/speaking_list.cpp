#include <plix/speech/speaking_list.h>

namespace plix {

namespace {

constexpr double usualInterval = 1.8;
constexpr double secondsBetweenLooks = 0.1;
constexpr double isBeingSpoken = -1.0;

}

SpeakingListTurn speakingListTurn(SpeakingList const& list, bool isSpeaking, double now)
{
    if (isSpeaking)
        return { SpeakingListStep::Look, list.lastTime, secondsBetweenLooks };
    auto const lastTime = list.lastTime < 0 ? now : list.lastTime;
    if (list.index == list.count)
        return { SpeakingListStep::End, lastTime, 0 };
    auto const elapsed = now - lastTime;
    if (list.interval > elapsed)
        return { SpeakingListStep::Wait, lastTime, list.interval - elapsed };
    if (list.index < list.count)
        return { SpeakingListStep::Speak, isBeingSpoken, secondsBetweenLooks };
    return { SpeakingListStep::Look, lastTime, secondsBetweenLooks };
}

double speakingListInterval(double wanted)
{
    return wanted < 0 ? usualInterval : wanted;
}

}
