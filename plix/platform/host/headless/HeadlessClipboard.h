#pragma once

#include <plix/platform/host/Clipboard.h>

namespace plix {

/// A clipboard of the process's own.
class PLIX_EXPORT HeadlessClipboard final : public Clipboard {
public:
    // Clipboard:
    std::optional<std::string> text() override { return m_text; }
    void setText(std::string_view text) override
    {
        m_text = std::string(text);
        ++m_changeCount;
    }
    bool hasText() override { return m_text.has_value(); }
    long changeCount() override { return m_changeCount; }

private:
    std::optional<std::string> m_text;
    long m_changeCount { 0 };
};

}
