#include "app/ucPropertyPanel.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "editor/mSelectDialog.h"

namespace korvane {
namespace {

constexpr int kTransparencyPage = 10;  // percent, for a click beside the handle
constexpr int kRotationPage = 15;      // degrees

QLabel* Label(const char* name, const char* text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

/// At least as wide as the text.
QLineEdit* TextBox(const QString& name, const QString& accessibleName, const char* widest) {
    constexpr int kPadding = 10;  // pixels, with the frame
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(widest) + kPadding);
    return box;
}

/// Shows a long text from its start.
void ShowText(QLineEdit* box, const std::string& text) {
    box->setText(QString::fromStdString(text));
    box->setCursorPosition(0);
}

QFrame* Rule() {
    auto* rule = new QFrame;
    rule->setFrameStyle(QFrame::HLine | QFrame::Plain);
    rule->setForegroundRole(QPalette::Mid);
    return rule;
}

QWidget* SideBySide(QWidget* left, QWidget* right) {
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(left);
    row->addWidget(right);
    return pair;
}

/// Rows of two columns, label and control, or one thing across both.
class Rows {
  public:
    explicit Rows(QVBoxLayout* column) : grid_(new QGridLayout) {
        grid_->setHorizontalSpacing(8);
        grid_->setVerticalSpacing(6);
        grid_->setColumnStretch(1, 1);
        column->addLayout(grid_);
    }

    void Add(QWidget* left, QWidget* right) {
        const int row = grid_->rowCount();
        grid_->addWidget(left, row, 0);
        grid_->addWidget(right, row, 1);
    }
    void Add(QWidget* across) { grid_->addWidget(across, grid_->rowCount(), 0, 1, 2); }

  private:
    QGridLayout* grid_;
};

Qt::CheckState StateOf(Check state) {
    switch (state) {
        case Check::Unchecked:
            return Qt::Unchecked;
        case Check::Checked:
            return Qt::Checked;
        case Check::Mixed:
            return Qt::PartiallyChecked;
    }
    return Qt::Unchecked;
}

bool IsOn(const QCheckBox* box) {
    return box->checkState() != Qt::Unchecked;
}

}  // namespace

ucPropertyPanel::ucPropertyPanel(Editor& editor, QWidget* parent)
    : QWidget(parent), editor_(editor) {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(8);
    AddNames(column);
    column->addWidget(Rule());
    AddDisplay(column);
    column->addWidget(Rule());
    AddTexture(column);
    column->addStretch(1);
    ConnectGroupBox();
    Refresh();
}

void ucPropertyPanel::AddNames(QVBoxLayout* column) {
    lblBrushName_ = Label("lblBrushName", "Name:");
    lblBrushGroup_ = Label("lblBrushGroup", "Group:");
    txtBrushName_ = TextBox("txtBrushName", "Name", kMultipleBrushes);
    txtBrushName_->setReadOnly(true);
    txtBrushName_->setEnabled(false);
    txtBrushGroup_ = TextBox("txtBrushGroup", "Group", kMultipleGroups);
    Rows rows(column);
    rows.Add(lblBrushName_, txtBrushName_);
    rows.Add(lblBrushGroup_, txtBrushGroup_);
}

void ucPropertyPanel::AddDisplay(QVBoxLayout* column) {
    using P = ShownProperties;
    Rows rows(column);
    rows.Add(AddFlag("chkFlagInvisible", "Invisible", &P::invisible, SetInvisible));
    rows.Add(AddFlag("chkFlagSmooth", "Smooth", &P::smooth, SetSmooth));
    auto* box = AddFlag("chkFlagTransparent", "Transparent", &P::transparent, nullptr);
    transparency_ = AddLevel(box, "hsTransparent", "lblTransparent", "%", kMostTransparency);
    transparency_.slider->setPageStep(kTransparencyPage);
    rows.Add(box, transparency_.label);
    rows.Add(transparency_.slider);
    connect(transparency_.slider, &QSlider::valueChanged, this, [this](int value) {
        if (showing_) return;
        EnableDependents();
        if (transparency_.box->checkState() == Qt::Checked) SetTransparency(editor_, value);
    });
    connect(transparency_.slider, &QSlider::sliderReleased, this, &ucPropertyPanel::Refresh);
}

/// Enter hands the focus back to the views by itself.
void ucPropertyPanel::AddTextureName() {
    lblFaceTexture_ = Label("lblFaceTexture", "Texture:");
    txtFaceTexture_ = TextBox("txtFaceTexture", "Texture", kMultipleTextures);
    txtFaceTexture_->setReadOnly(true);
    txtFaceTexture_->setFocusPolicy(Qt::TabFocus);
    txtFaceTexture_->installEventFilter(this);
    connect(txtFaceTexture_, &QLineEdit::returnPressed, this, [this] {
        if (texture_) emit TextureAsked(*texture_);
    });
}

void ucPropertyPanel::AddTexture(QVBoxLayout* column) {
    using P = ShownProperties;
    {
        Rows rows(column);
        AddTextureName();
        rows.Add(lblFaceTexture_, txtFaceTexture_);
        rows.Add(chkTexLocal_ =
                     AddFlag("chkTexLocal", "Local Coordinates", &P::localCoords, SetLocalCoords));
        offset_ = AddNumbers("lblOffset", "Offset:", "txtTextureOffset", SetTextureOffset);
        rows.Add(offset_.label, SideBySide(offset_.boxes[0], offset_.boxes[1]));
        repeat_ = AddNumbers("lblRepeat", "Repeat:", "txtTextureRepeat", SetTextureRepeat);
        rows.Add(repeat_.label, SideBySide(repeat_.boxes[0], repeat_.boxes[1]));
    }
    Rows rows(column);
    auto* box = AddFlag("chkRotate", "Rotated", &P::rotated, nullptr);
    connect(box, &QCheckBox::stateChanged, this, &ucPropertyPanel::RotateClicked);
    rotation_ = AddLevel(box, "hsRotate", "lblRotate", "°", kMostRotation);
    rotation_.slider->setPageStep(kRotationPage);
    rows.Add(box, rotation_.label);
    rows.Add(rotation_.slider);
    connect(rotation_.slider, &QSlider::valueChanged, this, [this](int value) {
        if (showing_) return;
        EnableDependents();
        SetTextureRotation(editor_, value);
    });
    rows.Add(AddFlag("chkFlipped", "Flipped", &P::flipped, SetTextureFlipped));
    rows.Add(AddFlag("chkMirrored", "Mirrored", &P::mirrored, SetTextureMirrored));
}

QCheckBox* ucPropertyPanel::AddFlag(const char* name, const char* caption,
                                    Check ShownProperties::*shown, EditFlag edit) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setFocusPolicy(Qt::TabFocus);
    connect(box, &QCheckBox::stateChanged, this, [this, box, edit] { FlagClicked(box, edit); });
    flags_.push_back({box, shown});
    return box;
}

