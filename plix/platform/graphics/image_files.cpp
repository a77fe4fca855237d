#include <plix/platform/graphics/image_files.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <filesystem>
#include <fstream>

namespace plix {

namespace {

constexpr std::uintmax_t largestFile = 256U * 1024 * 1024;
constexpr std::string_view doubleMark = "@2x";

void setDoubleScale(std::vector<Ref<NSImageRep>> const& reps)
{
    for (auto const& rep : reps) {
        if (auto const bitmap = as<NSBitmapImageRep>(rep))
            bitmap->setPixelsPerPoint({ 2, 2 });
    }
}

std::vector<Ref<NSImageRep>> imageRepsOfFile(std::string const& path)
{
    auto const bytes = readImageFile(path);
    return bytes ? imageRepsWithBytes(*bytes) : std::vector<Ref<NSImageRep>> {};
}

}

std::optional<std::vector<std::uint8_t>> readImageFile(std::string const& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > largestFile || error)
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint8_t> bytes(std::filesystem::file_size(path, error));
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

std::vector<Ref<NSImageRep>> imageRepsWithBytes(FileBytes bytes)
{
    std::vector<Ref<NSImageRep>> reps;
    for (auto& decoded : decodeImages(bytes)) {
        float const perPoint = decoded.pixelsPerPoint;
        Size const size { static_cast<float>(decoded.storage->width) / perPoint,
            static_cast<float>(decoded.storage->height) / perPoint };
        auto rep = make<NSBitmapImageRep>(std::move(decoded.storage), size, Size { perPoint, perPoint });
        rep->setAlpha(decoded.hasAlpha);
        reps.emplace_back(std::move(rep));
    }
    return reps;
}

std::vector<Ref<NSImageRep>> imageRepsAtPath(std::string const& path)
{
    std::filesystem::path const file(path);
    auto reps = imageRepsOfFile(path);
    if (file.stem().string().ends_with(doubleMark)) {
        setDoubleScale(reps);
        return reps;
    }
    auto const sibling = file.parent_path() / (file.stem().string() + std::string(doubleMark) + file.extension().string());
    auto const doubled = imageRepsOfFile(sibling.string());
    setDoubleScale(doubled);
    reps.insert(reps.end(), doubled.begin(), doubled.end());
    return reps;
}

}
