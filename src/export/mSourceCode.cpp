#include "export/mSourceCode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "base/SingleByteText.h"
#include "base/Version.h"
#include "files/FileBuffer.h"

namespace korvane {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

/// The tags of the body in the order in which they are replaced; the numbers come first.
constexpr const char* kBodyTags[] = {
    "%Normal.X%", "%Normal.Y%",  "%Normal.Z%",                                     //
    "%Coord1.U%", "%Coord1.V%",  "%Vertex1.X%",   "%Vertex1.Y%",   "%Vertex1.Z%",  //
    "%Coord2.U%", "%Coord2.V%",  "%Vertex2.X%",   "%Vertex2.Y%",   "%Vertex2.Z%",  //
    "%Coord3.U%", "%Coord3.V%",  "%Vertex3.X%",   "%Vertex3.Y%",   "%Vertex3.Z%",  //
    "%FACEINFO%", "%TextureID%", "%TextureName%", "%Transparency%"};
constexpr std::size_t kNumbers = 18;
enum TextTag : std::size_t { kFaceInfo = kNumbers, kTextureId, kTextureName, kTransparency };

constexpr const char* kNormalTags[] = {"%Normal.X%", "%Normal.Y%", "%Normal.Z%"};
constexpr const char* kVertexTags[] = {"%Vertex1.X%", "%Vertex1.Y%", "%Vertex1.Z%",
                                       "%Vertex2.X%", "%Vertex2.Y%", "%Vertex2.Z%",
                                       "%Vertex3.X%", "%Vertex3.Y%", "%Vertex3.Z%"};
constexpr const char* kCoordTags[] = {"%Coord1.U%", "%Coord1.V%", "%Coord2.U%",
                                      "%Coord2.V%", "%Coord3.U%", "%Coord3.V%"};
constexpr const char* kTextureTags[] = {"%TextureID%", "%TextureName%"};
constexpr const char* kOtherTags[] = {"%Transparency%", "%FACEINFO%"};

/// What the tags of a body stand for, for one face.
struct FaceValues {
    std::array<float, kNumbers> numbers;  ///< in the order of the tags
    std::string faceInfo;
    std::int32_t textureId = 0;
    std::string_view textureName;
    std::int32_t transparency = 0;
};

void AppendValue(std::string& out, std::size_t tag, const FaceValues& values) {
    switch (tag) {
        case kFaceInfo:
            out += values.faceInfo;
            break;
        case kTextureId:
            out += std::to_string(values.textureId);
            break;
        case kTextureName:
            out += values.textureName;
            break;
        case kTransparency:
            out += std::to_string(values.transparency);
            break;
        default:
            AppendRounded(out, values.numbers[tag]);
    }
}

/// Tags are ASCII, and so no part of a character beyond it can match.
constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::size_t FindTag(std::string_view text, std::string_view tag, std::size_t from) {
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), tag.begin(),
                    tag.end(), [](char a, char b) { return Lower(a) == Lower(b); });
    return found == text.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

std::string ReplaceAll(std::string_view text, std::string_view tag, std::string_view value) {
    std::string out;
    std::size_t from = 0;
    for (std::size_t at; (at = FindTag(text, tag, from)) != std::string_view::npos;) {
        out.append(text.substr(from, at - from)).append(value);
        from = at + tag.size();
    }
    return out.append(text.substr(from));
}

std::string ProgramInfo() {
    return std::string("Korvane v") + kVersionText + " - " + kCompanyName + " - " + kLegalNotice;
}

std::string FaceInfo(std::size_t brush, std::size_t face, std::string_view group,
                     std::string_view textureName) {
    return std::string("Brush: ")
        .append(std::to_string(brush))
        .append(" - Face: ")
        .append(std::to_string(face))
        .append(" - Group: ")
        .append(group)
        .append(" - Texture: ")
        .append(textureName);
}

/// A body cut at its tags once, so that a face costs no search.
class Body {
  public:
    explicit Body(std::string text) : text_(std::move(text)) {
        pieces_.push_back({text_, kLiteral});
        for (std::size_t tag = 0; tag < std::size(kBodyTags); ++tag) CutAt(tag);
    }
    Body(const Body&) = delete;
    Body& operator=(const Body&) = delete;

    /// Appends the body with the values of a face. The tags are replaced one after the other, so
    /// that a name can bring in a later one.
    void AppendTo(std::string& out, const FaceValues& values) const {
        if (values.faceInfo.find('%') != std::string::npos) {
            out += ReplacedInTurn(values);
            return;
        }
        for (const Piece& piece : pieces_) {
            if (piece.tag == kLiteral) {
                out += piece.literal;
            } else {
                AppendValue(out, piece.tag, values);
            }
        }
    }

  private:
    static constexpr std::size_t kLiteral = std::size(kBodyTags);

