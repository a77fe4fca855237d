#include "popup_peer.h"
#include "qt_application.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QStaticText>

#include <memory>

namespace plix::bench {

namespace {

struct Parts {
    explicit Parts(QString const& folder)
        : leftDown(folder + "LeftCap_MouseDown.png")
        , middleDown(folder + "Middle_MouseDown.png")
        , rightDown(folder + "RightCap_MouseDown.png")
        , leftOver(folder + "LeftCap_MouseOver.png")
        , middleOver(folder + "Middle_MouseOver.png")
        , rightOver(folder + "RightCap_MouseOver.png")
        , black(folder + "DownArrow_Black.png")
        , white(folder + "DownArrow_White.png")
    {
        for (auto* image : { &leftDown, &middleDown, &rightDown, &leftOver, &middleOver, &rightOver, &black, &white })
            *image = image->convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    QImage leftDown;
    QImage middleDown;
    QImage rightDown;
    QImage leftOver;
    QImage middleOver;
    QImage rightOver;
    QImage black;
    QImage white;
};

class Composer {
public:
    Composer(QSize size, QString const& text, QString const& folder)
        : m_parts(folder)
        , m_size(size)
        , m_text(text)
    {
        m_font.setPixelSize(11);
        m_font.setBold(true);
        m_text.setTextFormat(Qt::PlainText);
        m_text.prepare({}, m_font);
    }
    bool isComplete() const { return !m_parts.leftDown.isNull() && !m_parts.white.isNull(); }
    QImage idle() const
    {
        return compose(nullptr, nullptr, nullptr, m_parts.black, QColor(26, 26, 26), QColor(245, 245, 245, 230));
    }
    QImage over() const
    {
        return compose(&m_parts.leftOver, &m_parts.middleOver, &m_parts.rightOver, m_parts.white, Qt::white, QColor(26, 26, 26));
    }
    QImage down() const
    {
        return compose(&m_parts.leftDown, &m_parts.middleDown, &m_parts.rightDown, m_parts.white, Qt::white, QColor(26, 26, 26));
    }

private:
    QImage compose(QImage const* left, QImage const* middle, QImage const* right, QImage const& arrow, QColor const& title,
        QColor const& shadow) const
    {
        QImage image(m_size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        int const height = m_size.height();
        if (left) {
            painter.drawImage(QRect(0, 0, left->width(), height), *left);
            painter.drawImage(QRect(m_size.width() - right->width(), 0, right->width(), height), *right);
            painter.drawImage(QRect(left->width(), 0, m_size.width() - left->width() - right->width(), height), *middle);
        }
        painter.setFont(m_font);
        painter.setPen(shadow);
        painter.drawStaticText(6, 3, m_text);
        painter.setPen(title);
        painter.drawStaticText(6, 2, m_text);
        painter.drawImage(QPoint(m_size.width() - 18, 4), arrow);
        return image;
    }

    Parts m_parts;
    QSize m_size;
    QStaticText m_text;
    QFont m_font;
};

}

std::function<void()> qtComposePopUp(Size button, std::string const& text, std::string const& imageFolder)
{
    makeQtApplication();
    auto const composer = std::make_shared<Composer>(QSize(static_cast<int>(button.width), static_cast<int>(button.height)),
        QString::fromStdString(text), QString::fromStdString(imageFolder) + "/chiseledPopUp_");
    if (!composer->isComplete())
        return {};
    return [composer, sum = 0]() mutable {
        for (auto const& image : { composer->idle(), composer->over(), composer->down() })
            sum += image.pixel(20, 10) != 0;
    };
}

}
