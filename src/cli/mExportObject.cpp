// korvane-cli export: 3DStudio files, and program source made from a code template.
#include <memory>

#include "cli/SubCommands.h"
#include "cli/mCliFiles.h"
#include "cli/mTextureFolder.h"
#include "export/mExport3DS.h"
#include "export/mSourceCode.h"

namespace korvane {
namespace {

constexpr const char* kEnding3DS = ".3ds";
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

/// The library gives the texture numbers that the editor would write.
void Run(const Options& options) {
    const auto application = MakeApplication(false);
    TextureLibrary library = ListTextures(options.textures);
    Scene scene;
    ReadObject(options.input, library, scene);
    (EndsWith(options.output, kEnding3DS) ? Export3DS : ExportText)(options, scene, library);
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
        app, "export", "Writes the visible faces as a 3DStudio file or as program source",
        "The ending of OUT tells which. Texture names are written whether or not the texture\n"
        "folder holds them; a texture that it lacks gets a number behind those that it holds.");
    AddInput(command, options->input);
    AddOutput(command, options->output, {kEnding3DS, kEndingText});
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
