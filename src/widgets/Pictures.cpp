// SPDX-License-Identifier: MIT
#include "widgets/Pictures.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHashFunctions>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QtCore/private/qabstractfileengine_p.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

#include <sys/stat.h>

namespace calmora {
namespace {

/// Icons are small; a file that claims more pixels than this is not decoded.
constexpr qint64 largestPixelCount = 4096LL * 4096LL;
constexpr qint64 largestFileBytes = 16LL * 1024 * 1024;

/// While it exists Qt opens plain files and folders only. A picture may refer to another file,
/// which its reader opens: a pipe would block it for ever.
class PlainFilesOnly final : private QAbstractFileEngineHandler {
  private:
    /// A pointer, or an owner of one from Qt 6.8 on.
    using Engine = decltype(std::declval<const QAbstractFileEngineHandler&>().create(QString()));

    /// All its operations fail.
    class Nothing final : public QAbstractFileEngine {};

    [[nodiscard]] Engine create(const QString& name) const override {
        struct stat info{};
        const bool isOther = stat(QFile::encodeName(name).constData(), &info) == 0 &&
                             !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode);
        return Engine(isOther ? std::make_unique<Nothing>().release() : nullptr);
    }
};

QString cacheKey(const Image& image, int pixels) {
    QString key = QStringLiteral("image:%1:").arg(pixels);
    if (!image.themeName.empty()) {
        key += QIcon::themeName() + u'/' + QString::fromStdString(image.themeName) + u'/' +
               QString::fromStdString(image.fallbackThemeName);
    }
    if (!image.file.empty()) {
        const QString file = QString::fromStdString(image.file.string());
        key += u'|' + file + u'@' +
               QString::number(QFileInfo(file).lastModified().toMSecsSinceEpoch());
    }
    if (image.pixels) {
        const auto& argb = image.pixels->argb;
        key += QStringLiteral("|%1x%2#%3")
                   .arg(image.pixels->width)
                   .arg(image.pixels->height)
                   .arg(qHashBits(argb.data(), argb.size() * sizeof(argb.front())));
    }
    return key;
}

QImage fromFile(const std::filesystem::path& path, int pixels) {
    const QString file = QString::fromStdString(path.string());
    const QFileInfo info(file);
    if (!info.isFile() || info.size() > largestFileBytes) {
        return {};
    }
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (size.isValid()) {
        if (qint64{size.width()} * size.height() > largestPixelCount) {
            return {};
        }
        reader.setScaledSize(size.scaled(pixels, pixels, Qt::KeepAspectRatio));
    }
    return reader.read();
}

QImage fromPixels(const ImagePixels& pixels) {
    const auto count = static_cast<std::uint64_t>(pixels.argb.size());
    if (pixels.width <= 0 || pixels.height <= 0 ||
        static_cast<std::uint64_t>(pixels.width) * static_cast<std::uint64_t>(pixels.height) !=
            count) {
        return {};
    }
    const QImage view(reinterpret_cast<const uchar*>(pixels.argb.data()), pixels.width,
                      pixels.height, pixels.width * 4, QImage::Format_ARGB32);
    return view.copy();
}

/// `pixels` is the side of the square in pixels of the device.
QImage decoded(const Image& image, int pixels) {
    const PlainFilesOnly guard;
    if (!image.themeName.empty()) {
        const QString name = QString::fromStdString(image.themeName);
        const QString fallback = QString::fromStdString(image.fallbackThemeName);
        const bool isKnown = fallback.isEmpty() || QIcon::hasThemeIcon(name);
        const QIcon icon = QIcon::fromTheme(isKnown ? name : fallback);
        QImage found = icon.pixmap(QSize(pixels, pixels), 1.0).toImage();
        if (!found.isNull() && std::max(found.width(), found.height()) < pixels) {
            // The theme has only a smaller one near this size; a larger one looks better.
            found = icon.pixmap(QSize(2 * pixels, 2 * pixels), 1.0).toImage();
        }
        if (!found.isNull()) {
            return found;
        }
    }
    if (!image.file.empty()) {
        QImage found = fromFile(image.file, pixels);
        if (!found.isNull()) {
            return found;
        }
    }
    return image.pixels ? fromPixels(*image.pixels) : QImage();
}

/// Whether next to nothing of the picture differs from a grey background.
bool isLostOn(const QImage& picture, int background) {
    constexpr int leastDifference = 48;
    qint64 opaque = 0;
    qint64 seen = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            const int difference =
                std::max({std::abs(qRed(pixel) - background), std::abs(qGreen(pixel) - background),
                          std::abs(qBlue(pixel) - background)});
            opaque += qAlpha(pixel);
            seen += difference >= leastDifference ? qAlpha(pixel) : 0;
        }
    }
    return seen < opaque / 20;
}

