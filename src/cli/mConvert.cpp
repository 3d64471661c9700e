// korvane-cli convert: loading and saving, several objects into one.
#include <memory>

#include "cli/Progress.h"
#include "cli/SubCommands.h"
#include "cli/mCliFiles.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

struct Options {
    std::vector<std::string> inputs;
    std::string output;
    std::string textures;  ///< accepted like everywhere, but names need no folder
};

/// The library holds nothing but the names that the files bring along, in their spelling.
void Run(const Options& options) {
    Scene scene;
    TextureLibrary names;
    {
        Progress progress(options.inputs.size());
        for (const std::string& path : options.inputs) {
            progress.Next(Printable(path));
            ReadObject(path, names, scene);
        }
    }
    WriteOutput(options.output, EncodeObject(scene, names, false));
}

}  // namespace

void AddConvert(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = AddSubCommand(
        app, "convert", "Loads and saves an object; merges several into one",
        "Several objects are merged in their order. Brushes are named anew, by their place.\n"
        "Texture names stay as they are, whether or not the texture folder holds them.");
    command.add_option("IN", options->inputs, "Object files to read (.kvobject)")
        ->required()
        ->type_name("");
    AddOutput(command, options->output, {".kvobject"});
    AddTextureFolder(command, options->textures);
    command.callback([options] { Run(*options); });
}

}  // namespace korvane
