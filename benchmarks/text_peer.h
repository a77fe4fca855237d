#pragma once

#include <memory>
#include <string_view>

namespace plix::bench {

/// Pango as it is mostly used: a fresh layout for each text, drawn into pixels of its own. The font and its options are ours.
class PangoPeer {
public:
    PangoPeer();
    ~PangoPeer();
    void clear();
    void draw(std::string_view text, double x, double y);
    int measure(std::string_view text);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}
