#include <plix/platform/graphics/image_files.h>

#include <plix/platform/base/hash_of.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/SVGImageRep.h>
#include <plix/platform/graphics/recent_cache.h>

#include <filesystem>

#include <sys/stat.h>

namespace plix {

namespace {

constexpr std::size_t largestFile = 256U * 1024 * 1024;
constexpr std::string_view doubleMark = "@2x";
constexpr std::size_t mostDecodedFiles = 64;
constexpr std::size_t mostDecodedBytes = 16U * 1024 * 1024;

void setDoubleScale(std::vector<Ref<NSImageRep>> const& reps)
{
    for (auto const& rep : reps) {
        if (auto const bitmap = as<NSBitmapImageRep>(rep))
            bitmap->setPixelsPerPoint({ 2, 2 });
    }
}

/// Which content of which file: another one has another time, size or number.
struct FileVersion {
    dev_t device;
    ino_t number;
    off_t size;
    std::int64_t seconds;
    std::int64_t nanoseconds;
    friend bool operator==(FileVersion const&, FileVersion const&) = default;
};

struct FileVersionHash {
    std::size_t operator()(FileVersion const& version) const
    {
        return hashOf(version.device, version.number, version.size, version.seconds, version.nanoseconds);
    }
};

std::optional<FileVersion> versionOf(std::string const& path)
{
    struct stat status { };
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileVersion { status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec };
}

using Reps = std::vector<Ref<NSImageRep>>;

Reps copies(Reps const& reps)
{
    Reps result;
    for (auto const& rep : reps)
        result.push_back(copyOf(*rep));
    return result;
}

std::size_t bytesOf(Reps const& reps)
{
    std::size_t bytes = 0;
    for (auto const& rep : reps)
        bytes += static_cast<std::size_t>(rep->pixelsWide()) * static_cast<std::size_t>(rep->pixelsHigh()) * 4;
    return bytes;
}

/// Pixels are shared with an earlier decoding of the same unchanged file.
Reps imageRepsOfFile(std::string const& path)
{
    static auto& s_decoded = *new RecentCache<FileVersion, Reps, FileVersionHash>(mostDecodedFiles, mostDecodedBytes);
    auto const version = versionOf(path);
    if (!version)
        return {};
    if (auto const* earlier = s_decoded.find(*version))
        return copies(*earlier);
    auto const bytes = readImageFile(path);
    auto reps = bytes ? imageRepsWithBytes(*bytes) : Reps {};
    if (!reps.empty())
        s_decoded.keep(*version, copies(reps), bytesOf(reps));
    return reps;
}

}

std::optional<std::vector<std::uint8_t>> readImageFile(std::string const& path)
{
    return readFileBytes(path, largestFile);
}

std::vector<Ref<NSImageRep>> imageRepsWithBytes(FileBytes bytes)
{
    std::vector<Ref<NSImageRep>> reps;
    if (SVGImageRep::isSVG(bytes)) {
        if (auto drawing = make<SVGImageRep>(bytes))
            reps.emplace_back(std::move(drawing));
        return reps;
    }
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
