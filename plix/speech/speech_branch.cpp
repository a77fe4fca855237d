#include <plix/speech/speech_branch.h>

#include <plix/system/identity.h>

namespace plix {

bool hasSpeechSynthesizers()
{
    constexpr std::uint32_t firstVersion = 0x1030;
    return PLIXSystemVersion() >= firstVersion;
}

}
