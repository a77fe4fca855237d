#include "values_peers.h"

#include <cstring>

#include <glib.h>

namespace plix::bench {

std::size_t lengthOfSizeByGLib(std::uint64_t bytes)
{
    auto* text = g_format_size(bytes);
    auto const length = std::strlen(text);
    g_free(text);
    return length;
}

bool sortsBeforeByGLib(std::string const& a, std::string const& b)
{
    auto* keyOfA = g_utf8_collate_key_for_filename(a.data(), static_cast<gssize>(a.size()));
    auto* keyOfB = g_utf8_collate_key_for_filename(b.data(), static_cast<gssize>(b.size()));
    bool const isBefore = std::strcmp(keyOfA, keyOfB) < 0;
    g_free(keyOfA);
    g_free(keyOfB);
    return isBefore;
}

}
