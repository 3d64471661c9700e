#include "app/frmPreferences.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/VirtualKeys.h"
#include "widgets/ucRowList.h"

namespace korvane {
namespace {

constexpr int kBlinkInterval = 250;  // milliseconds
constexpr int kBoxWidth = 90;        // pixels
constexpr int kLeastWidth = 480;

constexpr const char* kWarningCaptions[kWarnings] = {
    "Deleting a Single Brush",           "Deleting Multiple Brushes",
    "Unsaved Changes when Creating New", "Unsaved Changes when Opening",
    "Unsaved Changes when Exiting",      "Exporting 3DS with Long Filename Textures",
};

QColor ToQt(Color color) {
    return {int(Red(color)), int(Green(color)), int(Blue(color))};
}

/// The places of the buttons btnKeyMap.
enum KeyMapButton { OpenButton, SaveButton, NoKeyButton, CancelButton };

QCheckBox* MakeCheck(const QString& name, const char* caption, QWidget* parent) {
    auto* check = new QCheckBox(caption, parent);
    check->setObjectName(name);
    return check;
}

QLineEdit* MakeSizeBox(const char* name, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setFixedWidth(kBoxWidth);
    return box;
}

/// A titled frame with a size between two texts.
QWidget* MakeSizeFrame(const char* title, const char* before, QLineEdit* box, const char* behind) {
    auto* frame = new QGroupBox(title);
    auto* row = new QHBoxLayout(frame);
    auto* label = new QLabel(before, frame);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box);
    row->addWidget(new QLabel(behind, frame));
    row->addStretch(1);
    box->setAccessibleName(QString("%1: %2 %3").arg(title, before, behind).trimmed());
    return frame;
}

}  // namespace

frmPreferences::frmPreferences(Editor& editor, QWidget* parent)
    : QDialog(parent),
      editor_(editor),
      pages_(PreferencesOf(editor.settings)),
      TabHeader_(new QTabWidget(this)) {
    setObjectName("frmPreferences");
    setWindowTitle("Preferences");
    TabHeader_->setObjectName("TabHeader");
    TabHeader_->setAccessibleName("Pages");
    TabHeader_->setMinimumWidth(kLeastWidth);
    TabHeader_->setUsesScrollButtons(false);
    TabHeader_->addTab(MakeGeneralPage(), "General");
    TabHeader_->addTab(MakeColorPage(), "Color Scheme");
    TabHeader_->addTab(MakeKeyPage(), "Keyboard Map");
    TabHeader_->addTab(MakeWarningsPage(), "Warnings");
    auto* column = new QVBoxLayout(this);
    column->addWidget(TabHeader_);
    column->addWidget(MakeButtons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    Show();
    ShowCapture();
    txtSnap2Grid_->selectAll();
    txtSnap2Grid_->setFocus();
}

// --- the pages
// ------------------------------------------------------------------------------------

QPushButton* frmPreferences::MakeButton(const QString& name, int index, const char* caption,
                                        void (frmPreferences::*run)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QString("%1_%2").arg(name).arg(index));
    connect(button, &QPushButton::clicked, this, run);
    return button;
}

QWidget* frmPreferences::MakeGeneralPage() {
    txtSnap2Grid_ = MakeSizeBox("txtSnap2Grid", this);
    txtPickSize_ = MakeSizeBox("txtPickSize", this);
    txtGlobalSize_ = MakeSizeBox("txtGlobalSize", this);
    chkSetMarker_ = MakeCheck("chkSetMarker", "Automatically Set Rotation Marker Position", this);
    chkRememberWinPos_ = MakeCheck("chkRememberWinPos", "Remember Window Position on Exit", this);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(MakeSizeFrame("Snap to Grid", "Size:", txtSnap2Grid_, "grid units"));
    column->addWidget(MakeSizeFrame("Picking with the Mouse", "Size:", txtPickSize_, "grid units"));
    column->addWidget(
        MakeSizeFrame("Global Texture Scale", "512 Pixels =", txtGlobalSize_, "grid units"));
    column->addSpacing(8);
    column->addWidget(chkSetMarker_);
    column->addWidget(chkRememberWinPos_);
    column->addStretch(1);
    return page;
}

