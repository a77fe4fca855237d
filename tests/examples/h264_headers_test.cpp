#include "BitWriter.h"

#include <examples/h264_headers/annex_b.h>
#include <examples/h264_headers/parameter_sets.h>

#include <tests/support/TestFolder.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstdio>
#include <random>
#include <sstream>

#include <sys/wait.h>

namespace h264 {
namespace {

using Stream = std::vector<std::uint8_t>;
using plix::TestFolder;

Stream bytesOf(std::string_view text)
{
    return Stream(text.begin(), text.end());
}

void write(BitWriter& bits, Field const& field)
{
    if (field.descriptor == "ue(v)")
        bits.ue(field.value);
    else if (field.descriptor == "se(v)")
        bits.se(field.value);
    else
        bits.u(field.value, std::stol(field.descriptor.substr(2)));
}

/// A byte stream of one NAL unit, with emulation prevention bytes where they have to be.
Stream streamOf(Stream const& unit)
{
    Stream stream { 0, 0, 0, 1 };
    int zeros = 0;
    for (auto const byte : unit) {
        if (zeros >= 2 && byte <= 3) {
            stream.push_back(3);
            zeros = 0;
        }
        zeros = byte == 0 ? zeros + 1 : 0;
        stream.push_back(byte);
    }
    return stream;
}

/// "u(8) profile_idc 66; ue(v) seq_parameter_set_id 0; ..." as fields, with their positions.
std::vector<Field> fieldsOf(std::string const& text)
{
    std::vector<Field> fields;
    std::istringstream lines(text);
    std::int64_t position = 0;
    for (std::string line; std::getline(lines, line, ';');) {
        std::istringstream words(line);
        Field field;
        if (!(words >> field.descriptor >> field.name >> field.value))
            continue;
        BitWriter alone;
        field.position = position;
        auto const value = static_cast<std::uint64_t>(field.value);
        if (field.descriptor == "ue(v)")
            field.width = 2 * std::bit_width(value + 1) - 1;
        else if (field.descriptor == "se(v)")
            field.width
                = 2 * std::bit_width(static_cast<std::uint64_t>(field.value > 0 ? 2 * field.value : -2 * field.value + 1)) - 1;
        else
            field.width = std::stol(field.descriptor.substr(2));
        position += field.width;
        fields.push_back(field);
    }
    return fields;
}

Stream unitOf(std::vector<Field> const& fields)
{
    BitWriter writer;
    for (auto const& field : fields)
        write(writer, field);
    return writer.bytes();
}

std::string textOf(Field const& field)
{
    return std::to_string(field.position) + " " + field.descriptor + " " + field.name + " " + std::to_string(field.value);
}

std::vector<std::string> textsOf(std::vector<Field> const& fields)
{
    std::vector<std::string> texts;
    for (auto const& field : fields)
        texts.push_back(textOf(field));
    return texts;
}

std::string const sequenceHeader = "u(1) forbidden_zero_bit 0; u(2) nal_ref_idc 3; u(5) nal_unit_type 7;";
std::string const pictureHeader = "u(1) forbidden_zero_bit 0; u(2) nal_ref_idc 3; u(5) nal_unit_type 8;";
std::string const stopBit = "u(1) rbsp_stop_one_bit 1;";

std::string profile(int number)
{
    std::string text = "u(8) profile_idc " + std::to_string(number) + ";";
    for (int i = 0; i < 6; ++i)
        text += "u(1) constraint_set" + std::to_string(i) + "_flag " + std::to_string(i % 2) + ";";
    return text + "u(2) reserved_zero_2bits 0; u(8) level_idc 30;";
}

std::string decoderTimes()
{
    return "ue(v) cpb_cnt_minus1 1; u(4) bit_rate_scale 3; u(4) cpb_size_scale 4;"
           "ue(v) bit_rate_value_minus1[0] 100; ue(v) cpb_size_value_minus1[0] 70000; u(1) cbr_flag[0] 1;"
           "ue(v) bit_rate_value_minus1[1] 4294967294; ue(v) cpb_size_value_minus1[1] 0; u(1) cbr_flag[1] 0;"
           "u(5) initial_cpb_removal_delay_length_minus1 23; u(5) cpb_removal_delay_length_minus1 15;"
           "u(5) dpb_output_delay_length_minus1 5; u(5) time_offset_length 24;";
}

std::string everyUsability()
{
    return "u(1) aspect_ratio_info_present_flag 1; u(8) aspect_ratio_idc 255; u(16) sar_width 64; u(16) sar_height 45;"
           "u(1) overscan_info_present_flag 1; u(1) overscan_appropriate_flag 0;"
           "u(1) video_signal_type_present_flag 1; u(3) video_format 5; u(1) video_full_range_flag 1;"
           "u(1) colour_description_present_flag 1; u(8) colour_primaries 9; u(8) transfer_characteristics 16;"
           "u(8) matrix_coefficients 9; u(1) chroma_loc_info_present_flag 1; ue(v) chroma_sample_loc_type_top_field 5;"
           "ue(v) chroma_sample_loc_type_bottom_field 2; u(1) timing_info_present_flag 1;"
           "u(32) num_units_in_tick 4294967295; u(32) time_scale 1; u(1) fixed_frame_rate_flag 1;"
           "u(1) nal_hrd_parameters_present_flag 1;"
        + decoderTimes() + "u(1) vcl_hrd_parameters_present_flag 1;" + decoderTimes()
        + "u(1) low_delay_hrd_flag 1; u(1) pic_struct_present_flag 1; u(1) bitstream_restriction_flag 1;"
          "u(1) motion_vectors_over_pic_boundaries_flag 0; ue(v) max_bytes_per_pic_denom 2; ue(v) max_bits_per_mb_denom 1;"
          "ue(v) log2_max_mv_length_horizontal 16; ue(v) log2_max_mv_length_vertical 15; ue(v) max_num_reorder_frames 1;"
          "ue(v) max_dec_frame_buffering 4;";
}

std::string noUsability()
{
    return "u(1) aspect_ratio_info_present_flag 1; u(8) aspect_ratio_idc 1; u(1) overscan_info_present_flag 0;"
           "u(1) video_signal_type_present_flag 1; u(3) video_format 5; u(1) video_full_range_flag 1;"
           "u(1) colour_description_present_flag 0; u(1) chroma_loc_info_present_flag 0; u(1) timing_info_present_flag 0;"
           "u(1) nal_hrd_parameters_present_flag 0; u(1) vcl_hrd_parameters_present_flag 0; u(1) pic_struct_present_flag 0;"
           "u(1) bitstream_restriction_flag 0;";
}

/// The lists of a scaling matrix: the first whole, the second ended by a 0, the last whole, the others left out.
std::string scalingLists(std::string const& flag, int count)
{
    std::string text;
    for (int list = 0; list < count; ++list) {
        auto const size = list < 6 ? 16 : 64;
        bool const isThere = list < 2 || list == count - 1;
        text += "u(1) " + flag + "[" + std::to_string(list) + "] " + std::to_string(isThere) + ";";
        if (!isThere)
            continue;
        if (list == 1) {
            text += "se(v) delta_scale[0] 3; se(v) delta_scale[1] -11;"; // 8 + 3 - 11 is 0
            continue;
        }
        for (int i = 0; i < size; ++i)
            text += "se(v) delta_scale[" + std::to_string(i) + "] " + std::to_string(i % 2 ? -2 : 3) + ";";
    }
    return text;
}

std::string baselineSequence()
{
    return sequenceHeader + profile(66)
        + "ue(v) seq_parameter_set_id 0; ue(v) log2_max_frame_num_minus4 0; ue(v) pic_order_cnt_type 2; ue(v) max_num_ref_frames 1;"
          "u(1) gaps_in_frame_num_value_allowed_flag 0; ue(v) pic_width_in_mbs_minus1 10; ue(v) pic_height_in_map_units_minus1 8;"
          "u(1) frame_mbs_only_flag 1; u(1) direct_8x8_inference_flag 1; u(1) frame_cropping_flag 0;"
          "u(1) vui_parameters_present_flag 0;"
        + stopBit;
}

std::string fullSequence(int profileNumber, int chromaFormat)
{
    return sequenceHeader + profile(profileNumber) + "ue(v) seq_parameter_set_id 31; ue(v) chroma_format_idc "
        + std::to_string(chromaFormat) + ";" + (chromaFormat == 3 ? "u(1) separate_colour_plane_flag 1;" : "")
        + "ue(v) bit_depth_luma_minus8 6; ue(v) bit_depth_chroma_minus8 2; u(1) qpprime_y_zero_transform_bypass_flag 1;"
          "u(1) seq_scaling_matrix_present_flag 1;"
        + scalingLists("seq_scaling_list_present_flag", chromaFormat == 3 ? 12 : 8)
        + "ue(v) log2_max_frame_num_minus4 12; ue(v) pic_order_cnt_type 1; u(1) delta_pic_order_always_zero_flag 0;"
          "se(v) offset_for_non_ref_pic -5; se(v) offset_for_top_to_bottom_field 2147483647;"
          "ue(v) num_ref_frames_in_pic_order_cnt_cycle 3; se(v) offset_for_ref_frame[0] 1; se(v) offset_for_ref_frame[1] -1;"
          "se(v) offset_for_ref_frame[2] 0; ue(v) max_num_ref_frames 4; u(1) gaps_in_frame_num_value_allowed_flag 1;"
          "ue(v) pic_width_in_mbs_minus1 119; ue(v) pic_height_in_map_units_minus1 33; u(1) frame_mbs_only_flag 0;"
          "u(1) mb_adaptive_frame_field_flag 1; u(1) direct_8x8_inference_flag 1; u(1) frame_cropping_flag 1;"
          "ue(v) frame_crop_left_offset 0; ue(v) frame_crop_right_offset 1; ue(v) frame_crop_top_offset 2;"
          "ue(v) frame_crop_bottom_offset 3; u(1) vui_parameters_present_flag 1;"
        + everyUsability() + stopBit;
}

std::string picture(int sequence, std::string const& sliceGroups, std::string const& more)
{
    return pictureHeader + "ue(v) pic_parameter_set_id 255; ue(v) seq_parameter_set_id " + std::to_string(sequence)
        + ";"
          "u(1) entropy_coding_mode_flag 1; u(1) bottom_field_pic_order_in_frame_present_flag 0;"
        + sliceGroups
        + "ue(v) num_ref_idx_l0_default_active_minus1 31; ue(v) num_ref_idx_l1_default_active_minus1 0; u(1) weighted_pred_flag 1;"
          "u(2) weighted_bipred_idc 2; se(v) pic_init_qp_minus26 -26; se(v) pic_init_qs_minus26 25; se(v) chroma_qp_index_offset "
          "-12;"
          "u(1) deblocking_filter_control_present_flag 1; u(1) constrained_intra_pred_flag 0; u(1) redundant_pic_cnt_present_flag "
          "1;"
        + more + stopBit;
}

std::string const oneSliceGroup = "ue(v) num_slice_groups_minus1 0;";

void expectReadsBack(std::string const& text, Stream before = {})
{
    auto const fields = fieldsOf(text);
    auto stream = std::move(before);
    auto const unit = streamOf(unitOf(fields));
    stream.insert(stream.end(), unit.begin(), unit.end());
    auto const sets = parameterSetsOf(stream);
    ASSERT_FALSE(sets.empty());
    EXPECT_EQ(sets.back().fault, "");
    EXPECT_EQ(textsOf(sets.back().fields), textsOf(fields));
}

TEST(H264AnnexB, FindsTheUnits)
{
    struct Row {
        std::string_view stream;
        std::vector<std::pair<std::size_t, std::string>> units;
    };
    using namespace std::string_view_literals;
    for (auto const& row : {
             Row { ""sv, {} },
             Row { "\0\0\1"sv, {} },
             Row { "\0\0\1\0\0\1"sv, {} },
             Row { "abc\0\0"sv, {} },
             Row { "\0\0\1a"sv, { { 3, "a" } } },
             Row { "\0\0\0\0\1a\0\0\0\0\0\1bc"sv, { { 5, "a" }, { 12, "bc" } } },
             Row { "junk\0\0\1a\0\0"sv, { { 7, "a" } } },
             Row { "\0\0\1a\0b\0\0\2\0\0\1c"sv, { { 3, std::string("a\0b\0\0\2", 6) }, { 12, "c" } } },
         }) {
        auto const stream = bytesOf(row.stream);
        std::vector<std::pair<std::size_t, std::string>> units;
        for (auto const& unit : nalUnitsOf(stream))
            units.emplace_back(unit.position, std::string(unit.bytes.begin(), unit.bytes.end()));
        EXPECT_EQ(units, row.units) << testing::PrintToString(row.stream);
    }
}

TEST(H264AnnexB, TakesEmulationPreventionOut)
{
    using namespace std::string_view_literals;
    for (auto const& [unit, bytes] : {
             std::pair { "\0\0\3\1"sv, "\0\0\1"sv },
             std::pair { "\0\0\3\0\0\3\3"sv, "\0\0\0\0\3"sv },
             std::pair { "\0\3\0\0\4\3"sv, "\0\3\0\0\4\3"sv },
             std::pair { "a\0\0\3"sv, "a\0\0"sv },
             std::pair { "\0\0\0\3\3"sv, "\0\0\0\3"sv },
         })
        EXPECT_EQ(withoutEmulationPrevention(bytesOf(unit)), bytesOf(bytes)) << testing::PrintToString(unit);
}

TEST(H264AnnexB, TakesOutWhatWasPutIn)
{
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        Stream unit { 0x67 };
        for (auto length = random() % 40; length > 0; --length)
            unit.push_back(static_cast<std::uint8_t>(random() % 5));
        unit.push_back(0x80);
        auto const stream = streamOf(unit);
        auto const units = nalUnitsOf(stream);
        ASSERT_EQ(units.size(), 1U);
        ASSERT_EQ(withoutEmulationPrevention(units[0].bytes), unit);
    }
}

TEST(H264Headers, ReadEveryFieldOfASequenceParameterSet)
{
    expectReadsBack(baselineSequence());
    expectReadsBack(fullSequence(100, 1));
    expectReadsBack(fullSequence(244, 3));
    auto plain = baselineSequence();
    plain.replace(plain.find("u(1) vui_parameters_present_flag 0;"), 35, "u(1) vui_parameters_present_flag 1;" + noUsability());
    expectReadsBack(plain);
}

TEST(H264Headers, KnowTheProfilesThatSayTheirChroma)
{
    for (int const number : { 100, 110, 122, 244, 44, 83, 86, 118, 128, 138, 139, 134, 135 })
        expectReadsBack(fullSequence(number, 2));
    for (int const number : { 66, 77, 88 }) {
        auto text = baselineSequence();
        text.replace(text.find("profile_idc 66"), 14, "profile_idc " + std::to_string(number));
        expectReadsBack(text);
    }
}

TEST(H264Headers, ReadEveryFieldOfAPictureParameterSet)
{
    auto const groups = [](int type, std::string const& rest) {
        return "ue(v) num_slice_groups_minus1 2; ue(v) slice_group_map_type " + std::to_string(type) + ";" + rest;
    };
    expectReadsBack(picture(0, oneSliceGroup, ""));
    expectReadsBack(
        picture(0, groups(0, "ue(v) run_length_minus1[0] 5; ue(v) run_length_minus1[1] 6; ue(v) run_length_minus1[2] 7;"), ""));
    expectReadsBack(picture(0, groups(1, ""), ""));
    expectReadsBack(
        picture(0, groups(2, "ue(v) top_left[0] 5; ue(v) bottom_right[0] 6; ue(v) top_left[1] 7; ue(v) bottom_right[1] 70;"), ""));
    for (int const type : { 3, 4, 5 })
        expectReadsBack(
            picture(0, groups(type, "u(1) slice_group_change_direction_flag 1; ue(v) slice_group_change_rate_minus1 98;"), ""));
    expectReadsBack(picture(0,
        groups(6,
            "ue(v) pic_size_in_map_units_minus1 3; u(2) slice_group_id[0] 2; u(2) slice_group_id[1] 0; u(2) slice_group_id[2] 1;"
            "u(2) slice_group_id[3] 2;"),
        ""));
}

TEST(H264Headers, ReadAsManyScalingListsAsTheChromaWants)
{
    auto const more = [](int hasLargeTransforms, int lists) {
        return "u(1) transform_8x8_mode_flag " + std::to_string(hasLargeTransforms) + ";u(1) pic_scaling_matrix_present_flag 1;"
            + scalingLists("pic_scaling_list_present_flag", lists) + "se(v) second_chroma_qp_index_offset 12;";
    };
    auto const full444 = streamOf(unitOf(fieldsOf(fullSequence(244, 3))));
    auto const full422 = streamOf(unitOf(fieldsOf(fullSequence(122, 2))));
    expectReadsBack(picture(31, oneSliceGroup, more(0, 6)), full444);
    expectReadsBack(picture(31, oneSliceGroup, more(1, 12)), full444);
    expectReadsBack(picture(31, oneSliceGroup, more(1, 8)), full422);
    expectReadsBack(picture(7, oneSliceGroup, more(1, 8)), full444);
    expectReadsBack(picture(31, oneSliceGroup,
        "u(1) transform_8x8_mode_flag 1; u(1) pic_scaling_matrix_present_flag 0; se(v) second_chroma_qp_index_offset 0;"));
}

TEST(H264Headers, SayWhereASetBreaksOff)
{
    for (auto const& text : { baselineSequence(), fullSequence(100, 1), fullSequence(244, 3), picture(0, oneSliceGroup, ""),
             picture(0, oneSliceGroup,
                 "u(1) transform_8x8_mode_flag 1; u(1) pic_scaling_matrix_present_flag 0; se(v) second_chroma_qp_index_offset "
                 "0;") }) {
        auto const fields = textsOf(fieldsOf(text));
        auto const unit = unitOf(fieldsOf(text));
        for (std::size_t size = 1; size < unit.size(); ++size) {
            // Cut after a bit that counts as the stop bit.
            Stream cut(unit.begin(), unit.begin() + static_cast<std::ptrdiff_t>(size));
            cut.push_back(0x80);
            auto const sets = parameterSetsOf(streamOf(cut));
            ASSERT_EQ(sets.size(), 1U);
            auto const read = textsOf(sets[0].fields);
            bool const couldEndHere = text.starts_with(pictureHeader) && read.back().find("rbsp_stop_one_bit") != std::string::npos;
            ASSERT_TRUE(couldEndHere || !sets[0].fault.empty()) << size;
            ASSERT_LE(read.size(), fields.size());
            for (std::size_t i = 0; i + 1 < read.size(); ++i)
                ASSERT_EQ(read[i], fields[i]) << size;
        }
    }
}

TEST(H264Headers, NameTheFault)
{
    struct Row {
        std::string what;
        std::string from;
        std::string to;
        std::string fault;
    };
    for (auto const& row : {
             Row { baselineSequence(), "seq_parameter_set_id 0", "seq_parameter_set_id 32", "seq_parameter_set_id is beyond 31" },
             Row { baselineSequence(), "log2_max_frame_num_minus4 0", "log2_max_frame_num_minus4 13",
                 "log2_max_frame_num_minus4 is beyond 12" },
             Row { baselineSequence(), "pic_order_cnt_type 2", "pic_order_cnt_type 3", "pic_order_cnt_type is beyond 2" },
             Row { fullSequence(100, 1), "chroma_format_idc 1", "chroma_format_idc 4", "chroma_format_idc is beyond 3" },
             Row { fullSequence(100, 1), "cpb_cnt_minus1 1", "cpb_cnt_minus1 32", "cpb_cnt_minus1 is beyond 31" },
             Row { baselineSequence(), stopBit, "u(3) rest 5;" + stopBit, "3 bits are left over" },
             Row { baselineSequence(), "ue(v) pic_height", "u(33) zeros 0; u(31) ue(v) pic_height",
                 "no whole code for pic_height_in_map_units_minus1" },
             Row { picture(0, oneSliceGroup, ""), "num_slice_groups_minus1 0", "num_slice_groups_minus1 8",
                 "num_slice_groups_minus1 is beyond 7" },
         }) {
        auto text = row.what;
        text.replace(text.find(row.from), row.from.size(), row.to);
        auto const sets = parameterSetsOf(streamOf(unitOf(fieldsOf(text))));
        ASSERT_EQ(sets.size(), 1U);
        EXPECT_EQ(sets[0].fault, row.fault);
    }
    auto const onlyHeader = parameterSetsOf(Stream { 0, 0, 1, 0x67 });
    ASSERT_EQ(onlyHeader.size(), 1U);
    EXPECT_EQ(onlyHeader[0].fault, "ends in nal_unit_type");
}

TEST(H264Headers, PassOverOtherUnits)
{
    EXPECT_TRUE(parameterSetsOf(Stream { 0, 0, 1, 0x65, 0x88, 0, 0, 1, 0x09, 0xF0 }).empty());
    EXPECT_TRUE(parameterSetsOf({}).empty());
}

TEST(H264Headers, SurviveEveryByteChanged)
{
    auto const unit = streamOf(unitOf(fieldsOf(fullSequence(244, 3))));
    for (std::size_t at = 5; at < unit.size(); ++at) {
        for (int value = 0; value < 256; value += 5) {
            auto changed = unit;
            changed[at] = static_cast<std::uint8_t>(value);
            for (auto const& set : parameterSetsOf(changed)) {
                ASSERT_GE(set.fields.size(), 1U);
                ASSERT_LE(set.fields.back().position, static_cast<std::int64_t>(unit.size()) * 8);
            }
        }
    }
}

std::string outputOf(std::string const& command, int& status)
{
    std::string output;
    auto* pipe = ::popen((command + " 2>&1").c_str(), "r");
    if (!pipe)
        return output;
    char buffer[4096];
    while (auto const count = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, count);
    status = ::pclose(pipe);
    return output;
}

/// What ffmpeg's own parser says of the parameter sets in a file: position, name and value of each field.
std::vector<std::string> tracedFields(std::string const& path)
{
    int status = 0;
    std::istringstream lines(outputOf("ffmpeg -hide_banner -i '" + path + "' -c copy -bsf:v trace_headers -f null -", status));
    std::vector<std::string> fields;
    bool isInPacket = false;
    bool isInSet = false;
    for (std::string line; std::getline(lines, line);) {
        auto const mark = line.find("] ");
        if (!line.starts_with("[trace_headers") || mark == std::string::npos)
            continue;
        auto const text = line.substr(mark + 2);
        if (!std::isdigit(static_cast<unsigned char>(text[0]))) {
            isInPacket = text.starts_with("Packet") || (isInPacket && !text.starts_with("Extradata"));
            isInSet = isInPacket && text.ends_with("Parameter Set");
            continue;
        }
        std::istringstream words(text);
        std::string position, name, bits, equals, value;
        words >> position >> name >> bits >> equals >> value;
        if (isInSet && name != "rbsp_alignment_zero_bit")
            fields.push_back(position + " " + name + " " + value);
    }
    return fields;
}

std::vector<std::string> ownFields(std::string const& path)
{
    std::vector<std::string> fields;
    std::ifstream file(path, std::ios::binary);
    std::string const bytes { std::istreambuf_iterator<char>(file), {} };
    for (auto const& set : parameterSetsOf(bytesOf(bytes))) {
        EXPECT_EQ(set.fault, "");
        for (auto const& field : set.fields) {
            // ffmpeg has the name of an older edition.
            auto const name = field.name == "gaps_in_frame_num_value_allowed_flag" ? "gaps_in_frame_num_allowed_flag" : field.name;
            fields.push_back(std::to_string(field.position) + " " + name + " " + std::to_string(field.value));
        }
    }
    return fields;
}

bool encode(std::string const& path, std::string const& source, std::string const& options)
{
    int status = 1;
    auto const output = outputOf(
        "ffmpeg -hide_banner -loglevel error -f lavfi -i " + source + " -c:v libx264 " + options + " -f h264 -y '" + path + "'",
        status);
    EXPECT_EQ(output, "");
    return status == 0;
}

TEST(H264Headers, AgreeWithFfmpegOnWhatX264Encodes)
{
    struct Row {
        char const* source;
        char const* options;
    };
    TestFolder folder;
    auto const path = folder / "video.h264";
    for (auto const& row : {
             Row { "testsrc=size=176x144:rate=15", "-frames:v 3 -profile:v baseline -pix_fmt yuv420p" },
             Row { "testsrc=size=320x240:rate=30000/1001", "-frames:v 3 -profile:v main -bf 2 -pix_fmt yuv420p" },
             Row { "testsrc=size=322x242:rate=25",
                 "-frames:v 2 -pix_fmt yuv444p -x264-params "
                 "cqm=jvt:nal-hrd=cbr:vbv-maxrate=500:vbv-bufsize=500:bitrate=500:colorprim=bt709:transfer=bt709:colormatrix="
                 "bt709" },
             Row { "testsrc=size=1920x1080:rate=50", "-frames:v 1 -pix_fmt yuv422p10le -vf setsar=64/45 -color_range pc" },
             Row { "testsrc=size=64x68:rate=25", "-frames:v 4 -pix_fmt yuv420p -flags +ildct -x264-params interlaced=1:keyint=2" },
             Row { "testsrc=size=128x96:rate=25",
                 "-frames:v 2 -pix_fmt yuv420p -x264-params chromaloc=2:overscan=show:fullrange=on" },
             Row { "testsrc=size=128x96:rate=25",
                 "-frames:v 2 -pix_fmt yuv420p -x264-params "
                 "cqm4=6,13,20,28,13,20,28,32,20,28,32,37,28,32,37,42:8x8dct=1:weightp=2" },
             Row { "testsrc=size=96x96:rate=1/3600", "-frames:v 2 -pix_fmt gray" },
         }) {
        ASSERT_TRUE(encode(path, row.source, row.options)) << row.options;
        auto const traced = tracedFields(path);
        ASSERT_GT(traced.size(), 40U) << row.options;
        EXPECT_EQ(ownFields(path), traced) << row.options;
    }
}

TEST(H264Headers, PrintOneLineAField)
{
    TestFolder folder;
    auto const stream = streamOf(unitOf(fieldsOf(baselineSequence())));
    auto const path = folder.write("a.h264", std::string(stream.begin(), stream.end()));
    int status = 1;
    auto const output = outputOf(std::string(H264_HEADERS_PROGRAM) + " '" + path + "'", status);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(output.starts_with("Sequence parameter set at byte 4, " + std::to_string(stream.size() - 4) + " bytes\n"))
        << output;
    EXPECT_NE(output.find("\n       8  u(8)   profile_idc                                  66\n"), std::string::npos) << output;
    EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), static_cast<long>(fieldsOf(baselineSequence()).size()) + 1);
}

TEST(H264Headers, TellWhatIsWrongByTheirStatus)
{
    TestFolder folder;
    std::string const program = H264_HEADERS_PROGRAM;
    auto const broken = folder.write("broken.h264", std::string_view("\0\0\1\x67\x42", 5));
    auto const other = folder.write("other.txt", "no video at all");
    struct Row {
        std::string arguments;
        int status;
        char const* output;
    };
    for (auto const& row : {
             Row { "", 2, "usage: " },
             Row { "a b", 2, "usage: " },
             Row { folder / "nothing", 1, "can't read" },
             Row { folder.path(), 1, "h264_headers: " },
             Row { other, 1, "no parameter sets" },
             Row { broken, 1, "  broken: ends in " },
         }) {
        int status = 0;
        auto const output = outputOf(program + " " + row.arguments, status);
        EXPECT_TRUE(WIFEXITED(status)) << row.arguments;
        EXPECT_EQ(WEXITSTATUS(status), row.status) << row.arguments;
        EXPECT_NE(output.find(row.output), std::string::npos) << output;
    }
}

}
}
