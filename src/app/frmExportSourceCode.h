// The dialog that exports source code: a page for the template, one that previews it, and one that
// lists the tags.
#pragma once

#include <QDialog>

#include "editor/mExport.h"

class QLabel;
class QPlainTextEdit;
class QStackedWidget;
class QTabBar;

namespace korvane {

class frmExportSourceCode final : public QDialog {
    Q_OBJECT

  public:
    /// Shows the template that the session used last.
    explicit frmExportSourceCode(Editor& editor, QWidget* parent = nullptr);

    /// What a tag of the reference does with mouse, keys and focus.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum Page { TemplatePage, PreviewPage, ReferencePage };

    QPlainTextEdit* MakeText(const char* name, const QString& accessibleName);
    QWidget* MakeTemplatePage();
    QWidget* MakeReferencePage();
    QLayout* MakeButtons();
    QLabel* MakeTag(const char* tag, QPlainTextEdit* target);
    void InsertTag(const QLabel& tag, QPlainTextEdit& target);
    void ShowPage(int page);
    void Press(int button);
    CodeTemplate Read() const;
    void Show(const CodeTemplate& code);
    void RefreshPreview();

    Editor& editor_;
    QTabBar* tabCodeHeader_;  ///< made first: that is the order of Tab
    QPlainTextEdit* txtHead_;
    QPlainTextEdit* txtBody_;
    QPlainTextEdit* txtFoot_;
    QPlainTextEdit* txtPreview_;
    QStackedWidget* pages_;
    int tagCount_ = 0;  ///< labels of the reference made so far
};

}  // namespace korvane
