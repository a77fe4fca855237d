#include <plix/platform/host/desktop/sound_card.h>

#include <glob.h>

namespace plix {

bool hasSoundCard()
{
    glob_t found {};
    bool const hasAny = ::glob("/dev/snd/pcmC*p", 0, nullptr, &found) == 0;
    globfree(&found);
    return hasAny;
}

}
