// The texture objects of OpenGL, and the loading of the texture folder into them, the texture
// library and the browser.
#pragma once

#include <QImage>
#include <functional>
#include <string>

#include "editor/StartUpLog.h"
#include "textures/core/TextureLibrary.h"
#include "textures/core/mTGA.h"
#include "views/ui/mOGL3D.h"

namespace korvane {

/// What loading fills. Entry i of all three is the same image.
struct TextureTables {
    RenderContext& context;
    TextureObjects& objects;
    TextureLibrary& library;
    /// Takes the picture of the library's newest entry for the browser.
    std::function<void(const QImage&)> addThumbnail;
};

/// Puts the image into a new texture object at the end of the table. False, with the table as it
/// was, when OpenGL cannot take it.
bool UploadTexture(RenderContext& context, TextureObjects& objects, const cDIBSection& image);

/// Whether OpenGL 1.1 takes a side of that length: a power of two from 32 to 1024.
bool IsTextureSide(std::int32_t pixels);

/// Decodes the file at `path` (UTF-8) and uploads it. False when it cannot be decoded or its sides
/// do not fit; images are never resized.
bool LoadTexture(RenderContext& context, TextureObjects& objects, const std::string& path,
                 cDIBSection& image);

/// The picture of entry 0.
QImage PlaceholderPicture();

/// File names (UTF-8) in the folder that are worth trying, sorted ignoring case.
std::vector<std::string> TextureFilesIn(const std::string& folder);

/// Loads the placeholder and every texture of the folder (UTF-8 path) and selects entry 0. A file
/// that fails is logged and left out; it keeps its number in the log.
void LoadAllTextures(const TextureTables& tables, const std::string& folder, StartUpLog& log);

/// Enters the textures that LoadAllTextures would load in the library alone, under the same
/// indices; needs no OpenGL.
void ListAllTextures(TextureLibrary& library, const std::string& folder);

}  // namespace korvane
