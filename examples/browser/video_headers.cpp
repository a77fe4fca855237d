#include "video_headers.h"

#include <examples/h264_headers/parameter_sets.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string_view>

namespace browser {

namespace {

constexpr std::size_t streamBeginning = std::size_t { 1 } << 16;
constexpr std::size_t greatestSetsBox = std::size_t { 1 } << 16;
constexpr std::array<std::uint8_t, 4> startCode { 0, 0, 0, 1 };

std::uint64_t number(std::span<std::uint8_t const> bytes)
{
    std::uint64_t value = 0;
    for (auto const byte : bytes)
        value = value << 8 | byte;
    return value;
}

struct Box {
    std::string type;
    std::uint64_t begin { 0 }; ///< of what is in it
    std::uint64_t end { 0 };
};

// Boxes lie in boxes (ISO/IEC 14496-12, 4.2), each with its size and type in front. A box that says it is smaller than that, or
// reaches beyond the one it lies in, ends the search.
class BoxSearch {
public:
    explicit BoxSearch(ReadAt const& readAt)
        : m_readAt(readAt)
    {
    }

    std::optional<Box> find(std::span<std::string_view const> path, std::uint64_t begin, std::uint64_t end)
    {
        while (auto const box = boxAt(begin, end)) {
            begin = box->end;
            if (box->type != path.front())
                continue;
            if (path.size() == 1)
                return box;
            if (auto const inner = find(path.subspan(1), box->begin + fieldsBefore(box->type), box->end))
                return inner;
        }
        return {};
    }

private:
    static constexpr int mostBoxes = 10'000;

    // Of a box that has fields of its own before the boxes in it.
    static std::uint64_t fieldsBefore(std::string const& type)
    {
        if (type == "stsd")
            return 8;
        return type.starts_with("avc") ? 78 : 0;
    }

    std::optional<Box> boxAt(std::uint64_t place, std::uint64_t end)
    {
        std::array<std::uint8_t, 16> head {};
        if (place >= end || end - place < 8 || ++m_boxes > mostBoxes || m_readAt(place, std::span(head).first(8)) != 8)
            return {};
        std::uint64_t size = number(std::span(head).first(4));
        std::uint64_t headSize = 8;
        if (size == 1) {
            headSize = 16;
            if (end - place < 16 || m_readAt(place + 8, std::span(head).last(8)) != 8)
                return {};
            size = number(std::span(head).last(8));
        } else if (size == 0) {
            size = end - place;
        }
        if (size < headSize || size > end - place)
            return {};
        std::string type;
        for (auto const byte : std::span(head).subspan(4, 4))
            type += static_cast<char>(byte);
        return Box { type, place + headSize, place + size };
    }

