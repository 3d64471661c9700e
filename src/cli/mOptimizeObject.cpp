// korvane-cli optimize: marks the faces as invisible that other brushes hide.
#include <chrono>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/Progress.h"
#include "cli/SubCommands.h"
#include "cli/mCliFiles.h"
#include "files/mObjectFile.h"
#include "optimizer/ExactEngine.h"
#include "optimizer/FastEngine.h"
#include "optimizer/mOptimizeDialog.h"
#include "views/ui/mSelectionEngine.h"

namespace korvane {
namespace {

using nlohmann::ordered_json;

/// The preview that stops are looked at through, in pixels; its height sets what a stop meets.
constexpr int kWidth = 800;
constexpr int kHeight = 600;

struct Options {
    std::string input;
    std::string output;
    std::string textures;  ///< accepted like everywhere, but names need no folder
    std::size_t detail = 0;
    bool noZAxisPass = false;
    bool noPolarPasses = false;
    bool exact = false;
    bool reference = false;
    bool json = false;
};

void PrepareContext(RenderContext& context, const Options& options) {
    constexpr std::uint8_t kColorBits = 32, kDepthBits = 32;
    if (CreateSurfacelessContext(context, kColorBits, kDepthBits) < 0) {
        throw FileError(options.output, "Fatal Error: Could not create an OpenGL Render Context!");
    }
    ApplyGLDefaults(context);
    ResizePreviewViewport(context, kWidth, kHeight, 100.0, 45.0);
}

std::unique_ptr<OptimizeEngine> MakeEngine(const Options& options, const Scene& scene,
                                           RenderContext& context) {
    if (options.exact) return MakeExactEngine(scene);
    const OptimizeOptions sampled =
        OptionsOf({options.detail, !options.noZAxisPass, !options.noPolarPasses, false, false},
                  kWidth, kHeight);
    if (!options.reference) return MakeFastEngine(scene, sampled);
    PrepareContext(context, options);
    return MakeSelectionEngine(context, scene, sampled);
}

OptimizeResult Optimize(const Options& options, Scene& scene) {
    using Clock = std::chrono::steady_clock;
    RenderContext context;
    const auto engine = MakeEngine(options, scene, context);
    Progress line;
    const Clock::time_point start = Clock::now();
    const auto show = [&](const OptimizeProgress& progress) {
        const std::chrono::duration<double> elapsed = Clock::now() - start;
        line.Show(ProgressText(progress) + "   " + TimeText(elapsed.count(), progress));
        return true;
    };
    const OptimizeResult result = OptimizeScene(scene, *engine, show);
    if (!result.finished) throw FileError(options.output, "Error: Lost the OpenGL Render Context!");
    return result;
}

void Print(const Options& options, const Scene& scene, const OptimizeResult& result) {
    if (options.json) {
        const ordered_json report = {{"file", options.output},
                                     {"brushes", scene.brushCount()},
                                     {"hiddenPolygons", result.hidden},
                                     {"shownPolygons", result.shown}};
        std::cout << report.dump(2, ' ', false, ordered_json::error_handler_t::replace) << "\n";
    } else {
        std::cout << ResultText(result) << "\n";
    }
}

/// The library holds nothing but the names that the file brings along, in their spelling.
void Run(const Options& options) {
    Scene scene;
    TextureLibrary names;
    ReadObject(options.input, names, scene);
    const OptimizeResult result = Optimize(options, scene);
    WriteOutput(options.output, EncodeObject(scene, names, false));
    Print(options, scene, result);
}

}  // namespace

void AddOptimize(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = AddSubCommand(
        app, "optimize", "Marks the faces as invisible that other brushes hide",
        "Each brush is looked at from many directions beside each other brush; what no look\n"
        "meets is hidden. With --exact a face is hidden only where other brushes cover every\n"
        "point of it. Faces are never deleted.");
    AddInput(command, options->input);
    AddOutput(command, options->output, {".kvobject"});
    CLI::Option* const sampled[] = {
        command
            .add_option("--detail", options->detail,
                        "0 looks every 5 degrees (default), 1 every 10, 2 every 20,\n"
                        "3 every 30, 4 every 45")
            ->type_name("0..4")
            ->check(CLI::Range(0, 4).description("")),
        command.add_flag("--no-z-axis-pass", options->noZAxisPass,
                         "Leave out the circle over the left and right side"),
        command.add_flag("--no-polar-passes", options->noPolarPasses,
                         "Leave out the circles 45 degrees above and below"),
        command.add_flag("--reference", options->reference,
                         "Ask the OpenGL driver at every look; takes many hundred times as long")};
    CLI::Option* const exact =
        command.add_flag("--exact", options->exact, "Hide only faces that are completely covered");
    for (CLI::Option* option : sampled) exact->excludes(option);
    command.add_flag("--json", options->json, "Print the result as a JSON object");
    AddTextureFolder(command, options->textures);
    command.callback([options] { Run(*options); });
}

}  // namespace korvane
