#include "app/frmExportSourceCode.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabBar>
#include <QTextDocument>
#include <QVBoxLayout>

#include "export/mSourceCode.h"

namespace korvane {
namespace {

constexpr QSize kSize(760, 540);  // pixels

/// The buttons in the order of their indices.
enum Button { Ok, Cancel, Clear, Open, Save, VBCode, CppCode };
constexpr const char* kCaptions[] = {"OK",   "Cancel",          "Clear",           "Open",
                                     "Save", "Default VB Code", "Default C++ Code"};

/// A box for code. Qt 6.4 reads the first format of what is pasted or dropped without asking
/// whether there is one, and crashes on a clipboard that nobody owns.
class CodeBox : public QPlainTextEdit {
  public:
    using QPlainTextEdit::QPlainTextEdit;

  protected:
    void insertFromMimeData(const QMimeData* source) override {
        if (source && source->hasText()) QPlainTextEdit::insertFromMimeData(source);
    }
};

QFont CodeFont() {
    QFont font;
    font.setFamilies({"Courier New", "monospace"});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    return font;
}

/// The text of a box, line for line. toPlainText would turn hard spaces into plain ones.
std::string TextOf(const QPlainTextEdit* box) {
    QString text = box->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, "\r\n").replace(QChar::LineSeparator, "\r\n");
    return text.toStdString();
}

/// Replaces the text in a way that the box can undo.
void SetText(QPlainTextEdit* box, const std::string& text) {
    QTextCursor cursor(box->document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(QString::fromStdString(text));
    box->moveCursor(QTextCursor::Start);
}

void ShowMarked(QLabel& label, bool marked) {
    label.setAutoFillBackground(marked);
    label.setBackgroundRole(marked ? QPalette::Highlight : QPalette::NoRole);
    label.setForegroundRole(marked ? QPalette::HighlightedText : QPalette::NoRole);
}

bool IsChoosingKey(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

frmExportSourceCode::frmExportSourceCode(Editor& editor, QWidget* parent)
    : QDialog(parent),
      editor_(editor),
      tabCodeHeader_(new QTabBar(this)),
      txtHead_(MakeText("txtHead", "Head")),
      txtBody_(MakeText("txtBody", "Body")),
      txtFoot_(MakeText("txtFoot", "Foot")),
      txtPreview_(MakeText("txtPreview", "Preview")),
      pages_(new QStackedWidget(this)) {
    setObjectName("frmExportSourceCode");
    setWindowTitle("Export Source Code...");
    tabCodeHeader_->setObjectName("tabCodeHeader");
    tabCodeHeader_->setAccessibleName("Pages");
    txtPreview_->setReadOnly(true);
    QWidget* const pages[] = {MakeTemplatePage(), txtPreview_, MakeReferencePage()};
    for (const char* caption : {"Code Template", "Preview", "Reference"})
        tabCodeHeader_->addTab(caption);
    for (QWidget* page : pages) {
        auto* holder = new QWidget(pages_);
        holder->setObjectName(QString("tabCode_%1").arg(pages_->count()));
        auto* layout = new QVBoxLayout(holder);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(page);
        pages_->addWidget(holder);
    }
    connect(tabCodeHeader_, &QTabBar::currentChanged, this, &frmExportSourceCode::ShowPage);

    auto* grid = new QGridLayout(this);
    grid->addWidget(tabCodeHeader_, 0, 0);
    grid->addWidget(pages_, 1, 0);
    grid->addLayout(MakeButtons(), 1, 1);
    grid->setColumnStretch(0, 1);
    Show(editor.codeTemplate);
    txtHead_->setFocus();
    resize(kSize.boundedTo(screen()->availableSize() * 0.9));
}

QPlainTextEdit* frmExportSourceCode::MakeText(const char* name, const QString& accessibleName) {
    auto* box = new CodeBox(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setFont(CodeFont());
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setTabChangesFocus(true);
    return box;
}

QWidget* frmExportSourceCode::MakeTemplatePage() {
    struct Row {
        const char* caption;
        QPlainTextEdit* box;
        int stretch;
    };
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    for (const Row& row : {Row{"&Head, written once:", txtHead_, 2},
                           Row{"&Body, written for every visible triangle:", txtBody_, 4},
                           Row{"&Foot, written once:", txtFoot_, 2}}) {
        auto* label = new QLabel(row.caption, page);
        label->setBuddy(row.box);
        row.box->setMinimumHeight(40);
        column->addWidget(label);
        column->addWidget(row.box, row.stretch);
    }
    return page;
}

QLabel* frmExportSourceCode::MakeTag(const char* tag, QPlainTextEdit* target) {
    auto* label = new QLabel(tag, this);
    label->setObjectName(QString("lblCodeTag_%1").arg(tagCount_++));
    label->setFont(CodeFont());
    label->setCursor(Qt::PointingHandCursor);
    label->setFocusPolicy(Qt::StrongFocus);
    label->setToolTip("Double click or Enter: insert into the " +
                      target->accessibleName().toLower());
    label->setProperty("target", QVariant::fromValue(target));
    label->installEventFilter(this);
    return label;
}

QWidget* frmExportSourceCode::MakeReferencePage() {
    auto* head = new QGroupBox("HEAD Tags");
    auto* headRow = new QVBoxLayout(head);
    headRow->addWidget(MakeTag(kProgramTag, txtHead_), 0, Qt::AlignLeft);
    auto* body = new QGroupBox("BODY Tags");
    auto* grid = new QGridLayout(body);
    grid->setHorizontalSpacing(8);
    int row = 0;
    for (const CodeTagGroup& group : CodeTagGroups()) {
        grid->addWidget(new QLabel(group.caption), row, 0);
        const int count = static_cast<int>(std::ssize(group.tags));
        for (int i = 0; i < count; ++i) {
            QLabel* tag = MakeTag(group.tags[static_cast<std::size_t>(i)], txtBody_);
            grid->addWidget(tag, row + i / group.columns, 1 + i % group.columns, Qt::AlignLeft);
        }
        row += (count + group.columns - 1) / group.columns;
        grid->setRowMinimumHeight(row++, 6);
    }
    grid->setColumnStretch(3, 1);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new QLabel("A double click or Enter on a tag inserts it into the template."));
    column->addWidget(head);
    column->addWidget(body);
    column->addStretch();
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // it follows the focus of the tags
    area->setWidgetResizable(true);
    area->setWidget(page);
    return area;
}

QLayout* frmExportSourceCode::MakeButtons() {
    auto* column = new QVBoxLayout;
    for (int i = 0; i < std::ssize(kCaptions); ++i) {
        auto* button = new QPushButton(kCaptions[i], this);
        button->setObjectName(QString("btnCode_%1").arg(i));
        button->setAutoDefault(false);  // Enter belongs to the texts
        connect(button, &QPushButton::clicked, this, [this, i] { Press(i); });
        column->addWidget(button);
        if (i == Cancel || i == Save) column->addSpacing(12);
    }
    column->addStretch();
    return column;
}

void frmExportSourceCode::ShowPage(int page) {
    pages_->setCurrentIndex(page);
    RefreshPreview();
}

void frmExportSourceCode::Press(int button) {
    switch (button) {
        case Ok:
            ExportSourceCode(editor_, Read());
            accept();
            break;
        case Cancel:
            reject();
            break;
        case Clear:
            Show({});
            break;
        case Open:
            if (const auto code = OpenCodeTemplate(editor_)) Show(*code);
            break;
        case Save:
            SaveCodeTemplate(editor_, Read());
            break;
        case VBCode:
            Show(DefaultVBCode());
            break;
        case CppCode:
            Show(DefaultCppCode());
            break;
    }
}

CodeTemplate frmExportSourceCode::Read() const {
    return {TextOf(txtHead_), TextOf(txtBody_), TextOf(txtFoot_)};
}

void frmExportSourceCode::Show(const CodeTemplate& code) {
    SetText(txtHead_, code.head);
    SetText(txtBody_, code.body);
    SetText(txtFoot_, code.foot);
    RefreshPreview();
}

/// The texts can't be typed in while the preview covers them, and so typing never pays for it.
void frmExportSourceCode::RefreshPreview() {
    if (pages_->currentIndex() != PreviewPage) return;
    txtPreview_->setPlainText(QString::fromStdString(BuildPreview(Read())));
}

void frmExportSourceCode::InsertTag(const QLabel& tag, QPlainTextEdit& target) {
    target.insertPlainText(tag.text());
    tabCodeHeader_->setCurrentIndex(TemplatePage);
    target.setFocus();
}

bool frmExportSourceCode::eventFilter(QObject* watched, QEvent* event) {
    auto* target = watched->property("target").value<QPlainTextEdit*>();
    if (target == nullptr) return QDialog::eventFilter(watched, event);
    auto* tag = static_cast<QLabel*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            ShowMarked(*tag, event->type() == QEvent::FocusIn);
            return false;
        case QEvent::KeyPress:
            if (!IsChoosingKey(static_cast<QKeyEvent*>(event)->key())) return false;
            break;
        case QEvent::MouseButtonDblClick:
            break;
        default:
            return false;
    }
    InsertTag(*tag, *target);
    return true;
}

}  // namespace korvane
