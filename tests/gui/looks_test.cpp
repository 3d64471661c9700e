// Every window and dialog: its controls have names, an order and keys of their own, and a larger
// font cuts nothing off.
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QSet>
#include <QTabBar>
#include <functional>

#include "EditingFixture.h"
#include "app/frmArbitrarySize.h"
#include "app/frmExportSourceCode.h"
#include "app/frmFreeRotate.h"
#include "app/frmMultiply.h"
#include "app/frmOptimize.h"
#include "app/frmPreferences.h"
#include "app/frmSelect.h"
#include "app/frmStartUp.h"
#include "app/frmStats.h"
#include "scene/mSelection.h"

namespace korvane::test {
namespace {

class LooksTest : public EditingTest {
  protected:
    template <class Form>
    std::unique_ptr<QWidget> Make() {
        return std::make_unique<Form>(Session(), window.get());
    }

    /// Calls `check` for the main window with a selection and for each dialog, once a page.
    void ForEachForm(const std::function<void(QWidget&)>& check) {
        for (Brush& brush : Session().scene.brushes) brush.selected = true;
        BrushAt(0).faces[0].texture = 1;  // "*Multiple Textures*"
        RefreshAll(Session());
        ForEachPage(*window, check);
        const std::function<std::unique_ptr<QWidget>()> forms[] = {
            [&] { return Make<frmArbitrarySize>(); },
            [&] { return Make<frmFreeRotate>(); },
            [&] { return Make<frmMultiply>(); },
            [&] { return Make<frmPreferences>(); },
            [&] { return Make<frmSelect>(); },
            [&] { return Make<frmStats>(); },
            [&] { return Make<frmExportSourceCode>(); },
            [&] {
                return std::make_unique<frmOptimize>(Session(), window->Context(), window.get());
            },
            [&] {
                auto form = std::make_unique<frmStartUp>(PathOf("other.log"), window.get());
                form->AddText("        INFO_OpenGL_Renderer: llvmpipe (LLVM 15.0.6, 256 bits)");
                return form;
            }};
        for (const auto& make : forms) {
            const std::unique_ptr<QWidget> form = make();
            form->setAttribute(Qt::WA_DeleteOnClose, false);
            form->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
            ForEachPage(*form, check);
            form->close();
        }
    }

    void ForEachPage(QWidget& form, const std::function<void(QWidget&)>& check) {
        const auto tabs = form.findChildren<QTabBar*>();
        ASSERT_LE(tabs.size(), 1);
        for (int page = 0; page < (tabs.empty() ? 1 : tabs[0]->count()); ++page) {
            if (!tabs.empty()) tabs[0]->setCurrentIndex(page);
            QTest::qWait(20);
            SCOPED_TRACE(form.objectName().toStdString() + ", page " + std::to_string(page));
            check(form);
        }
    }

    /// What a page shows.
    static QWidgetList Seen(QWidget& form) {
        QWidgetList seen;
        for (QWidget* part : form.findChildren<QWidget*>())
            if (part->isVisible() && part->window() == &form) seen.append(part);
        return seen;
    }
};

std::string NameOf(const QWidget* part) {
    return std::string(part->metaObject()->className()) + " " + part->objectName().toStdString();
}

QString TextOf(const QWidget* part) {
    if (const auto* label = qobject_cast<const QLabel*>(part)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(part)) return button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(part)) return group->title();
    return {};
}

bool IsUsed(const QWidget* part) {
    const QString name = part->objectName();
    if (name.startsWith("qt_") || part->focusProxy() != nullptr) return false;
    return part->focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(part) ||
           qobject_cast<const QAbstractSlider*>(part) || name.startsWith("pb") ||
           name == "SplitGrip";
}

/// Whether a reader who comes from the one finds the other behind it: below, in the same row to the
/// right, or in the next column.
bool FollowsInReading(const QRect& before, const QRect& next) {
    const bool above = next.bottom() < before.top() && next.left() <= before.right();
    const bool sameRow = next.top() <= before.bottom() && next.bottom() >= before.top();
    return !above && !(sameRow && next.right() < before.left());
}

void ExpectReadingOrder(QWidget& form) {
    QWidget* before = nullptr;
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
        const bool stop = next->isVisible() && (next->focusPolicy() & Qt::TabFocus) &&
                          next->focusProxy() == nullptr && next->isEnabled();
        if (!stop) continue;
        const auto place = [&](const QWidget* part) {
            return QRect(part->mapTo(&form, QPoint()), part->size());
        };
        if (before != nullptr) {
            EXPECT_TRUE(FollowsInReading(place(before), place(next)))
                << NameOf(next) << " follows " << NameOf(before);
        }
        before = next;
    }
}

TEST_F(LooksTest, EveryControlHasANameItsPlaceAndItsOwnKey) {
    ForEachForm([](QWidget& form) {
        QSet<QString> keys;
        for (QWidget* part : Seen(form)) {
            const auto* spoken = QAccessible::queryAccessibleInterface(part);
            ASSERT_NE(spoken, nullptr);
            EXPECT_TRUE(!IsUsed(part) || !spoken->text(QAccessible::Name).isEmpty())
                << NameOf(part) << " has no name";
            const QString key = QKeySequence::mnemonic(TextOf(part)).toString();
            EXPECT_TRUE(key.isEmpty() || !keys.contains(key)) << NameOf(part) << " has a key twice";
            keys.insert(key);
        }
        if (form.isModal() || qobject_cast<QDialog*>(&form)) ExpectReadingOrder(form);
    });
}

class LargeFontTest : public LooksTest {
  protected:
    void SetUp() override {
        QFont larger = usual_;
        larger.setPointSizeF(usual_.pointSizeF() * 1.25);
        QApplication::setFont(larger);
        LooksTest::SetUp();
    }
    void TearDown() override {
        window.reset();
        QApplication::setFont(usual_);
    }

  private:
    const QFont usual_ = QApplication::font();
};

/// Pixels that the text of a control needs; empty for one that shows none.
QSize Needed(const QWidget* part) {
    if (const auto* box = qobject_cast<const QLineEdit*>(part)) {
        constexpr int kFrame = 8;
        const int text = box->fontMetrics().horizontalAdvance(box->text());
        return {text > 0 ? text + kFrame : 0, box->fontMetrics().height()};
    }
    if (const auto* label = qobject_cast<const QLabel*>(part)) {
        if (label->text().isEmpty()) return {};
        if (label->wordWrap()) return {0, label->heightForWidth(label->width())};
        return label->minimumSizeHint();
    }
    if (qobject_cast<const QTabBar*>(part)) return part->sizeHint();
    return TextOf(part).isEmpty() ? QSize() : part->minimumSizeHint();
}

TEST_F(LargeFontTest, NothingIsCutOff) {
    ForEachForm([](QWidget& form) {
        for (QWidget* part : Seen(form)) {
            const QSize needed = Needed(part);
            const QSize given(part->visibleRegion().boundingRect().width(), part->height());
            EXPECT_TRUE(needed.width() <= given.width() && needed.height() <= given.height())
                << NameOf(part) << " \"" << TextOf(part).toStdString() << "\" needs "
                << needed.width() << "x" << needed.height() << ", has " << given.width() << "x"
                << given.height();
        }
    });
}

}  // namespace
}  // namespace korvane::test
