#include <limits>
#include <utility>

#include "SceneCheck.h"
#include "export/CodeTemplate.h"
#include "files/RunRecord.h"
#include "files/mObjectFile.h"
#include "files/mPreferenceFiles.h"
#include "files/mSettingsFile.h"
#include "support/SceneMaker.h"

namespace korvane::fuzz {
namespace {

/// Collects seeds.
class SeedList {
  public:
    void Add(const char* target, const char* name, Bytes bytes) {
        seeds_.push_back({target, name, std::move(bytes)});
    }

    /// The scene of a maker as an object file and as a snapshot.
    void AddScene(const char* name, const SceneMaker& maker) {
        Add("object", name, EncodeObject(maker.scene, maker.library, false));
        Add("snapshot", name, EncodeObject(maker.scene, maker.library, true));
    }

    std::vector<Seed> Take() { return std::move(seeds_); }

  private:
    std::vector<Seed> seeds_;
};

/// The file up to some byte: what an older version wrote, or what a crash left.
Bytes Cut(Bytes bytes, std::size_t length) {
    bytes.resize(std::min(length, bytes.size()));
    return bytes;
}

/// Every setting of a face away from its default, another for each face.
void VaryFaces(Brush& brush) {
    std::int32_t i = 0;
    for (BrushFace& face : brush.faces) {
        ++i;
        face.texture = i % 3;
        face.selected = i % 2 == 0;
        face.invisible = i % 3 == 0;
        face.localCoords = i % 4 == 0;
        face.flipped = i % 5 == 0;
        face.mirrored = i % 6 == 0;
        face.rotation = 45 * i;
        face.transparency = i % 2;
        face.smooth = i % 3 == 1;
        face.offsetX = 0.25F * static_cast<float>(i);
        face.repeatY = 1.0F / static_cast<float>(i);
    }
}

void AddShapes(SeedList& seeds) {
    seeds.AddScene("empty", {});
    for (const auto& [name, shape, sides] :
         {std::tuple("box", Box, 4), std::tuple("prism", Box, 9), std::tuple("cone", Cone, 5),
          std::tuple("sphere", Sphere, 6)}) {
        SceneMaker maker;
        maker.Create(shape, sides, {-1, 0, -1}, {1, 2, 3});
        seeds.AddScene(name, maker);
        VaryFaces(maker.scene.brushes.front());
        maker.scene.brushes.front().selected = true;
        seeds.AddScene((std::string(name) + "_varied").c_str(), maker);
    }
}

void AddNames(SeedList& seeds) {
    SceneMaker groups;
    for (const char* group : {"", "Walls", "walls", "T\u00FCrme \u20AC", "%FACEINFO%"})
        groups.SelectedBox({0, 0, 0}, {1, 1, 1}).group = group;
    seeds.AddScene("groups", groups);

    SceneMaker textures;
    for (int i = 0; i < 40; ++i) {
        textures.library.AddTexture("texture" + std::to_string(i) + ".bmp", 64, 64);
        textures.library.SelectTexture(textures.library.ListCount() - 1);
        textures.Create(Cone, 3, {0, 0, 0}, {1, 1, 1});
    }
    seeds.AddScene("textures", textures);

    SceneMaker hollow;
    for (int i = 0; i < 100; ++i) AddBrush(hollow.scene, "", i % 2 ? "odd" : "");
    seeds.AddScene("brushes_of_nothing", hollow);
}

void AddExtremes(SeedList& seeds) {
    using Limits = std::numeric_limits<float>;
    SceneMaker far;
    for (const float value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                              Limits::max(), Limits::denorm_min(), -0.0F, 1e6F}) {
        Brush& brush = far.SelectedBox({0, 0, 0}, {1, 1, 1});
        brush.vertices.front().y = value;
        brush.faces.front().uv[1].u = value;
        brush.faces.back().offsetX = brush.faces.back().repeatX = value;
        brush.faces.back().rotation = std::numeric_limits<std::int32_t>::max();
        brush.faces.back().localCoords = true;
    }
    seeds.AddScene("extremes", far);

