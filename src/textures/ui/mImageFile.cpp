#include "textures/ui/mImageFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>

#include "base/SingleByteText.h"

namespace korvane {
namespace {

constexpr int kMaxMegabytes = int(kMaxImageBytes >> 20);

bool IsTga(const std::string& path) {
    return path.size() >= 3 && LowerCase(path.substr(path.size() - 3)) == "tga";
}

bool NamesFolder(const QString& path) {
    return path.endsWith('\\') || path.endsWith('/') || QFileInfo(path).isDir();
}

ImageCode LoadPicture(const QString& path, cDIBSection& image) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    const QByteArray format = reader.format();
    static const QByteArrayList known = {"bmp", "gif", "jpeg", "png"};
    if (!known.contains(format)) return ImageFormatRefused;
    QImage picture;
    if (!reader.read(&picture)) return ImageFormatRefused;
    image = BufferOf(picture);
    return ImageLoaded;
}

}  // namespace

ImageCode LoadImageFile(const std::string& path, cDIBSection& image) {
    const QString name = QString::fromStdString(path);
    if (!QFileInfo::exists(name)) return ImageFileMissing;
    if (NamesFolder(name)) return ImageIsFolder;
    if (IsTga(path)) return LoadTGA(path, image);
    QImageReader::setAllocationLimit(kMaxMegabytes);
    return LoadPicture(name, image);
}

ImageCode LoadTGA(const std::string& path, cDIBSection& image) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) return ImageFileMissing;
    // No image within the limit needs more of its file than twice that. QFile takes memory for all
    // that is asked for, not for what is there.
    const QByteArray bytes = file.read(std::min<qint64>(file.size(), 2 * kMaxImageBytes));
    return DecodeTGA({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                      static_cast<std::size_t>(bytes.size())},
                     image);
}

std::optional<std::vector<std::uint8_t>> PngOf(const std::string& path) {
    cDIBSection image;
    if (LoadImageFile(path, image) != ImageLoaded) return std::nullopt;
    QBuffer png;
    if (!PictureOf(image).save(&png, "PNG")) return std::nullopt;
    return std::vector<std::uint8_t>(png.data().begin(), png.data().end());
}

QImage PictureOf(const cDIBSection& image) {
    QImage picture(image.width, image.height, QImage::Format_BGR888);
    const std::size_t row = std::size_t(image.width) * 3;
    const std::uint8_t* from = image.pixels.data();
    for (int y = picture.height() - 1; y >= 0; --y, from += row) {
        std::copy_n(from, row, picture.scanLine(y));
    }
    return picture;
}

cDIBSection BufferOf(const QImage& picture) {
    const QImage rows = picture.convertToFormat(QImage::Format_BGR888);
    const std::size_t row = std::size_t(rows.width()) * 3;
    cDIBSection image{rows.width(), rows.height(), {}};
    image.pixels.reserve(row * std::size_t(rows.height()));
    for (int y = rows.height() - 1; y >= 0; --y) {
        const uchar* line = rows.constScanLine(y);
        image.pixels.insert(image.pixels.end(), line, line + row);
    }
    return image;
}

}  // namespace korvane
