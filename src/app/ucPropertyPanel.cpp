#include "app/mPropertyPanel.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QVBoxLayout>

#include "editor/mSelectDialog.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

constexpr const char* kMultipleBrushes = "*Multiple Brushes*";
constexpr const char* kMultipleGroups = "*Multiple Groups*";
constexpr int kMostTransparency = 100;  // percent
constexpr int kMostRotation = 360;      // degrees

QLabel* Label(const char* name, const char* text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

QLineEdit* TextBox(const QString& name) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setMinimumWidth(40);
    return box;
}

QCheckBox* Check(const char* name, const char* caption) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    return box;
}

QSlider* Slider(const char* name, int maximum) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(name);
    slider->setRange(0, maximum);
    return slider;
}

QFrame* Rule() {
    auto* rule = new QFrame;
    rule->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return rule;
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

/// Two text boxes side by side, for X and Y.
QWidget* Pair(const char* name) {
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    const char* const axes[] = {"X", "Y"};
    for (int i = 0; i < 2; ++i) {
        QLineEdit* box = TextBox(QString("%1_%2").arg(name).arg(i));
        box->setPlaceholderText(axes[i]);
        box->setAccessibleName(axes[i]);
        row->addWidget(box);
    }
    return pair;
}

QLabel* ValueLabel(const char* name) {
    QLabel* label = Label(name, "");
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

/// Enter sets the group, unless the box only says that there are several. A focus that leaves for
/// no other text box goes back to the views.
void ConnectGroupBox(QLineEdit* box, Editor& editor) {
    QObject::connect(box, &QLineEdit::returnPressed, box, [box, &editor] {
        const std::string group = box->text().toStdString();
        if (group != kMultipleGroups) SetGroupOfSelection(editor, group);
        editor.host.FocusViews();
    });
    QObject::connect(box, &QLineEdit::editingFinished, box, [box, &editor] {
        const bool typing = qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
        if (!box->hasFocus() && !typing) editor.host.FocusViews();
    });
}

void AddNames(QVBoxLayout* column, Editor& editor) {
    Rows rows(column);
    QLineEdit* name = TextBox("txtBrushName");
    name->setReadOnly(true);
    rows.Add(Label("lblBrushName", "Name:"), name);
    QLineEdit* group = TextBox("txtBrushGroup");
    ConnectGroupBox(group, editor);
    rows.Add(Label("lblBrushGroup", "Group:"), group);
}

void AddDisplay(QVBoxLayout* column) {
    Rows rows(column);
    rows.Add(Check("chkFlagInvisible", "Invisible"));
    rows.Add(Check("chkFlagSmooth", "Smooth"));
    rows.Add(Check("chkFlagTransparent", "Transparent"), ValueLabel("lblTransparent"));
    rows.Add(Slider("hsTransparent", kMostTransparency));
}

void AddTexture(QVBoxLayout* column) {
    {
        Rows rows(column);
        rows.Add(Check("chkTexLocal", "Local Coordinates"));
        rows.Add(Label("lblOffset", "Offset:"), Pair("txtTextureOffset"));
        rows.Add(Label("lblRepeat", "Repeat:"), Pair("txtTextureRepeat"));
    }
    Rows rows(column);
    rows.Add(Check("chkRotate", "Rotated"), ValueLabel("lblRotate"));
    rows.Add(Slider("hsRotate", kMostRotation));
    rows.Add(Check("chkFlipped", "Flipped"));
    rows.Add(Check("chkMirrored", "Mirrored"));
}

/// What the name and group boxes show.
struct ShownNames {
    QString name;
    QString group;
};

ShownNames NamesOf(const Scene& scene) {
    const Brush* first = nullptr;
    bool several = false;
    bool sameGroup = true;
    for (const Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        several = first != nullptr;
        if (first == nullptr) first = &brush;
        sameGroup = sameGroup && brush.group == first->group;
    }
    if (first == nullptr) return {};
    return {QString::fromStdString(several ? kMultipleBrushes : first->name),
            QString::fromStdString(sameGroup ? first->group : kMultipleGroups)};
}

void ShowText(QWidget& panel, const char* box, const QString& text) {
    panel.findChild<QLineEdit*>(box)->setText(text);
}

void Enable(QWidget& panel, const char* control, bool enabled) {
    panel.findChild<QWidget*>(control)->setEnabled(enabled);
}

}  // namespace

void ShowBrushNames(QWidget& panel, const Scene& scene) {
    const ShownNames names = NamesOf(scene);
    const std::int32_t selected = CountSelectedBrushes(scene);
    ShowText(panel, "txtBrushName", names.name);
    ShowText(panel, "txtBrushGroup", names.group);
    Enable(panel, "lblBrushName", selected == 1);
    Enable(panel, "lblBrushGroup", selected > 0);
    Enable(panel, "txtBrushGroup", selected > 0);
}

QWidget* MakePropertyControls(Editor& editor) {
    auto* controls = new QWidget;
    auto* column = new QVBoxLayout(controls);
    column->setSpacing(8);
    AddNames(column, editor);
    column->addWidget(Rule());
    AddDisplay(column);
    column->addWidget(Rule());
    AddTexture(column);
    column->addStretch(1);
    for (QWidget* control : controls->findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty()) control->setEnabled(false);
    }
    return controls;
}

}  // namespace korvane