QWidget* frmPreferences::MakeColorPage() {
    auto* page = new QWidget;
    colors_ =
        new ucRowList({"lblCSTitle", "lblCSColor", "vsCSList"}, kColorItems, [this](int item) {
            return ucRowList::Row{ColorTable()[item].name, {}, ToQt(pages_.colors.colors[item])};
        });
    colors_->setAccessibleName("Colors");
    connect(colors_, &ucRowList::Activated, this, [this](int item) {
        ChooseColor(editor_, pages_, item);
        colors_->Refresh();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeButton("btnColorScheme", 0, "Open", &frmPreferences::OpenScheme));
    buttons->addWidget(MakeButton("btnColorScheme", 1, "Save", &frmPreferences::SaveScheme));
    buttons->addStretch(1);
    auto* column = new QVBoxLayout(page);
    column->addWidget(colors_, 1);
    column->addLayout(buttons);
    return page;
}

QWidget* frmPreferences::MakeKeyPage() {
    auto* page = new QWidget;
    keys_ = new ucRowList({"lblKMTitle", "lblKMKey", "vsKMList"}, kKeyFunctions, [this](int row) {
        return ucRowList::Row{
            KeyRowFunction(row), QString::fromStdString(KeyName(KeyRowCode(pages_, row))), {}};
    });
    keys_->setAccessibleName("Keys");
    connect(keys_, &ucRowList::Activated, this, [this](int row, bool onField) {
        if (onField) StartCapture(row);
    });
    connect(keys_, &ucRowList::DeletePressed, this, &frmPreferences::NoKey);
    lblPressKey_ = new QLabel(page);
    lblPressKey_->setObjectName("lblPressKey");
    pbFocus_ = new QWidget(page);
    pbFocus_->setObjectName("pbFocus");
    pbFocus_->setAccessibleName("Key to be pressed");
    pbFocus_->setFixedSize(1, 1);  // a hidden widget would get no keys
    pbFocus_->installEventFilter(this);
    tmrBlinker_ = new QTimer(this);
    tmrBlinker_->setObjectName("tmrBlinker");
    tmrBlinker_->setInterval(kBlinkInterval);
    connect(tmrBlinker_, &QTimer::timeout, this,
            [this] { lblPressKey_->setVisible(!lblPressKey_->isVisible()); });
    btnKeyMap_ = {MakeButton("btnKeyMap", OpenButton, "Open", &frmPreferences::OpenKeys),
                  MakeButton("btnKeyMap", SaveButton, "Save", &frmPreferences::SaveKeys),
                  MakeButton("btnKeyMap", NoKeyButton, "No Key", &frmPreferences::NoKey),
                  MakeButton("btnKeyMap", CancelButton, "Cancel", &frmPreferences::CancelCapture)};
    // A click on these must not end the capture before they act on it.
    btnKeyMap_[CancelButton]->setFocusPolicy(Qt::NoFocus);
    btnKeyMap_[NoKeyButton]->setFocusPolicy(Qt::TabFocus);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(btnKeyMap_[OpenButton]);
    buttons->addWidget(btnKeyMap_[SaveButton]);
    buttons->addWidget(lblPressKey_);
    buttons->addWidget(pbFocus_);
    buttons->addStretch(1);
    buttons->addWidget(btnKeyMap_[NoKeyButton]);
    buttons->addWidget(btnKeyMap_[CancelButton]);
    auto* column = new QVBoxLayout(page);
    column->addWidget(keys_, 1);
    column->addLayout(buttons);
    return page;
}

QWidget* frmPreferences::MakeWarningsPage() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(new QLabel("Ask or warn before:", page));
    for (int i = 0; i < kWarnings; ++i) {
        chkWarning_[i] = MakeCheck(QString("chkWarning_%1").arg(i), kWarningCaptions[i], page);
        column->addWidget(chkWarning_[i]);
    }
    column->addStretch(1);
    return page;
}

QWidget* frmPreferences::MakeButtons() {
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    QPushButton* okay = MakeButton("btnMain", 0, "Okay", &frmPreferences::Okay);
    okay->setDefault(true);
    row->addWidget(okay);
    row->addWidget(MakeButton("btnMain", 1, "Apply", &frmPreferences::Apply));
    row->addWidget(MakeButton("btnMain", 2, "Cancel", &frmPreferences::Cancel));
    row->addStretch(1);
    row->addWidget(MakeButton("btnMain", 3, "Reset Defaults", &frmPreferences::Reset));
    return bar;
}

