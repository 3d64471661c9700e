// A bar of image buttons addressed by a zero-based index; separators take none.
#pragma once

#include <QToolBar>
#include <QVector>

class QToolButton;

namespace korvane {

/// Each button shows one QAction: its icon, tooltip, pressed and enabled state.
class ucToolBar final : public QToolBar {
    Q_OBJECT

  public:
    /// `name` becomes the object name; button i is called NAME_i.
    ucToolBar(const QString& name, const QString& title, QWidget* parent = nullptr);

    /// Appends the button of that index. `longText` describes it while the mouse is over it.
    void AddButton(int index, QAction* action, const QString& longText);

    int ButtonCount() const { return static_cast<int>(buttons_.size()); }

    /// The button at an index of 0..ButtonCount()-1.
    QToolButton* Button(int index) const { return buttons_.at(index); }

  signals:
    /// The mouse entered a button; `longText` is its description.
    void Hovered(const QString& longText);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QVector<QToolButton*> buttons_;
};

}  // namespace korvane
