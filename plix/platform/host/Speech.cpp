#include <plix/platform/host/Speech.h>

#include <algorithm>

namespace plix {

namespace {

std::vector<Speech*>& doors()
{
    static auto& s_doors = *new std::vector<Speech*>;
    return s_doors;
}

}

Speech::Speech()
{
    doors().push_back(this);
}

Speech::~Speech()
{
    std::erase(doors(), this);
}

Speech* Speech::knowing(SpeechChannel channel)
{
    auto const knows = [channel](Speech const* door) { return door->hasChannel(channel); };
    auto const found = std::find_if(doors().begin(), doors().end(), knows);
    return found == doors().end() ? nullptr : *found;
}

SpeechChannel Speech::newChannel()
{
    static std::uint32_t s_last = 0;
    return { ++s_last };
}

}