    struct Piece {
        std::string_view literal;
        std::size_t tag;
    };

    void CutAt(std::size_t tag) {
        const std::string_view name = kBodyTags[tag];
        std::vector<Piece> cut;
        for (const Piece& piece : pieces_) {
            std::string_view rest = piece.literal;
            for (std::size_t at; (at = FindTag(rest, name, 0)) != std::string_view::npos;) {
                cut.push_back({rest.substr(0, at), kLiteral});
                cut.push_back({{}, tag});
                rest.remove_prefix(at + name.size());
            }
            cut.push_back({rest, piece.tag});
        }
        pieces_ = std::move(cut);
    }

    std::string ReplacedInTurn(const FaceValues& values) const {
        std::string text = text_;
        for (std::size_t tag = 0; tag < std::size(kBodyTags); ++tag) {
            std::string value;
            AppendValue(value, tag, values);
            text = ReplaceAll(text, kBodyTags[tag], value);
        }
        return text;
    }

    std::string text_;
    std::vector<Piece> pieces_;  ///< views of text_
};

/// The numbers of a face, in the order of their tags.
std::array<float, kNumbers> NumbersOf(const Brush& brush, const BrushFace& face) {
    const auto corner = [&](std::int32_t index) {
        return brush.vertices[static_cast<std::size_t>(index)].Position();
    };
    const Vec3 a = corner(face.a);
    const Vec3 b = corner(face.b);
    const Vec3 c = corner(face.c);
    const auto& uv = face.uv;
    return {face.normal.x, face.normal.y, face.normal.z,  //
            uv[0].u,       uv[0].v,       a.x,           a.y,     a.z, uv[1].u, uv[1].v, b.x,
            b.y,           b.z,           uv[2].u,       uv[2].v, c.x, c.y,     c.z};
}

/// Writes the bodies of a scene's visible faces.
class BodyWriter {
  public:
    BodyWriter(std::string body, const TextureLibrary& library) : body_(std::move(body)) {
        for (std::int32_t i = 0; i < library.ListCount(); ++i)
            textureNames_.push_back(ToSingleByte(library.TextureFilename(i)));
    }

    void AppendBrush(std::string& out, const Brush& brush, std::size_t index) {
        const std::string group = ToSingleByte(brush.group);
        for (std::size_t i = 0; i < brush.faces.size(); ++i) {
            const BrushFace& face = brush.faces[i];
            if (face.invisible) continue;
            const std::string_view name = NameOf(face.texture);
            body_.AppendTo(out, {NumbersOf(brush, face), FaceInfo(index, i, group, name),
                                 face.texture, name, face.transparency});
            out += kLineBreak;
        }
    }

  private:
    /// A texture outside the library has no name.
    std::string_view NameOf(std::int32_t texture) const {
        const auto index = static_cast<std::uint32_t>(texture);
        return index < textureNames_.size() ? std::string_view(textureNames_[index]) : "";
    }

    Body body_;
    std::vector<std::string> textureNames_;  ///< per index of the library, Windows-1252
};

FaceValues SampleValues() {
    return {{0, 1, 0, 0, 0, -1, 1, 0, 0, 1, -1, 0, 0, 1, 1, 1, 0, 0},
            FaceInfo(1, 1, "TestGroup", "TestTexture"),
            1,
            "TestTexture",
            0};
}

}  // namespace

std::span<const CodeTagGroup> CodeTagGroups() {
    static const CodeTagGroup groups[] = {{"Face Normal:", kNormalTags, 3},
                                          {"Vertices:", kVertexTags, 3},
                                          {"Textrue Coords:", kCoordTags, 2},
                                          {"Texture:", kTextureTags, 2},
                                          {"Miscellaneous:", kOtherTags, 2}};
    return groups;
}

std::string SourceCodeText(const CodeTemplate& code, const Scene& scene,
                           const TextureLibrary& library) {
    std::string out = ReplaceAll(ToSingleByte(code.head), kProgramTag, ProgramInfo());
    out += kLineBreak;
    BodyWriter writer(ToSingleByte(code.body), library);
    for (std::size_t i = 0; i < scene.brushes.size(); ++i)
        writer.AppendBrush(out, scene.brushes[i], i);
    return out.append(ToSingleByte(code.foot)).append(kLineBreak);
}

bool SaveSourceCode(const std::string& path, const CodeTemplate& code, const Scene& scene,
                    const TextureLibrary& library) {
    const std::string text = SourceCodeText(code, scene, library);
    return SaveFile(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::string BuildPreview(const CodeTemplate& code) {
    std::string out = ReplaceAll(code.head, kProgramTag, ProgramInfo());
    Body(code.body).AppendTo(out, SampleValues());
    return out.append(code.foot);
}

}  // namespace korvane
