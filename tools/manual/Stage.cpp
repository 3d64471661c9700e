#include "tools/manual/Stage.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "app/mObjectPicture.h"
#include "app/ucWorkspace.h"
#include "editor/mFileOpenSave.h"
#include "editor/mKeyBoard.h"
#include "textures/ui/mTextureListLayout.h"
#include "textures/ui/ucTextureList.h"
#include "views/core/DepthRange.h"

namespace korvane::manual {
namespace {

constexpr QSize kWindow(1100, 820);  // pixels
constexpr int kWheelNotch = 120;
constexpr int kLongest = 30'000;  // milliseconds that a slow machine may take to show a window
constexpr int kModalTick = 20;    // milliseconds
constexpr int kPatience = 1500;   // ticks that a window may stay open behind its act
constexpr int kMostTicks = 25;    // that the key board makes up at once

/// Keys are held by this clock, so that a picture never depends on how fast the machine is.
std::int64_t stageTime = 1000;  // milliseconds
std::int64_t StageClock() {
    return stageTime;
}

void SendMove(QWidget& control, const QPoint& global) {
    QMouseEvent move(QEvent::MouseMove, control.mapFromGlobal(global), global, Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &move);
}

/// What the screen shows of a window and its frame, once two looks see the same.
QImage Settled(QWidget& window) {
    if (window.isModal() ? !QTest::qWaitForWindowActive(&window, kLongest)
                         : !QTest::qWaitForWindowExposed(&window, kLongest))
        return {};
    QTest::qWait(150);  // the window manager's last resize
    constexpr int kLooks = 100;
    QImage last;
    for (int look = 0; look < kLooks; ++look) {
        QTest::qWait(60);
        const QRect frame = window.frameGeometry();
        const QImage now = window.screen()
                               ->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height())
                               .toImage();
        if (now == last) break;
        last = now;
    }
    return last;
}

/// Once the act is over: what opens a window of its own must not keep the next act from it.
void Later(QObject& object, const char* slot) {
    QMetaObject::invokeMethod(&object, slot, Qt::QueuedConnection);
}

void CopyFiles(const QString& from, const QString& to) {
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList(QDir::Files))
        QFile::copy(from + "/" + name, to + "/" + name);
}

}  // namespace

QString Plain(QString text) {
    text.remove('&');
    while (text.endsWith('.') || text.endsWith(':')) text.chop(1);
    return text.simplified();
}

Stage::Stage(const QString& examples, const QString& pictures) : folderOfPictures_(pictures) {
    CopyFiles(examples + "/ObjTextures", folder_.filePath("ObjTextures"));
    CopyFiles(examples, folder_.filePath("Objects"));
    QDir::setCurrent(folder_.filePath("Objects"));
    QDir(folder_.path()).mkdir("you");
    qputenv("HOME", folder_.filePath("you").toUtf8());  // file dialogs show its name
    QApplication::setCursorFlashTime(0);
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    window_ = std::make_unique<frmMain>(prompts_, folder_.path().toStdString());
    Expect(window_->StartUp(), "the program starts");
    painter_ = std::make_unique<ObjectPainter>(Session(), window_->Context(), window_->Textures());
    prompts_.ShowObjectsBy([this](const QString& path, const QSize& pixels) {
        return painter_->Paint(path.toStdString(), pixels);
    });
    Session().keyBoard.clock = StageClock;
    window_->resize(kWindow);
    window_->show();
    Expect(QTest::qWaitForWindowActive(window_.get(), kLongest), "the window becomes active");
    QTest::qWait(50);  // the window manager's last resize
}

Stage::~Stage() {
    Session().SceneModified = false;  // no question
    window_->close();
}

QString Stage::ObjectPath(const QString& name) const {
    return folder_.filePath("Objects/" + name);
}

QObject* Stage::FindObject(const QString& name, QWidget* in) {
    QObject* found = in->findChild<QObject*>(name);
    if (found != nullptr) return found;
    std::fprintf(stderr, "There is no %s in %s.\n", qPrintable(name), qPrintable(in->objectName()));
    std::exit(1);
}

