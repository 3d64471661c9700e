#include "textures/ui/mOGLTextures.h"

#include <GL/gl.h>

#include <QDir>
#include <algorithm>
#include <array>
#include <new>
#include <system_error>
#include <utility>

#include "base/NumberText.h"
#include "base/SingleByteText.h"
#include "textures/ui/mImageFile.h"

namespace korvane {

bool UploadTexture(RenderContext& context, TextureObjects& objects, const cDIBSection& image) {
    if (!MakeCurrent(context)) return false;
    objects.reserve(objects.size() + 1);
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);  // rows carry no padding
    while (glGetError() != GL_NO_ERROR) {
    }
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, image.width, image.height, 0, GL_BGR, GL_UNSIGNED_BYTE,
                 image.pixels.data());
    if (glGetError() != GL_NO_ERROR) {
        glDeleteTextures(1, &name);
        return false;
    }
    objects.push_back(name);
    return true;
}

bool IsTextureSide(std::int32_t pixels) {
    return pixels >= 32 && pixels <= 1024 && (pixels & (pixels - 1)) == 0;
}

namespace {

bool ReadTexture(const std::string& path, cDIBSection& image) {
    return LoadImageFile(path, image) == ImageLoaded && IsTextureSide(image.width) &&
           IsTextureSide(image.height);
}

}  // namespace

bool LoadTexture(RenderContext& context, TextureObjects& objects, const std::string& path,
                 cDIBSection& image) {
    return ReadTexture(path, image) && UploadTexture(context, objects, image);
}

QImage PlaceholderPicture() {
    constexpr int kSide = 64;
    constexpr int kSquare = 8;
    constexpr QRgb kLight = qRgb(200, 200, 208);
    constexpr QRgb kDark = qRgb(144, 144, 156);
    QImage picture(kSide, kSide, QImage::Format_RGB32);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            picture.setPixel(x, y, (x / kSquare + y / kSquare) % 2 == 0 ? kLight : kDark);
        }
    }
    return picture;
}

namespace {

constexpr std::array<const char*, 7> kExtensions = {"jpg", "jpe", "jpeg", "gif",
                                                    "bmp", "png", "tga"};

bool IsTextureName(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    if (CharacterCount(name) <= 4 || dot == std::string::npos) return false;
    const std::string extension = LowerCase(name.substr(dot + 1));
    return std::ranges::find(kExtensions, extension) != kExtensions.end();
}

}  // namespace

std::vector<std::string> TextureFilesIn(const std::string& folder) {
    std::vector<std::pair<std::string, std::string>> keyed;  // lower case, then name
    for (const QString& entry : QDir(QString::fromStdString(folder)).entryList(QDir::Files)) {
        const std::string name = entry.toStdString();
        if (IsTextureName(name)) keyed.emplace_back(LowerCase(name), name);
    }
    std::ranges::sort(keyed);
    std::vector<std::string> names;
    names.reserve(keyed.size());
    for (auto& [key, name] : keyed) names.push_back(std::move(name));
    return names;
}

namespace {

int ErrorNumber(const std::exception& error) {
    if (const auto* system = dynamic_cast<const std::system_error*>(&error)) {
        return system->code().value();
    }
    const bool outOfMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    return outOfMemory ? static_cast<int>(std::errc::not_enough_memory) : 0;
}

void LogError(StartUpLog& log, const std::string& routine, const std::exception& error,
              const std::string& closing) {
    log.AddText("{ERROR_MOD(" + routine + "): " + std::to_string(ErrorNumber(error)) + " - " +
                error.what() + closing);
}

/// Enters the uploaded image in the library and the browser. A thumbnail that cannot be made costs
/// the thumbnail, never the entry: the tables keep their common index.
void AddTexture(const TextureTables& tables, const QImage& picture, const std::string& filename,
                StartUpLog& log) {
    if (!filename.empty()) {
        tables.library.AddTexture(filename, picture.width(), picture.height());
    }
    try {
        tables.addThumbnail(picture);
    } catch (const std::exception& error) {
        LogError(log, "AddTexture", error, "}");
    }
}

void LoadCandidate(const TextureTables& tables, const std::string& folder, std::size_t number,
                   const std::string& filename, StartUpLog& log) {
    log.AddText("        LOAD_Texture: (" + FormatPadded(std::int64_t(number), 4) + ") " +
                filename + " ");
    cDIBSection image;
    if (!LoadTexture(tables.context, tables.objects, folder + "/" + filename, image)) {
        log.AppendText("FAILED!");
        return;
    }
    log.AppendText("Loaded");
    AddTexture(tables, PictureOf(image), filename, log);
    log.AppendText(" (Added)");
}

/// Takes back the texture object of a candidate that did not make it into the library.
void DropUnlisted(const TextureTables& tables) {
    const auto listed = static_cast<std::size_t>(tables.library.ListCount());
    if (tables.objects.size() <= listed) return;
    glDeleteTextures(static_cast<GLsizei>(tables.objects.size() - listed),
                     tables.objects.data() + listed);
    tables.objects.resize(listed);
}

}  // namespace

void LoadAllTextures(const TextureTables& tables, const std::string& folder, StartUpLog& log) {
    const QImage placeholder = PlaceholderPicture();
    if (!UploadTexture(tables.context, tables.objects, BufferOf(placeholder))) {
        tables.objects.push_back(0);
    }
    AddTexture(tables, placeholder, "", log);
    const std::vector<std::string> names = TextureFilesIn(folder);
    for (std::size_t i = 0; i < names.size(); ++i) {
        try {
            LoadCandidate(tables, folder, i + 1, names[i], log);
        } catch (const std::exception& error) {
            DropUnlisted(tables);
            LogError(log, "LoadAllTextures", error, "))");
        }
    }
    tables.library.SelectTexture(0);
}

void ListAllTextures(TextureLibrary& library, const std::string& folder) {
    for (const std::string& name : TextureFilesIn(folder)) {
        cDIBSection image;
        if (ReadTexture(folder + "/" + name, image)) {
            library.AddTexture(name, image.width, image.height);
        }
    }
}

}  // namespace korvane
