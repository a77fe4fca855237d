#include "file_facts.h"
#include "video_headers.h"

#include <plix/format/number_text.h>
#include <plix/format/size_and_duration.h>

namespace browser {

namespace {

std::string withThousands(std::uint64_t number)
{
    std::string text = std::to_string(number);
    for (auto place = static_cast<long>(text.size()) - 3; place > 0; place -= 3)
        text.insert(static_cast<std::size_t>(place), 1, ',');
    return text;
}

std::string rateText(double framesPerSecond)
{
    std::string text;
    plix::appendFixed(text, framesPerSecond, 2);
    while (text.ends_with('0'))
        text.pop_back();
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

}

std::string exactSizeText(std::uint64_t bytes)
{
    auto const text = plix::StringForFileSize(bytes);
    return bytes < 1024 ? text : text + " (" + withThousands(bytes) + " bytes)";
}

std::string durationText(double seconds)
{
    if (seconds < 1)
        return "less than a second";
    return plix::PLIXLongStringForTimeInterval(seconds) + " (" + plix::TimeIntervalDescription(seconds) + ')';
}

std::vector<FileFact> factsOf(FolderEntry const& entry, std::string const& folder, std::string const& home)
{
    std::vector<FileFact> facts { { "Kind", kindText(entry) } };
    if (entry.kind == EntryKind::file)
        facts.push_back({ "Size", exactSizeText(entry.size) });
    facts.push_back({ "Where", shownPath(folder, home) });
    facts.push_back({ "Modified", dateText(entry) });
    return facts;
}

std::vector<FileFact> videoFacts(VideoFormat const& format)
{
    std::vector<FileFact> facts { { "Video", "H.264, profile " + format.profile + ", level " + format.level },
        { "Picture", std::to_string(format.width) + " × " + std::to_string(format.height) } };
    if (format.framesPerSecond > 0)
        facts.back().value += ", " + rateText(format.framesPerSecond) + " frames a second";
    return facts;
}

}
