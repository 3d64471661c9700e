// What the actions of a run left behind: a run that clicks a lot and changes nothing is no test.
#pragma once

#include <filesystem>

#include "RandomUser.h"

namespace korvane::soak {

/// A sum that changes when the items do.
template <class List, class Value>
inline double Over(const List& list, Value value) {
    double sum = 0, weight = 1;
    for (const auto& item : list) sum += static_cast<double>(value(item)) * ++weight;
    return sum;
}
template <class Value>
inline double OverFaces(const Editor& editor, Value value) {
    return Over(editor.scene.brushes, [&](const Brush& b) { return Over(b.faces, value); });
}
template <class Value>
inline double OverVertices(const Editor& editor, Value value) {
    return Over(editor.scene.brushes, [&](const Brush& b) { return Over(b.vertices, value); });
}
inline double Of(const Vec3& v) {
    return v.x + 3.0 * v.y + 7.0 * v.z;
}

/// The numbers of kTraces as they were.
using Traces = std::vector<double>;

/// Something that actions change, as a number.
struct Trace {
    const char* name;
    double (*value)(const Editor&);
};

// clang-format off
inline const Trace kTraces[] = {
    {"brushes", [](const Editor& e) { return double(e.scene.brushCount()); }},
    {"selected brushes", [](const Editor& e) { return Over(e.scene.brushes, [](const Brush& b) { return bool{b.selected}; }); }},
    {"selected faces", [](const Editor& e) { return OverFaces(e, [](const BrushFace& f) { return bool{f.selected}; }); }},
    {"selected vertices", [](const Editor& e) { return OverVertices(e, [](const Vertex& v) { return bool{v.selected}; }); }},
    {"places", [](const Editor& e) { return OverVertices(e, [](const Vertex& v) { return Of(v.Position()); }); }},
    {"textures", [](const Editor& e) { return OverFaces(e, [](const BrushFace& f) { return f.texture; }); }},
    {"mapping", [](const Editor& e) { return OverFaces(e, [](const BrushFace& f) { return f.offsetX + 2.0 * f.offsetY + 3.0 * f.repeatX + 5.0 * f.repeatY + f.rotation; }); }},
    {"flags of faces", [](const Editor& e) { return OverFaces(e, [](const BrushFace& f) { return (f.invisible ? 1 : 0) + 2.0 * f.smooth + 4.0 * f.transparency + (f.flipped ? 1000 : 0); }); }},
    {"groups", [](const Editor& e) { return Over(e.scene.brushes, [](const Brush& b) { return b.group.size(); }); }},
    {"clipboard", [](const Editor& e) { return double(e.scene.clipboardCount()); }},
    {"undo", [](const Editor& e) { return double(e.undo.UndoCount); }},
    {"redo", [](const Editor& e) { return double(e.undo.redo.size()); }},
    {"camera", [](const Editor& e) { const Camera& c = e.camera; return Of({c.x, c.y, c.z}) + c.pitch + c.yaw; }},
    {"marker", [](const Editor& e) { return Of(e.scene.marker); }},
    {"depth range", [](const Editor& e) { return e.depthRange.HI + 2.0 * e.depthRange.LO; }},
    {"views", [](const Editor& e) { return Over(e.views, [](const ViewState& v) { return v.panX + 3.0 * v.panY + 7.0 * v.zoom; }); }},
    {"split", [](const Editor& e) { return e.splitX + 2.0 * e.splitY; }},
    {"path", [](const Editor& e) { return double(std::hash<std::string>()(e.CurrentObjectPath)); }},
    {"colours", [](const Editor& e) { return Over(e.settings.colors.colors, [](Color c) { return c; }); }},
    {"key map", [](const Editor& e) { return Over(e.settings.keyMap.codes, [](std::int16_t c) { return c; }); }},
    {"multiply", [](const Editor& e) { return e.multiply.count + Of(e.multiply.move) + Of(e.multiply.rotation); }},
    {"free rotation", [](const Editor& e) { return Of(e.freeRotate); }},
    {"exported meshes", [](const Editor& e) { return double(e.exportedParts); }},
};

inline const char* const kDemanded[] = {
    "view pbView0", "view pbView1", "view pbView2", "gauge pbDepth", "preview pbOpenGL", "wheel",
    "keys to frmMain", "window resize", "window drop", "start after a break",
    "form frmSelect", "form frmPreferences", "form frmOptimize", "form frmStats",
    "form frmExportSourceCode", "form frmArbitrarySize", "form QMessageBox",
    "answer a path to open", "answer a path to save", "answer a colour",
    "file .kvobject", "file .3ds", "file .obj", "file .glb", "file .txt", "file .kvcs", "file .kvcode",
    "view: brushes", "view: selected brushes", "view: selected vertices",
    "view: places", "view: views", "view: marker", "gauge: depth range",
    "preview: camera", "preview: selected brushes", "keys: camera",
    "button: mapping", "slider: mapping",
    "text: groups", "grip: split",
    "text: multiply", "button: brushes", "button: free rotation", "button: colours",
    "button: exported meshes", "button: selected brushes",
    "command: undo", "command: redo", "command: clipboard", "command: path",
};
// What takes more luck: asked only of long runs.
inline const char* const kDemandedLater[] = {
    "preview: selected faces", "button: flags of faces", "slider: flags of faces", "text: mapping", "start restored",
    "list: textures", "button: key map", "file .kvkm",
};
// clang-format on

/// Counts what is not as it was seen last: "view: brushes" after an action of the kind "view".
inline void CountTraces(Tally& tally, const std::string& kind, const Editor& editor, Traces& seen) {
    Traces now;
    for (const Trace& trace : kTraces) now.push_back(trace.value(editor));
    for (std::size_t i = 0; i < seen.size(); ++i)
        if (now[i] != seen[i]) ++tally[kind + ": " + kTraces[i].name];
    seen = std::move(now);
}

/// Counts the kinds of files that were saved to the folder.
inline void CountFiles(Tally& tally, const std::filesystem::path& folder) {
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (file.path().filename().string().starts_with("saved"))
            tally["file " + file.path().extension().string()] = 1;
    }
}

/// The times of each kind, and of each kind that changed something.
inline Tally Summary(const Tally& tally) {
    Tally summary;
    for (const auto& [what, times] : tally) {
        const bool trace = what.find(": ") != std::string::npos;
        summary[trace ? what : what.substr(0, what.find(' '))] += times;
    }
    return summary;
}

/// What a run should have done and has not: every command, every form, every kind of file, and
/// every change that hands can make. Empty: nothing.
inline std::string NeverDone(const Tally& tally, bool longRun) {
    std::vector<std::string> demanded(std::begin(kDemanded), std::end(kDemanded));
    if (longRun)
        demanded.insert(demanded.end(), std::begin(kDemandedLater), std::end(kDemandedLater));
    for (const Command& command : Commands())
        demanded.push_back(std::string("command ") + command.name);
    std::string missing;
    for (const std::string& what : demanded)
        if (!tally.contains(what)) missing += (missing.empty() ? "" : ", ") + what;
    return missing;
}

}  // namespace korvane::soak
