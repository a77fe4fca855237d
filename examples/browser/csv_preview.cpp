#include "csv_preview.h"

#include <plix/format/csv_line.h>
#include <plix/platform/base/utf16.h>

#include <algorithm>

namespace browser {

std::vector<std::vector<std::string>> csvRows(std::string_view text, CSVPart part)
{
    static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    std::vector<std::vector<std::string>> rows;
    while (!text.empty() && rows.size() < mostCSVRows) {
        auto const end = text.find('\n');
        if (end == std::string_view::npos && part == CSVPart::beginning)
            break;
        auto line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        auto fields = plix::CSVLineComponents(line);
        fields.resize(std::min(fields.size(), mostCSVColumns));
        for (auto& field : fields)
            field = plix::validUTF8(field);
        rows.push_back(std::move(fields));
    }
    return rows;
}

}