ucPropertyPanel::Level ucPropertyPanel::AddLevel(QCheckBox* box, const char* slider,
                                                 const char* label, const char* unit, int maximum) {
    Level level{box, new QSlider(Qt::Horizontal), Label(label, ""), unit};
    level.slider->setObjectName(slider);
    level.slider->setAccessibleName(box->text());
    level.slider->setRange(0, maximum);
    level.slider->setFocusPolicy(Qt::ClickFocus);
    level.slider->installEventFilter(this);
    box->installEventFilter(this);
    box->setToolTip(tr("The left and right arrow keys move its slider"));
    box->setAccessibleDescription(box->toolTip());
    level.label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return level;
}

ucPropertyPanel::NumberPair ucPropertyPanel::AddNumbers(const char* label, const char* caption,
                                                        const char* boxes, EditNumber edit) {
    NumberPair pair{Label(label, caption), {}};
    const char* const axes[] = {"X", "Y"};
    for (int axis = 0; axis < 2; ++axis) {
        const QString spoken = QString("%1 %2").arg(caption, axes[axis]).remove(':');
        QLineEdit* box = TextBox(QString("%1_%2").arg(boxes).arg(axis), spoken, "-0.0");
        box->setPlaceholderText(axes[axis]);
        connect(box, &QLineEdit::returnPressed, this, [this, box, axis, edit] {
            edit(editor_, axis, box->text().toStdString());
            editor_.host.FocusViews();
        });
        pair.boxes[axis] = box;
    }
    return pair;
}

/// Enter sets the group that was typed: the box may only say that there are several, and it cuts
/// a group of a file that is longer than it can hold. A focus that leaves for no other text box
/// goes back to the views.
void ucPropertyPanel::ConnectGroupBox() {
    connect(txtBrushGroup_, &QLineEdit::returnPressed, this, [this] {
        const std::string group = txtBrushGroup_->text().toStdString();
        if (txtBrushGroup_->isModified() && group != kMultipleGroups)
            SetGroupOfSelection(editor_, group);
        editor_.host.FocusViews();
    });
    connect(txtBrushGroup_, &QLineEdit::editingFinished, this, [this] {
        const bool typing = qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
        if (!txtBrushGroup_->hasFocus() && !typing) editor_.host.FocusViews();
    });
}

/// The keys of a slider, pressed on its check box; false for any other.
bool ucPropertyPanel::StepLevel(const Level& level, int key) {
    static constexpr struct {
        int key;
        QAbstractSlider::SliderAction action;
    } kKeys[] = {{Qt::Key_Left, QAbstractSlider::SliderSingleStepSub},
                 {Qt::Key_Right, QAbstractSlider::SliderSingleStepAdd},
                 {Qt::Key_PageDown, QAbstractSlider::SliderPageStepSub},
                 {Qt::Key_PageUp, QAbstractSlider::SliderPageStepAdd},
                 {Qt::Key_Home, QAbstractSlider::SliderToMinimum},
                 {Qt::Key_End, QAbstractSlider::SliderToMaximum}};
    const auto* row = std::ranges::find(kKeys, key, [](const auto& entry) { return entry.key; });
    if (row == std::end(kKeys)) return false;
    if (level.slider->isEnabled()) level.slider->triggerAction(row->action);
    return true;
}

