// Feeds the files of a corpus to a fuzz target, each whole and cut short in a few places.

#include "fuzz.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

static std::vector<std::filesystem::path> filesOf(int count, char** arguments)
{
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < count; ++i) {
        if (!std::filesystem::is_directory(arguments[i])) {
            files.emplace_back(arguments[i]);
            continue;
        }
        for (auto const& entry : std::filesystem::directory_iterator(arguments[i]))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

int main(int count, char** arguments)
{
    auto const files = filesOf(count, arguments);
    if (files.empty()) {
        std::fprintf(stderr, "there is no corpus\n");
        return 1;
    }
    for (auto const& file : files) {
        std::ifstream stream(file, std::ios::binary);
        if (!stream) {
            std::fprintf(stderr, "could not read %s\n", file.c_str());
            return 1;
        }
        std::vector<char> const bytes { std::istreambuf_iterator<char>(stream), {} };
        for (std::size_t eighths = 0; eighths <= 8; ++eighths) {
            // A copy of exactly the size, so that a sanitizer sees a read behind the end.
            std::vector<std::uint8_t> const part(bytes.begin(), bytes.begin() + static_cast<long>(bytes.size() * eighths / 8));
            LLVMFuzzerTestOneInput(part.data(), part.size());
        }
    }
    std::printf("%zu files\n", files.size());
    return 0;
}
