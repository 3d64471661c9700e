#include "export/CodeTemplate.h"

#include <initializer_list>
#include <string_view>

#include "files/FileBuffer.h"

namespace korvane {
namespace {

constexpr std::string_view kTag = "CODE";

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) text.append(line).append("\r\n");
    return text;
}

}  // namespace

CodeTemplate DefaultVBCode() {
    return {Lines({"'%KVINFO%", "Public Sub kvMakeObject()", "    glBegin bmTriangles"}),
            Lines({"        '%FACEINFO%", "        glNormal3f %Normal.X%, %Normal.Y%, %Normal.Z%",
                   "        glTexCoord2f %Coord1.U%, %Coord1.V%",
                   "        glVertex3f %Vertex1.X%, %Vertex1.Y%, %Vertex1.Z%",
                   "        glTexCoord2f %Coord2.U%, %Coord2.V%",
                   "        glVertex3f %Vertex2.X%, %Vertex2.Y%, %Vertex2.Z%",
                   "        glTexCoord2f %Coord3.U%, %Coord3.V%",
                   "        glVertex3f %Vertex3.X%, %Vertex3.Y%, %Vertex3.Z%"}),
            Lines({"    glEnd", "End Sub"})};
}

CodeTemplate DefaultCppCode() {
    return {
        Lines({"//%KVINFO%", "void kvMakeObject(void) {", "    glBegin(GL_TRIANGLES);"}),
        Lines({"        //%FACEINFO%", "        glNormal3f(%Normal.X%, %Normal.Y%, %Normal.Z%);",
               "        glTexCoord2f(%Coord1.U%, %Coord1.V%);",
               "        glVertex3f(%Vertex1.X%, %Vertex1.Y%, %Vertex1.Z%);",
               "        glTexCoord2f(%Coord2.U%, %Coord2.V%);",
               "        glVertex3f(%Vertex2.X%, %Vertex2.Y%, %Vertex2.Z%);",
               "        glTexCoord2f(%Coord3.U%, %Coord3.V%);",
               "        glVertex3f(%Vertex3.X%, %Vertex3.Y%, %Vertex3.Z%);"}),
        Lines({"    glEnd();", "}"})};
}

std::vector<std::uint8_t> EncodeTemplate(const CodeTemplate& code) {
    FileWriter file;
    file.WriteTag(kTag);
    for (const std::string& text : {code.head, code.body, code.foot}) file.WriteCountedString(text);
    return file.TakeBytes();
}

std::optional<CodeTemplate> DecodeTemplate(std::span<const std::uint8_t> bytes) {
    FileReader file(bytes);
    if (file.ReadTag() != kTag) return std::nullopt;
    CodeTemplate code;
    for (std::string* text : {&code.head, &code.body, &code.foot}) *text = file.ReadCountedString();
    if (!file.Good()) return std::nullopt;
    return code;
}

}  // namespace korvane
