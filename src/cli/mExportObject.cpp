// korvane-cli export: meshes for other programs, and program source made from a code template.
#include <algorithm>
#include <memory>

#include "cli/SubCommands.h"
#include "cli/mCliFiles.h"
#include "cli/mTextureFolder.h"
#include "export/mExport3DS.h"
#include "export/mSourceCode.h"
#include "interchange/mInterchange.h"
#include "textures/ui/mImageFile.h"

namespace korvane {
namespace {

constexpr const char* kEndingText = ".txt";

struct Options {
    std::string input;
    std::string output;
    std::string codeTemplate = "b";  ///< or "a", or a file
    std::string textures;
};

CodeTemplate ReadTemplate(const std::string& path) {
    const auto bytes = ReadInput(path, "Error: Unable to load file!");
    auto code = DecodeTemplate(bytes);
    if (!code) throw FileError(path, "Error: Invalid Source Code Template File!");
    return std::move(*code);
}

CodeTemplate TemplateOf(const Options& options) {
    if (options.codeTemplate == "a") return DefaultVBCode();
    if (options.codeTemplate == "b") return DefaultCppCode();
    return ReadTemplate(options.codeTemplate);
}

void ExportText(const Options& options, const Scene& scene, const TextureLibrary& library) {
    const CodeTemplate code = TemplateOf(options);
    CheckWritten(options.output, SaveSourceCode(options.output, code, scene, library));
}

void Export3DS(const Options& options, const Scene& scene, const TextureLibrary& library) {
    std::int32_t partCounter = 0;
    CheckWritten(options.output, Save3DS(options.output, scene, library, partCounter));
}

void ExportOBJ(const Options& options, const Scene& scene, const TextureLibrary& library) {
    const std::string folder = TextureFolder(options.textures);
    CheckWritten(options.output, SaveOBJ(options.output, scene, library, folder));
}

void ExportGLB(const Options& options, const Scene& scene, const TextureLibrary& library) {
    const std::string folder = TextureFolder(options.textures);
    CheckWritten(options.output, SaveGLB(options.output, scene, library, folder, PngOf));
}

/// What the ending of the output asks for.
struct Format {
    const char* ending;
    void (*write)(const Options&, const Scene&, const TextureLibrary&);
};

constexpr Format kFormats[] = {
    {".3ds", Export3DS}, {".obj", ExportOBJ}, {".glb", ExportGLB}, {kEndingText, ExportText}};

std::vector<std::string> Endings() {
    std::vector<std::string> endings;
    for (const Format& format : kFormats) endings.push_back(format.ending);
    return endings;
}

/// The library gives the texture numbers that the editor would write.
void Run(const Options& options) {
    const auto application = MakeApplication(false);
    TextureLibrary library = ListTextures(options.textures);
    Scene scene;
    ReadObject(options.input, library, scene);
    std::ranges::find_if(kFormats, [&](const Format& format) {
        return EndsWith(options.output, format.ending);
    })->write(options, scene, library);
}

void CheckUsage(const CLI::App& command, const Options& options) {
    if (command.count("--template") > 0 && !EndsWith(options.output, kEndingText)) {
        throw CLI::ValidationError("--template", "only goes with an output that ends in .txt");
    }
}

}  // namespace

void AddExport(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = AddSubCommand(
        app, "export", "Writes the visible faces as a mesh file or as program source",
        "The ending of OUT tells which: .3ds a 3DStudio mesh, .obj a Wavefront mesh with its\n"
        "materials (.mtl) and textures beside it, .glb a binary glTF 2.0 mesh with its textures\n"
        "inside, .txt program source. Texture names are written whether or not the texture\n"
        "folder holds them, only .glb leaves out those that it lacks; in program source they\n"
        "get numbers behind those that it holds.");
    AddInput(command, options->input);
    AddOutput(command, options->output, Endings());
    command
        .add_option("--template", options->codeTemplate,
                    "Template of the source: a (Visual Basic), b (C++; the default)\n"
                    "or a template file (.kvcode)")
        ->type_name("FILE|a|b");
    AddTextureFolder(command, options->textures);
    command.callback([options, &command] {
        CheckUsage(command, *options);
        Run(*options);
    });
}

}  // namespace korvane
