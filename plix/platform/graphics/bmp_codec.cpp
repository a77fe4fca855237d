#include <plix/platform/graphics/image_codecs.h>

#include <plix/platform/graphics/pixel_operations.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <limits>

namespace plix {

namespace {

// [MS-WMF] 2.2.2: bitmap headers of 12, 40, 52, 56, 108 and 124 bytes, little-endian.
constexpr std::size_t fileHeaderLength = 14;
constexpr std::uint32_t coreHeaderLength = 12;
constexpr std::uint32_t infoHeaderLength = 40;
constexpr std::uint32_t headerLengthWithAlpha = 56;
constexpr std::uint32_t compressionRLE8 = 1;
constexpr std::uint32_t compressionRLE4 = 2;
constexpr std::uint32_t compressionFields = 3;
constexpr std::uint32_t compressionAlphaFields = 6;

/// Reads as 0 beyond the end and remembers that.
class Reader {
public:
    Reader(FileBytes bytes, std::size_t at)
        : m_bytes(bytes)
        , m_at(at)
    {
    }
    std::uint32_t byte()
    {
        if (m_at >= m_bytes.size()) {
            m_isPastEnd = true;
            return 0;
        }
        return m_bytes[m_at++];
    }
    std::uint32_t word()
    {
        std::uint32_t const low = byte();
        return low | byte() << 8U;
    }
    std::uint32_t longWord()
    {
        std::uint32_t const low = word();
        return low | word() << 16U;
    }
    void skip(std::size_t count) { m_at = count > m_bytes.size() ? m_bytes.size() : std::min(m_at + count, m_bytes.size()); }
    bool isPastEnd() const { return m_isPastEnd; }
    std::size_t position() const { return m_at; }
    std::size_t rest() const { return m_bytes.size() - std::min(m_at, m_bytes.size()); }

private:
    FileBytes m_bytes;
    std::size_t m_at;
    bool m_isPastEnd { false };
};

/// Where a channel lies in a pixel.
struct Field {
    std::uint32_t mask { 0 };

