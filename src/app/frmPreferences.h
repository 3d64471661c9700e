// The modal dialog that edits the settings on four pages.
#pragma once

#include <QDialog>
#include <array>

#include "editor/mPreferences.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTimer;

namespace korvane {

class ucRowList;

class frmPreferences final : public QDialog {
    Q_OBJECT

  public:
    /// Shows the session's settings; they change when the pages are applied.
    explicit frmPreferences(Editor& editor, QWidget* parent = nullptr);

  protected:
    /// The surface pbFocus gives every key to the capture, Tab, Enter and Escape included.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeGeneralPage();
    QWidget* MakeColorPage();
    QWidget* MakeKeyPage();
    QWidget* MakeWarningsPage();
    QWidget* MakeButtons();
    QPushButton* MakeButton(const QString& name, int index, const char* caption,
                            void (frmPreferences::*run)());

    void Show();
    void Read();
    void Okay();
    bool ApplyPages();
    void Apply();
    void Cancel();
    void Reset();

    void OpenScheme();
    void SaveScheme();
    void OpenKeys();
    void SaveKeys();

    void StartCapture(int row);
    void EndCapture();
    void KeyDown(int code);
    void NoKey();
    void CancelCapture();
    void ShowCapture();

    Editor& editor_;
    Preferences pages_;
    QTabWidget* TabHeader_;
    QLineEdit* txtSnap2Grid_;
    QLineEdit* txtPickSize_;
    QLineEdit* txtGlobalSize_;
    QCheckBox* chkSetMarker_;
    QCheckBox* chkRememberWinPos_;
    std::array<QCheckBox*, kWarnings> chkWarning_;
    ucRowList* colors_;
    ucRowList* keys_;
    std::array<QPushButton*, 4> btnKeyMap_;
    QLabel* lblPressKey_;
    QWidget* pbFocus_;
    QTimer* tmrBlinker_;
};

}  // namespace korvane
