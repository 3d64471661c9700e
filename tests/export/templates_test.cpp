// The templates that ship with the program: what they give is read by the tool it is made for.
#include <assimp/scene.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <assimp/Importer.hpp>
#include <cstdlib>
#include <sstream>

#include "base/NumberText.h"
#include "export/mSourceCode.h"
#include "support/SceneMaker.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

/// The numbers of a triangle (normal, texture coordinates, positions), rounded, in one line.
std::string Line(const std::vector<float>& numbers) {
    std::string line;
    for (const float number : numbers) {
        AppendRounded(line, number);
        line += ' ';
    }
    return line;
}

std::vector<std::string> Sorted(std::vector<std::string> lines) {
    std::ranges::sort(lines);
    return lines;
}

class TemplatesTest : public testing::Test {
  protected:
    TemplatesTest() {
        maker.Create(Sphere, 5, {-1, 0, -2}, {1, 3.3F, 2.5F});
        maker.scene.brushes[0].group = "Tower \\";  // a comment must not swallow the next line
        maker.library.SelectTexture(2);
        for (BrushFace& face : maker.Create(Box, 4, {2, 0, 0}, {3, 1, 1}).faces)
            face.transparency = 25;
        maker.scene.brushes[1].faces[0].invisible = true;
    }

    /// Writes what the template gives for the scene.
    void Write(const std::string& name, const std::string& target) {
        const auto code = DecodeTemplate(
            test::FileBytes(KORVANE_SOURCE_DIR "/examples/templates/" + name + ".kvcode"));
        ASSERT_TRUE(code) << name;
        ASSERT_TRUE(SaveSourceCode(folder.Path(target), *code, maker.scene, maker.library));
    }

    void WriteText(const std::string& name, const std::string& text) {
        test::WriteFileBytes(folder.Path(name), {text.begin(), text.end()});
    }

    /// Runs a command in the folder, which prints a line of numbers for each triangle.
    std::vector<std::string> Run(const std::string& command) {
        const std::string line = "cd '" + folder.Path() + "' && (" + command + ") >out 2>errors";
        EXPECT_EQ(std::system(line.c_str()), 0) << TextOf("errors") << TextOf("out");
        std::istringstream out(TextOf("out"));
        std::vector<std::string> lines;
        for (std::string text; std::getline(out, text);) {
            std::istringstream words(text);
            std::vector<float> numbers;
            for (float number; words >> number;) numbers.push_back(number);
            lines.push_back(Line(numbers));
        }
        return lines;
    }

    std::string TextOf(const char* name) {
        const test::Bytes bytes = test::FileBytes(folder.Path(name));
        return {bytes.begin(), bytes.end()};
    }

    std::vector<std::string> Expected() const {
        std::vector<std::string> lines;
        for (const Brush& brush : maker.scene.brushes) {
            for (const BrushFace& face : brush.faces) {
                if (face.invisible) continue;
                std::vector<float> numbers{face.normal.x, face.normal.y, face.normal.z};
                for (const TexCoord& uv : face.uv) numbers.insert(numbers.end(), {uv.u, uv.v});
                for (const std::int32_t corner : {face.a, face.b, face.c}) {
                    const Vec3 p = At(brush, corner);
                    numbers.insert(numbers.end(), {p.x, p.y, p.z});
                }
                lines.push_back(Line(numbers));
            }
        }
        return lines;
    }

    test::TempFolder folder;
    SceneMaker maker;
};

TEST_F(TemplatesTest, CppCodeCompiles) {
    ASSERT_TRUE(
        SaveSourceCode(folder.Path("model.txt"), DefaultCppCode(), maker.scene, maker.library));
    WriteText("gl.cpp", "#include <GL/gl.h>\n#include \"model.txt\"\n");
    Run("g++ -fsyntax-only gl.cpp");
    Write("cpp_vertex_arrays", "model.h");
    WriteText("main.cpp", R"(#include "model.h"
#include <cstdio>
int main() {
    for (int i = 0; i < kvTriangleCount; ++i) {
        const KvTriangle& t = kvTriangles[i];
        if (t.texture != (i < kvTriangleCount - 11 ? 1 : 2)) return 1;
        if (t.transparency != (t.texture == 1 ? 0 : 25)) return 2;
        for (float n : t.normal) std::printf("%.9g ", n);
        for (auto& c : t.corners) std::printf("%.9g %.9g ", c.texCoord[0], c.texCoord[1]);
        for (auto& c : t.corners)
            for (float n : c.position) std::printf("%.9g ", n);
        std::puts("");
    }
})");
    EXPECT_EQ(Run("g++ -std=c++17 -Wall -Wextra -Wpedantic -Werror main.cpp -o main && ./main"),
              Expected());
}