    SceneMaker flat;
    Brush& brush = flat.SelectedBox({2, 2, 2}, {2, 2, 2});
    for (BrushFace& face : brush.faces) face.localCoords = true;
    seeds.AddScene("point", flat);
}

Settings VariedSettings() {
    Settings settings;
    settings.ViewLayout = PreviewOnly;
    settings.snapSize = 10;
    settings.pickerSize = 0.01F;
    settings.TextureScale = 200;
    settings.showRulers = settings.showInvisible = settings.show3DGrid = false;
    settings.window = {2, -15, 30, 12000, 9000};
    settings.warnings.fill(false);
    settings.colors.colors.fill(0xFFFFFF);
    settings.keyMap.codes.fill(0);
    settings.recentFiles = {"/a.kvobject", "C:\\b.kvobject", "/home/T\u00FCr \u20AC.kvobject"};
    return settings;
}

void AddPreferences(SeedList& seeds) {
    const Settings varied = VariedSettings();
    const Bytes whole = EncodeSettings(varied);
    constexpr std::size_t kYounger = 18;  // bytes of the two chunks that came last
    seeds.Add("settings", "default", EncodeSettings({}));
    seeds.Add("settings", "varied", whole);
    seeds.Add("settings", "older", Cut(whole, whole.size() - kYounger));
    seeds.Add("settings", "half", Cut(whole, whole.size() / 2));
    for (const auto& [name, settings] : {std::pair("default", Settings()), {"varied", varied}}) {
        const Bytes scheme = EncodeColorScheme(settings.colors);
        const Bytes map = EncodeKeyMap(settings.keyMap);
        seeds.Add("scheme", name, scheme);
        seeds.Add("keymap", name, map);
        seeds.Add("scheme", (std::string(name) + "_short").c_str(), Cut(scheme, 24));
        seeds.Add("keymap", (std::string(name) + "_short").c_str(), Cut(map, 24));
    }
}

void AddTemplates(SeedList& seeds) {
    const auto add = [&seeds](const char* name, const CodeTemplate& code) {
        seeds.Add("template", name, EncodeTemplate(code));
    };
    add("visual_basic", DefaultVBCode());
    add("cpp", DefaultCppCode());
    add("empty", {});
    add("tags", {"%KVINFO%%kvinfo%", "%Normal.X%%%Transparency%%TextureName%%textureid%", "%"});
    add("wide", {"\u20AC\u00FC", "\u201E%FACEINFO%\u201C", "\u0178"});
}

void AddPictures(SeedList& seeds) {
    Bytes pixels(4 * 4 * 4);
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<std::uint8_t>(7 * i);
    const Bytes runs{0x83, 1, 2, 3, 4, 0x01, 5, 6, 7, 8, 9, 10, 11, 12, 0xFF, 13, 14, 15, 16};
    seeds.Add("tga", "plain24", MakeTga({4, 4}, pixels));
    seeds.Add("tga", "plain32", MakeTga({4, 4, 2, 32}, pixels));
    seeds.Add("tga", "top_first", MakeTga({4, 4, 2, 24, 0x20}, pixels));
    seeds.Add("tga", "runs24", MakeTga({8, 2, 10, 24}, runs));
    seeds.Add("tga", "runs32", MakeTga({16, 16, 10, 32, 0x20}, runs));
    seeds.Add("tga", "cut", Cut(MakeTga({4, 4}, pixels), 30));
    seeds.Add("tga", "claims_much", MakeTga({32767, 32767, 10}, runs));
    Bytes labelled = MakeTga({2, 2}, pixels);
    labelled[0] = 5;
    seeds.Add("tga", "labelled", labelled);
}

void AddRecords(SeedList& seeds) {
    Bytes bytes;
    const auto add = [&bytes](RunEntry kind, const char* text) {
        const Bytes entry = EncodeRunEntry(kind, text);
        bytes.insert(bytes.end(), entry.begin(), entry.end());
    };
    add(RunEntry::Path, "/home/T\u00FCr.kvobject");
    add(RunEntry::Scene, "$1$.$kvundo$");
    add(RunEntry::Saved, "");
    add(RunEntry::Scene, "$1$.$kvrecovery$");
    add(RunEntry::ForeignPath, "/b.kvobject");
    add(RunEntry::Scene, "../no.kvobject");
    seeds.Add("record", "all_kinds", bytes);
    seeds.Add("record", "torn", Cut(bytes, bytes.size() - 3));
}

}  // namespace

std::vector<Seed> Seeds() {
    SeedList seeds;
    AddShapes(seeds);
    AddNames(seeds);
    AddExtremes(seeds);
    AddPreferences(seeds);
    AddTemplates(seeds);
    AddPictures(seeds);
    AddRecords(seeds);
    return seeds.Take();
}

}  // namespace korvane::fuzz