/// A click on a mixed box checks it; mixed is a state that only a selection has.
void ucPropertyPanel::FlagClicked(QCheckBox* box, EditFlag edit) {
    if (showing_) return;
    box->setTristate(false);
    EnableDependents();
    if (edit != nullptr) edit(editor_, box->isChecked());
}

void ucPropertyPanel::RotateClicked() {
    if (showing_) return;
    const bool rotated = rotation_.box->isChecked();
    if (!rotated && rotation_.slider->value() == 0) return;
    {
        const QScopedValueRollback showing(showing_, true);
        if (!rotated) rotation_.slider->setValue(0);
    }
    SetTextureRotation(editor_, rotation_.slider->value());
}

void ucPropertyPanel::Refresh() {
    const QWidget* focused = QApplication::focusWidget();
    const bool hadFocus = focused != nullptr && isAncestorOf(focused);
    {
        const QScopedValueRollback showing(showing_, true);
        const ShownProperties shown = PropertiesOf(editor_.scene);
        ShowNames(shown);
        ShowTexture(shown);
        ShowFlags(shown);
        ShowLevel(transparency_, shown.transparency);
        ShowLevel(rotation_, shown.rotation);
        for (int axis = 0; axis < 2; ++axis) {
            offset_.boxes[axis]->setText(QString::fromStdString(shown.offsets[axis]));
            repeat_.boxes[axis]->setText(QString::fromStdString(shown.repeats[axis]));
        }
        EnableDependents();
    }
    if (hadFocus && !focused->isEnabled()) editor_.host.FocusViews();
}

void ucPropertyPanel::ShowNames(const ShownProperties& shown) {
    ShowText(txtBrushName_, shown.name);
    txtBrushGroup_->setText(QString::fromStdString(shown.group));
    lblBrushName_->setEnabled(shown.selectedBrushes == 1);
    lblBrushGroup_->setEnabled(shown.selectedBrushes > 0);
    txtBrushGroup_->setEnabled(shown.selectedBrushes > 0);
}

void ucPropertyPanel::ShowTexture(const ShownProperties& shown) {
    const bool any = shown.selectedBrushes > 0;
    texture_ = shown.texture;
    const std::string name = texture_ ? editor_.textures.TextureName(*texture_)
                                      : std::string(any ? kMultipleTextures : "");
    ShowText(txtFaceTexture_, name);
    txtFaceTexture_->setToolTip(texture_
                                    ? txtFaceTexture_->text() + "\n" +
                                          tr("A double-click or Enter shows it in the texture list")
                                    : QString());
    txtFaceTexture_->setEnabled(any);
    lblFaceTexture_->setEnabled(any);
}

void ucPropertyPanel::ShowFlags(const ShownProperties& shown) {
    for (const Flag& flag : flags_) {
        if (flag.box == transparency_.box && transparency_.slider->isSliderDown()) continue;
        flag.box->setEnabled(shown.selectedBrushes > 0);
        flag.box->setTristate(false);
        flag.box->setCheckState(StateOf(shown.*flag.shown));
    }
}

void ucPropertyPanel::ShowLevel(const Level& level, std::int32_t value) {
    if (level.box->checkState() == Qt::Checked && !level.slider->isSliderDown())
        level.slider->setValue(value);
}

/// What depends on a box is enabled with it. A mixed box enables as well.
void ucPropertyPanel::EnableDependents() {
    const bool local = IsOn(chkTexLocal_);
    for (const NumberPair& pair : {offset_, repeat_}) {
        pair.label->setEnabled(local);
        for (QLineEdit* box : pair.boxes) box->setEnabled(local);
    }
    for (const Level& level : {transparency_, rotation_}) {
        const bool on = IsOn(level.box);
        level.slider->setEnabled(on);
        level.label->setEnabled(on);
        level.label->setText(on ? QString::number(level.slider->value()) + level.unit : QString());
    }
}

bool ucPropertyPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtFaceTexture_) {
        const bool asked = event->type() == QEvent::MouseButtonDblClick && texture_;
        if (asked) emit TextureAsked(*texture_);
        return asked;
    }
    for (const Level* level : {&transparency_, &rotation_}) {
        if (watched != level->box) continue;
        const bool pressed = event->type() == QEvent::KeyPress;
        return pressed && StepLevel(*level, static_cast<QKeyEvent*>(event)->key());
    }
    if (event->type() == QEvent::FocusIn) editor_.host.FocusViews();
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace korvane