TEST_F(TemplatesTest, PythonListsRun) {
    maker.scene.brushes[1].group = "Türme €";
    Write("python_lists", "model.py");
    WriteText("check.py", R"(from model import triangles
for name, texture, transparency, normal, uvs, points in triangles:
    assert (name, texture, transparency) in [("brick.jpg", 1, 0), ("sand.tga", 2, 25)]
    print(*normal, *(n for uv in uvs for n in uv), *(n for point in points for n in point))
)");
    EXPECT_EQ(Run("python3 check.py"), Expected());
}

TEST_F(TemplatesTest, JsonIsValid) {
    Write("json", "model.json");
    WriteText("check.py", R"(import json
model = json.load(open("model.json", encoding="cp1252"))
assert model["generator"].startswith("Korvane v"), model
columns, *rows = model["triangles"]
for row in rows:
    t = dict(zip(columns, row))
    assert len(row) == len(columns) and t["textureName"] in ("brick.jpg", "sand.tga"), row
    print(*t["normal"], *sum(t["texCoords"], []), *sum(t["positions"], []))
)");
    EXPECT_EQ(Run("python3 check.py"), Expected());
    for (Brush& brush : maker.scene.brushes) brush.faces.clear();
    Write("json", "model.json");
    EXPECT_TRUE(Run("python3 check.py").empty());
}

TEST_F(TemplatesTest, ThreeJsMakesAGeometry) {
    Write("threejs_buffer_geometry", "model.mjs");
    WriteText("check.mjs", R"(import assert from 'assert';
import { geometry, materials } from './model.mjs';
assert(geometry.isBufferGeometry);
assert.deepStrictEqual(materials, [{ texture: 'brick.jpg', transparency: 0 },
                                   { texture: 'sand.tga', transparency: 25 }]);
const { position, normal, uv } = geometry.attributes;
assert.deepStrictEqual(geometry.groups.map((g) => g.materialIndex), [0, 1]);
assert.strictEqual(geometry.groups[1].start + geometry.groups[1].count, position.count);
const part = (attribute, i, n) => Array.from(attribute.array.slice(i, i + n));
for (let i = 0; i < position.count; i += 3)
  console.log([...part(normal, 3 * i, 3), ...part(uv, 2 * i, 6), ...part(position, 3 * i, 9)].join(' '));
)");
    EXPECT_EQ(Run("mkdir -p node_modules/three && "
                  "cp /usr/share/javascript/three/three.js node_modules/three/index.js && "
                  "node check.mjs"),
              Expected());
}

/// Assimp gives one mesh a material, and so another order.
TEST_F(TemplatesTest, WavefrontObjIsRead) {
    Write("wavefront_obj", "model.obj");
    Assimp::Importer importer;
    const aiScene* scene = importer.ReadFile(folder.Path("model.obj"), 0);
    ASSERT_NE(scene, nullptr) << importer.GetErrorString();
    std::vector<std::string> found;
    for (unsigned m = 0; m < scene->mNumMeshes; ++m) {
        const aiMesh& mesh = *scene->mMeshes[m];
        for (unsigned f = 0; f < mesh.mNumFaces; ++f) {
            const unsigned* corner = mesh.mFaces[f].mIndices;
            ASSERT_EQ(mesh.mFaces[f].mNumIndices, 3U);
            const aiVector3D& n = mesh.mNormals[corner[0]];
            std::vector<float> numbers{n.x, n.y, n.z};
            for (int i = 0; i < 3; ++i) {
                const aiVector3D& uv = mesh.mTextureCoords[0][corner[i]];
                numbers.insert(numbers.end(), {uv.x, uv.y});
            }
            for (int i = 0; i < 3; ++i) {
                const aiVector3D& p = mesh.mVertices[corner[i]];
                numbers.insert(numbers.end(), {p.x, p.y, p.z});
            }
            found.push_back(Line(numbers));
        }
    }
    EXPECT_EQ(Sorted(found), Sorted(Expected()));
}

}  // namespace
}  // namespace korvane
