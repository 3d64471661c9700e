#include "platform/QtPrompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <algorithm>

#include "platform/ObjectView.h"

namespace korvane {
namespace {

QMessageBox::Icon BoxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Stop:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case MessageButtons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

/// Lets a box with more than one button be closed as Cancel, shown or not: left to itself it takes
/// No, which may be a choice with consequences.
void CloseWithoutChoice(QMessageBox& box) {
    if (box.standardButtons() == QMessageBox::Ok) return;
    if (box.button(QMessageBox::Cancel) == nullptr) box.addButton(QMessageBox::Cancel)->hide();
    box.setEscapeButton(QMessageBox::Cancel);
}

/// The window that a dialog belongs to. One that was only just shown is not active yet.
QWidget* Owner() {
    if (QWidget* active = QApplication::activeWindow()) return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(windows, [](const QWidget* window) {
        const bool stays = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
        return stays && window->isVisible();
    });
    return shown == windows.end() ? nullptr : *shown;
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
    switch (answer) {
        case Answer::Yes:
            return QMessageBox::Yes;
        case Answer::No:
            return QMessageBox::No;
        case Answer::Cancel:
            return QMessageBox::Cancel;
        case Answer::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QString NameFilter(const FileDialog& dialog) {
    const QString name = QString::fromStdString(dialog.filterName);
    const QString pattern = "(" + QString::fromStdString(dialog.filterPattern) + ")";
    return name.contains(pattern) ? name : name + " " + pattern;
}

bool CanHoldFiles(const QString& folder) {
    const QFileInfo info(folder);
    return info.isDir() && info.isWritable();
}

QString DocumentsFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

/// The path itself, or the same name among the user's documents: samples that were installed can be
/// opened, but not saved where they are.
QString SavablePath(const QString& path) {
    const QFileInfo info(path);
    if (info.isRelative() || CanHoldFiles(info.path())) return path;
    return DocumentsFolder() + "/" + info.fileName();
}

}  // namespace

Answer QtPrompts::ShowMessage(const Message& message) {
    QMessageBox box(BoxIcon(message.icon), QString::fromStdString(message.title),
                    QString::fromStdString(message.text).replace("\r\n", "\n"),
                    ButtonsOf(message.buttons), Owner());
    box.setTextFormat(Qt::PlainText);
    CloseWithoutChoice(box);
    if (message.onEnter) box.setDefaultButton(ButtonOf(*message.onEnter));
    switch (box.exec()) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

std::optional<std::string> QtPrompts::AskOpenPath(const FileDialog& dialog) {
    QFileDialog box(Owner());
    box.setAcceptMode(QFileDialog::AcceptOpen);
    box.setFileMode(QFileDialog::ExistingFile);
    if (dialog.showsObject && picture_) AddObjectView(box, picture_);
    return Ask(box, dialog);
}

std::optional<std::string> QtPrompts::AskSavePath(const FileDialog& dialog) {
    QFileDialog box(Owner());
    box.setAcceptMode(QFileDialog::AcceptSave);
    box.setFileMode(QFileDialog::AnyFile);
    box.setDefaultSuffix(QString::fromStdString(dialog.defaultExtension));
    return Ask(box, dialog);
}

std::optional<Color> QtPrompts::AskColor(Color color) {
    const QColor initial(static_cast<int>(Red(color)), static_cast<int>(Green(color)),
                         static_cast<int>(Blue(color)));
    QColorDialog box(initial, Owner());
    if (box.exec() != QDialog::Accepted) return std::nullopt;
    const QColor chosen = box.selectedColor();
    return MakeColor(static_cast<std::uint32_t>(chosen.red()),
                     static_cast<std::uint32_t>(chosen.green()),
                     static_cast<std::uint32_t>(chosen.blue()));
}

std::optional<std::string> QtPrompts::Ask(QFileDialog& box, const FileDialog& dialog) {
    box.setWindowTitle(QString::fromStdString(dialog.title));
    box.setNameFilter(NameFilter(dialog));
    const bool saves = box.acceptMode() == QFileDialog::AcceptSave;
    const QString start = QString::fromStdString(dialog.initialFolder);
    const QString chosen = start.isEmpty() ? folder_ : start;
    // A desktop may start programs in the root folder; samples may lie where only root may save.
    const QString folder = chosen.isEmpty() ? QDir::currentPath() : chosen;
    const bool mayBeReadOnly = !saves && !chosen.isEmpty();
    box.setDirectory(mayBeReadOnly || CanHoldFiles(folder) ? folder : DocumentsFolder());
    const QString proposed = QString::fromStdString(dialog.proposedPath);
    if (!proposed.isEmpty()) box.selectFile(saves ? SavablePath(proposed) : proposed);
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return std::nullopt;
    const QString path = box.selectedFiles().constFirst();
    if (start.isEmpty()) folder_ = QFileInfo(path).absolutePath();
    return path.toStdString();
}

}  // namespace korvane
