#include "widgets/ucToolBar.h"

#include <QAction>
#include <QEvent>
#include <QToolButton>

namespace korvane {
namespace {

constexpr int kIconSize = 24;
constexpr const char* kLongText = "longText";

}  // namespace

ucToolBar::ucToolBar(const QString& name, const QString& title, QWidget* parent)
    : QToolBar(title, parent) {
    setObjectName(name);
    setMovable(false);
    setIconSize(QSize(kIconSize, kIconSize));
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void ucToolBar::AddButton(int index, QAction* action, const QString& longText) {
    addAction(action);
    auto* button = qobject_cast<QToolButton*>(widgetForAction(action));
    button->setObjectName(QString("%1_%2").arg(objectName()).arg(index));
    button->setProperty(kLongText, longText);
    button->setAccessibleDescription(longText);
    button->installEventFilter(this);
    buttons_.resize(qMax(buttons_.size(), index + 1));
    buttons_[index] = button;
}

bool ucToolBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter) emit Hovered(watched->property(kLongText).toString());
    return QToolBar::eventFilter(watched, event);
}

}  // namespace korvane