    std::uint32_t value(std::uint32_t pixel) const
    {
        if (mask == 0)
            return 0;
        std::uint64_t const part = (pixel & mask) >> std::countr_zero(mask);
        std::uint64_t const most = mask >> std::countr_zero(mask);
        return static_cast<std::uint32_t>((part * 255 + most / 2) / most);
    }
};

struct Header {
    std::int32_t width { 0 };
    std::int32_t height { 0 };
    bool runsDown { false };
    std::uint32_t bits { 0 };
    std::uint32_t compression { 0 };
    std::uint32_t dotsPerMetre { 0 };
    Field red;
    Field green;
    Field blue;
    Field alpha;
    std::vector<std::uint32_t> colors;
    std::size_t pixelsAt { 0 };
};

void readFields(Reader& reader, Header& header, std::uint32_t length)
{
    bool const hasFields = header.compression == compressionFields || header.compression == compressionAlphaFields;
    if (hasFields || length > infoHeaderLength) {
        header.red.mask = reader.longWord();
        header.green.mask = reader.longWord();
        header.blue.mask = reader.longWord();
    }
    if (length >= headerLengthWithAlpha || header.compression == compressionAlphaFields)
        header.alpha.mask = reader.longWord();
    if (hasFields)
        return;
    header.alpha.mask = 0;
    header.red.mask = header.bits == 16 ? 0x7C00U : 0xFF0000U;
    header.green.mask = header.bits == 16 ? 0x03E0U : 0x00FF00U;
    header.blue.mask = header.bits == 16 ? 0x001FU : 0x0000FFU;
}

void readColors(Reader& reader, Header& header, std::uint32_t count, bool isCore)
{
    std::uint32_t const most = 1U << header.bits;
    std::uint32_t const present = count == 0 || count > most ? most : count;
    for (std::uint32_t i = 0; i < present && reader.position() < header.pixelsAt; ++i) {
        std::uint32_t const blue = reader.byte();
        std::uint32_t const green = reader.byte();
        std::uint32_t const red = reader.byte();
        if (!isCore)
            reader.byte();
        header.colors.push_back(0xFF000000U | red << 16U | green << 8U | blue);
    }
}

std::optional<Header> readHeader(FileBytes bytes)
{
    Reader reader(bytes, 10);
    Header header;
    header.pixelsAt = reader.longWord();
    auto const length = reader.longWord();
    std::uint32_t colorCount = 0;
    bool const isCore = length == coreHeaderLength;
    if (!isCore && length < infoHeaderLength)
        return std::nullopt;
    header.width = static_cast<std::int32_t>(isCore ? reader.word() : reader.longWord());
    header.height = static_cast<std::int32_t>(isCore ? reader.word() : reader.longWord());
    reader.word(); // planes
    header.bits = reader.word();
    if (!isCore) {
        header.compression = reader.longWord();
        reader.longWord(); // bytes of pixels
        header.dotsPerMetre = reader.longWord();
        reader.longWord();
        colorCount = reader.longWord();
        reader.longWord(); // important colours
    }
    if (header.height == std::numeric_limits<std::int32_t>::min())
        return std::nullopt;
    header.runsDown = header.height < 0;
    header.height = std::abs(header.height);
    if (header.bits > 8) {
        readFields(reader, header, length);
    } else {
        Reader colors(bytes, fileHeaderLength + length);
        readColors(colors, header, colorCount, isCore);
    }
    return reader.isPastEnd() ? std::nullopt : std::optional(std::move(header));
}

bool isKnown(Header const& header)
{
    switch (header.compression) {
    case 0:
        return header.bits == 1 || header.bits == 4 || header.bits == 8 || header.bits == 16 || header.bits == 24
            || header.bits == 32;
    case compressionRLE8:
        return header.bits == 8 && !header.runsDown;
    case compressionRLE4:
        return header.bits == 4 && !header.runsDown;
    case compressionFields:
    case compressionAlphaFields:
        return header.bits == 16 || header.bits == 32;
    default:
        return false;
    }
}

std::uint32_t colorAt(Header const& header, std::uint32_t index)
{
    return index < header.colors.size() ? header.colors[index] : 0xFF000000U;
}

std::uint32_t pixelFrom(Header const& header, std::uint32_t value)
{
    std::uint32_t const alpha = header.alpha.mask != 0 ? header.alpha.value(value) : 255;
    std::uint32_t const color
        = 0xFF000000U | header.red.value(value) << 16U | header.green.value(value) << 8U | header.blue.value(value);
    return scaledPixel(color, alpha);
}

bool readRow(Reader& reader, Header const& header, std::uint32_t* row)
{
    auto const start = reader.position();
    std::uint32_t packed = 0;
    std::uint32_t left = 0;
    for (int x = 0; x < header.width; ++x) {
        if (header.bits <= 8) {
            if (left == 0) {
                packed = reader.byte();
                left = 8;
            }
            left -= header.bits;
            row[x] = colorAt(header, packed >> left & ((1U << header.bits) - 1));
        } else if (header.bits == 24) {
            std::uint32_t const lower = reader.word();
            row[x] = pixelFrom(header, lower | reader.byte() << 16U);
        } else {
            row[x] = pixelFrom(header, header.bits == 16 ? reader.word() : reader.longWord());
        }
    }
    auto const length = reader.position() - start;
    reader.skip((4 - length % 4) % 4);
    return !reader.isPastEnd();
}

bool readPlain(Reader reader, Header const& header, BitmapStorage const& storage)
{
    for (int y = 0; y < header.height; ++y) {
        if (!readRow(reader, header, storage.row(header.runsDown ? y : header.height - 1 - y)))
            return false;
    }
    return true;
}

/// The compressed forms, from the bottom row up.
class RunReader {
public:
    RunReader(Reader reader, Header const& header, BitmapStorage const& storage)
        : m_reader(reader)
        , m_header(header)
        , m_storage(storage)
    {
    }

