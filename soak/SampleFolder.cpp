#include "SampleFolder.h"
#include "write_fence.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <vector>

namespace soak {

namespace fs = std::filesystem;

namespace {

// What a text is called in a RIFF header: little-endian.
std::string little(unsigned value, int bytes)
{
    std::string text;
    for (int byte = 0; byte < bytes; ++byte)
        text += static_cast<char>(value >> 8 * byte & 0xFF);
    return text;
}

std::string silence(unsigned samples)
{
    constexpr unsigned rate = 8000;
    auto const size = samples * 2;
    return "RIFF" + little(size + 36, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) + little(1, 2) + little(rate, 4)
        + little(rate * 2, 4) + little(2, 2) + little(16, 2) + "data" + little(size, 4) + std::string(size, '\0');
}

std::string table(int rows)
{
    std::string text = "Name,Amount,\"Note, if any\"\n";
    for (int row = 0; row < rows; ++row)
        text += "item " + std::to_string(row) + ',' + std::to_string(row * 17) + ",\"said \"\"yes\"\"\"\n";
    return text;
}

// A sequence parameter set and the start of a slice, as elementary streams have them.
std::string video()
{
    constexpr unsigned char bytes[] { 0, 0, 0, 1, 0x67, 0x42, 0xC0, 0x1E, 0xD9, 0x00, 0xA0, 0x47, 0xFE, 0x88, 0, 0, 0, 1, 0x68,
        0xCE, 0x3C, 0x80, 0, 0, 0, 1, 0x65, 0x88, 0x84 };
    return { reinterpret_cast<char const*>(bytes), sizeof bytes };
}

}

SampleFolder::SampleFolder()
    : m_home(makeRunFolder())
{
    m_path = m_home + "/files";
    for (int number = 1; number <= 300; ++number)
        m_files["file " + std::to_string(number) + ".txt"] = std::string(static_cast<std::size_t>(number) * 37, 'x');
    for (char const* folder : { "alpha", "beta", "beta/gamma", "delta", "delta/deep/deeper" }) {
        for (int number = 1; number <= 25; ++number)
            m_files[std::string(folder) + "/note " + std::to_string(number) + ".md"] = "text";
    }
    m_files["amounts.csv"] = table(12);
    m_files["many amounts.csv"] = table(4000);
    m_files["silence.wav"] = silence(4000);
    m_files["video.h264"] = video();
    m_files["alpha/amounts.csv"] = table(3);
    m_files[".hidden"] = "x";
    restore();
}

SampleFolder::~SampleFolder()
{
    std::error_code ignored;
    fs::remove_all(m_home, ignored);
}

void SampleFolder::restore() const
{
    std::set<std::string> wanted;
    for (auto const& [name, contents] : m_files) {
        for (fs::path path = name; !path.empty(); path = path.parent_path())
            wanted.insert(path.string());
    }
    std::error_code ignored;
    std::vector<fs::path> unwanted;
    for (fs::recursive_directory_iterator place(m_path, ignored), end; place != end; place.increment(ignored)) {
        if (!wanted.contains(place->path().lexically_relative(m_path).string()))
            unwanted.push_back(place->path());
    }
    for (auto const& path : unwanted)
        fs::remove_all(path, ignored);
    for (auto const& [name, contents] : m_files) {
        auto const path = fs::path(m_path) / name;
        if (fs::exists(path))
            continue;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << contents;
    }
}

}
