// Image files into image buffers: TGA by the program's own decoder, BMP, GIF, JPEG and PNG by
// the toolkit's.
#pragma once

#include <QImage>
#include <optional>
#include <string>
#include <vector>

#include "textures/core/mTGA.h"

namespace korvane {

/// Decodes the file at `path` (UTF-8). A name ending in "tga", in any case, is a TGA file; anything
/// else must hold BMP, GIF, JPEG or PNG data, whatever its name says. Rotation noted in a
/// photograph is ignored. `image` is changed on success only.
ImageCode LoadImageFile(const std::string& path, cDIBSection& image);

/// Decodes a TGA file, see DecodeTGA.
ImageCode LoadTGA(const std::string& path, cDIBSection& image);

/// The image file at `path` (UTF-8) as the bytes of a PNG file; nothing where LoadImageFile fails.
std::optional<std::vector<std::uint8_t>> PngOf(const std::string& path);

/// The buffer as a picture, for thumbnails.
QImage PictureOf(const cDIBSection& image);

/// A picture as a buffer; transparency is dropped.
cDIBSection BufferOf(const QImage& picture);

}  // namespace korvane
