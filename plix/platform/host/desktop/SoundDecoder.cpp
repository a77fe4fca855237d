#include <plix/platform/host/desktop/SoundDecoder.h>

#include <plix/platform/base/Handle.h>
#include <plix/platform/graphics/LoadedLibrary.h>
#include <plix/platform/host/sound_kind.h>

#include <algorithm>
#include <cstdio>

#ifdef PLIX_AUDIO
#include <sndfile.h>
#endif

namespace plix {

#ifdef PLIX_AUDIO

namespace {

struct SoundLibrary {
    decltype(&sf_open_virtual) openVirtual { nullptr };
    decltype(&sf_close) close { nullptr };
    decltype(&sf_readf_float) readFrames { nullptr };
    decltype(&sf_seek) seek { nullptr };
    decltype(&sf_command) command { nullptr };
    bool isLoaded { false };
    bool readsMP3 { false };

    static SoundLibrary const& shared()
    {
        static SoundLibrary const s_library;
        return s_library;
    }

private:
    SoundLibrary()
    {
        LoadedLibrary library("libsndfile.so.1");
        library.find(openVirtual, "sf_open_virtual");
        library.find(close, "sf_close");
        library.find(readFrames, "sf_readf_float");
        library.find(seek, "sf_seek");
        library.find(command, "sf_command");
        isLoaded = library.isComplete();
        readsMP3 = isLoaded && hasFormat(mpegFormat);
    }
    bool hasFormat(int wanted) const
    {
        int count = 0;
        command(nullptr, SFC_GET_FORMAT_MAJOR_COUNT, &count, sizeof count);
        for (int index = 0; index < count; ++index) {
            SF_FORMAT_INFO info {};
            info.format = index;
            command(nullptr, SFC_GET_FORMAT_MAJOR, &info, sizeof info);
            if (info.format == wanted)
                return true;
        }
        return false;
    }

public:
    /// Headers of older versions do not have it.
    static constexpr int mpegFormat = 0x230000;
};

/// The kind of file that the library took it for, which has to be what its first bytes say.
bool isOfKind(int format, SoundKind kind)
{
    switch (format & SF_FORMAT_TYPEMASK) {
    case SF_FORMAT_WAV:
    case SF_FORMAT_WAVEX:
    case SF_FORMAT_RF64:
        return kind == SoundKind::WAV;
    case SF_FORMAT_AIFF:
        return kind == SoundKind::AIFF;
    case SF_FORMAT_AU:
        return kind == SoundKind::AU;
    case SF_FORMAT_CAF:
        return kind == SoundKind::CAF;
    case SF_FORMAT_FLAC:
        return kind == SoundKind::FLAC;
    case SF_FORMAT_OGG:
        return kind == SoundKind::Ogg;
    case SoundLibrary::mpegFormat:
        return kind == SoundKind::MP3;
    default:
        return false;
    }
}

bool isPlayable(SF_INFO const& info)
{
    constexpr int mostChannels = 32;
    constexpr int lowestRate = 1000;
    constexpr int highestRate = 768000;
    constexpr sf_count_t unknownFrames = SF_COUNT_MAX;
    return info.channels >= 1 && info.channels <= mostChannels && info.samplerate >= lowestRate && info.samplerate <= highestRate
        && info.frames >= 0 && info.frames < unknownFrames;
}

}

template <> struct HandleDeleter<SNDFILE> {
    void operator()(SNDFILE* file) const { SoundLibrary::shared().close(file); }
};

struct SoundDecoder::File {
    std::unique_ptr<SoundFileBytes> bytes;
    std::int64_t place { 0 };
    SF_INFO info {};
    Handle<SNDFILE> file;

    static SF_VIRTUAL_IO access()
    {
        auto const self = [](void* user) { return static_cast<File*>(user); };
        static auto const s_self = self;
        return {
            [](void* user) -> sf_count_t { return s_self(user)->bytes->size(); },
            [](sf_count_t offset, int from, void* user) -> sf_count_t {
                auto& reader = *s_self(user);
                auto const base = from == SEEK_SET ? 0 : from == SEEK_CUR ? reader.place : reader.bytes->size();
                auto const size = reader.bytes->size();
                reader.place = std::clamp<std::int64_t>(base + std::clamp<std::int64_t>(offset, -size, size), 0, size);
                return reader.place;
            },
            [](void* buffer, sf_count_t count, void* user) -> sf_count_t {
                auto& reader = *s_self(user);
                if (count <= 0)
                    return 0;
                auto const read
                    = reader.bytes->readAt(reader.place, { static_cast<std::uint8_t*>(buffer), static_cast<std::size_t>(count) });
                reader.place += static_cast<std::int64_t>(read);
                return static_cast<sf_count_t>(read);
            },
            [](void const*, sf_count_t, void*) -> sf_count_t { return 0; },
            [](void* user) -> sf_count_t { return s_self(user)->place; },
        };
    }
};

std::vector<std::string> const& SoundDecoder::fileTypes()
{
    static auto const& s_types = *new std::vector<std::string>([] {
        auto const& library = SoundLibrary::shared();
        auto types = library.isLoaded ? soundFileTypes() : std::vector<std::string> {};
        if (!library.readsMP3)
            std::erase(types, "mp3");
        return types;
    }());
    return s_types;
}

std::unique_ptr<SoundDecoder> SoundDecoder::open(std::unique_ptr<SoundFileBytes> bytes)
{
    auto const kind = bytes ? soundKind(bytes->firstBytes()) : std::nullopt;
    auto const& library = SoundLibrary::shared();
    if (!kind || !library.isLoaded)
        return nullptr;
    auto file = std::make_unique<File>();
    file->bytes = std::move(bytes);
    auto access = File::access();
    file->file.reset(library.openVirtual(&access, SFM_READ, &file->info, file.get()));
    if (!file->file || !isOfKind(file->info.format, *kind) || !isPlayable(file->info))
        return nullptr;
    return std::unique_ptr<SoundDecoder>(new SoundDecoder(std::move(file)));
}

SoundDecoder::SoundDecoder(std::unique_ptr<File> file)
    : m_file(std::move(file))
    , m_rate(m_file->info.samplerate)
    , m_channels(m_file->info.channels)
    , m_frames(m_file->info.frames)
{
}

std::size_t SoundDecoder::read(std::span<float> samples)
{
    auto const channels = static_cast<std::size_t>(m_channels);
    auto const frames
        = SoundLibrary::shared().readFrames(m_file->file.get(), samples.data(), static_cast<sf_count_t>(samples.size() / channels));
    return frames > 0 ? static_cast<std::size_t>(frames) * channels : 0;
}

bool SoundDecoder::rewind()
{
    return SoundLibrary::shared().seek(m_file->file.get(), 0, SEEK_SET) == 0;
}

#else

struct SoundDecoder::File { };

std::vector<std::string> const& SoundDecoder::fileTypes()
{
    static auto const& s_none = *new std::vector<std::string>;
    return s_none;
}

std::unique_ptr<SoundDecoder> SoundDecoder::open(std::unique_ptr<SoundFileBytes>)
{
    return nullptr;
}

std::size_t SoundDecoder::read(std::span<float>)
{
    return 0;
}

bool SoundDecoder::rewind()
{
    return false;
}

#endif

SoundDecoder::~SoundDecoder() = default;

}
