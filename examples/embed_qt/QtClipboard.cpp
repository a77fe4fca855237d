#include "QtClipboard.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace embed_qt {

QtClipboard::QtClipboard()
{
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] { ++m_changeCount; });
}

std::optional<std::string> QtClipboard::text()
{
    return hasText() ? std::optional(QGuiApplication::clipboard()->text().toStdString()) : std::nullopt;
}

void QtClipboard::setText(std::string_view text)
{
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

bool QtClipboard::hasText()
{
    auto const* const data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

}