// --- filling and applying
// -------------------------------------------------------------------------

void frmPreferences::Show() {
    txtSnap2Grid_->setText(QString::fromStdString(pages_.snapSize));
    txtPickSize_->setText(QString::fromStdString(pages_.pickerSize));
    txtGlobalSize_->setText(QString::fromStdString(pages_.textureScale));
    chkSetMarker_->setChecked(pages_.setMarker);
    chkRememberWinPos_->setChecked(pages_.rememberWindow);
    for (int i = 0; i < kWarnings; ++i) chkWarning_[i]->setChecked(pages_.warnings[i]);
    colors_->Refresh();
    keys_->Refresh();
}

void frmPreferences::Read() {
    pages_.snapSize = txtSnap2Grid_->text().toStdString();
    pages_.pickerSize = txtPickSize_->text().toStdString();
    pages_.textureScale = txtGlobalSize_->text().toStdString();
    pages_.setMarker = chkSetMarker_->isChecked();
    pages_.rememberWindow = chkRememberWinPos_->isChecked();
    for (int i = 0; i < kWarnings; ++i) pages_.warnings[i] = chkWarning_[i]->isChecked();
}

bool frmPreferences::ApplyPages() {
    Read();
    if (ApplyPreferences(editor_, pages_)) return true;
    TabHeader_->setCurrentIndex(0);  // the sizes are there
    return false;
}

void frmPreferences::Okay() {
    if (ApplyPages()) accept();
}

void frmPreferences::Apply() {
    ApplyPages();
}

void frmPreferences::Cancel() {
    reject();
}

void frmPreferences::Reset() {
    ResetDefaults(editor_);
    pages_ = PreferencesOf(editor_.settings);
    Show();
}

void frmPreferences::OpenScheme() {
    OpenColorScheme(editor_, pages_);
    colors_->Refresh();
}

void frmPreferences::SaveScheme() {
    SaveColorScheme(editor_, pages_);
}

void frmPreferences::OpenKeys() {
    OpenKeyMap(editor_, pages_);
    keys_->Refresh();
}

void frmPreferences::SaveKeys() {
    SaveKeyMap(editor_, pages_);
}

// --- the key capture
// ------------------------------------------------------------------------------

void frmPreferences::StartCapture(int row) {
    StartKeyCapture(pages_, row);
    ShowCapture();
    pbFocus_->setFocus();
}

void frmPreferences::EndCapture() {
    EndKeyCapture(pages_);
    ShowCapture();
}

void frmPreferences::CancelCapture() {
    EndCapture();
    keys_->setFocus();
}

void frmPreferences::NoKey() {
    ClearKey(pages_, pages_.capturedRow >= 0 ? pages_.capturedRow : keys_->Current());
    CancelCapture();
}

void frmPreferences::KeyDown(int code) {
    if (pages_.capturedRow < 0 || code == 0) return;
    const int row = pages_.capturedRow;
    CancelCapture();  // the label goes before the question comes
    CaptureKey(editor_, pages_, row, code);
    keys_->Refresh();
}

/// While a key is waited for, the label stands in the place of Open and Save.
void frmPreferences::ShowCapture() {
    const bool waits = pages_.capturedRow >= 0;
    if (waits) {
        lblPressKey_->setText(QString("Press Key For :") + KeyRowFunction(pages_.capturedRow));
        tmrBlinker_->start();
    } else {
        tmrBlinker_->stop();
    }
    lblPressKey_->setVisible(waits);
    btnKeyMap_[OpenButton]->setVisible(!waits);
    btnKeyMap_[SaveButton]->setVisible(!waits);
    btnKeyMap_[CancelButton]->setVisible(waits);
    keys_->Refresh();
}

bool frmPreferences::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            event->accept();
            return true;
        case QEvent::KeyPress: {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (!key->isAutoRepeat()) KeyDown(VirtualKeyCode(*key));
            return true;
        }
        case QEvent::FocusOut:
            // Another window may come to the front for a while.
            if (static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason)
                EndCapture();
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace korvane