void Stage::Expect(bool holds, const QString& what) {
    if (holds) return;
    failed_ = true;
    std::fprintf(stderr, "Not as it should be: %s\n", qPrintable(what));
}

Place Stage::InView(int view, const Vec3& point) {
    const auto index = static_cast<std::size_t>(view);
    const ScreenPoint at = WorldToScreen(Session().views[index], view, point);
    return {Find(QString("pbView%1").arg(view)), QPointF(at.x, at.y).toPoint()};
}

Place Stage::OnGauge(float depth) {
    QWidget* gauge = Find("pbDepth");
    return {gauge, {gauge->width() / 2, qRound(DepthToScreen(Session().gauge, depth))}};
}

/// Entry i stands at place i, unless names are filtered; then the first one that fits is meant.
Place Stage::OnTexture(const char* name) {
    ucTextureList& list = window_->Workspace().TextureList();
    const auto* filter = Find<QLineEdit>("txtTextureFilter");
    const std::int32_t entry = Session().textures.IDByFileName(name);
    Expect(entry > 0, QString("there is a texture ") + name);
    const int first = Find<QScrollBar>("hsViewOffset")->value();
    const int place = filter->text().isEmpty() ? entry - first : 0;
    const int x = kThumbnailLeft + place * kThumbnailPitch + kThumbnailSide / 2;
    Expect(x < list.width(), QString("the browser shows ") + name);
    return {&list, {x, kThumbnailTop + kThumbnailSide / 2}};
}

Place Stage::Middle(const QString& control) {
    QWidget* found = Find(control);
    return {found, found->rect().center()};
}

void Stage::Click(const Place& place, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(place.control, button, keys, place.at);
    QCoreApplication::processEvents();
}

void Stage::Drag(const Place& from, const Place& to, const std::function<void()>& midway) {
    constexpr int kSteps = 4;
    const QPoint start = from.control->mapToGlobal(from.at), end = to.control->mapToGlobal(to.at);
    QTest::mousePress(from.control, Qt::LeftButton, {}, from.at);
    for (int step = 1; step <= kSteps; ++step)
        SendMove(*from.control, start + (end - start) * step / kSteps);
    if (midway) midway();
    QTest::mouseRelease(from.control, Qt::LeftButton, {}, from.control->mapFromGlobal(end));
    QCoreApplication::processEvents();
}

void Stage::TurnWheel(const Place& place, int notches) {
    QWheelEvent turn(place.at, place.control->mapToGlobal(place.at), {}, {0, notches * kWheelNotch},
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(place.control, &turn);
}

void Stage::Type(QWidget* box, const QString& text, bool enter) {
    box->setFocus();
    if (auto* line = qobject_cast<QLineEdit*>(box)) line->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
    if (enter) QTest::keyClick(box, Qt::Key_Return);
    QCoreApplication::processEvents();
}

void Stage::HoldKey(Qt::Key key, int ticks) {
    QWidget& keeper = window_->Workspace().FocusKeeper();
    QTest::keyPress(&keeper, key);
    for (int left = ticks; left > 0; left -= kMostTicks) {
        stageTime += kKeyBoardTick * std::min(left, kMostTicks);
        AdvanceKeyBoard(Session());
    }
    QTest::keyRelease(&keeper, key);
    stageTime += kKeyBoardTick;
}

void Stage::Choose(const char* command) {
    auto* action = Find<QAction>(command);
    Expect(action->isEnabled(), QString("can be chosen: ") + command);
    action->trigger();
    QCoreApplication::processEvents();
}

/// Meets the modal windows that come up with one act each; one too many, or one that its act leaves
/// open, is closed.
void Stage::Choose(const char* command, std::initializer_list<Act> acts) {
    const std::vector<Act> all(acts);
    std::size_t next = 0;
    std::vector<QPointer<QWidget>> met;
    int waited = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible()) return;
        const bool fresh = std::ranges::count(met, modal, &QPointer<QWidget>::data) == 0;
        if (!fresh && ++waited < kPatience) return;
        waited = 0;
        met.emplace_back(modal);
        if (fresh && next < all.size()) return all[next++](*modal);
        Expect(false, "the window closes: " + modal->windowTitle());
        modal->close();
    });
    timer.start(kModalTick);
    Choose(command);
    Expect(next == all.size(), QString("all its windows come up: ") + command);
}

