#include "app/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <utility>

#include "app/frmArbitrarySize.h"
#include "app/frmExportSourceCode.h"
#include "app/frmFreeRotate.h"
#include "app/frmMultiply.h"
#include "app/frmOptimize.h"
#include "app/frmPreferences.h"
#include "app/frmSelect.h"
#include "app/frmStartUp.h"
#include "app/frmStats.h"
#include "app/mCommandActions.h"
#include "app/mKeyInput.h"
#include "app/mShutdown.h"
#include "app/ucWorkspace.h"
#include "editor/mFileOpenSave.h"
#include "editor/mRecentFiles.h"
#include "editor/mRecovery.h"
#include "editor/mSettings.h"
#include "editor/mTextureCommands.h"
#include "editor/mUndo.h"
#include "editor/mViewPointer.h"
#include "textures/ui/mImageFile.h"
#include "textures/ui/ucTextureList.h"
#include "views/ui/ucPreview.h"
#include "widgets/ucStatusBar.h"
#include "widgets/ucToolBar.h"

/// The icons lie in a static library, from which only a call from outside a namespace brings them.
static void InitIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace korvane {
namespace {

constexpr QSize kDesignSize(1280, 960);
constexpr QSize kLeastSize(640, 480);

/// The one object file that is dragged; empty for anything else.
QString DraggedObject(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || QApplication::activeModalWidget() != nullptr) return {};
    const QString path = urls[0].toLocalFile();
    return path.endsWith(".kvobject", Qt::CaseInsensitive) ? path : QString();
}

/// The file is only read: a source that hears of a move may remove it.
void AcceptAsCopy(QDropEvent& event) {
    if (!(event.possibleActions() & Qt::CopyAction)) return;
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

}  // namespace

frmMain::frmMain(Prompts& prompts, const std::string& programFolder, const std::string& dataFolder)
    : editor_(*this, prompts), autosave_(editor_) {
    InitIcons();
    editor_.programFolder = programFolder;
    editor_.dataFolder = dataFolder;
    setObjectName("frmMain");
    actions_ = new CommandActions(editor_, this);
    actions_->FillMenuBar(menuBar());
    statusBar_ = new ucStatusBar(this);
    setStatusBar(statusBar_);
    BuildBars();
    workspace_ = new ucWorkspace(editor_, context_, textures_, this);
    setCentralWidget(workspace_);
    connect(&workspace_->TextureList(), &ucTextureList::Click, this,
            [this](int index) { TextureClicked(editor_, index); });
    keyInput_ = std::make_unique<KeyInput>(editor_, *this, *workspace_);
    connect(menuBar(), &QMenuBar::triggered, this, &frmMain::FocusViews);
    connect(menuBar(), &QMenuBar::hovered, this, &frmMain::DescribeItem);
    setMinimumSize(kLeastSize);
    setAcceptDrops(true);
    resize(kDesignSize);
    ShowCommandStates();
}

frmMain::~frmMain() {
    keyInput_.reset();
    delete takeCentralWidget();  // its surfaces refer to the session and the context
}

void frmMain::BuildBars() {
    toolBar_ = new ucToolBar("ToolBar", "Files and Views", this);
    editBar_ = new ucToolBar("EditBar", "Editing", this);
    actions_->FillToolBar(Bar::ToolBar, toolBar_);
    actions_->FillToolBar(Bar::EditBar, editBar_);
    for (ucToolBar* bar : {toolBar_, editBar_}) {
        connect(bar, &ucToolBar::Hovered, this,
                [this](const QString& text) { statusBar_->SetText(0, text); });
    }
    addToolBar(toolBar_);
    addToolBarBreak();
    addToolBar(editBar_);
}

void frmMain::DescribeItem(const QAction* item) {
    const Command* command = FindCommand(item->objectName().toStdString());
    ShowStatus(0, command != nullptr ? StatusText(*command, editor_) : std::string());
}

bool frmMain::StartUp(ContextMaker makeContext) {
    const bool firstStart = !HasSettings(editor_);
    frmStartUp log(editor_.DataFolder() + "/Korvane.log", this);
    log.show();
    if (!RunStartUp(*this, log, makeContext)) return false;
    log.close();
    editor_.SceneModified = false;
    if (firstStart) AddSampleFiles(editor_);
    BeginRecovery(editor_);
    RefreshAll(editor_);
    FocusViews();
    return true;
}

void frmMain::RequestRedraw(unsigned redrawSet) {
    workspace_->MarkDirty(redrawSet);
    autosave_.NoteActivity();
    constexpr unsigned kViews = RedrawTop | RedrawLeft | RedrawFront;
    if (redrawSet & (kViews | kViews * RedrawSelectionTop)) TellSelectionLater();
}

/// Once for all steps of a drag that come between two turns of the event loop.
void frmMain::TellSelectionLater() {
    if (std::exchange(selectionStale_, true)) return;
    WhenIdle([this] {
        selectionStale_ = false;
        ShowStatus(5, SelectionText(editor_.scene));
    });
}

void frmMain::ShowCommandStates() {
    autosave_.NoteActivity();
    actions_->Refresh();
    workspace_->ShowPointers();
    setWindowTitle(QString::fromStdString(WindowTitle(editor_)));
}

void frmMain::RefreshPropertyPanel() {
    workspace_->RefreshPropertyPanel();
}

void frmMain::LayoutPanes() {
    workspace_->LayoutPanes();
}

void frmMain::ApplyColorScheme() {
    RedrawAllViews(editor_);
    workspace_->TextureList().RefreshList();
}

/// The inside of the window, without its frame, which is not known yet when it is placed again. Of
/// a maximised or minimised window it is the place that it goes back to.
WindowPlace frmMain::PlaceOfWindow() const {
    const bool normal = !isMinimized() && !isMaximized();
    const QRect place = normal ? geometry() : normalGeometry();
    const auto twips = [](int pixels) { return static_cast<float>(pixels * kTwipsPerPixel); };
    const int state = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    return {static_cast<std::int16_t>(state), twips(place.x()), twips(place.y()),
            twips(place.width()), twips(place.height())};
}

void frmMain::ShowStatus(int panel, const std::string& text) {
    statusBar_->SetText(panel, QString::fromStdString(text));
}

void frmMain::OpenForm(Form form) {
    switch (form) {
        case Form::ArbitrarySize:
            frmArbitrarySize(editor_, this).exec();
            break;
        case Form::Preferences:
            frmPreferences(editor_, this).exec();
            break;
        case Form::Select:
            frmSelect(editor_, this).exec();
            break;
        case Form::FreeRotate:
            OpenModeless(freeRotate_);
            break;
        case Form::Multiply:
            OpenModeless(multiply_);
            break;
        case Form::ExportSourceCode:
            frmExportSourceCode(editor_, this).exec();
            break;
        case Form::Statistics:
            frmStats(editor_, this).exec();
            break;
        case Form::Optimize:
            frmOptimize(editor_, context_, this).exec();
            break;
    }
}

/// A closed form is deleted in a later turn of the event loop; until then it is only hidden. A new
/// one stands over the preview: the marker is dragged in the 2D views.
template <class ModelessForm>
void frmMain::OpenModeless(QPointer<ModelessForm>& form) {
    if (!form || !form->isVisible()) {
        form = new ModelessForm(editor_, this);
        const QWidget& preview = workspace_->Preview();
        if (preview.isVisible()) form->move(preview.mapToGlobal(QPoint(0, 0)));
    }
    form->show();
    form->raise();
    form->activateWindow();
}

void frmMain::CloseForms() {
    for (QDialog* form : {static_cast<QDialog*>(freeRotate_), static_cast<QDialog*>(multiply_)})
        if (form) form->close();
}

void frmMain::OpenDocument(const std::string& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

void frmMain::FocusViews() {
    workspace_->FocusViews();
}

void frmMain::WhenIdle(std::function<void()> work) {
    QTimer::singleShot(0, this, std::move(work));
}

void frmMain::RunKeyBoardTimer() {
    keyInput_->RunTimer();
}

std::optional<std::vector<std::uint8_t>> frmMain::PngOf(const std::string& path) {
    return korvane::PngOf(path);
}

void frmMain::CloseWindow() {
    close();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedObject(*event->mimeData()).isEmpty()) AcceptAsCopy(*event);
}

/// Later: a question must not keep the other program waiting for the end of the drop.
void frmMain::dropEvent(QDropEvent* event) {
    const std::string path = DraggedObject(*event->mimeData()).toStdString();
    if (path.empty()) return;
    const bool merge = event->modifiers().testFlag(Qt::ControlModifier);
    AcceptAsCopy(*event);
    WhenIdle([this, path, merge] { merge ? MergeFile(editor_, path) : OpenFile(editor_, path); });
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!MayClose(editor_)) {
        event->ignore();
        return;
    }
    keyInput_->LoseKeys();
    CloseForms();
    CloseRenderContext(editor_, context_);
    SaveSettingsOrTell(editor_);
    ClearUndoCache(editor_);
    EndRecovery(editor_);
    event->accept();
}

}  // namespace korvane
