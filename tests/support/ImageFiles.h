// Image files for tests of the loader.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <stdexcept>

namespace korvane::test {

inline void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// A picture with another colour in each corner: red, green / blue, white.
inline QImage FourCorners(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool right = x >= width / 2;
            const bool low = y >= height / 2;
            picture.setPixel(x, y,
                             low ? (right ? qRgb(255, 255, 255) : qRgb(0, 0, 255))
                                 : (right ? qRgb(0, 255, 0) : qRgb(255, 0, 0)));
        }
    }
    return picture;
}

inline void SavePicture(const QString& path, const char* format, const QImage& picture) {
    QImageWriter writer(path, format);
    if (!writer.write(picture)) throw std::runtime_error("cannot write " + path.toStdString());
}

inline void AppendWord(QByteArray& bytes, int value) {
    bytes.append(char(value & 0xFF));
    bytes.append(char(value >> 8));
}

/// A GIF of FourCorners. Its codes are never compressed: a clear code before the table grows keeps
/// every code eight bits wide, one byte each.
inline QByteArray GifOfFourCorners(int width, int height) {
    constexpr char kClear = char(128);
    constexpr char kEnd = char(129);
    QByteArray gif = "GIF89a";
    AppendWord(gif, width);
    AppendWord(gif, height);
    gif.append("\xF6\0\0", 3);  // 128 colours follow
    QByteArray palette(
        "\xFF\0\0"
        "\0\xFF\0"
        "\0\0\xFF"
        "\xFF\xFF\xFF",
        12);
    gif.append(palette.leftJustified(128 * 3, '\0'));
    gif.append(',');
    gif.append("\0\0\0\0", 4);
    AppendWord(gif, width);
    AppendWord(gif, height);
    gif.append("\0\7", 2);  // no colours of its own; codes start at 7 + 1 bits
    QByteArray codes;
    for (int i = 0; i < width * height; ++i) {
        if (i % 100 == 0) codes.append(kClear);
        const bool right = i % width >= width / 2;
        const bool low = i / width >= height / 2;
        codes.append(char((right ? 1 : 0) + (low ? 2 : 0)));
    }
    codes.append(kEnd);
    for (qsizetype at = 0; at < codes.size(); at += 255) {
        const QByteArray block = codes.mid(at, 255);
        gif.append(char(block.size()));
        gif.append(block);
    }
    gif.append("\0;", 2);
    return gif;
}

/// A plain 24-bit TGA of a picture.
inline QByteArray TgaOf(const QImage& picture) {
    QByteArray tga("\0\0\2\0\0\0\0\0\0\0\0\0", 12);
    AppendWord(tga, picture.width());
    AppendWord(tga, picture.height());
    tga.append("\x18\0", 2);
    for (int y = picture.height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            tga.append(char(qBlue(pixel)));
            tga.append(char(qGreen(pixel)));
            tga.append(char(qRed(pixel)));
        }
    }
    return tga;
}

}  // namespace korvane::test
