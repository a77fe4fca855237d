#pragma once

#include <plix/platform/graphics/NSFont.h>

#include <map>
#include <utility>

// Private to plix/platform/graphics.

namespace plix {

struct FontMember;

/// The fonts in use, each once. Some that nobody holds are kept, since they will be asked for again.
class FontTable {
public:
    static FontTable& shared();

    Ref<NSFont> font(FontMember const&, float size);

private:
    void dropUnused();

    using Key = std::pair<FontMember const*, float>;
    std::map<Key, Ref<NSFont>> m_fonts;
    std::size_t m_sizeToTidyAt { 64 };
    Key m_lastKey {};
    Ref<NSFont> m_last;
};

}
