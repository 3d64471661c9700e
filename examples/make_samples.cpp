// Builds the sample objects with the program's own code and stores them.
// Usage: korvane_make_samples TEXTURE_FOLDER TARGET_FOLDER
#include <QCoreApplication>
#include <cstdio>
#include <exception>

#include "examples/SampleKit.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "textures/ui/mImageFile.h"
#include "textures/ui/mOGLTextures.h"

namespace {

using namespace korvane;

struct Sample {
    const char* filename;
    Scene (*build)(TextureLibrary&);
};

constexpr Sample kSamples[] = {
    {"house.kvobject", BuildHouse},
    {"castle_tower.kvobject", BuildCastleTower},
    {"chessboard.kvobject", BuildChessboard},
};

TextureLibrary ReadLibrary(const std::string& folder) {
    TextureLibrary library;
    for (const std::string& name : TextureFilesIn(folder)) {
        cDIBSection image;
        if (LoadImageFile(folder + "/" + name, image) == ImageLoaded) {
            library.AddTexture(name, image.width, image.height);
        }
    }
    return library;
}

bool Make(const Sample& sample, TextureLibrary& library, const std::string& folder) {
    const Scene scene = sample.build(library);
    const std::string path = folder + "/" + sample.filename;
    const bool stored = SaveFile(path, EncodeObject(scene, library, false));
    std::printf("%s: %d brushes%s\n", path.c_str(), scene.brushCount(),
                stored ? "" : ", NOT stored");
    return stored;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "Usage: korvane_make_samples TEXTURE_FOLDER TARGET_FOLDER\n");
        return 2;
    }
    try {
        TextureLibrary library = ReadLibrary(argv[1]);
        bool stored = true;
        for (const Sample& sample : kSamples) stored &= Make(sample, library, argv[2]);
        return stored ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