/// Cached in place of a picture that cannot be drawn.
bool isMarker(const QPixmap& pixmap) {
    return pixmap.width() == 1 && pixmap.height() == 1;
}

} // namespace

QPixmap symbolPixmap(const QString& name, int side, const QColor& color, qreal devicePixelRatio) {
    const int pixels = static_cast<int>(std::lround(side * devicePixelRatio));
    const QString key =
        QStringLiteral("symbol:%1:%2:%3").arg(name).arg(pixels).arg(color.rgba(), 0, 16);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        const QString file = QStringLiteral(":/calmora/symbols/%1.svg").arg(name);
        if (pixels <= 0 || !QFileInfo::exists(file)) {
            return {};
        }
        QSvgRenderer renderer(file);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        renderer.render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color);
        painter.end();
        pixmap = QPixmap::fromImage(std::move(image));
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

void drawSymbol(QPainter& painter, const QRect& bounds, const QString& name, int side,
                const QColor& color) {
    drawPixmap(painter, bounds,
               symbolPixmap(name, side, color, painter.device()->devicePixelRatioF()));
}

QPixmap imagePixmap(const Image& image, int side, qreal devicePixelRatio) {
    const int pixels = static_cast<int>(std::lround(side * devicePixelRatio));
    const QString key = cacheKey(image, pixels);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        QImage picture = decoded(image, pixels);
        if (!picture.isNull() && std::max(picture.width(), picture.height()) != pixels) {
            picture = picture.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        if (picture.isNull()) {
            pixmap = QPixmap(1, 1);
            pixmap.fill(Qt::transparent);
        } else {
            pixmap = QPixmap::fromImage(std::move(picture));
        }
        QPixmapCache::insert(key, pixmap);
    }
    if (isMarker(pixmap)) {
        return {};
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

void drawPixmap(QPainter& painter, const QRect& bounds, const QPixmap& pixmap) {
    if (pixmap.isNull()) {
        return;
    }
    // Place on whole pixels of the device: a symbol between two is blurred.
    const qreal ratio = pixmap.devicePixelRatioF();
    const QSizeF size = pixmap.deviceIndependentSize();
    const QPointF corner(bounds.x() + (bounds.width() - size.width()) / 2,
                         bounds.y() + (bounds.height() - size.height()) / 2);
    painter.drawPixmap(
        QPointF(std::round(corner.x() * ratio) / ratio, std::round(corner.y() * ratio) / ratio),
        pixmap);
}

namespace {

/// The picture, inverted where it would be lost among texts of a colour. Cached like the picture.
QPixmap visiblePixmap(const Image& image, int side, qreal devicePixelRatio, const QColor& color) {
    // Greys next to the backgrounds of dark and of light windows.
    const int background = color.lightness() > 127 ? 0x28 : 0xf6;
    const int pixels = static_cast<int>(std::lround(side * devicePixelRatio));
    const QString key = QStringLiteral("%1:on:%2").arg(cacheKey(image, pixels)).arg(background);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = imagePixmap(image, side, devicePixelRatio);
        if (pixmap.isNull()) {
            return {};
        }
        QImage picture = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
        if (isLostOn(picture, background)) {
            picture.invertPixels();
            pixmap = QPixmap::fromImage(std::move(picture));
        }
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

} // namespace

void drawIcon(QPainter& painter, const QRect& square, const std::optional<Image>& icon,
              const IconSubstitute& substitute, const QColor& color) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPixmap picture = icon ? visiblePixmap(*icon, square.width(), ratio, color) : QPixmap();
    drawPixmap(painter, square,
               picture.isNull() ? symbolPixmap(substitute.symbol, substitute.side, color, ratio)
                                : picture);
}

} // namespace calmora
