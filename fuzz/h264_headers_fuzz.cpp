#include "fuzz.h"

#include <examples/h264_headers/annex_b.h>
#include <examples/h264_headers/parameter_sets.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size > 65536)
        return 0;
    h264::Bytes const stream(data, size);
    std::size_t end = 0;
    for (auto const& unit : h264::nalUnitsOf(stream)) {
        FUZZ_CHECK(!unit.bytes.empty() && unit.position >= end + 3);
        end = unit.position + unit.bytes.size();
        FUZZ_CHECK(end <= size);
        FUZZ_CHECK(unit.bytes.back() != 0);
        FUZZ_CHECK(h264::withoutEmulationPrevention(unit.bytes).size() <= unit.bytes.size());
    }
    for (auto const& set : h264::parameterSetsOf(stream)) {
        std::int64_t position = 0;
        for (auto const& field : set.fields) {
            FUZZ_CHECK(field.position == position && field.width > 0);
            position += field.width;
        }
        FUZZ_CHECK(position <= static_cast<std::int64_t>(set.size) * 8);
        bool const isWhole = !set.fields.empty() && set.fields.back().name == "rbsp_stop_one_bit";
        FUZZ_CHECK(isWhole == set.fault.empty());
    }
    return 0;
}
