#include <plix/platform/graphics/set_text.h>

#include <plix/platform/graphics/caret_stops.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

/// The caret's stops in a cluster, its start included and its end not.
std::uint32_t stopsInCluster(std::string_view text, SetCluster const& cluster)
{
    auto const end = cluster.byte + cluster.length;
    std::uint32_t count = 1;
    for (auto byte = nextCaretStop(text, cluster.byte); byte < end; byte = nextCaretStop(text, byte))
        ++count;
    return count;
}

/// The share of the cluster that lies before the byte, as it is read.
float shareBefore(std::string_view text, SetCluster const& cluster, std::uint32_t byte)
{
    if (byte <= cluster.byte)
        return 0;
    if (byte >= cluster.byte + cluster.length)
        return 1;
    std::uint32_t before = 0;
    for (std::size_t stop = cluster.byte; stop < byte; stop = nextCaretStop(text, stop))
        ++before;
    return static_cast<float>(before) / static_cast<float>(stopsInCluster(text, cluster));
}

template <typename Visit> void eachCluster(SetParagraph const& paragraph, SetLine const& line, Visit const& visit)
{
    for (auto run = line.firstRun; run < line.firstRun + line.runCount; ++run) {
        auto const& set = paragraph.runs[run];
        for (auto i = set.firstCluster; i < set.firstCluster + set.clusterCount; ++i) {
            if (!visit(paragraph.clusters[i], set.isRightToLeft))
                return;
        }
    }
}

}

std::size_t SetParagraph::memory() const
{
    return sizeof *this + glyphs.capacity() * sizeof(SetGlyph) + clusters.capacity() * sizeof(SetCluster)
        + runs.capacity() * sizeof(SetRun) + lines.capacity() * sizeof(SetLine);
}

std::vector<LineMeasures> measuresOf(SetParagraph const& set)
{
    std::vector<LineMeasures> measures;
    measures.reserve(set.lines.size());
    for (auto const& line : set.lines)
        measures.push_back({ line.width, line.ascent, line.descent, line.leading, line.isRightToLeft });
    return measures;
}

BytePosition positionInLine(SetParagraph const& paragraph, SetLine const& line, std::string_view text, float x)
{
    BytePosition position { line.firstByte, line.firstByte, false, false };
    SetCluster const* nearest = nullptr;
    bool isRightToLeft = false;
    eachCluster(paragraph, line, [&](SetCluster const& cluster, bool runsBackwards) {
        // The first that reaches beyond the point, or else the last one.
        nearest = &cluster;
        isRightToLeft = runsBackwards;
        return !(x < cluster.left + cluster.width);
    });
    if (!nearest)
        return position;
    float share = nearest->width > 0 ? (x - nearest->left) / nearest->width : (x < nearest->left ? 0.0F : 1.0F);
    position.isInside = share >= 0 && share < 1 && nearest->width > 0;
    share = std::clamp(std::isnan(share) ? 0 : share, 0.0F, 1.0F);
    if (isRightToLeft)
        share = 1 - share;
    auto const stops = stopsInCluster(text, *nearest);
    auto const end = nearest->byte + nearest->length;
    float const place = share * static_cast<float>(stops);
    auto const number = std::min(static_cast<std::uint32_t>(place), stops - 1);
    std::size_t byte = nearest->byte;
    for (std::uint32_t i = 0; i < number; ++i)
        byte = nextCaretStop(text, byte);
    position.isTrailing = place - static_cast<float>(number) >= 0.5F;
    auto const following = std::min<std::size_t>(nextCaretStop(text, byte), end);
    if (!isCaretStop(text, byte))
        byte = previousCaretStop(text, byte);
    position.byte = static_cast<std::uint32_t>(byte);
    position.insertion = static_cast<std::uint32_t>(position.isTrailing ? following : byte);
    if (!isCaretStop(text, position.insertion))
        position.insertion = static_cast<std::uint32_t>(nextCaretStop(text, position.insertion));
    return position;
}

float caretInLine(SetParagraph const& paragraph, SetLine const& line, std::string_view text, std::uint32_t byte)
{
    SetCluster const* last = nullptr;
    bool lastRunsBackwards = false;
    float x = line.isRightToLeft ? line.width : 0;
    bool isFound = false;
    eachCluster(paragraph, line, [&](SetCluster const& cluster, bool runsBackwards) {
        if (byte >= cluster.byte && byte < cluster.byte + cluster.length) {
            float const share = shareBefore(text, cluster, byte);
            x = cluster.left + cluster.width * (runsBackwards ? 1 - share : share);
            isFound = true;
            return false;
        }
        if (cluster.byte < byte && (!last || cluster.byte > last->byte)) {
            last = &cluster;
            lastRunsBackwards = runsBackwards;
        }
        return true;
    });
    if (!isFound && last)
        x = lastRunsBackwards ? last->left : last->left + last->width;
    return x;
}

std::vector<Extent> extentsInLine(
    SetParagraph const& paragraph, SetLine const& line, std::string_view text, std::uint32_t firstByte, std::uint32_t endByte)
{
    std::vector<Extent> extents;
    eachCluster(paragraph, line, [&](SetCluster const& cluster, bool runsBackwards) {
        if (cluster.byte >= endByte || cluster.byte + cluster.length <= firstByte)
            return true;
        float first = shareBefore(text, cluster, firstByte);
        float end = shareBefore(text, cluster, endByte);
        if (runsBackwards) {
            std::swap(first, end);
            first = 1 - first;
            end = 1 - end;
        }
        Extent const extent { cluster.left + cluster.width * first, cluster.left + cluster.width * end };
        if (!extents.empty() && extent.left <= extents.back().right + 0.01F)
            extents.back().right = std::max(extents.back().right, extent.right);
        else
            extents.push_back(extent);
        return true;
    });
    return extents;
}

bool moveCaretInLine(SetParagraph const& paragraph, SetLine const& line, std::string_view text, int direction, std::uint32_t& byte)
{
    float const current = caretInLine(paragraph, line, text, byte);
    float best = 0;
    bool isFound = false;
    std::uint32_t bestByte = byte;
    auto const consider = [&](std::uint32_t stop, float x) {
        bool const isFurther = direction > 0 ? x > current : x < current;
        if (!isFurther || (isFound && (direction > 0 ? x >= best : x <= best)))
            return;
        best = x;
        bestByte = stop;
        isFound = true;
    };
    eachCluster(paragraph, line, [&](SetCluster const& cluster, bool runsBackwards) {
        if (direction > 0 ? cluster.left + cluster.width < current : cluster.left > current)
            return true;
        for (std::size_t stop = cluster.byte; stop < cluster.byte + cluster.length; stop = nextCaretStop(text, stop)) {
            float const share = shareBefore(text, cluster, static_cast<std::uint32_t>(stop));
            if (isCaretStop(text, stop))
                consider(static_cast<std::uint32_t>(stop), cluster.left + cluster.width * (runsBackwards ? 1 - share : share));
        }
        return true;
    });
    consider(line.endByte, caretInLine(paragraph, line, text, line.endByte));
    byte = bestByte;
    return isFound;
}

}
