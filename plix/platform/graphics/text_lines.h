#pragma once

#include <cstddef>
#include <string_view>

namespace plix {

/// A paragraph's bytes without and with the line end that closes it.
struct ParagraphBytes {
    std::size_t start { 0 };
    std::size_t contentEnd { 0 };
    std::size_t end { 0 };

    bool isClosed() const { return contentEnd != end; }
};

/// The paragraph that starts at the byte. Line feed, carriage return, both together, and the paragraph separator close one.
ParagraphBytes paragraphAt(std::string_view text, std::size_t start);

}
