#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace plix::bench {

/// Premultiplied pixels, rows from the top, handed to a peer as its source.
struct PeerPixels {
    int width { 0 };
    int height { 0 };
    std::vector<std::uint32_t> pixels;
};

/// What another library offers for the same pictures. Each function prepares and answers what is timed: one new picture, or one
/// drawing.
struct ImagePeer {
    std::string name;
    std::function<std::function<void()>(PeerPixels const&)> recolor;
    std::function<std::function<void()>(PeerPixels const&, int width, int height)> nineSlice;
    std::function<std::function<void()>(std::vector<PeerPixels> const&)> compose;
    /// The middle 64 x 64 of the picture onto 160 x 96.
    std::function<std::function<void()>(PeerPixels const&)> part;
    std::function<std::function<void()>(int width, int height)> axial;
};

ImagePeer cairoPeer();
#ifdef PLIX_BENCH_QT
ImagePeer qtPeer();
#endif

}