    ReadAt const& m_readAt;
    int m_boxes { 0 };
};

// The sets of an "avcC" box: five bytes, then counted sequence sets, then counted picture sets, each with its size.
std::vector<std::uint8_t> byteStreamOf(std::span<std::uint8_t const> box)
{
    std::vector<std::uint8_t> stream;
    std::size_t at = 5;
    for (unsigned const countMask : { 0x1FU, 0xFFU }) {
        if (at >= box.size())
            return stream;
        for (unsigned left = box[at++] & countMask; left > 0; --left) {
            if (box.size() - at < 2)
                return stream;
            auto const size = static_cast<std::size_t>(number(box.subspan(at, 2)));
            at += 2;
            if (box.size() - at < size)
                return stream;
            stream.insert(stream.end(), startCode.begin(), startCode.end());
            stream.insert(stream.end(), box.begin() + static_cast<long>(at), box.begin() + static_cast<long>(at + size));
            at += size;
        }
    }
    return stream;
}

std::vector<std::uint8_t> read(ReadAt const& readAt, std::uint64_t place, std::uint64_t size)
{
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    bytes.resize(readAt(place, bytes));
    return bytes;
}

std::string profileName(std::int64_t number)
{
    static std::map<std::int64_t, char const*> const names { { 44, "CAVLC 4:4:4 Intra" }, { 66, "Baseline" }, { 77, "Main" },
        { 88, "Extended" }, { 100, "High" }, { 110, "High 10" }, { 122, "High 4:2:2" }, { 244, "High 4:4:4 Predictive" } };
    auto const found = names.find(number);
    return found == names.end() ? std::to_string(number) : found->second;
}

class Fields {
public:
    explicit Fields(h264::ParameterSet const& set)
    {
        for (auto const& field : set.fields)
            m_values.emplace(field.name, field.value);
    }
    bool has(std::string const& name) const { return m_values.contains(name); }
    std::int64_t value(std::string const& name, std::int64_t otherwise = 0) const
    {
        auto const found = m_values.find(name);
        return found == m_values.end() ? otherwise : found->second;
    }

private:
    std::map<std::string, std::int64_t> m_values;
};

unsigned shownSize(std::int64_t coded, std::int64_t cropUnit, std::int64_t crops)
{
    return static_cast<unsigned>(std::max<std::int64_t>(0, coded - cropUnit * crops));
}

}

std::vector<std::uint8_t> videoHeaders(std::uint64_t size, ReadAt const& readAt)
{
    // Boxes first: the size of a file's first one may look like a start code.
    BoxSearch search(readAt);
    for (std::string_view const entry : { "avc1", "avc3" }) {
        std::string_view const path[] { "moov", "trak", "mdia", "minf", "stbl", "stsd", entry, "avcC" };
        if (auto const box = search.find(path, 0, size); box && box->end - box->begin <= greatestSetsBox)
            return byteStreamOf(read(readAt, box->begin, box->end - box->begin));
    }
    auto beginning = read(readAt, 0, std::min<std::uint64_t>(size, streamBeginning));
    auto const firstOther = std::ranges::find_if(beginning, [](auto byte) { return byte != 0; });
    auto const zeros = firstOther - beginning.begin();
    if ((zeros == 2 || zeros == 3) && firstOther != beginning.end() && *firstOther == 1)
        return beginning;
    return {};
}

bool readVideoFormat(std::span<std::uint8_t const> byteStream, VideoFormat& format)
{
    auto const sets = h264::parameterSetsOf(byteStream);
    auto const found = std::ranges::find(sets, h264::SetKind::Sequence, &h264::ParameterSet::kind);
    if (found == sets.end())
        return false;
    Fields const fields(*found);
    if (!fields.has("frame_mbs_only_flag"))
        return false;
    auto const level = fields.value("level_idc");
    format.profile = profileName(fields.value("profile_idc"));
    format.level = std::to_string(level / 10) + (level % 10 == 0 ? "" : '.' + std::to_string(level % 10));
    // Cropping counts chroma samples, and pairs of lines where there may be fields (clause 7.4.2.1.1).
    auto const chroma = fields.value("separate_colour_plane_flag") != 0 ? 0 : fields.value("chroma_format_idc", 1);
    std::int64_t const linesAField = 2 - fields.value("frame_mbs_only_flag");
    format.width = shownSize((fields.value("pic_width_in_mbs_minus1") + 1) * 16, chroma == 1 || chroma == 2 ? 2 : 1,
        fields.value("frame_crop_left_offset") + fields.value("frame_crop_right_offset"));
    format.height = shownSize((fields.value("pic_height_in_map_units_minus1") + 1) * 16 * linesAField,
        (chroma == 1 ? 2 : 1) * linesAField, fields.value("frame_crop_top_offset") + fields.value("frame_crop_bottom_offset"));
    auto const tick = static_cast<double>(fields.value("num_units_in_tick"));
    format.framesPerSecond = tick > 0 ? static_cast<double>(fields.value("time_scale")) / tick / 2 : 0;
    return true;
}

}
