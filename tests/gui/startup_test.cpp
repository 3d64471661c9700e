// Start-up and the way out: the log in its order, the fatal failure, the question about changes.
#include <gmock/gmock.h>

#include <QDir>
#include <QLabel>

#include "GuiFixture.h"
#include "app/mShutdown.h"
#include "app/mStartUpLog.h"
#include "base/Version.h"
#include "editor/mUndo.h"

namespace korvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

/// The lines of the log file; each must end in CR LF.
std::vector<std::string> LogLines(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.endsWith("\r\n"));
    std::vector<std::string> lines;
    for (const QByteArray& line : text.chopped(2).split('\n')) {
        lines.push_back((line.endsWith('\r') ? line.chopped(1) : line).toStdString());
    }
    return lines;
}

class StartUpTest : public GuiTest {};

TEST_F(StartUpTest, LogHoldsEveryStepInItsOrder) {
    std::vector<std::string> lines = LogLines(folder.filePath("Korvane.log"));
    // The driver's extensions differ from machine to machine.
    const auto open = std::ranges::find(lines, "        INFO_OpenGL_Extentions {");
    ASSERT_NE(open, lines.end());
    const auto close = std::find(open, lines.end(), "        }");
    EXPECT_GT(close - open, 1);
    for (auto line = open + 1; line < close; ++line) {
        EXPECT_THAT(*line, StartsWith("            GL_"));
    }
    lines.erase(open + 1, close);
    EXPECT_THAT(
        lines, ElementsAre(std::string("Korvane v") + kVersionText +
                               " - Copyright (c) 2026 The Korvane developers - Korvane",
                           MatchesRegex("START_UP\\(.+ - .+\\) \\{"), "    INIT_Defaults: Okay",
                           "    INIT_User_Preferences: Failed!", "    INIT_OpenGL {",
                           "        INIT_OpenGL_Render_Context: Okay",
                           MatchesRegex("        INFO_OpenGL_Renderer: .+"),
                           MatchesRegex("        INFO_OpenGL_Vendor: .+"),
                           MatchesRegex("        INFO_OpenGL_Version: [1-9].+"),
                           "        INFO_OpenGL_Extentions {", "        }",
                           "        INIT_OpenGL_Defaults: Okay", "        INIT_OpenGL_Lights: Okay",
                           "    }", "    INIT_Material_Maps {",
                           "        LOAD_Texture: (0001) flat.bmp Loaded (Added)",
                           "        LOAD_Texture: (0002) green.bmp Loaded (Added)", "    }",
                           "    INIT_2D_View_Ports: Okay", "    INIT_Color_Scheme: Okay",
                           "    INIT_Window_State: DEFAULT", "}", "ALL_SYSTEMS_GO"));
}

TEST_F(StartUpTest, LeavesAnEmptySceneInTheMiddleOfTheScreen) {
    EXPECT_EQ(window->size(), QSize(1280, 960));
    const QPoint off = window->geometry().center() - window->screen()->geometry().center();
    EXPECT_LT(std::abs(off.x()), 20);
    EXPECT_LT(std::abs(off.y()), 40);  // the window manager adds a title bar
    EXPECT_EQ(window->minimumSize(), QSize(640, 480));
    EXPECT_TRUE(QDir(folder.filePath("ObjCache")).exists());
    EXPECT_EQ(Title(), "Korvane - New_Object");
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_EQ(Session().textures.ListCount(), 3);
    EXPECT_EQ(Session().textures.Selected(), 0);
}

TEST(StartUpFailure, MissingContextEndsStartUpAtOnce) {
    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmMain window(prompts, folder.path().toStdString());
    const ContextMaker none = [](RenderContext&, std::uint8_t color, std::uint8_t depth) {
        EXPECT_EQ(color, 32);
        EXPECT_EQ(depth, 32);
        return std::int32_t{-3};
    };
    EXPECT_FALSE(window.StartUp(none));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Fatal Error: Could not create an OpenGL Render Context!");
    EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Stop);
    EXPECT_EQ(LogLines(folder.filePath("Korvane.log")).back(),
              "        INIT_OpenGL_Render_Context: FAILED!");
}