    bool read()
    {
        while (!m_reader.isPastEnd()) {
            std::uint32_t const count = m_reader.byte();
            std::uint32_t const value = m_reader.byte();
            if (count > 0)
                paintRun(count, value);
            else if (value == 0)
                nextRow();
            else if (value == 1)
                return true;
            else if (value == 2)
                move();
            else
                paintLiteral(value);
        }
        return false;
    }

private:
    bool isNibbles() const { return m_header.bits == 4; }
    void paint(std::uint32_t index)
    {
        if (m_x < m_header.width && m_y < m_header.height)
            m_storage.row(m_header.height - 1 - m_y)[m_x] = colorAt(m_header, index);
        if (m_x < m_header.width)
            ++m_x;
    }
    void paintRun(std::uint32_t count, std::uint32_t value)
    {
        for (std::uint32_t i = 0; i < count; ++i)
            paint(!isNibbles() ? value : i % 2 == 0 ? value >> 4U : value & 15U);
    }
    void paintLiteral(std::uint32_t count)
    {
        std::uint32_t value = 0;
        std::uint32_t read = 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            if (!isNibbles() || i % 2 == 0) {
                value = m_reader.byte();
                ++read;
            }
            paint(!isNibbles() ? value : i % 2 == 0 ? value >> 4U : value & 15U);
        }
        if (read % 2 == 1)
            m_reader.byte();
    }
    void nextRow()
    {
        m_x = 0;
        m_y = std::min(m_y + 1, m_header.height);
    }
    void move()
    {
        m_x = std::min(m_x + static_cast<int>(m_reader.byte()), m_header.width);
        m_y = std::min(m_y + static_cast<int>(m_reader.byte()), m_header.height);
    }

    Reader m_reader;
    Header const& m_header;
    BitmapStorage const& m_storage;
    int m_x { 0 };
    int m_y { 0 };
};

/// So that a small file does not claim a large picture.
bool hasEnoughBytes(Header const& header, FileBytes bytes)
{
    if (header.compression == compressionRLE8 || header.compression == compressionRLE4)
        return bytes.size() > header.pixelsAt;
    auto const bitsInRow = static_cast<std::uint64_t>(header.width) * header.bits;
    auto const bytesInRow = (bitsInRow + 31) / 32 * 4;
    auto const needed = bytesInRow * static_cast<std::uint64_t>(header.height);
    // The last row's filling may be missing.
    return bytes.size() > header.pixelsAt && bytes.size() - header.pixelsAt + 3 >= needed;
}

void appendLong(std::vector<std::uint8_t>& bytes, std::uint32_t value)
{
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

}

bool isBMP(FileBytes bytes)
{
    return bytes.size() > fileHeaderLength + coreHeaderLength && bytes[0] == 'B' && bytes[1] == 'M';
}

std::vector<DecodedImage> decodeBMP(FileBytes bytes)
{
    auto const header = readHeader(bytes);
    if (!header || !isKnown(*header) || !isAcceptableSize(header->width, header->height) || !hasEnoughBytes(*header, bytes))
        return {};
    auto storage = BitmapStorage::make(header->width, header->height);
    if (!storage)
        return {};
    Reader const pixels(bytes, header->pixelsAt);
    bool const isPacked = header->compression == compressionRLE8 || header->compression == compressionRLE4;
    bool const isRead = isPacked ? RunReader(pixels, *header, *storage).read() : readPlain(pixels, *header, *storage);
    if (!isRead)
        return {};
    float const perPoint = pixelsPerPointFromResolution(header->dotsPerMetre);
    return { { std::move(storage), perPoint, header->alpha.mask != 0 || isPacked } };
}

std::vector<std::uint8_t> encodeBMP(BitmapStorage const& storage, float pixelsPerPoint)
{
    constexpr std::uint32_t headers = fileHeaderLength + infoHeaderLength;
    auto const bytesInRow = (static_cast<std::uint32_t>(storage.width) * 3 + 3) / 4 * 4;
    auto const pixelBytes = bytesInRow * static_cast<std::uint32_t>(storage.height);
    auto const dotsPerMetre = static_cast<std::uint32_t>(72 / 0.0254 * static_cast<double>(pixelsPerPoint) + 0.5);
    std::vector<std::uint8_t> bytes { 'B', 'M' };
    for (std::uint32_t const value :
        { headers + pixelBytes, 0U, headers, infoHeaderLength, static_cast<std::uint32_t>(storage.width),
            static_cast<std::uint32_t>(storage.height), 1U | 24U << 16U, 0U, pixelBytes, dotsPerMetre, dotsPerMetre, 0U, 0U })
        appendLong(bytes, value);
    for (int y = storage.height - 1; y >= 0; --y) {
        for (int x = 0; x < storage.width; ++x) {
            std::uint32_t const pixel = storage.row(y)[x];
            for (unsigned const shift : { 0U, 8U, 16U }) // on white, without alpha
                bytes.push_back(static_cast<std::uint8_t>((pixel >> shift & 255U) + 255 - (pixel >> 24U)));
        }
        bytes.resize(headers + bytesInRow * static_cast<std::size_t>(storage.height - y));
    }
    return bytes;
}

}
