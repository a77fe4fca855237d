#include "image_peers.h"
#include "qt_application.h"

#include <QImage>
#include <QLinearGradient>
#include <QMargins>
#include <QPainter>
#include <QPixmap>
#include <qdrawutil.h>

#include <chrono>
#include <cstring>

namespace plix::bench {

namespace {

constexpr auto format = QImage::Format_ARGB32_Premultiplied;

QImage imageOf(PeerPixels const& picture)
{
    QImage image(picture.width, picture.height, format);
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(image.scanLine(y), picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width,
            static_cast<std::size_t>(picture.width) * 4);
    return image;
}

/// The quickest of the ways to paint a silhouette: a copy filled through it, or a filled picture cut by it.
std::function<void()> recolor(PeerPixels const& picture)
{
    makeQtApplication();
    auto const source = imageOf(picture);
    QColor const color(230, 51, 26);
    std::vector<std::function<void()>> ways;
    for (auto const mode : { QPainter::CompositionMode_SourceIn, QPainter::CompositionMode_SourceAtop }) {
        ways.push_back([source, color, mode] {
            QImage result = source.copy();
            QPainter painter(&result);
            painter.setCompositionMode(mode);
            painter.fillRect(result.rect(), color);
        });
    }
    for (auto const mode : { QPainter::CompositionMode_DestinationIn, QPainter::CompositionMode_DestinationAtop }) {
        ways.push_back([source, color, mode] {
            QImage result(source.size(), format);
            result.fill(color);
            QPainter painter(&result);
            painter.setCompositionMode(mode);
            painter.drawImage(0, 0, source);
        });
    }
    std::function<void()> quickest;
    auto least = std::chrono::steady_clock::duration::max();
    for (auto const& way : ways) {
        way();
        auto const start = std::chrono::steady_clock::now();
        for (int i = 0; i < 20; ++i)
            way();
        auto const taken = std::chrono::steady_clock::now() - start;
        if (taken < least) {
            least = taken;
            quickest = way;
        }
    }
    return quickest;
}

std::function<void()> nineSlice(PeerPixels const& picture, int width, int height)
{
    makeQtApplication();
    auto const pixmap = QPixmap::fromImage(imageOf(picture));
    QMargins const margins(picture.width / 3, picture.height / 3, picture.width / 3, picture.height / 3);
    return [pixmap, margins, width, height] {
        QImage result(width, height, format);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        qDrawBorderPixmap(&painter, result.rect(), margins, pixmap);
    };
}

std::function<void()> compose(std::vector<PeerPixels> const& pictures)
{
    makeQtApplication();
    std::vector<QImage> sources;
    for (auto const& picture : pictures)
        sources.push_back(imageOf(picture));
    return [sources] {
        QImage result(sources[0].size(), format);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        for (auto const& source : sources)
            painter.drawImage(0, 0, source);
    };
}

std::function<void()> part(PeerPixels const& picture)
{
    makeQtApplication();
    auto const source = imageOf(picture);
    auto const target = std::make_shared<QImage>(256, 256, format);
    target->fill(Qt::transparent);
    QRectF const from(picture.width / 2 - 32, picture.height / 2 - 32, 64, 64);
    return [source, target, from] {
        QPainter painter(target.get());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(8, 8, 160, 96), source, from);
    };
}

std::function<void()> axial(int width, int height)
{
    makeQtApplication();
    auto const target = std::make_shared<QImage>(width, height, format);
    return [target, height] {
        QLinearGradient gradient(0, 0, 0, height);
        gradient.setColorAt(0, QColor::fromRgbF(0.4F, 0.6F, 0.9F));
        gradient.setColorAt(1, QColor::fromRgbF(0.1F, 0.3F, 0.7F));
        QPainter painter(target.get());
        painter.fillRect(target->rect(), gradient);
    };
}

}

ImagePeer qtPeer()
{
    return { "Qt", recolor, nineSlice, compose, part, axial };
}

}