Stage::Act Stage::NameFile(const QString& name, const QString& picture) {
    return [=, this](QWidget& dialog) {
        auto* box = Find<QLineEdit>("fileNameEdit", &dialog);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, name);
        if (box->completer() != nullptr) box->completer()->popup()->hide();
        if (const auto* view = dialog.findChild<QLabel*>("lblObjectPicture"))
            Expect(QTest::qWaitFor([view] { return !view->pixmap().isNull(); }, kLongest),
                   "it is shown");
        // The folder is that of this run.
        for (const char* part : {"lookInLabel", "lookInCombo"}) Find(part, &dialog)->hide();
        if (!picture.isEmpty()) Picture(picture, dialog);
        Later(dialog, "accept");
    };
}

Stage::Act Stage::PressButton(const QString& text, const QString& picture) {
    return [=, this](QWidget& dialog) {
        if (!picture.isEmpty()) Picture(picture, dialog);
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->isVisible() && Plain(button->text()) == text)
                return Later(*button, "click");
        Expect(false, "there is a button " + text);
    };
}

void Stage::Picture(const QString& name, QWidget& shown, const std::vector<PlacedMark>& marks) {
    QWidget& window = *shown.window();
    QImage image = Settled(window).convertToFormat(QImage::Format_RGB32);
    const QPoint corner = window.frameGeometry().topLeft();
    const auto inPicture = [&](const Place& place) {
        return place.control->mapToGlobal(place.at) - corner;
    };
    std::vector<Mark> drawn;
    for (const PlacedMark& mark : marks) {
        drawn.push_back({inPicture(mark.at), mark.text, {}});
        if (mark.from) drawn.back().dragFrom = inPicture(*mark.from);
    }
    DrawMarks(image, drawn);
    if (!shown.isWindow())
        image = image.copy(QRect(shown.mapToGlobal(QPoint()) - corner, shown.size()));
    Expect(image.save(folderOfPictures_ + "/" + name + ".png"), "stored: " + name);
    Expect(pictures_.insert(name + ".png").second, "there is only one picture " + name);
    NoteTexts(window);
}

void Stage::NoteTexts(const QWidget& window) {
    const auto note = [this](const QString& text) { texts_.insert(Plain(text)); };
    note(window.windowTitle());
    for (const auto* part : window.findChildren<QLabel*>()) note(part->text());
    for (const auto* part : window.findChildren<QAbstractButton*>()) note(part->text());
    for (const auto* part : window.findChildren<QGroupBox*>()) note(part->title());
    for (const auto* part : window.findChildren<QAction*>()) note(part->text());
    for (const auto* bar : window.findChildren<QTabBar*>())
        for (int i = 0; i < bar->count(); ++i) note(bar->tabText(i));
    for (const auto* box : window.findChildren<QComboBox*>())
        for (int i = 0; i < box->count(); ++i) note(box->itemText(i));
}

void Stage::OpenExample(const QString& name) {
    Session().SceneModified = false;
    OpenFile(Session(), ObjectPath(name).toStdString());
    Expect(Session().scene.brushCount() > 0, "opened: " + name);
}

void Stage::StartOver() {
    Session().SceneModified = false;
    Choose("mnuNew");
    Session().depthRange = {};
    Session().camera = {};
    for (const char* command : {"mnuCreateBox", "mnuSize4", "mnuModeBrush", "mnuView4Way"})
        Choose(command);
}

}  // namespace korvane::manual
