// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/IconImage.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QScopeGuard>
#include <QSvgRenderer>

#include <algorithm>
#include <bit>
#include <png.h>

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

bool isReadable(QSize announced)
{
    return announced.isValid() && announced.width() <= maxImageSide
        && announced.height() <= maxImageSide;
}

bool isPng(const QByteArray& bytes)
{
    return bytes.startsWith(QByteArrayView("\x89PNG\r\n\x1a\n"));
}

/// Nearly every picture of an icon is one. The toolkit's reader, told the format or not, first
/// loads its plugins for all others.
QImage decodedPng(const QByteArray& bytes)
{
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    const auto freePng = qScopeGuard([&] { png_image_free(&png); });
    if (!png_image_begin_read_from_memory(
            &png, bytes.constData(), static_cast<png_size_t>(bytes.size()))) {
        return {};
    }
    const QSize size(static_cast<int>(png.width), static_cast<int>(png.height));
    if (!isReadable(size)) {
        return {};
    }
    constexpr bool isLittleEndian = std::endian::native == std::endian::little;
    png.format = isLittleEndian ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    png.flags |= PNG_IMAGE_FLAG_16BIT_sRGB; // Where the file does not say otherwise.
    QImage picture(size, QImage::Format_ARGB32);
    if (picture.isNull()
        || !png_image_finish_read(&png,
                                  nullptr,
                                  picture.bits(),
                                  static_cast<png_int_32>(picture.bytesPerLine()),
                                  nullptr)) {
        return {};
    }
    return picture;
}

QImage decodedOther(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    return isReadable(reader.size()) ? reader.read() : QImage();
}

QImage scaledPixels(const QByteArray& bytes, int side)
{
    QImage picture = isPng(bytes) ? decodedPng(bytes) : decodedOther(bytes);
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
