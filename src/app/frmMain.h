// The main window: it owns the session, shows it and translates what the user does.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "app/Autosave.h"
#include "app/mStartUp.h"
#include "editor/Editor.h"
#include "views/ui/mOGL3D.h"

namespace korvane {

class CommandActions;
class KeyInput;
class frmFreeRotate;
class frmMultiply;
class ucStatusBar;
class ucToolBar;
class ucWorkspace;

class frmMain final : public QMainWindow, public EditorHost {
    Q_OBJECT

  public:
    /// A window with an empty session. It asks its user through `prompts`, which must outlive it,
    /// looks for the help in `programFolder`, and keeps textures, settings and log in `dataFolder`
    /// (both UTF-8; empty: the program's folder).
    frmMain(Prompts& prompts, const std::string& programFolder, const std::string& dataFolder = {});
    ~frmMain() override;

    /// Runs the start-up sequence behind its log window; to be called once, before the window is
    /// shown. False: the program cannot run, and the user has been told.
    bool StartUp(ContextMaker makeContext = CreateRenderContext);

    Editor& Session() { return editor_; }
    RenderContext& Context() { return context_; }
    TextureObjects& Textures() { return textures_; }
    ucWorkspace& Workspace() { return *workspace_; }

    void RequestRedraw(unsigned redrawSet) override;
    void ShowCommandStates() override;
    void RefreshPropertyPanel() override;
    void LayoutPanes() override;
    void ApplyColorScheme() override;
    WindowPlace PlaceOfWindow() const override;
    void ShowStatus(int panel, const std::string& text) override;
    void OpenForm(Form form) override;
    void CloseForms() override;
    void OpenDocument(const std::string& path) override;
    void FocusViews() override;
    void WhenIdle(std::function<void()> work) override;
    void RunKeyBoardTimer() override;
    std::optional<std::vector<std::uint8_t>> PngOf(const std::string& path) override;
    void CloseWindow() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    /// An object file dropped on the window is opened, with Ctrl merged.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void BuildBars();
    void DescribeItem(const QAction* item);
    void TellSelectionLater();
    template <class ModelessForm>
    void OpenModeless(QPointer<ModelessForm>& form);

    RenderContext context_;
    TextureObjects textures_;
    Editor editor_;
    Autosave autosave_;
    CommandActions* actions_;
    ucToolBar* toolBar_;
    ucToolBar* editBar_;
    ucWorkspace* workspace_;
    ucStatusBar* statusBar_;
    std::unique_ptr<KeyInput> keyInput_;  ///< goes before the controls it watches
    QPointer<frmFreeRotate> freeRotate_;  ///< null or closed: not open
    QPointer<frmMultiply> multiply_;
    bool selectionStale_ = false;  ///< the status bar is to tell the selection anew
};

}  // namespace korvane
