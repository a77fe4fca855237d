#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The line protocol of Speech Dispatcher, SSIP, as its manual describes it: commands and replies are lines that end with CR LF, a
// reply is a number of three digits with a dash after it in all lines but the last.

namespace plix {

/// A reply to a command, or an event (700 and above), which may come at any time.
struct SsipReply {
    int code { 0 };
    /// What stands after the number, in each line but the last.
    std::vector<std::string> lines;
    std::string last;

    bool isEvent() const { return code >= 700 && code < 800; }
    bool isSuccess() const { return code >= 200 && code < 300; }
};

/// Makes replies of the bytes as they arrive. One that grows beyond all measure, or is none, breaks it.
class SsipReader {
public:
    void receive(std::string_view bytes);
    /// The next that is whole.
    std::optional<SsipReply> next();
    bool isBroken() const { return m_isBroken; }

private:
    void takeLine(std::string_view line);

    std::string m_rest;
    SsipReply m_reply;
    std::size_t m_size { 0 };
    std::vector<SsipReply> m_whole;
    bool m_isBroken { false };
};

/// The text as the data of a SPEAK command, with what ends it. A line that begins with a point gets another one.
std::string ssipData(std::string_view text);

/// A word that a command may hold: letters, digits, and "-", "_", ".", "+" as they are, "_" for each other byte; "x" for nothing.
std::string ssipWord(std::string_view text);

/// What may stand at the end of a command, which goes to the end of its line: as it is, but "_" for each control character.
std::string ssipLine(std::string_view text);

/// The text cut into pieces of at most that many bytes: behind a line or a sentence where there is one in the last half, else at a
/// blank, else between two characters. Pieces with nothing to say are left out.
std::vector<std::string> speechPieces(std::string_view text, std::size_t mostBytes);

struct SsipVoice {
    std::string name;
    std::string language;
};
/// A line of the list of voices. Nothing for variants of a voice that is listed itself.
std::optional<SsipVoice> ssipVoice(std::string_view line);

/// Where the service listens on a socket of the file system: as the environment's SPEECHD_ADDRESS names it, else in the folder of
/// the session's run-time files, else in the user's cache. "" where it listens elsewhere.
std::string ssipSocketPath(std::optional<std::string> const& address, std::optional<std::string> const& runtimeFolder,
    std::optional<std::string> const& home);

}
