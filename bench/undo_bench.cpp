// What one edit costs beside its change:
//   Snapshot       : 10,000 boxes; at most twice encoding them and plainly writing the same bytes,
//                    from an empty stack and from a full one that drops its oldest
//   BackAndForth   : an Undo and a Redo of 10,000 boxes; at most 1.3 times storing, loading and
//                    deleting the same twice
//   MoveStep       : a drag step of one of 20,000 boxes, by one of a box alone; about 1
//   MultiplyCopies : 1,000 copies of 10 brushes, by 100 copies; at most about 10
// Operation and reference take turns; "ratio" is the median over the rounds.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "Compare.h"
#include "editor/mMultiply.h"
#include "editor/mUndo.h"
#include "editor/mViewGestures.h"
#include "editor/mViews.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "scene/mBrush.h"
#include "support/RecordingHost.h"

namespace korvane {
namespace {

using bench::Compare;

namespace fs = std::filesystem;

void AddBoxes(Editor& editor, int count) {
    for (int i = 0; i < count; ++i) {
        const auto x = static_cast<float>(i % 100);
        const auto z = static_cast<float>(i / 100);
        CreateBrush(editor.scene, {x, 0, z}, {x + 0.75F, 1, z + 0.75F}, 4, editor.Space());
    }
}

/// A session in a folder on a real disk; the temporary folder may not be on one.
struct Session {
    explicit Session(int boxes)
        : folder(fs::current_path() / ("korvane-undo-bench-" + std::to_string(boxes))) {
        fs::create_directories(folder / "ObjCache");
        editor.programFolder = folder.string();
        for (ViewState& view : editor.views) view.width = 400, view.height = 300;
        UpdateViewOrigins(editor);
        AddBoxes(editor, boxes);
    }
    ~Session() {
        ClearUndoCache(editor);
        fs::remove_all(folder);
    }

    fs::path folder;
    test::RecordingHost host;
    test::ScriptedPrompts prompts;
    Editor editor{host, prompts};
};

bool WritePlainly(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const ssize_t written = write(fd, bytes.data(), bytes.size());
    return close(fd) == 0 && written == std::ssize(bytes);
}

/// The stack is filled to the argument first.
void Snapshot(benchmark::State& state) {
    Session session(10'000);
    Editor& editor = session.editor;
    session.host.busy = true;  // deleting the dropped ones is work for an idle turn
    for (int i = 0; i < state.range(0); ++i) TakeUndoSnapshot(editor);
    const std::string other = (session.folder / "reference").string();
    bool written = true;
    int round = 0;
    Compare(
        state, [&] { TakeUndoSnapshot(editor); },
        [&] {
            const auto bytes = EncodeObject(editor.scene, editor.textures, true);
            written &= WritePlainly(other + std::to_string(++round), bytes);
        });
    if (!written || !session.prompts.messages.empty()) state.SkipWithError("could not write");
}

void BackAndForth(benchmark::State& state) {
    Session session(10'000);
    Editor& editor = session.editor;
    TakeUndoSnapshot(editor);
    const std::string other = (session.folder / "reference").string();
    bool written = true;
    const auto storeAndLoad = [&] {
        written &= WritePlainly(other, EncodeObject(editor.scene, editor.textures, true));
        const auto bytes = LoadFile(other);
        Scene loaded;
        loaded.brushes = DecodeObject(*bytes, editor.textures, true).value();
        std::swap(editor.scene.brushes, loaded.brushes);
        DeleteFile(other);
    };
    Compare(
        state,
        [&] {
            Undo(editor);
            Redo(editor);
        },
        [&] {
            storeAndLoad();
            storeAndLoad();
        });
    if (!written || !session.prompts.messages.empty()) state.SkipWithError("could not write");
}

/// Drags the first box to and fro, a hundred steps.
void DragFirst(Editor& editor) {
    for (int i = 0; i < 100; ++i) {
        MoveOverView(editor, TopView,
                     {MouseButton::Left, NoModifier, 200.0F + static_cast<float>(i % 40), 150});
    }
}

void MoveStep(benchmark::State& state) {
    Session crowded(static_cast<int>(state.range(0)));
    Session alone(1);
    for (Session* session : {&crowded, &alone}) {
        session->editor.scene.brushes[0].selected = true;
        PressView(session->editor, TopView, {MouseButton::Left, NoModifier, 100, 100});
    }
    Compare(
        state, [&] { DragFirst(crowded.editor); }, [&] { DragFirst(alone.editor); });
}

void MultiplyTen(Editor& editor, const char* count) {
    editor.scene.brushes.resize(10);
    for (Brush& brush : editor.scene.brushes) brush.selected = true;
    MultiplyBoxes boxes;
    boxes.count = count;
    boxes.move.texts = {"0.5", "0", "0", "", "", ""};
    boxes.rotate.texts = {"0", "5", "0", "", "", ""};
    RunMultiply(editor, boxes);
}

void MultiplyCopies(benchmark::State& state) {
    Session session(10);
    Compare(
        state, [&] { MultiplyTen(session.editor, "1000"); },
        [&] { MultiplyTen(session.editor, "100"); });
}

BENCHMARK(Snapshot)->Arg(0)->UseManualTime()->Iterations(40)->Unit(benchmark::kMillisecond);
BENCHMARK(Snapshot)->Arg(50)->UseManualTime()->Iterations(40)->Unit(benchmark::kMillisecond);
BENCHMARK(BackAndForth)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveStep)->Arg(20'000)->UseManualTime()->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(MultiplyCopies)->UseManualTime()->Iterations(40)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
    return korvane::bench::RunWithKeptHeap(argc, argv);
}
