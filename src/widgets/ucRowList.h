// A list shown ten rows at a time under a scroll bar: each row has a title and a field with a text
// or a colour. Works with the mouse and with the keyboard alone.
#pragma once

#include <QColor>
#include <QWidget>
#include <array>
#include <functional>

class QLabel;
class QScrollBar;

namespace korvane {

class ucRowList final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int kRows = 10;  ///< shown at a time

    /// What an item shows.
    struct Row {
        QString title;
        QString text;  ///< in the field
        QColor color;  ///< of the field; invalid: the ordinary one
    };

    /// The object names of its parts; row r carries them with "_r" behind.
    struct Names {
        QString title;
        QString field;
        QString scrollBar;
    };

    /// A list of that many items (at least kRows), described by `itemAt`.
    ucRowList(const Names& names, int items, std::function<Row(int)> itemAt,
              QWidget* parent = nullptr);

    /// Asks for the shown items anew.
    void Refresh();

    /// The item that the keyboard acts on.
    int Current() const { return current_; }

  signals:
    /// An item was clicked, or chosen with Space or Enter.
    void Activated(int item, bool onField);
    /// Delete was pressed on an item.
    void DeletePressed(int item);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void MoveTo(int item);
    void ShowRow(int row);

    int items_;
    std::function<Row(int)> itemAt_;
    std::array<QLabel*, kRows> titles_;
    std::array<QLabel*, kRows> fields_;
    QScrollBar* scrollBar_;
    int current_ = 0;
};

}  // namespace korvane
