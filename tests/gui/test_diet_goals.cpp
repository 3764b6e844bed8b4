// The Diet Goals dialog driven offscreen: the estimate from the typed profile, the planner's
// texts, and what OK and Cancel store.

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

#include "analysis/DietGoalsDialog.h"
#include "analysis/logic/DayRange.h"
#include "model/Clock.h"
#include "model/DateText.h"
#include "support/Builders.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::clickButton;
using test::retype;

namespace {

const std::vector<model::NutrientId> GoalList{208, 203, 204, 205, 291, 100, 101, 102};
const QString ChangeWeight = QStringLiteral("I wish to change my weight");

QString valueCell(QWidget* dialog, int row)
{
    return dialog->findChild<QTableWidget*>(QStringLiteral("goalGrid"))->item(row, 1)->text();
}

template <class T> T* child(QWidget* w, const char* name)
{
    return w->findChild<T*>(QString::fromLatin1(name));
}

} // namespace

class DietGoalsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;
    std::unique_ptr<test::TestContext> m_context;

    model::User& user() { return m_context->m_store.journal.user; }

private slots:
    void initTestCase() { test::keepSettingsIn(m_settings); }

    void init()
    {
        m_context = std::make_unique<test::TestContext>();
        model::Store& store = m_context->m_store;
        store.foods.setCatalogue(test::standardCatalogue());
        store.foods.catalogue().appendComputed();
        store.shared.userNames = {"Anna"};
        store.journal.user.goalNutrients = GoalList;
        store.journal.user.goalValues.clear();
    }

    void estimateFillsTheGridAndOkStoresIt_data()
    {
        // Typed: metric, age, weight, height (cm, or feet and inches); chosen: gender, life
        // stage, activity. Then the cells (energy, protein, fat, carbohydrate, fibre, shares), the
        // life-stage group and the stored height.
        QTest::addColumn<bool>("metric");
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<QList<int>>("chosen");
        QTest::addColumn<QString>("cells");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("storedHeight");
        // 154 lb is 70 kg at 1/2.2; 5 ft 9 in is 1.7526 m.
        QTest::newRow("imperial man")
            << false
            << QStringList{QStringLiteral("30"), QStringLiteral("154"), QStringLiteral("5"),
                           QStringLiteral("9")}
            << QList<int>{0, 0, 0} << QStringLiteral("2435.5 60.9 81.2 365.3 34.1 30 60 10") << 6
            << 69;
        // Third trimester: the group of women who are not pregnant, with 452 kcal more;
        // (726 x 1.65 + 9.36 x 60) x 1.12 + 452 + 354 - 6.91 x 25.
        QTest::newRow("third trimester")
            << true
            << QStringList{QStringLiteral("25"), QStringLiteral("60"), QStringLiteral("165")}
            << QList<int>{1, 3, 1} << QStringLiteral("2603.9 65.1 86.8 390.6 36.5 30 60 10") << 12
            << 165;
    }

    void estimateFillsTheGridAndOkStoresIt()
    {
        QFETCH(bool, metric);
        QFETCH(QStringList, typed);
        QFETCH(QList<int>, chosen);
        QFETCH(QString, cells);
        QFETCH(int, group);
        QFETCH(int, storedHeight);
        const QStringList expected = cells.split(QLatin1Char(' '));
        user().metric = metric ? 1 : 0;
        analysis::DietGoalsDialog dialog(*m_context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));

        // Every cell is empty while the goals were never set.
        for (int row = 0; row < static_cast<int>(GoalList.size()); ++row)
            QCOMPARE(valueCell(&dialog, row), QString());
        QCOMPARE(child<QSpinBox>(&dialog, "heightInches")->isVisible(), !metric);

        const char* boxes[] = {"age", "weight", "heightMain", "heightInches"};
        for (int i = 0; i < typed.size(); ++i)
            retype(child<QWidget>(&dialog, boxes[i]), typed[i]);
        const char* lists[] = {"gender", "lifeStage", "activity"};
        for (int i = 0; i < 3; ++i)
            test::chooseItem(child<QComboBox>(&dialog, lists[i]), chosen[i]);
        clickButton(&dialog, QStringLiteral("Estimate >>"));

        for (int row = 0; row < expected.size(); ++row)
            QCOMPARE(valueCell(&dialog, row), expected[row]);
        QCOMPARE(user().goalValues.size(), std::size_t(0)); // the estimate alone stores nothing
        QCOMPARE(m_context->modified, 0);

        clickButton(&dialog, QStringLiteral("OK"));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(m_context->modified, 1);
        QCOMPARE(user().goalNutrients, GoalList);
        QCOMPARE(user().goalValues.size(), GoalList.size());
        for (int row = 0; row < expected.size(); ++row)
            QCOMPARE(user().goalValues[static_cast<std::size_t>(row)], expected[row].toFloat());
        QCOMPARE(user().age, typed[0].toFloat());
        QCOMPARE(user().weight, typed[1].toFloat());
        QCOMPARE(user().height, storedHeight);
        QCOMPARE(int(user().gender), chosen[0]);
        QCOMPARE(int(user().lifeStageVariable), chosen[1]);
        QCOMPARE(int(user().activityLevel), chosen[2]);
        QCOMPARE(user().lifeStageGroup, group);
        QCOMPARE(user().isMetric(), metric);
    }

    void cancelStoresNothing()
    {
        user().goalValues = {2000, 50, 60, 300, 25, 30, 60, 10};
        const model::User before = user();
        analysis::DietGoalsDialog dialog(*m_context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(valueCell(&dialog, 0), QStringLiteral("2000.0"));
        QCOMPARE(valueCell(&dialog, 5), QStringLiteral("30.0"));

        retype(child<QLineEdit>(&dialog, "age"), QStringLiteral("44"));
        test::clickRadio(&dialog, ChangeWeight);
        clickButton(&dialog, QStringLiteral("Estimate >>"));
        QVERIFY(valueCell(&dialog, 0) != QStringLiteral("2000.0"));
        clickButton(&dialog, QStringLiteral("Cancel"));

        QCOMPARE(m_context->modified, 0);
        QCOMPARE(user().age, before.age);
        QCOMPARE(user().goalValues, before.goalValues);
        QCOMPARE(user().changeWeight, before.changeWeight);
    }

    void maleResetsTheLifeStage()
    {
        analysis::DietGoalsDialog dialog(*m_context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto* gender = child<QComboBox>(&dialog, "gender");
        auto* stage = child<QComboBox>(&dialog, "lifeStage");
        QVERIFY(!stage->isEnabled());
        test::chooseItem(gender, 1);
        QVERIFY(stage->isEnabled());
        test::chooseItem(stage, 4);
        test::chooseItem(gender, 0);
        QVERIFY(!stage->isEnabled());
        QCOMPARE(stage->currentIndex(), 0);

        // "Set Program..." follows the weight wish.
        QPushButton* program = test::buttonOf(&dialog, QStringLiteral("Set Program..."));
        QVERIFY(!program->isEnabled());
        test::clickRadio(&dialog, ChangeWeight);
        QVERIFY(program->isEnabled());
    }

    void plannerTextsAndAcceptedPlan_data()
    {
        QTest::addColumn<bool>("metric");
        QTest::addColumn<int>("days");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("plan");
        QTest::addColumn<QString>("difficultyStart");
        QTest::addColumn<float>("dailyChange");
        QTest::newRow("10 lb in 70 days")
            << false << 70 << QStringLiteral("180") << QStringLiteral("170")
            << QStringLiteral("You wish to diet from 180.0 to 170.0 pounds in 70 days.\nThis "
                              "requires a daily change of 500 calories.")
            << QStringLiteral("This is an easy diet.") << -500.0f;
        QTest::newRow("1 kg more in 7 days")
            << true << 7 << QStringLiteral("79") << QStringLiteral("80")
            << QStringLiteral("You wish to diet from 79.0 to 80.0 kg in 7 days.\nThis requires a "
                              "daily change of 1102 calories.")
            << QStringLiteral("This is a 'crash diet'") << 1102.0f;
    }

    void plannerTextsAndAcceptedPlan()
    {
        QFETCH(bool, metric);
        QFETCH(int, days);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, plan);
        QFETCH(QString, difficultyStart);
        QFETCH(float, dailyChange);
        user().metric = metric ? 1 : 0;
        analysis::DietGoalsDialog dialog(*m_context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        test::clickRadio(&dialog, ChangeWeight);

        const QDate first(2026, 3, 2);
        QString shownPlan, shownDifficulty, badDates;
        test::onNextModal([&](QWidget* planner) {
            QCOMPARE(planner->windowTitle(), QStringLiteral("Diet Planner"));
            auto* planText = child<QLabel>(planner, "planText");
            test::enterDate(child<QDateEdit>(planner, "startDate"), first);
            test::enterDate(child<QDateEdit>(planner, "endDate"), first);
            retype(child<QLineEdit>(planner, "startWeight"), start);
            retype(child<QLineEdit>(planner, "endWeight"), end);
            // Same day: refused with the message, the prompt stays.
            test::onNextModal([&](QWidget* box) {
                badDates = qobject_cast<QMessageBox*>(box)->text();
                QTest::keyClick(box, Qt::Key_Return);
            });
            clickButton(planner, QStringLiteral("Calculate Diet"));
            QVERIFY(planText->text().startsWith(QStringLiteral("Press the calculate button")));

            test::enterDate(child<QDateEdit>(planner, "endDate"), first.addDays(days));
            clickButton(planner, QStringLiteral("Calculate Diet"));
            shownPlan = planText->text();
            shownDifficulty = child<QLabel>(planner, "difficultyText")->text();
            clickButton(planner, QStringLiteral("Accept Diet"));
        });
        clickButton(&dialog, QStringLiteral("Set Program..."));

        QCOMPARE(badDates, ui::messageText(ui::MsgEndDateBeforeStart));
        QCOMPARE(shownPlan, plan);
        QVERIFY2(shownDifficulty.startsWith(difficultyStart), qPrintable(shownDifficulty));
        QCOMPARE(user().changeWeight, std::uint8_t(0)); // not before OK

        clickButton(&dialog, QStringLiteral("OK"));
        QCOMPARE(user().changeWeight, std::uint8_t(1));
        QCOMPARE(user().dailyChange, dailyChange);
        QCOMPARE(user().planStartWeight, start.toFloat());
        QCOMPARE(user().planEndWeight, end.toFloat());
        QCOMPARE(model::CalendarDate::fromTime(user().planStart),
                 (model::CalendarDate{2026, 3, 2}));
        const QDate last = first.addDays(days);
        QCOMPARE(model::CalendarDate::fromTime(user().planEnd),
                 (model::CalendarDate{last.year(), last.month(), last.day()}));
    }

    void bodyGoalsStoreTheTypedNumbers()
    {
        user().bodyGoals = {15, 46, 40, 32, 31, 38, 14, 11, 22, 15};
        const auto before = user().bodyGoals;
        analysis::DietGoalsDialog dialog(*m_context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));

        // Cancel keeps the goals; OK with a box that is not a number stays open on the message.
        test::onNextModal([&](QWidget* body) {
            QCOMPARE(body->windowTitle(), QStringLiteral("Set Body Goals"));
            retype(child<QLineEdit>(body, "bodyGoal2"), QStringLiteral("41"));
            clickButton(body, QStringLiteral("Cancel"));
        });
        clickButton(&dialog, QStringLiteral("Set >>"));
        QCOMPARE(user().bodyGoals, before);

        bool refused = false;
        test::onNextModal([&](QWidget* body) {
            QCOMPARE(child<QLineEdit>(body, "bodyGoal0")->text(), QStringLiteral("15"));
            retype(child<QLineEdit>(body, "bodyGoal0"), QStringLiteral("15.5"));
            retype(child<QLineEdit>(body, "bodyGoal9"), QStringLiteral("x"));
            test::onNextModal([&](QWidget* box) {
                refused = true;
                QTest::keyClick(box, Qt::Key_Return);
                test::onNextModal([&](QWidget* again) {
                    retype(child<QLineEdit>(again, "bodyGoal9"), QStringLiteral("16"));
                    clickButton(again, QStringLiteral("OK"));
                });
            });
            clickButton(body, QStringLiteral("OK"));
        });
        clickButton(&dialog, QStringLiteral("Set >>"));
        QVERIFY(refused);
        QCOMPARE(user().bodyGoals[0], 15.5f);
        QCOMPARE(user().bodyGoals[9], 16.0f);
        QCOMPARE(user().bodyGoals[2], before[2]);
    }

    void measuredNeedFromTheJournal()
    {
        // Four weeks of 2000 kcal a day while losing 400 kcal's worth of weight a day: 2400 kcal
        // a day keep the weight. The first nine days only are logged at first.
        const model::CalendarDate today{2026, 5, 31};
        const model::FixedClock clock(today.toTime() + 12 * 3600);
        model::Store& store = m_context->m_store;
        store.foods.addFood(
            test::FoodBuilder(test::standardCatalogue(), 1001, "Food").value(208, 100.0f));
        const auto journalOf = [&](int days) {
            store.journal.days.clear();
            for (int ago = days - 1; ago >= 0; --ago) {
                const model::TimeT date =
                    analysis::dateOfDayNumber(today.dayNumber() - ago).toTime();
                model::JournalDay day = test::dayWithMeal(date, 0, {{1001, 20.0f}});
                if (ago % 3 == 0)
                    day.health.weight = static_cast<float>(176.0 + ago * 400.0 / 3500.0);
                store.journal.days.push_back(day);
            }
        };
        const auto label = [](QWidget* dialog) {
            return child<QLabel>(dialog, "measuredEnergy")->text();
        };

        journalOf(9);
        {
            analysis::DietGoalsDialog thin(*m_context);
            QVERIFY(label(&thin).contains(QStringLiteral("Too few days with meals: 9")));
            QVERIFY(!thin.useMeasuredButton()->isEnabled());
        }

        journalOf(28);
        analysis::DietGoalsDialog dialog(*m_context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(label(&dialog).contains(QStringLiteral("<b>2400 kcal</b> a day")));
        // Energy and what follows from it (the measure's own cells); the shares stay empty.
        test::click(dialog.useMeasuredButton());
        QCOMPARE(valueCell(&dialog, 0), QStringLiteral("2400.0"));
        QCOMPARE(valueCell(&dialog, 5), QString());

        // The planner tells what its daily change leaves to eat against the measured need.
        test::clickRadio(&dialog, ChangeWeight);
        QString measuredText;
        test::onNextModal([&](QWidget* planner) {
            test::enterDate(child<QDateEdit>(planner, "startDate"), QDate(2026, 6, 1));
            test::enterDate(child<QDateEdit>(planner, "endDate"), QDate(2026, 8, 10));
            retype(child<QLineEdit>(planner, "startWeight"), QStringLiteral("176"));
            retype(child<QLineEdit>(planner, "endWeight"), QStringLiteral("166"));
            clickButton(planner, QStringLiteral("Calculate Diet"));
            measuredText = child<QLabel>(planner, "measuredText")->text();
            clickButton(planner, QStringLiteral("Cancel"));
        });
        clickButton(&dialog, QStringLiteral("Set Program..."));
        QCOMPARE(measuredText,
                 QStringLiteral("Against the 2400 kcal a day measured from your journal, "
                                "this means eating about 1900 kcal a day."));
    }
};

QTEST_MAIN(DietGoalsTest)
#include "test_diet_goals.moc"
