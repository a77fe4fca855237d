#include <plix/platform/host/desktop/ssip_text.h>

#include <plix/platform/host/spoken_text.h>

#include <algorithm>
#include <cctype>

namespace plix {

namespace {

// The longest real one lists some 13,000 voices.
constexpr std::size_t longestReply = 8U << 20;
constexpr std::size_t numberLength = 3;

bool isNumber(std::string_view line)
{
    return line.size() > numberLength && (line[numberLength] == '-' || line[numberLength] == ' ')
        && std::all_of(line.begin(), line.begin() + numberLength, [](unsigned char c) { return std::isdigit(c); });
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool endsSentence(std::string_view text, std::size_t blank)
{
    static constexpr std::string_view marks = ".!?;:";
    return blank > 0 && marks.find(text[blank - 1]) != marks.npos;
}

/// Where a text that is longer than that is cut.
std::size_t cut(std::string_view text, std::size_t mostBytes)
{
    std::size_t lastBlank = 0;
    for (auto index = mostBytes; index > mostBytes / 2; --index) {
        if (text[index] == '\n' || (text[index] == ' ' && endsSentence(text, index)))
            return index;
        if (lastBlank == 0 && text[index] == ' ')
            lastBlank = index;
    }
    if (lastBlank > 0)
        return lastBlank;
    auto index = mostBytes;
    while (index > 1 && isContinuation(text[index]))
        --index;
    return index;
}

}

void SsipReader::receive(std::string_view bytes)
{
    if (m_isBroken)
        return;
    m_rest += bytes;
    std::size_t begin = 0;
    for (auto end = m_rest.find('\n'); end != m_rest.npos && !m_isBroken; end = m_rest.find('\n', begin)) {
        auto line = std::string_view(m_rest).substr(begin, end - begin);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        takeLine(line);
        begin = end + 1;
    }
    m_rest.erase(0, begin);
    m_isBroken = m_isBroken || m_rest.size() > longestReply;
}

void SsipReader::takeLine(std::string_view line)
{
    m_size += line.size();
    if (!isNumber(line) || m_size > longestReply) {
        m_isBroken = true;
        return;
    }
    auto const digit = [line](std::size_t place) { return line[place] - '0'; };
    m_reply.code = 100 * digit(0) + 10 * digit(1) + digit(2);
    auto const rest = line.substr(numberLength + 1);
    if (line[numberLength] == '-') {
        m_reply.lines.emplace_back(rest);
        return;
    }
    m_reply.last = rest;
    m_whole.push_back(std::move(m_reply));
    m_reply = {};
    m_size = 0;
}

std::optional<SsipReply> SsipReader::next()
{
    if (m_whole.empty())
        return std::nullopt;
    auto reply = std::move(m_whole.front());
    m_whole.erase(m_whole.begin());
    return reply;
}

std::string ssipData(std::string_view text)
{
    std::string data;
    data.reserve(text.size() + text.size() / 16 + 8);
    bool isLineStart = true;
    for (char const byte : text) {
        if (isLineStart && byte == '.')
            data += '.';
        isLineStart = byte == '\n';
        if (isLineStart)
            data += '\r';
        data += byte;
    }
    return data + "\r\n.\r\n";
}

std::string ssipWord(std::string_view text)
{
    static constexpr std::string_view others = "-_.+";
    std::string word;
    for (char const byte : text) {
        bool const isPlain = std::isalnum(static_cast<unsigned char>(byte)) || others.find(byte) != others.npos;
        word += isPlain ? byte : '_';
    }
    return word.empty() ? "x" : word;
}

std::string ssipLine(std::string_view text)
{
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](unsigned char byte) { return std::iscntrl(byte) != 0; }, '_');
    return line;
}

std::vector<std::string> speechPieces(std::string_view text, std::size_t mostBytes)
{
    std::vector<std::string> pieces;
    while (!text.empty()) {
        auto const size = text.size() <= mostBytes ? text.size() : cut(text, mostBytes);
        if (auto const piece = text.substr(0, size); hasAnythingToSay(piece))
            pieces.emplace_back(piece);
        text.remove_prefix(size);
    }
    return pieces;
}

std::optional<SsipVoice> ssipVoice(std::string_view line)
{
    auto const first = line.find('\t');
    if (first == 0 || first == line.npos)
        return std::nullopt;
    auto const second = std::min(line.find('\t', first + 1), line.size());
    auto const variant = line.substr(std::min(second + 1, line.size()));
    if (!variant.empty() && variant != "none")
        return std::nullopt;
    return SsipVoice { std::string(line.substr(0, first)), std::string(line.substr(first + 1, second - first - 1)) };
}

std::string ssipSocketPath(std::optional<std::string> const& address, std::optional<std::string> const& runtimeFolder,
    std::optional<std::string> const& home)
{
    static constexpr std::string_view method = "unix_socket";
    if (address && !address->empty()) {
        if (!address->starts_with(method))
            return {};
        if (auto const path = address->substr(method.size()); path.size() > 1 && path.front() == ':')
            return path.substr(1);
    }
    static constexpr std::string_view place = "/speech-dispatcher/speechd.sock";
    if (runtimeFolder && !runtimeFolder->empty())
        return *runtimeFolder + std::string(place);
    return home && !home->empty() ? *home + "/.cache" + std::string(place) : std::string();
}

}
