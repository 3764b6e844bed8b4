// The graphs page driven offscreen: curves with their own axes, the texts shown in place of the
// graph, the diet plan against the recorded weight, and the analysis table.

#include <QAbstractAxis>
#include <QChart>
#include <QCheckBox>
#include <QLabel>
#include <QLegend>
#include <QMessageBox>
#include <QLineSeries>
#include <QtTest>

#include "analysis/GraphView.h"
#include "analysis/GraphsPage.h"
#include "analysis/logic/GraphSeries.h"
#include "analysis/logic/NutritionAnalysis.h"
#include "model/Clock.h"
#include "support/Builders.h"
#include "GuiTestSupport.h"

using namespace velmora;
using analysis::GraphsPage;
using test::clickRadio;

namespace {

model::TimeT timeOf(int day)
{
    return model::CalendarDate{2026, 3, day}.toTime();
}

// Clicks an item of the pop-up menu that the button opens, as the mouse would.
void chooseFromMenu(QPushButton* button, const QString& item)
{
    QVERIFY(button != nullptr && button->isEnabled());
    bool chosen = false;
    QTimer::singleShot(50, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr);
        for (QAction* a : menu->actions())
            if (a->text() == item) {
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(a).center());
                chosen = true;
                return;
            }
        menu->close();
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY2(chosen, qPrintable(item));
}

// The text of the next message box, answered with Return.
void readNextMessage(QString& text)
{
    test::onNextModal([&text](QWidget* box) {
        text = qobject_cast<QMessageBox*>(box)->text();
        QTest::keyClick(box, Qt::Key_Return);
    });
}

} // namespace

class GraphsPageTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;
    std::unique_ptr<test::TestContext> m_context;
    std::unique_ptr<GraphsPage> m_page;

    void setRange(int fromDay, int toDay)
    {
        test::enterDate(m_page->findChild<QDateEdit*>(QStringLiteral("from")), {2026, 3, fromDay});
        test::enterDate(m_page->findChild<QDateEdit*>(QStringLiteral("to")), {2026, 3, toDay});
    }
    QPushButton* button(const QString& text) { return test::buttonOf(m_page.get(), text); }
    QLabel* graphText() { return m_page->findChild<QLabel*>(QStringLiteral("graphText")); }

