// Prints the sequence and picture parameter sets of an H.264 file (a byte stream, as "ffmpeg -f h264" writes it), field by field:
// bit position in the NAL unit, descriptor, name, value.

#include "parameter_sets.h"

#include <fstream>
#include <iostream>
#include <vector>

static constexpr long chunkSize = 1 << 16;

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::cerr << "usage: h264_headers file.h264\n";
        return 2;
    }
    std::ifstream file(arguments[1], std::ios::binary);
    std::vector<char> bytes;
    while (file) {
        auto const size = bytes.size();
        bytes.resize(size + chunkSize);
        file.read(bytes.data() + size, chunkSize);
        bytes.resize(size + static_cast<std::size_t>(file.gcount()));
    }
    if (!file.is_open() || file.bad()) {
        std::cerr << "h264_headers: can't read " << arguments[1] << '\n';
        return 1;
    }
    auto const sets = h264::parameterSetsOf({ reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size() });
    bool isWhole = !sets.empty();
    for (auto const& set : sets) {
        h264::print(std::cout, set);
        isWhole = isWhole && set.fault.empty();
    }
    if (sets.empty())
        std::cerr << "h264_headers: no parameter sets in " << arguments[1] << '\n';
    return isWhole ? 0 : 1;
}
