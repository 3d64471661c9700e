#include "app/mShutdown.h"

#include "editor/mFileOpenSave.h"

namespace korvane {

bool MayClose(Editor& editor) {
    if (!editor.SceneModified || !editor.settings.warnings[WarnExit]) return true;
    const Answer answer =
        editor.prompts.ShowMessage({"Notice! There are unsaved changes to the scene!\r\n"
                                    "Do you wish to save changes?",
                                    "Notice!", MessageIcon::Question, MessageButtons::YesNoCancel});
    if (answer == Answer::Yes) {
        SaveCurrentObject(editor);
        return !editor.SceneModified;
    }
    return answer == Answer::No;
}

void CloseRenderContext(Editor& editor, RenderContext& context) {
    if (ReleaseRenderContext(context)) return;
    editor.prompts.ShowMessage({"Error: Unable to release OpenGL Render Context handle!", "Error",
                                MessageIcon::Exclamation, MessageButtons::Ok});
}

}  // namespace korvane
