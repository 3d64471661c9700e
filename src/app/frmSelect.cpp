#include "app/frmSelect.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/mDialogParts.h"

namespace korvane {
namespace {

constexpr QSize kSize(340, 420);  // pixels

std::vector<std::size_t> ChosenRows(const QListWidget* list) {
    std::vector<std::size_t> rows;
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->isSelected()) rows.push_back(static_cast<std::size_t>(row));
    return rows;
}

/// A file may name a group as it likes; the list would measure and paint every letter of it.
QString RowText(const std::string& row) {
    constexpr qsizetype kMostLetters = 200;
    const QString text = QString::fromStdString(row);
    return text.size() > kMostLetters ? text.left(kMostLetters) + "…" : text;
}

}  // namespace

frmSelect::frmSelect(Editor& editor, QWidget* parent)
    : QDialog(parent), editor_(editor), lists_(ListsForSelecting(editor)) {
    setObjectName("frmSelect");
    setWindowTitle("Select Brushes");
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName("tabLists");
    tabs->setAccessibleName("Select by");
    // After the tabs: that is the order of Tab.
    lstGroups_ = MakeList("lstGroups", "Groups", lists_.groups);
    lstBrushes_ = MakeList("lstBrushes", "Brushes", lists_.brushes);
    lstTextures_ = MakeList("lstTextures", "Textures", lists_.textures);
    for (QListWidget* list : {lstGroups_, lstBrushes_, lstTextures_})
        tabs->addTab(list, list->accessibleName());
    const OkayCancel buttons = MakeOkayCancel(this);
    connect(buttons.btnOkay, &QPushButton::clicked, this, &frmSelect::Confirm);
    connect(buttons.btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(tabs);
    column->addWidget(buttons.box);
    resize(kSize);
}

QListWidget* frmSelect::MakeList(const char* name, const char* caption,
                                 const std::vector<std::string>& rows) {
    auto* list = new QListWidget(this);
    list->setObjectName(name);
    list->setAccessibleName(caption);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);  // thousands of brushes need not be measured one by one
    QStringList texts;
    for (const std::string& row : rows) texts.append(RowText(row));
    list->addItems(texts);
    return list;
}

void frmSelect::Confirm() {
    SelectListed(editor_, lists_,
                 {ChosenRows(lstGroups_), ChosenRows(lstBrushes_), ChosenRows(lstTextures_)});
    accept();
}

}  // namespace korvane
