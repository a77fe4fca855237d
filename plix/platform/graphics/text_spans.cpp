#include <plix/platform/graphics/text_spans.h>

#include <plix/platform/graphics/NSAttributedString.h>

#include <algorithm>

namespace plix {

void SpanCursor::restart()
{
    *this = {};
}

std::vector<StyleSpan> SpanCursor::spans(NSAttributedString const& string, std::size_t firstByte, std::size_t endByte)
{
    auto const& runs = string.runs();
    if (runs.empty())
        return { { 0, textStyle({}) } };
    std::size_t const wanted = firstByte == endByte && firstByte > 0 ? firstByte - 1 : firstByte;
    if (wanted < m_runStart || m_run >= runs.size())
        restart();
    auto const endOfRun = [&](std::size_t run, long startUnit) {
        return string.positions().byteOfUnit(string.string(), startUnit + runs[run].length);
    };
    auto end = endOfRun(m_run, m_runStartUnit);
    while (end <= wanted && m_run + 1 < runs.size()) {
        m_runStartUnit += runs[m_run++].length;
        m_runStart = end;
        end = endOfRun(m_run, m_runStartUnit);
    }
    std::vector<StyleSpan> spans;
    auto unit = m_runStartUnit;
    for (auto run = m_run; run < runs.size(); ++run) {
        end = endOfRun(run, unit);
        unit += runs[run].length;
        spans.push_back({ static_cast<std::uint32_t>(std::min(end, endByte) - firstByte), textStyle(*runs[run].attributes) });
        if (end >= endByte)
            break;
    }
    return spans;
}

}
