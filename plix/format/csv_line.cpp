#include <plix/format/csv_line.h>

#include <plix/format/byte_scan.h>

#include <algorithm>

namespace plix {

namespace {

// Room for more fields than these is not made in advance: commas may be quoted, or stand behind the line's end.
constexpr std::size_t greatestReservation = std::size_t { 1 } << 20;

// Strings this short need no memory of their own, and a copy of fixed size no call.
constexpr std::size_t shortField = 15;

class LineReader {
public:
    explicit LineReader(std::string_view line)
        : m_line(line)
        , m_scan(line)
    {
        auto const firstLine = line.substr(0, line.find('\n'));
        m_fields.reserve(std::min(greatestReservation, ByteScan<','>::count(firstLine) + 1));
    }

    std::vector<std::string> read()
    {
        auto end = m_line.size();
        for (auto at = m_scan.next(); at != std::string_view::npos; at = m_scan.next()) {
            if (auto const last = take(at); last != std::string_view::npos) {
                end = last;
                break;
            }
        }
        finishField(end);
        return std::move(m_fields);
    }

private:
    static constexpr auto goesOn = std::string_view::npos;

    std::string_view run(std::size_t end) const { return m_line.substr(m_runStart, end - m_runStart); }
    bool follows(std::size_t at, char c) const { return at > 0 && m_line[at - 1] == c; }

    void drop(std::size_t at)
    {
        m_field += run(at);
        m_runStart = at + 1;
    }

    void finishField(std::size_t end)
    {
        if (m_field.empty()) {
            addField(run(end));
            return;
        }
        m_field += run(end);
        m_fields.push_back(std::move(m_field));
        m_field.clear();
    }

    void addField(std::string_view text)
    {
        auto const start = static_cast<std::size_t>(text.data() - m_line.data());
        if (text.size() > shortField || m_line.size() - start < shortField)
            m_fields.emplace_back(text);
        else
            m_fields.emplace_back(text.data(), shortField).resize(text.size());
    }

    // Answers where the last field ends, or that it goes on.
    std::size_t take(std::size_t at)
    {
        switch (m_line[at]) {
        case ',':
            if (!m_isInQuotes)
                takeComma(at, at);
            return goesOn;
        case '"':
            return takeQuote(at);
        default:
            return m_isInQuotes ? goesOn : at + 1;
        }
    }

    void takeComma(std::size_t at, std::size_t fieldEnd)
    {
        finishField(fieldEnd);
        m_runStart = at + 1;
        m_hasPendingQuote = false;
    }

    std::size_t takeQuote(std::size_t at)
    {
        if (m_runStart == at && m_field.empty() && follows(at, ',')) {
            m_isInQuotes = true;
            drop(at);
            return goesOn;
        }
        if (!follows(at, '"')) {
            if (!m_isInQuotes) {
                m_hasPendingQuote = true;
                drop(at);
                return goesOn;
            }
        } else if (m_hasPendingQuote) {
            m_hasPendingQuote = false;
            return goesOn;
        }
        if (at + 1 == m_line.size())
            return at;
        if (m_line[at + 1] == ',') {
            m_isInQuotes = false;
            takeComma(m_scan.next(), at);
        }
        return goesOn;
    }

    std::string_view m_line;
    ByteScan<',', '"', '\r', '\n'> m_scan;
    std::vector<std::string> m_fields;
    // The current field: what was taken over, and the run of bytes behind m_runStart that goes on to where it is looked at.
    std::string m_field;
    std::size_t m_runStart { 0 };
    bool m_isInQuotes { false };
    bool m_hasPendingQuote { false };
};

}

std::vector<std::string> CSVLineComponents(std::string_view line)
{
    return LineReader(line).read();
}

}
