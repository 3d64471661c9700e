// What the small dialogs have in common: text boxes that take certain keys only, and their buttons.
#pragma once

#include <QString>

class QDialogButtonBox;
class QLineEdit;
class QPushButton;
class QWidget;

namespace korvane {

/// The keys that a text box takes, editing keys aside.
inline constexpr const char* kDigitKeys = "[0-9]*";
inline constexpr const char* kNumberKeys = "[-0-9.]*";

/// An empty text box of that object name; other characters than those of the pattern are dropped.
QLineEdit* MakeKeyedBox(const QString& name, const char* keys, QWidget* parent);

/// The buttons under a dialog: "Okay" (btnOkay) and "Cancel" (btnCancel).
struct OkayCancel {
    QDialogButtonBox* box;
    QPushButton* btnOkay;  ///< Enter presses it, unless the other has the focus
    QPushButton* btnCancel;
};
OkayCancel MakeOkayCancel(QWidget* parent);

}  // namespace korvane