TEST(FirstStart, ListsTheSamplesOnceAndTellsWhereTexturesGo) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath("examples/templates"));
    const auto write = [&](const char* name) {
        QImage(32, 32, QImage::Format_RGB32).save(folder.filePath(name), "PNG");
    };
    for (const char* name : {"examples/b.kvobject", "examples/a.kvobject", "examples/notes.txt"})
        write(name);
    const std::string examples = folder.path().toStdString() + "/examples/";
    for (const bool first : {true, false}) {
        if (!first) write("ObjTextures/some.png");
        ScriptedPrompts prompts;
        frmMain window(prompts, folder.path().toStdString());
        ASSERT_TRUE(window.StartUp());
        std::vector<std::string>& recent = window.Session().settings.recentFiles;
        if (first) {
            EXPECT_THAT(recent, ElementsAre(examples + "a.kvobject", examples + "b.kvobject"));
        } else {
            EXPECT_THAT(recent, IsEmpty()) << "the user has cleared them";
        }
        window.show();
        auto* hint = window.findChild<QLabel*>("lblNoTextures");
        EXPECT_EQ(hint->isVisible(), first);
        EXPECT_TRUE(hint->text().contains(folder.filePath("ObjTextures")));
        recent.clear();
        EXPECT_TRUE(window.close());
    }
}

TEST(StartUpLinesTest, ShowTheLastTenAndFileAllThatAreComplete) {
    QTemporaryDir folder;
    const QString path = folder.filePath("Korvane.log");
    StartUpLines lines(path.toStdString());
    for (int i = 0; i < 11; ++i) lines.AddText("line " + std::to_string(i));
    lines.AddText("caf\xC3\xA9: ");
    lines.AppendText("Okay");
    EXPECT_EQ(lines.Visible()[0], "line 2");
    EXPECT_EQ(lines.Visible()[9], "caf\xC3\xA9: Okay");
    EXPECT_EQ(LogLines(path).back(), "line 10") << "more may come to the newest";
    lines.Close();
    const auto filed = LogLines(path);
    ASSERT_EQ(filed.size(), 12U);
    EXPECT_EQ(filed[0], "line 0");
    EXPECT_EQ(filed[11], "caf\xE9: Okay");
}

enum Given { Modified, Unchanged, Unwarned, Unsavable };
enum Outcome { StaysOpen, Closes, SavesAndCloses };

struct ExitCase {
    const char* name;
    Given given;
    Answer answer;
    bool asked;
    Outcome outcome;
};

class ExitTest : public GuiTest, public testing::WithParamInterface<ExitCase> {};

TEST_P(ExitTest, AsksAndActsOnTheAnswer) {
    const ExitCase& row = GetParam();
    const bool closes = row.outcome != StaysOpen;
    Session().CurrentObjectPath =
        PathOf(row.given == Unsavable ? "gone/kept.kvobject" : "kept.kvobject");
    Session().settings.warnings[WarnExit] = row.given != Unwarned;
    prompts.answers = {row.answer};
    TakeUndoSnapshot(Session());
    Session().SceneModified = row.given != Unchanged;
    const QDir cache(folder.filePath("ObjCache"));
    ASSERT_FALSE(cache.isEmpty());
    EXPECT_EQ(window->close(), closes);
    EXPECT_EQ(cache.isEmpty(), closes) << "snapshots go when the program ends";
    EXPECT_EQ(QFile::exists(folder.filePath("Korvane.kvdat")), closes);
    EXPECT_EQ(window->isVisible(), !closes);
    EXPECT_EQ(window->Context().OpenGLReady, !closes);
    EXPECT_EQ(QFile::exists(folder.filePath("kept.kvobject")), row.outcome == SavesAndCloses);
    ASSERT_EQ(!prompts.messages.empty(), row.asked);
    if (!row.asked) return;
    EXPECT_EQ(prompts.messages[0].text,
              "Notice! There are unsaved changes to the scene!\r\nDo you wish to save changes?");
    EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Question);
    EXPECT_EQ(prompts.messages[0].buttons, MessageButtons::YesNoCancel);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ExitTest,
    testing::Values(ExitCase{"Cancel", Modified, Answer::Cancel, true, StaysOpen},
                    ExitCase{"No", Modified, Answer::No, true, Closes},
                    ExitCase{"Yes", Modified, Answer::Yes, true, SavesAndCloses},
                    ExitCase{"YesButTheSaveFails", Unsavable, Answer::Yes, true, StaysOpen},
                    ExitCase{"NothingToSave", Unchanged, Answer::Cancel, false, Closes},
                    ExitCase{"NotToBeAsked", Unwarned, Answer::Cancel, false, Closes}),
    [](const auto& row) { return row.param.name; });

TEST(CloseRenderContextTest, TellsOfAFailedRelease) {
    RecordingHost host;
    ScriptedPrompts prompts;
    Editor editor(host, prompts);
    RenderContext context;
    context.handle = 1;  // with nothing behind it
    CloseRenderContext(editor, context);
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Error: Unable to release OpenGL Render Context handle!");
}

}  // namespace
}  // namespace korvane::test
