#include "app/frmStartUp.h"

#include <QCoreApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace korvane {
namespace {

constexpr int kWidth = 600;  // pixels, or what such a line needs
constexpr const char* kLongLine =
    "        INFO_OpenGL_Version: 4.5 (Compatibility Profile) Mesa 22.3.6, and a margin behind it";
constexpr int kPaintInterval = 16;  // milliseconds; the log has hundreds of lines

}  // namespace

frmStartUp::frmStartUp(const std::string& logPath, QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), lines_(logPath) {
    setObjectName("frmStartUp");
    setWindowTitle("Korvane");
    auto* column = new QVBoxLayout(this);
    column->setSpacing(2);
    for (int i = 0; i < StartUpLines::kVisible; ++i) {
        lblText_[i] = new QLabel(this);
        lblText_[i]->setObjectName(QString("lblText%1").arg(i));
        lblText_[i]->setTextFormat(Qt::PlainText);
        lblText_[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        column->addWidget(lblText_[i]);
    }
    setFixedSize(std::max(kWidth, fontMetrics().horizontalAdvance(kLongLine)), sizeHint().height());
    move(screen()->availableGeometry().center() - rect().center());
}

void frmStartUp::AddText(const std::string& text) {
    lines_.AddText(text);
    ShowLines();
}

void frmStartUp::AppendText(const std::string& text) {
    lines_.AppendText(text);
    ShowLines();
}

void frmStartUp::ShowLines() {
    for (int i = 0; i < StartUpLines::kVisible; ++i) {
        lblText_[i]->setText(QString::fromStdString(lines_.Visible()[i]));
    }
    if (sincePaint_.isValid() && sincePaint_.elapsed() < kPaintInterval) return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    sincePaint_.start();
}

void frmStartUp::closeEvent(QCloseEvent* event) {
    lines_.Close();
    QWidget::closeEvent(event);
}

}  // namespace korvane
