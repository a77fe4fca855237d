#pragma once

#include <functional>
#include <string>
#include <vector>

namespace plix::bench {

enum class NibViewKind { Label, Field, Button, CheckBox };

/// A view of a document that is measured; of a group, with the views in it. Frames are from the upper left corner.
struct NibSample {
    NibViewKind kind { NibViewKind::Label };
    std::string text;
    int x { 0 };
    int y { 0 };
    int width { 0 };
    int height { 0 };
};
using NibGroup = std::vector<NibSample>;

struct NibPeer {
    /// Reads the same views from a document of the peer's, and lets them go.
    std::function<void()> load;
    /// How many views that makes, groups and window included.
    int madeViews { 0 };
};

#ifdef PLIX_BENCH_QT_UITOOLS
/// Each group in a frame of its own.
NibPeer qtNib(int width, int height, std::vector<NibGroup> const&);
#endif

}
