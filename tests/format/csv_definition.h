#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plix::test {

/// The rules for a line of comma-separated values, character by character: what CSVLineComponents has to equal.
inline std::vector<std::string> fieldsByDefinition(std::string_view line)
{
    std::vector<std::string> fields;
    std::string field;
    bool inQuotes = false;
    bool pendingQuote = false;
    char previous = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        char const c = line[i];
        if (c == '\r' || c == '\n') {
            field += c;
            if (!inQuotes)
                break;
        } else if (c == ',') {
            if (!inQuotes) {
                fields.push_back(field);
                field.clear();
                pendingQuote = false;
            } else {
                field += c;
            }
        } else if (c == '"') {
            bool mayClose = false;
            if (field.empty() && previous == ',') {
                inQuotes = true;
            } else if (previous != '"') {
                if (inQuotes)
                    mayClose = true;
                else
                    pendingQuote = true;
            } else if (pendingQuote) {
                field += '"';
                pendingQuote = false;
            } else {
                mayClose = true;
            }
            if (mayClose) {
                if (i + 1 == line.size())
                    break;
                if (line[i + 1] == ',')
                    inQuotes = false;
                else
                    field += '"';
            }
        } else {
            field += c;
        }
        previous = c;
    }
    fields.push_back(field);
    return fields;
}

}
