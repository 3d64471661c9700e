// The status bar: five sunken panels, a wide one for texts and four for read-outs.
#pragma once

#include <QStatusBar>
#include <array>

namespace korvane {

class StatusPanel;

class ucStatusBar final : public QStatusBar {
    Q_OBJECT

  public:
    static constexpr int kPanels = 5;

    explicit ucStatusBar(QWidget* parent = nullptr);

    /// Shows the text in a panel of 0..4; any other panel is ignored. A text that is too long for
    /// its panel ends in an ellipsis.
    void SetText(int panel, const QString& text);

    /// The text of a panel of 0..4, in full.
    QString Text(int panel) const;

  private:
    std::array<StatusPanel*, kPanels> panels_;
};

}  // namespace korvane
