// The property panel inside conProps: name and group of the selection, display and texture settings
// of its faces. What it shows and what an edit does stands in editor/mPropertyEdits.h.
#pragma once

#include <QWidget>
#include <array>
#include <optional>
#include <vector>

#include "editor/mPropertyEdits.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QSlider;
class QVBoxLayout;

namespace korvane {

class ucPropertyPanel final : public QWidget {
    Q_OBJECT

  public:
    /// Edits the selection of the session, which must outlive the panel. The controls stand under
    /// their object names and show no selection.
    explicit ucPropertyPanel(Editor& editor, QWidget* parent = nullptr);

    /// Shows the selection and writes nothing back. A slider whose box does not end up checked
    /// keeps its place. While the mouse holds the transparency slider its box keeps its state: at
    /// 0 % it would disable the slider under the hand.
    void Refresh();

  signals:
    /// The read-out of the faces' texture was double-clicked.
    void TextureAsked(std::int32_t index);

  protected:
    /// Keeps focus and wheel from the sliders: keys belong to the views, and the wheel, which
    /// scrolls the panel in a low window, must not turn textures in passing. The keys of a slider
    /// work on its check box instead.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using EditFlag = void (*)(Editor&, bool);
    using EditNumber = void (*)(Editor&, int axis, std::string_view text);

    struct Flag {
        QCheckBox* box;
        Check ShownProperties::*shown;
    };
    /// A slider with the box that enables it and the label that reads it out.
    struct Level {
        QCheckBox* box;
        QSlider* slider;
        QLabel* label;
        QString unit;
    };
    /// The boxes of X and Y with their label.
    struct NumberPair {
        QLabel* label;
        std::array<QLineEdit*, 2> boxes;
    };

    void AddNames(QVBoxLayout* column);
    void AddDisplay(QVBoxLayout* column);
    void AddTexture(QVBoxLayout* column);
    void AddTextureName();
    QCheckBox* AddFlag(const char* name, const char* caption, Check ShownProperties::*shown,
                       EditFlag edit);
    Level AddLevel(QCheckBox* box, const char* slider, const char* label, const char* unit,
                   int maximum);
    NumberPair AddNumbers(const char* label, const char* caption, const char* boxes,
                          EditNumber edit);
    void ConnectGroupBox();

    bool StepLevel(const Level& level, int key);
    void FlagClicked(QCheckBox* box, EditFlag edit);
    void RotateClicked();
    void ShowNames(const ShownProperties& shown);
    void ShowTexture(const ShownProperties& shown);
    void ShowFlags(const ShownProperties& shown);
    void ShowLevel(const Level& level, std::int32_t value);
    void EnableDependents();

    Editor& editor_;
    bool showing_ = false;  ///< controls are being filled: nothing is an edit
    QLabel* lblBrushName_ = nullptr;
    QLabel* lblBrushGroup_ = nullptr;
    QLineEdit* txtBrushName_ = nullptr;
    QLineEdit* txtBrushGroup_ = nullptr;
    QLabel* lblFaceTexture_ = nullptr;
    QLineEdit* txtFaceTexture_ = nullptr;
    std::optional<std::int32_t> texture_;  ///< that the read-out shows
    QCheckBox* chkTexLocal_ = nullptr;
    std::vector<Flag> flags_;
    Level transparency_{};
    Level rotation_{};
    NumberPair offset_{};
    NumberPair repeat_{};
};

}  // namespace korvane
