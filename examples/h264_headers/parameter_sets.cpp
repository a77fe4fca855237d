#include "parameter_sets.h"

#include <algorithm>
#include <array>
#include <bit>
#include <iomanip>
#include <map>
#include <ostream>

namespace h264 {

namespace {

constexpr int sequenceParameterSetType = 7;
constexpr int pictureParameterSetType = 8;
constexpr std::uint32_t chroma420 = 1;
constexpr std::uint32_t chroma444 = 3;
constexpr std::uint32_t greatestFrameSize = 139264; // macroblocks, table A-1
constexpr std::uint32_t extendedSampleAspectRatio = 255;

/// The chroma format of each sequence parameter set by its number.
using ChromaFormats = std::map<std::uint32_t, std::uint32_t>;

std::string indexed(char const* name, std::uint32_t index)
{
    return name + ("[" + std::to_string(index) + "]");
}

/// The profiles whose sets say what chroma they have (clause 7.3.2.1.1).
bool saysItsChroma(std::uint32_t profile)
{
    static constexpr std::array<std::uint32_t, 13> profiles { 100, 110, 122, 244, 44, 83, 86, 118, 128, 138, 139, 134, 135 };
    return std::find(profiles.begin(), profiles.end(), profile) != profiles.end();
}

void readHeader(FieldReader& reader)
{
    reader.flag("forbidden_zero_bit");
    reader.u(2, "nal_ref_idc");
    reader.u(5, "nal_unit_type");
}

void readScalingList(FieldReader& reader, int size)
{
    std::uint32_t last = 8;
    std::uint32_t next = 8;
    for (int i = 0; i < size && next != 0; ++i) {
        next = (last + static_cast<std::uint32_t>(reader.se(indexed("delta_scale", static_cast<std::uint32_t>(i))))) % 256;
        last = next;
    }
}

void readScalingMatrix(FieldReader& reader, char const* presentFlag, std::uint32_t count)
{
    for (std::uint32_t i = 0; i < count; ++i) {
        if (reader.flag(indexed(presentFlag, i)))
            readScalingList(reader, i < 6 ? 16 : 64);
    }
}

void readDecoderTimes(FieldReader& reader)
{
    auto const last = reader.ue("cpb_cnt_minus1", 31);
    reader.u(4, "bit_rate_scale");
    reader.u(4, "cpb_size_scale");
    for (std::uint32_t i = 0; i <= last; ++i) {
        reader.ue(indexed("bit_rate_value_minus1", i));
        reader.ue(indexed("cpb_size_value_minus1", i));
        reader.flag(indexed("cbr_flag", i));
    }
    reader.u(5, "initial_cpb_removal_delay_length_minus1");
    reader.u(5, "cpb_removal_delay_length_minus1");
    reader.u(5, "dpb_output_delay_length_minus1");
    reader.u(5, "time_offset_length");
}

void readPictureDescription(FieldReader& reader)
{
    if (reader.flag("aspect_ratio_info_present_flag") && reader.u(8, "aspect_ratio_idc") == extendedSampleAspectRatio) {
        reader.u(16, "sar_width");
        reader.u(16, "sar_height");
    }
    if (reader.flag("overscan_info_present_flag"))
        reader.flag("overscan_appropriate_flag");
    if (reader.flag("video_signal_type_present_flag")) {
        reader.u(3, "video_format");
        reader.flag("video_full_range_flag");
        if (reader.flag("colour_description_present_flag")) {
            reader.u(8, "colour_primaries");
            reader.u(8, "transfer_characteristics");
            reader.u(8, "matrix_coefficients");
        }
    }
    if (reader.flag("chroma_loc_info_present_flag")) {
        reader.ue("chroma_sample_loc_type_top_field", 5);
        reader.ue("chroma_sample_loc_type_bottom_field", 5);
    }
}

void readUsability(FieldReader& reader)
{
    readPictureDescription(reader);
    if (reader.flag("timing_info_present_flag")) {
        reader.u(32, "num_units_in_tick");
        reader.u(32, "time_scale");
        reader.flag("fixed_frame_rate_flag");
    }
    bool const hasNalTimes = reader.flag("nal_hrd_parameters_present_flag");
    if (hasNalTimes)
        readDecoderTimes(reader);
    bool const hasVclTimes = reader.flag("vcl_hrd_parameters_present_flag");
    if (hasVclTimes)
        readDecoderTimes(reader);
    if (hasNalTimes || hasVclTimes)
        reader.flag("low_delay_hrd_flag");
    reader.flag("pic_struct_present_flag");
    if (reader.flag("bitstream_restriction_flag")) {
        reader.flag("motion_vectors_over_pic_boundaries_flag");
        for (auto const* name : { "max_bytes_per_pic_denom", "max_bits_per_mb_denom", "log2_max_mv_length_horizontal",
                 "log2_max_mv_length_vertical", "max_num_reorder_frames", "max_dec_frame_buffering" })
            reader.ue(name);
    }
}

std::uint32_t readChroma(FieldReader& reader)
{
    auto const format = reader.ue("chroma_format_idc", chroma444);
    if (format == chroma444)
        reader.flag("separate_colour_plane_flag");
    reader.ue("bit_depth_luma_minus8", 6);
    reader.ue("bit_depth_chroma_minus8", 6);
    reader.flag("qpprime_y_zero_transform_bypass_flag");
    if (reader.flag("seq_scaling_matrix_present_flag"))
        readScalingMatrix(reader, "seq_scaling_list_present_flag", format == chroma444 ? 12 : 8);
    return format;
}

void readPictureOrder(FieldReader& reader)
{
    auto const type = reader.ue("pic_order_cnt_type", 2);
    if (type == 0) {
        reader.ue("log2_max_pic_order_cnt_lsb_minus4", 12);
    } else if (type == 1) {
        reader.flag("delta_pic_order_always_zero_flag");
        reader.se("offset_for_non_ref_pic");
        reader.se("offset_for_top_to_bottom_field");
        auto const count = reader.ue("num_ref_frames_in_pic_order_cnt_cycle", 255);
        for (std::uint32_t i = 0; i < count; ++i)
            reader.se(indexed("offset_for_ref_frame", i));
    }
}

void readSequence(FieldReader& reader, ChromaFormats& formats)
{
    auto const profile = reader.u(8, "profile_idc");
    for (std::uint32_t i = 0; i < 6; ++i)
        reader.flag("constraint_set" + std::to_string(i) + "_flag");
    reader.u(2, "reserved_zero_2bits");
    reader.u(8, "level_idc");
    auto const number = reader.ue("seq_parameter_set_id", 31);
    formats[number] = saysItsChroma(profile) ? readChroma(reader) : chroma420;
    reader.ue("log2_max_frame_num_minus4", 12);
    readPictureOrder(reader);
    reader.ue("max_num_ref_frames");
    reader.flag("gaps_in_frame_num_value_allowed_flag");
    reader.ue("pic_width_in_mbs_minus1");
    reader.ue("pic_height_in_map_units_minus1");
    if (!reader.flag("frame_mbs_only_flag"))
        reader.flag("mb_adaptive_frame_field_flag");
    reader.flag("direct_8x8_inference_flag");
    if (reader.flag("frame_cropping_flag")) {
        for (auto const* side : { "left", "right", "top", "bottom" })
            reader.ue("frame_crop_" + std::string(side) + "_offset");
    }
    if (reader.flag("vui_parameters_present_flag"))
        readUsability(reader);
}

void readSliceGroups(FieldReader& reader, std::uint32_t last)
{
    auto const type = reader.ue("slice_group_map_type", 6);
    if (type == 0) {
        for (std::uint32_t i = 0; i <= last; ++i)
            reader.ue(indexed("run_length_minus1", i));
    } else if (type == 2) {
        for (std::uint32_t i = 0; i < last; ++i) {
            reader.ue(indexed("top_left", i));
            reader.ue(indexed("bottom_right", i));
        }
    } else if (type >= 3 && type <= 5) {
        reader.flag("slice_group_change_direction_flag");
        reader.ue("slice_group_change_rate_minus1");
    } else if (type == 6) {
        auto const lastUnit = reader.ue("pic_size_in_map_units_minus1", greatestFrameSize - 1);
        for (std::uint32_t i = 0; i <= lastUnit; ++i)
            reader.u(std::bit_width(last), indexed("slice_group_id", i));
    }
}

void readPicture(FieldReader& reader, ChromaFormats const& formats)
{
    reader.ue("pic_parameter_set_id", 255);
    auto const format = formats.find(reader.ue("seq_parameter_set_id", 31));
    reader.flag("entropy_coding_mode_flag");
    reader.flag("bottom_field_pic_order_in_frame_present_flag");
    if (auto const lastGroup = reader.ue("num_slice_groups_minus1", 7); lastGroup > 0)
        readSliceGroups(reader, lastGroup);
    reader.ue("num_ref_idx_l0_default_active_minus1", 31);
    reader.ue("num_ref_idx_l1_default_active_minus1", 31);
    reader.flag("weighted_pred_flag");
    reader.u(2, "weighted_bipred_idc");
    reader.se("pic_init_qp_minus26");
    reader.se("pic_init_qs_minus26");
    reader.se("chroma_qp_index_offset");
    reader.flag("deblocking_filter_control_present_flag");
    reader.flag("constrained_intra_pred_flag");
    reader.flag("redundant_pic_cnt_present_flag");
    if (!reader.hasMore())
        return;
    bool const hasLargeTransforms = reader.flag("transform_8x8_mode_flag");
    if (reader.flag("pic_scaling_matrix_present_flag")) {
        bool const has444 = format != formats.end() && format->second == chroma444;
        auto const largeLists = hasLargeTransforms ? (has444 ? 6U : 2U) : 0U;
        readScalingMatrix(reader, "pic_scaling_list_present_flag", 6 + largeLists);
    }
    reader.se("second_chroma_qp_index_offset");
}

}

std::vector<ParameterSet> parameterSetsOf(Bytes stream)
{
    std::vector<ParameterSet> sets;
    ChromaFormats formats;
    for (auto const& unit : nalUnitsOf(stream)) {
        if (unit.type() != sequenceParameterSetType && unit.type() != pictureParameterSetType)
            continue;
        auto const kind = unit.type() == sequenceParameterSetType ? SetKind::Sequence : SetKind::Picture;
        ParameterSet set { kind, unit.position, unit.bytes.size(), {}, {} };
        FieldReader reader(withoutEmulationPrevention(unit.bytes));
        try {
            readHeader(reader);
            if (kind == SetKind::Sequence)
                readSequence(reader, formats);
            else
                readPicture(reader, formats);
            reader.readStopBit();
        } catch (Fault const& fault) {
            set.fault = fault.what();
        }
        set.fields = reader.fields();
        sets.push_back(std::move(set));
    }
    return sets;
}

void print(std::ostream& out, ParameterSet const& set)
{
    out << (set.kind == SetKind::Sequence ? "Sequence" : "Picture") << " parameter set at byte " << set.position << ", " << set.size
        << " bytes\n";
    for (auto const& field : set.fields) {
        out << std::setw(8) << std::right << field.position << "  " << std::setw(6) << std::left << field.descriptor << ' '
            << std::setw(44) << field.name << ' ' << field.value << '\n';
    }
    if (!set.fault.empty())
        out << "  broken: " << set.fault << '\n';
}

}
