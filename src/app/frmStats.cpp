#include "app/frmStats.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <vector>

#include "base/NumberText.h"
#include "base/Rounding.h"

namespace korvane {
namespace {

constexpr int kCaptionWidth = 110;  // pixels, the same in all sections
constexpr int kValueWidth = 90;
constexpr int kFullBar = 200;
constexpr int kBarHeight = 10;

struct Row {
    const char* caption;
    Statistic statistic;
};

struct Section {
    const char* title;
    std::vector<Row> rows;
};

const std::vector<Section>& Sections() {
    static const std::vector<Section> sections = {
        {"Brushes",
         {{"Total:", BrushTotal},
          {"Box:", BoxBrushes},
          {"Cone:", ConeBrushes},
          {"Sphere:", SphereBrushes}}},
        {"Faces",
         {{"Total:", FaceTotal},
          {"Invisible:", InvisibleFaces},
          {"Transparent:", TransparentFaces},
          {"Global Coords:", GlobalCoordFaces},
          {"Local Coords:", LocalCoordFaces}}},
        {"", {{"Total Vertices:", VertexTotal}}},
        {"Polygons", {{"Total:", TriangleTotal}, {"Visible:", VisibleTriangles}}},
        {"Textures", {{"Used:", UsedTextures}, {"Total:", TextureTotal}}},
    };
    return sections;
}

QString NameOf(const char* array, const char* ownName, Statistic statistic) {
    if (statistic == TextureTotal) return ownName;
    return QString("%1_%2").arg(array).arg(statistic);
}

}  // namespace

frmStats::frmStats(const Editor& editor, QWidget* parent)
    : QDialog(parent), statistics_(CountStatistics(editor.scene, editor.textures)) {
    setObjectName("frmStats");
    setWindowTitle("Object Statistics...");
    auto* column = new QVBoxLayout(this);
    for (const Section& section : Sections()) {
        auto* box = new QGroupBox(section.title, this);
        auto* rows = new QGridLayout(box);
        rows->setColumnMinimumWidth(0, kCaptionWidth);
        rows->setColumnMinimumWidth(1, kValueWidth);
        rows->setHorizontalSpacing(12);
        for (const Row& row : section.rows) AddRow(*rows, row.caption, row.statistic);
        column->addWidget(box);
    }
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* btnOkay = buttons->addButton("Okay", QDialogButtonBox::AcceptRole);
    btnOkay->setObjectName("btnOkay");
    btnOkay->setDefault(true);
    connect(btnOkay, &QPushButton::clicked, this, &QDialog::accept);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void frmStats::AddRow(QGridLayout& rows, const char* caption, Statistic statistic) {
    const int row = rows.rowCount();
    auto* lblValue = new QLabel(QString::fromStdString(FormatGrouped(statistics_[statistic])));
    lblValue->setObjectName(NameOf("lblValue", "lblTextureTotal", statistic));
    lblValue->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows.addWidget(new QLabel(caption), row, 0);
    rows.addWidget(lblValue, row, 1);
    const QString barName = NameOf("lblGraph", "lblTextureTotalGraph", statistic);
    rows.addWidget(MakeBar(barName, BarsOf(statistics_)[statistic]), row, 2);
}

/// The bar in its trough, which is as wide as a bar can get.
QWidget* frmStats::MakeBar(const QString& name, double share) {
    auto* trough = new QFrame(this);
    trough->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    const int frame = trough->frameWidth();
    trough->setFixedSize(kFullBar + 2 * frame, kBarHeight + 2 * frame);
    auto* bar = new QLabel(trough);
    bar->setObjectName(name);
    bar->setAutoFillBackground(true);
    bar->setBackgroundRole(QPalette::Highlight);
    bar->setGeometry(frame, frame, RoundToInt(share * kFullBar), kBarHeight);
    return trough;
}

}  // namespace korvane
