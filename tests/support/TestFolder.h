#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace plix {

/// A new folder for a test, gone with all in it when the test is.
class TestFolder {
public:
    TestFolder()
        : m_path((std::filesystem::temp_directory_path() / "plix-test-XXXXXX").string())
    {
        if (!::mkdtemp(m_path.data()))
            std::abort();
    }
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TestFolder(TestFolder const&) = delete;
    TestFolder& operator=(TestFolder const&) = delete;

    std::string const& path() const { return m_path; }
    std::string operator/(std::string_view name) const { return m_path + '/' + std::string(name); }

    /// Writes a file, with the folders above it, and answers its path.
    std::string write(std::string_view name, std::string_view contents = {}) const
    {
        auto const path = *this / name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << contents;
        return path;
    }
    std::string read(std::string_view name) const
    {
        std::ifstream file(*this / name, std::ios::binary);
        return { std::istreambuf_iterator<char>(file), {} };
    }

private:
    std::string m_path;
};

}
