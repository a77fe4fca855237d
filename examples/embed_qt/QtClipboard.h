#pragma once

#include <plix/hosting.h>

#include <QtCore/QObject>

namespace embed_qt {

/// Qt's clipboard, which both sides share.
class QtClipboard final : public QObject, public plix::Clipboard {
public:
    QtClipboard();

    // plix::Clipboard:
    std::optional<std::string> text() override;
    void setText(std::string_view) override;
    bool hasText() override;
    long changeCount() override { return m_changeCount; }

private:
    long m_changeCount { 0 };
};

}