private slots:
    void initTestCase() { test::keepSettingsIn(m_settings); }

    void init()
    {
        m_context = std::make_unique<test::TestContext>();
        model::Store& store = m_context->m_store;
        const auto catalogue = test::standardCatalogue();
        store.foods.setCatalogue(catalogue);
        store.foods.catalogue().appendComputed();
        store.foods.addFood(test::FoodBuilder(catalogue, 1001)
                                .value(208, 100.0f)
                                .value(203, 10.0f)
                                .value(204, 2.0f));
        store.shared.userNames = {"Anna"};
        // Meals of 2500 and 2200 kcal on the 2nd and 4th; weights on the 2nd, 5th and 9th.
        store.journal.days.push_back(test::dayWithMeal(timeOf(2), 0, {{1001, 25.0f}}));
        store.journal.days.push_back(test::dayWithMeal(timeOf(4), 0, {{1001, 22.0f}}));
        for (auto [day, weight] : {std::pair{2, 180.0f}, {5, 178.5f}, {9, 177.0f}}) {
            model::JournalDay* d = store.journal.findDay(timeOf(day));
            if (d == nullptr) {
                d = &store.journal.days.emplace_back();
                d->date = timeOf(day);
            }
            d->health.weight = weight;
        }
        store.journal.user.goalNutrients = {208, 203, 100};
        store.journal.user.goalValues = {2000.0f, 50.0f, 30.0f};

        m_page = std::make_unique<GraphsPage>(*m_context);
        m_page->resize(1000, 700);
        m_page->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
        m_page->refreshPage();
    }

    void cleanup() { m_page.reset(); }

    void eachCurveGetsAnAxisInItsColour()
    {
        QVERIFY(!button(QStringLiteral("Nutrient"))->isEnabled()); // "Nutrient Goals" is first
        clickRadio(m_page.get(), QStringLiteral("Advanced Graphing"));
        setRange(1, 8);
        analysis::GraphView* graph = m_page->graph();
        QCOMPARE(graph->curveCount(), 1);
        QCOMPARE(graph->curve(0)->count(), 7); // the base curve: a point a day, the 1st to the 7th
        QVERIFY(!graph->isVisible());          // nothing to look at before the first curve

        chooseFromMenu(button(QStringLiteral("Nutrient")), QStringLiteral("Energy"));
        chooseFromMenu(button(QStringLiteral("Health")), QStringLiteral("Weight"));
        chooseFromMenu(button(QStringLiteral("Nutrient")), QStringLiteral("Protein"));
        QCOMPARE(graph->curveCount(), 4);
        QVERIFY(graph->isVisible());

        // Meals on the 2nd and 4th, weights on the 2nd and 5th: two points each.
        const QStringList labels{QStringLiteral("Energy"), QStringLiteral("Weight"),
                                 QStringLiteral("Protein")};
        QSet<QAbstractAxis*> axes;
        QSet<QRgb> colours;
        for (int i = 1; i <= 3; ++i) {
            QLineSeries* curve = graph->curve(i);
            QAbstractAxis* axis = graph->yAxis(i);
            QCOMPARE(curve->name(), labels[i - 1]);
            QCOMPARE(curve->count(), 2);
            QVERIFY(axis->isVisible());
            QCOMPARE(axis->linePenColor(), curve->color());
            QCOMPARE(axis->labelsColor(), curve->color());
            QVERIFY(curve->attachedAxes().contains(axis));
            axes.insert(axis);
            colours.insert(curve->color().rgb());
        }
        QCOMPARE(axes.size(), 3);
        QCOMPARE(colours.size(), 3);
        QCOMPARE(graph->curve(1)->at(0).y(), 2500.0);

        QVERIFY(!graph->chart()->legend()->isVisible());
        test::click(m_page->findChild<QCheckBox*>());
        QVERIFY(graph->chart()->legend()->isVisible());

        test::clickButton(m_page.get(), QStringLiteral("Clear"));
        QCOMPARE(graph->curveCount(), 1);
        QVERIFY(graphText()->isVisible());
    }

    void textsShownInPlaceOfTheGraph_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("fromDay");
        QTest::addColumn<int>("toDay");
        QTest::addColumn<QString>("text");
        const QString advanced = QStringLiteral("Advanced Graphing");
        const QString invalid = QString::fromUtf8(analysis::InvalidRangeText);
        QTest::newRow("same day") << advanced << 5 << 5 << invalid;
        QTest::newRow("from after to") << advanced << 9 << 3 << invalid;
        QTest::newRow("no diet plan") << QStringLiteral("Diet Plan and Progress") << 1 << 9
                                      << QString::fromUtf8(analysis::NoDietPlanText);
    }

    void textsShownInPlaceOfTheGraph()
    {
        QFETCH(QString, mode);
        QFETCH(int, fromDay);
        QFETCH(int, toDay);
        QFETCH(QString, text);
        setRange(fromDay, toDay);
        clickRadio(m_page.get(), mode);
        QVERIFY(graphText()->isVisible());
        QVERIFY(!m_page->graph()->isVisible());
        QCOMPARE(graphText()->text(), text);
    }

    void noDataKeepsTheCurvesShown()
    {
        clickRadio(m_page.get(), QStringLiteral("Advanced Graphing"));
        setRange(5, 8); // a weight on the 5th, no meal
        chooseFromMenu(button(QStringLiteral("Health")), QStringLiteral("Weight"));
        QCOMPARE(m_page->graph()->curveCount(), 2);
        QString message;
        readNextMessage(message);
        chooseFromMenu(button(QStringLiteral("Nutrient")), QStringLiteral("Energy"));
        QCOMPARE(message, QString::fromUtf8(analysis::NotEnoughDataText));
        QCOMPARE(m_page->graph()->curveCount(), 2);
        QVERIFY(m_page->graph()->isVisible());
    }

    void analysisTableOfTheRange()
    {
        auto* table = m_page->findChild<QTreeWidget*>(QStringLiteral("analysisTable"));
        setRange(1, 10);
        QVERIFY(table->isVisible());
        QVERIFY(!m_page->graph()->isVisible());
        QCOMPARE(table->topLevelItemCount(), 3);
        const QStringList energy{QStringLiteral("Energy"), QStringLiteral("2350.0"),
                                 QStringLiteral("2000.0"), QStringLiteral("0.2 lbs *")};
        for (int c = 0; c < 4; ++c)
            QCOMPARE(table->topLevelItem(0)->text(c), energy[c]);
        QCOMPARE(table->topLevelItem(2)->text(3), QStringLiteral("-"));

        // The 3rd to the 10th holds one day with a meal.
        setRange(3, 10);
        QCOMPARE(table->topLevelItem(0)->text(1), QStringLiteral("2200.0"));

        // Goals never set: the message, and no rows.
        m_context->m_store.journal.user.goalValues.clear();
        QString shown;
        readNextMessage(shown);
        setRange(2, 10);
        QCOMPARE(shown, QString::fromUtf8(analysis::GoalsNotSetText));
        QCOMPARE(table->topLevelItemCount(), 0);
        QVERIFY(m_page->findChild<QLabel*>(QStringLiteral("analysisMessage"))->isVisible());
    }

    void trendAndQuickRanges()
    {
        const model::FixedClock clock(timeOf(10) + 12 * 3600);
        clickRadio(m_page.get(), QStringLiteral("Advanced Graphing"));
        setRange(1, 10);
        chooseFromMenu(button(QStringLiteral("Health")), QStringLiteral("Weight"));
        chooseFromMenu(button(QStringLiteral("Nutrient")), QStringLiteral("Energy"));
        analysis::GraphView* graph = m_page->graph();
        QCOMPARE(graph->curveCount(), 3);

        // Trend adds the smoothed weight right after the weight, on its scale; energy gets none.
        test::click(m_page->trendBox());
        QCOMPARE(graph->curveCount(), 4);
        QCOMPARE(graph->curve(1)->name(), QStringLiteral("Weight"));
        QLineSeries* trend = graph->curve(2);
        QCOMPARE(trend->name(), QStringLiteral("Weight trend"));
        QCOMPARE(graph->yAxis(2), graph->yAxis(1));
        QCOMPARE(graph->curve(3)->name(), QStringLiteral("Energy"));
        QCOMPARE(trend->count(), 3);
        test::click(m_page->trendBox());
        QCOMPARE(graph->curveCount(), 3);
        QCOMPARE(graph->curve(2)->name(), QStringLiteral("Energy"));

        // The range buttons set From and To, ending today; the curves of the old range go.
        test::click(m_page->rangeButton(analysis::QuickRange::Week));
        QCOMPARE(m_page->from(), (model::CalendarDate{2026, 3, 3}));
        QCOMPARE(m_page->to(), (model::CalendarDate{2026, 3, 10}));
        QCOMPARE(graph->curveCount(), 1);
        test::click(m_page->rangeButton(analysis::QuickRange::All));
        QCOMPARE(m_page->from(), (model::CalendarDate{2026, 3, 2}));
        QCOMPARE(m_page->findChild<QDateEdit*>(QStringLiteral("from"))->date(), QDate(2026, 3, 2));

        // The diet plan's weight gets its trend too, and the plan, a blue line from the start
        // weight to the end weight, keeps the weight's scale; the plan fixes the dates, so the
        // range buttons, the date pickers and the nutrient menu rest.
        model::User& user = m_context->m_store.journal.user;
        user.changeWeight = 1;
        user.planStart = timeOf(1);
        user.planEnd = timeOf(31);
        user.planStartWeight = 181.0f;
        user.planEndWeight = 171.0f;
        test::click(m_page->trendBox());
        clickRadio(m_page.get(), QStringLiteral("Diet Plan and Progress"));
        QCOMPARE(graph->curveCount(), 4);
        QCOMPARE(graph->curve(2)->name(), QStringLiteral("Weight trend"));
        QCOMPARE(graph->curve(1)->count(), 3);
        QLineSeries* plan = graph->curve(3);
        QCOMPARE(plan->name(), QStringLiteral("Plan"));
        QCOMPARE(plan->color(), QColor(Qt::blue));
        QCOMPARE(plan->count(), 2);
        QCOMPARE(plan->at(0).y(), 181.0);
        QCOMPARE(plan->at(1).y(), 171.0);
        QCOMPARE(graph->yAxis(3), graph->yAxis(1));
        QVERIFY(graph->yAxis(1)->isVisible());
        auto* from = m_page->findChild<QDateEdit*>(QStringLiteral("from"));
        auto* to = m_page->findChild<QDateEdit*>(QStringLiteral("to"));
        QCOMPARE(from->date(), QDate(2026, 3, 1));
        QCOMPARE(to->date(), QDate(2026, 3, 31));
        QVERIFY(!from->isEnabled() && !to->isEnabled());
        QVERIFY(!button(QStringLiteral("Nutrient"))->isEnabled());
        QVERIFY(!m_page->rangeButton(analysis::QuickRange::Year)->isEnabled());
    }
};

QTEST_MAIN(GraphsPageTest)
#include "test_graphs_page.moc"
