// The status bar: six sunken panels, a wide one for texts, four for read-outs and one for the
// selection.
#pragma once

#include <QStatusBar>
#include <array>

namespace korvane {

class StatusPanel;

class ucStatusBar final : public QStatusBar {
    Q_OBJECT

  public:
    static constexpr int kPanels = 6;

    explicit ucStatusBar(QWidget* parent = nullptr);

    /// Shows the text in a panel of 0..5; any other panel is ignored. A text that is too long for
    /// its panel ends in an ellipsis.
    void SetText(int panel, const QString& text);

    /// The text of a panel of 0..5, in full.
    QString Text(int panel) const;

  private:
    std::array<StatusPanel*, kPanels> panels_;
};

}  // namespace korvane
