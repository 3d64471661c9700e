#include "SceneCheck.h"
#include "export/mSourceCode.h"
#include "support/SceneMaker.h"

namespace korvane::fuzz {
namespace {

/// Two faces of a brush whose names bring in tags of their own, and two of a plain one.
const Scene& TrickyScene() {
    static const Scene scene = [] {
        SceneMaker maker;
        for (const char* group : {"%TextureName% 50% %FACEINFO%", "Walls"}) {
            Brush& brush = maker.SelectedBox({-1, -1, -1}, {1, 1, 1});
            brush.group = group;
            brush.faces.resize(2);
        }
        return maker.scene;
    }();
    return scene;
}

}  // namespace

void CheckTemplate(Input input) {
    std::optional<CodeTemplate> code;
    {
        const HeapMeter meter;
        code = DecodeTemplate(input);
        meter.RequireWithin(Allowance(input, 8));
    }
    if (!code) return;
    const Bytes saved = EncodeTemplate(*code);
    Require(DecodeTemplate(saved) == code, "the template comes back from its file");
    // The letter case of the tag is free.
    Require(saved.size() <= input.size() &&
                std::equal(saved.begin() + 4, saved.end(), input.begin() + 4),
            "a template is stored as it was read");
    BuildPreview(*code);
    const std::string text = SourceCodeText(*code, TrickyScene(), Library());
    Require(text.ends_with("\r\n"), "source text ends with a line");
}

}  // namespace korvane::fuzz
