// korvane-cli info: objects in numbers, for people or as JSON.
#include <cmath>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/NumberText.h"
#include "cli/Progress.h"
#include "cli/SubCommands.h"
#include "cli/mCli.h"
#include "cli/mCliFiles.h"
#include "cli/mTextureFolder.h"
#include "scene/mNormals.h"
#include "scene/mStatistics.h"

namespace korvane {
namespace {

using nlohmann::ordered_json;

struct Options {
    std::vector<std::string> inputs;
    std::string textures;
    bool json = false;
};

/// What is told of one file.
struct Report {
    std::string file;
    Statistics counts{};
    std::vector<std::string> textureNames;
    Bounds bounds;
    std::vector<std::string> groups;
};

/// Texture names that the folder lacks count as used; the total is that of the folder.
Report ReportOn(const std::string& path, const TextureLibrary& library) {
    Scene scene;
    TextureLibrary named = library;
    ReadObject(path, named, scene);
    Report report{path, CountStatistics(scene, named), TextureNamesOf(scene, named),
                  SceneBounds(scene), GroupsOf(scene)};
    report.counts[TextureTotal] = library.ListCount();
    return report;
}

// --- JSON

/// The shortest number that reads back to the same 32-bit float; null for one that is not finite.
ordered_json NumberOf(float value) {
    if (!std::isfinite(value)) return nullptr;
    return NumericValue(FormatGeneral(value));
}

ordered_json PointOf(const Vec3& point) {
    return {NumberOf(point.x), NumberOf(point.y), NumberOf(point.z)};
}

ordered_json JsonOf(const Report& report) {
    const Statistics& counts = report.counts;
    return {{"file", report.file},
            {"brushes",
             {{"total", counts[BrushTotal]},
              {"box", counts[BoxBrushes]},
              {"cone", counts[ConeBrushes]},
              {"sphere", counts[SphereBrushes]}}},
            {"faces",
             {{"total", counts[FaceTotal]},
              {"invisible", counts[InvisibleFaces]},
              {"transparent", counts[TransparentFaces]},
              {"globalCoords", counts[GlobalCoordFaces]},
              {"localCoords", counts[LocalCoordFaces]}}},
            {"vertices", counts[VertexTotal]},
            {"polygons", {{"total", counts[TriangleTotal]}, {"visible", counts[VisibleTriangles]}}},
            {"textures",
             {{"used", counts[UsedTextures]},
              {"total", counts[TextureTotal]},
              {"names", report.textureNames}}},
            {"bounds", {{"min", PointOf(report.bounds.min)}, {"max", PointOf(report.bounds.max)}}},
            {"groups", report.groups}};
}

// --- text

struct Number {
    const char* caption;
    Statistic statistic;
};

struct Line {
    const char* title;
    std::vector<Number> numbers;
};

const std::vector<Line>& Lines() {
    static const std::vector<Line> lines = {
        {"Brushes",
         {{"total", BrushTotal},
          {"box", BoxBrushes},
          {"cone", ConeBrushes},
          {"sphere", SphereBrushes}}},
        {"Faces",
         {{"total", FaceTotal},
          {"invisible", InvisibleFaces},
          {"transparent", TransparentFaces},
          {"global coords", GlobalCoordFaces},
          {"local coords", LocalCoordFaces}}},
        {"Vertices", {{"total", VertexTotal}}},
        {"Polygons", {{"total", TriangleTotal}, {"visible", VisibleTriangles}}},
        {"Textures", {{"used", UsedTextures}, {"total", TextureTotal}}},
    };
    return lines;
}

void PrintTitle(const std::string& title) {
    std::cout << "  " << title << ":" << std::string(15 - title.size(), ' ');
}

void PrintNames(const std::string& title, const std::vector<std::string>& names) {
    PrintTitle(title);
    const char* separator = "";
    for (const std::string& name : names) {
        std::cout << separator << Printable(name);
        separator = ", ";
    }
    std::cout << (names.empty() ? "none" : "") << "\n";
}

std::string RangeText(const char* axis, float min, float max) {
    return std::string(axis) + " " + FormatGeneral(min) + " to " + FormatGeneral(max);
}

void Print(const Report& report) {
    std::cout << Printable(report.file) << "\n";
    for (const Line& line : Lines()) {
        PrintTitle(line.title);
        const char* separator = "";
        for (const Number& number : line.numbers) {
            std::cout << separator << report.counts[number.statistic] << " " << number.caption;
            separator = ", ";
        }
        std::cout << "\n";
    }
    PrintNames("Texture names", report.textureNames);
    const auto& [min, max] = report.bounds;
    PrintTitle("Bounds");
    std::cout << RangeText("X", min.x, max.x) << ", " << RangeText("Y", min.y, max.y) << ", "
              << RangeText("Z", min.z, max.z) << "\n";
    PrintNames("Groups", report.groups);
}

// --- running

/// Tells of every file that is good; a bad one gets its line on standard error. Whether all were
/// good.
bool Run(const Options& options) {
    const auto application = MakeApplication(false);
    const TextureLibrary library = ListTextures(options.textures);
    ordered_json all = ordered_json::array();
    bool good = true;
    Progress progress(options.inputs.size());
    for (const std::string& path : options.inputs) {
        progress.Next(Printable(path));
        try {
            const Report report = ReportOn(path, library);
            if (options.json) {
                all.push_back(JsonOf(report));
            } else {
                progress.Clear();
                Print(report);
            }
        } catch (const FileError& error) {
            progress.Clear();
            std::cerr << error.what() << "\n";
            good = false;
        }
    }
    progress.Clear();
    if (options.json) {
        std::cout << all.dump(2, ' ', false, ordered_json::error_handler_t::replace) << "\n";
    }
    return good;
}

}  // namespace

void AddInfo(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App& command = AddSubCommand(
        app, "info", "Tells what objects hold: statistics, bounds, texture names, groups",
        "As in the editor, faces are polygons of one or more triangles, and polygons are those\n"
        "triangles. Used textures include those that the folder lacks, and the placeholder,\n"
        "which has no name, where a face has no texture; the total is that of the folder and\n"
        "the placeholder. An object without vertices has bounds of 0. A bad file does not keep\n"
        "the others from being told of.");
    command.add_option("FILE", options->inputs, "Object files to read (.kvobject)")
        ->required()
        ->type_name("");
    command.add_flag("--json", options->json, "Print an array of one JSON object a file");
    AddTextureFolder(command, options->textures);
    command.callback([options] {
        if (!Run(*options)) throw CLI::RuntimeError(ExitBadFile);  // all has been told
    });
}

}  // namespace korvane
