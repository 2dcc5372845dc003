// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/IconImage.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace Tavik::IconImage {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 maxFileSize = 16 * 1024 * 1024;
constexpr qint64 maxVectorFileSize = 4 * 1024 * 1024;
constexpr int maxImageSide = 4'096;
/// A picture blown up further than this is a smear; it is better drawn smaller, in the middle.
constexpr double maxEnlargement = 1.0 / 0.6;
/// A picture at least this near to the wanted size is drawn as it is: a little smaller is not
/// noticed, a little enlarged is blurred.
constexpr double nearEnough = 0.86;

QImage transparentSquare(int side)
{
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    return square;
}

/// `size` enlarged or reduced to fit a square of `side`, centred in it.
QRectF fitted(QSizeF size, int side, double largestFactor)
{
    const double factor = std::min(side / std::max(size.width(), size.height()), largestFactor);
    const QSizeF scaled = size * factor;
    return QRectF(QPointF((side - scaled.width()) / 2, (side - scaled.height()) / 2), scaled);
}

QImage renderedVector(const QByteArray& bytes, int side)
{
    QSvgRenderer renderer(bytes);
    const QSizeF viewBox = renderer.viewBoxF().size();
    const QSizeF size = viewBox.isEmpty() ? QSizeF(renderer.defaultSize()) : viewBox;
    if (!renderer.isValid() || size.isEmpty()) {
        return {};
    }
    QImage image = transparentSquare(side);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, fitted(size, side, side));
    return image;
}

QImage scaledPixels(QByteArray bytes, int side)
{
    // What nearly every icon is; to recognise anything else the toolkit loads all that it can read.
    constexpr QByteArrayView pngSignature("\x89PNG\r\n\x1a\n");
    const QByteArray format = bytes.startsWith(pngSignature) ? "png" : QByteArray();
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    const QSize announced = reader.size();
    if (!announced.isValid() || announced.width() > maxImageSide
        || announced.height() > maxImageSide) {
        return {};
    }
    QImage picture = reader.read();
    if (picture.isNull()) {
        return {};
    }
    // Scaled without premultiplication, transparent pixels would bleed into the edges.
    picture = std::move(picture).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.size() == QSize(side, side)) {
        return picture;
    }
    const int longest = std::max(picture.width(), picture.height());
    const bool isNear = longest <= side && longest >= nearEnough * side;
    const QRectF place = fitted(picture.size(), side, isNear ? 1.0 : maxEnlargement);
    const QSize size = place.size().toSize().expandedTo(QSize(1, 1));
    QImage image = transparentSquare(side);
    QPainter painter(&image);
    painter.drawImage((side - size.width()) / 2,
                      (side - size.height()) / 2,
                      picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return image;
}

bool isVector(const QString& path, const QByteArray& bytes)
{
    return path.endsWith(".svg"_L1) || path.endsWith(".svgz"_L1)
        || bytes.first(std::min<qsizetype>(bytes.size(), 64)).trimmed().startsWith('<');
}

} // namespace

QImage read(const QString& path, int side)
{
    const auto bytes = BoundedFile::read(path, maxFileSize);
    if (!bytes || bytes->isEmpty()) {
        return {};
    }
    if (isVector(path, *bytes)) {
        return bytes->size() <= maxVectorFileSize ? renderedVector(*bytes, side) : QImage();
    }
    return scaledPixels(*bytes, side);
}

} // namespace Tavik::IconImage
