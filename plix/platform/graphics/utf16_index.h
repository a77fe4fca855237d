#pragma once

#include <plix/platform/base/export.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace plix {

/// Translates between UTF-16 units and bytes of one text without walking it from its start each time. Made from the text when it is
/// first asked; the owner says when the text has changed. Positions round and clamp as in base/utf16.h.
class PLIX_EXPORT Utf16Index {
public:
    long length(std::string_view text);
    std::size_t byteOfUnit(std::string_view text, long unit);
    long unitOfByte(std::string_view text, std::size_t byte);
    /// Bytes before this one have not changed.
    void textChangedFrom(std::size_t byte);

private:
    struct Mark {
        std::size_t byte;
        long unit;
    };
    void extend(std::string_view text);

    /// A character about every so many bytes, in order; complete when m_isComplete.
    std::vector<Mark> m_marks;
    long m_length { 0 };
    bool m_isComplete { false };
    bool m_isASCII { false };
};

}
