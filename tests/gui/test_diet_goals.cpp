// The Diet Goals dialog driven offscreen: the estimate from the typed profile, the planner's
// texts, and what OK and Cancel store.

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include "analysis/DietGoalsDialog.h"
#include "analysis/logic/DayRange.h"
#include "model/Clock.h"
#include "model/DateText.h"
#include "model/Store.h"
#include "model/User.h"
#include "support/Builders.h"
#include "GuiTestSupport.h"

using namespace velmora;

namespace {

const std::vector<model::NutrientId> GoalList{208, 203, 204, 205, 291, 100, 101, 102};

void typeInto(QWidget* box, const QString& text)
{
    QVERIFY(box != nullptr);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
}

// Moves a drop list to an item with the keyboard, from its first item.
void chooseItem(QComboBox* box, int index)
{
    QVERIFY(box != nullptr);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentIndex(), index);
}

void clickButton(QWidget* dialog, const QString& text)
{
    QPushButton* b = test::buttonOf(dialog, text);
    QVERIFY2(b != nullptr, qPrintable(text));
    QTest::mouseClick(b, Qt::LeftButton);
}

QString valueCell(QWidget* dialog, int row)
{
    auto* grid = dialog->findChild<QTableWidget*>(QStringLiteral("goalGrid"));
    return grid->item(row, 1)->text();
}

} // namespace

class DietGoalsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void estimateFillsTheGridAndOkStoresIt_data();
    void estimateFillsTheGridAndOkStoresIt();
    void cancelStoresNothing();
    void maleResetsTheLifeStage();
    void plannerTextsAndAcceptedPlan_data();
    void plannerTextsAndAcceptedPlan();
    void bodyGoalsStoreTheTypedNumbers();
    void measuredNeedFromTheJournal();

private:
    QTemporaryDir m_settings;
    std::unique_ptr<test::TestContext> m_context;
};

void DietGoalsTest::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
}

void DietGoalsTest::init()
{
    m_context = std::make_unique<test::TestContext>();
    model::Store& store = m_context->m_store;
    store.foods.setCatalogue(test::standardCatalogue());
    store.foods.catalogue().appendComputed();
    store.shared.userNames = {"Anna"};
    store.journal.user.goalNutrients = GoalList;
    store.journal.user.goalValues.clear();
}

void DietGoalsTest::estimateFillsTheGridAndOkStoresIt_data()
{
    QTest::addColumn<bool>("metric");
    QTest::addColumn<QString>("age");
    QTest::addColumn<QString>("weight");
    QTest::addColumn<int>("heightMain");
    QTest::addColumn<int>("inches");
    QTest::addColumn<int>("gender");
    QTest::addColumn<int>("lifeStage");
    QTest::addColumn<int>("activity");
    QTest::addColumn<QStringList>("cells"); // energy, protein, fat, carbohydrate, fibre, shares
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("storedHeight");

    // (539.6 x 1.75 + 15.91 x 70) + 662 - 9.53 x 30
    QTest::newRow("metric man") << true << QStringLiteral("30") << QStringLiteral("70") << 175 << 0
                                << 0 << 0 << 0
                                << QStringList{QStringLiteral("2434.1"), QStringLiteral("60.9"),
                                               QStringLiteral("81.1"),   QStringLiteral("365.1"),
                                               QStringLiteral("34.1"),   QStringLiteral("30"),
                                               QStringLiteral("60"),     QStringLiteral("10")}
                                << 6 << 175;
    // 154 lb is 70 kg at 1/2.2; 5 ft 9 in is 1.7526 m.
    QTest::newRow("imperial man") << false << QStringLiteral("30") << QStringLiteral("154") << 5
                                  << 9 << 0 << 0 << 0
                                  << QStringList{QStringLiteral("2435.5"), QStringLiteral("60.9"),
                                                 QStringLiteral("81.2"),   QStringLiteral("365.3"),
                                                 QStringLiteral("34.1"),   QStringLiteral("30"),
                                                 QStringLiteral("60"),     QStringLiteral("10")}
                                  << 6 << 69;
    // Third trimester: the group of women who are not pregnant, with 452 kcal more;
    // (726 x 1.65 + 9.36 x 60) x 1.12 + 452 + 354 - 6.91 x 25.
    QTest::newRow("third trimester")
        << true << QStringLiteral("25") << QStringLiteral("60") << 165 << 0 << 1 << 3 << 1
        << QStringList{QStringLiteral("2603.9"), QStringLiteral("65.1"), QStringLiteral("86.8"),
                       QStringLiteral("390.6"),  QStringLiteral("36.5"), QStringLiteral("30"),
                       QStringLiteral("60"),     QStringLiteral("10")}
        << 12 << 165;
    // 50 opens the group of 50 to 69.
    QTest::newRow("man of 50") << true << QStringLiteral("50") << QStringLiteral("70") << 175 << 0
                               << 0 << 0 << 0
                               << QStringList{QStringLiteral("2243.5"), QStringLiteral("56.1"),
                                              QStringLiteral("74.8"),   QStringLiteral("336.5"),
                                              QStringLiteral("31.4"),   QStringLiteral("30"),
                                              QStringLiteral("60"),     QStringLiteral("10")}
                               << 8 << 175;
}

void DietGoalsTest::estimateFillsTheGridAndOkStoresIt()
{
    QFETCH(bool, metric);
    QFETCH(QString, age);
    QFETCH(QString, weight);
    QFETCH(int, heightMain);
    QFETCH(int, inches);
    QFETCH(int, gender);
    QFETCH(int, lifeStage);
    QFETCH(int, activity);
    QFETCH(QStringList, cells);
    QFETCH(int, group);
    QFETCH(int, storedHeight);

    model::User& user = m_context->m_store.journal.user;
    user.metric = metric ? 1 : 0;
    analysis::DietGoalsDialog dialog(*m_context);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));

    // Every cell is empty while the goals were never set.
    for (int row = 0; row < static_cast<int>(GoalList.size()); ++row)
        QCOMPARE(valueCell(&dialog, row), QString());
    QCOMPARE(dialog.findChild<QSpinBox*>(QStringLiteral("heightInches"))->isVisible(), !metric);

    typeInto(dialog.findChild<QLineEdit*>(QStringLiteral("age")), age);
    typeInto(dialog.findChild<QLineEdit*>(QStringLiteral("weight")), weight);
    typeInto(dialog.findChild<QSpinBox*>(QStringLiteral("heightMain")),
             QString::number(heightMain));
    if (!metric)
        typeInto(dialog.findChild<QSpinBox*>(QStringLiteral("heightInches")),
                 QString::number(inches));
    chooseItem(dialog.findChild<QComboBox*>(QStringLiteral("gender")), gender);
    chooseItem(dialog.findChild<QComboBox*>(QStringLiteral("lifeStage")), lifeStage);
    chooseItem(dialog.findChild<QComboBox*>(QStringLiteral("activity")), activity);
    clickButton(&dialog, QStringLiteral("Estimate >>"));

    for (int row = 0; row < cells.size(); ++row)
        QCOMPARE(valueCell(&dialog, row), cells[row]);
    QCOMPARE(user.goalValues.size(), std::size_t(0)); // the estimate alone stores nothing
    QCOMPARE(m_context->modified, 0);

    clickButton(&dialog, QStringLiteral("OK"));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(m_context->modified, 1);
    QCOMPARE(user.goalNutrients, GoalList);
    QCOMPARE(user.goalValues.size(), GoalList.size());
    for (int row = 0; row < cells.size(); ++row)
        QCOMPARE(user.goalValues[static_cast<std::size_t>(row)], cells[row].toFloat());
    QCOMPARE(user.age, age.toFloat());
    QCOMPARE(user.weight, weight.toFloat());
    QCOMPARE(user.height, storedHeight);
    QCOMPARE(int(user.gender), gender);
    QCOMPARE(int(user.lifeStageVariable), lifeStage);
    QCOMPARE(int(user.activityLevel), activity);
    QCOMPARE(user.lifeStageGroup, group);
    QCOMPARE(user.isMetric(), metric);
}

void DietGoalsTest::cancelStoresNothing()
{
    model::User& user = m_context->m_store.journal.user;
    user.goalValues = {2000, 50, 60, 300, 25, 30, 60, 10};
    const model::User before = user;
    analysis::DietGoalsDialog dialog(*m_context);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(valueCell(&dialog, 0), QStringLiteral("2000.0"));
    QCOMPARE(valueCell(&dialog, 5), QStringLiteral("30.0"));

    typeInto(dialog.findChild<QLineEdit*>(QStringLiteral("age")), QStringLiteral("44"));
    for (QRadioButton* r : dialog.findChildren<QRadioButton*>())
        if (r->text() == QStringLiteral("I wish to change my weight"))
            QTest::mouseClick(r, Qt::LeftButton);
    clickButton(&dialog, QStringLiteral("Estimate >>"));
    QVERIFY(valueCell(&dialog, 0) != QStringLiteral("2000.0"));
    clickButton(&dialog, QStringLiteral("Cancel"));

    QCOMPARE(m_context->modified, 0);
    QCOMPARE(user.age, before.age);
    QCOMPARE(user.goalValues, before.goalValues);
    QCOMPARE(user.changeWeight, before.changeWeight);
}

void DietGoalsTest::maleResetsTheLifeStage()
{
    analysis::DietGoalsDialog dialog(*m_context);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto* gender = dialog.findChild<QComboBox*>(QStringLiteral("gender"));
    auto* stage = dialog.findChild<QComboBox*>(QStringLiteral("lifeStage"));
    QVERIFY(!stage->isEnabled());
    chooseItem(gender, 1);
    QVERIFY(stage->isEnabled());
    chooseItem(stage, 4);
    chooseItem(gender, 0);
    QVERIFY(!stage->isEnabled());
    QCOMPARE(stage->currentIndex(), 0);

    // "Set Program..." follows the weight wish.
    QPushButton* program = test::buttonOf(&dialog, QStringLiteral("Set Program..."));
    QVERIFY(!program->isEnabled());
    for (QRadioButton* r : dialog.findChildren<QRadioButton*>())
        if (r->text() == QStringLiteral("I wish to change my weight"))
            QTest::mouseClick(r, Qt::LeftButton);
    QVERIFY(program->isEnabled());
}

void DietGoalsTest::plannerTextsAndAcceptedPlan_data()
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
        << QStringLiteral("You wish to diet from 180.0 to 170.0 pounds in 70 days.\nThis requires "
                          "a daily change "
                          "of 500 calories.")
        << QStringLiteral("This is an easy diet.") << -500.0f;
    QTest::newRow("10 lb in 69 days")
        << false << 69 << QStringLiteral("170") << QStringLiteral("180")
        << QStringLiteral("You wish to diet from 170.0 to 180.0 pounds in 69 days.\nThis requires "
                          "a daily change "
                          "of 507 calories.")
        << QStringLiteral("This diet is possible for most people") << 507.0f;
    QTest::newRow("1 kg in 7 days") << true << 7 << QStringLiteral("80") << QStringLiteral("79")
                                    << QStringLiteral("You wish to diet from 80.0 to 79.0 kg in 7 "
                                                      "days.\nThis requires a daily change of 1102 "
                                                      "calories.")
                                    << QStringLiteral("This is a 'crash diet'") << -1102.0f;
}

void DietGoalsTest::plannerTextsAndAcceptedPlan()
{
    QFETCH(bool, metric);
    QFETCH(int, days);
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, plan);
    QFETCH(QString, difficultyStart);
    QFETCH(float, dailyChange);

    model::User& user = m_context->m_store.journal.user;
    user.metric = metric ? 1 : 0;
    analysis::DietGoalsDialog dialog(*m_context);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    for (QRadioButton* r : dialog.findChildren<QRadioButton*>())
        if (r->text() == QStringLiteral("I wish to change my weight"))
            QTest::mouseClick(r, Qt::LeftButton);

    const QDate first(2026, 3, 2);
    QString shownPlan, shownDifficulty, badDates;
    test::onNextModal([&](QWidget* planner) {
        QCOMPARE(planner->windowTitle(), QStringLiteral("Diet Planner"));
        auto* planText = planner->findChild<QLabel*>(QStringLiteral("planText"));
        auto* startDate = planner->findChild<QDateEdit*>(QStringLiteral("startDate"));
        auto* endDate = planner->findChild<QDateEdit*>(QStringLiteral("endDate"));
        startDate->setDate(first);
        endDate->setDate(first);
        typeInto(planner->findChild<QLineEdit*>(QStringLiteral("startWeight")), start);
        typeInto(planner->findChild<QLineEdit*>(QStringLiteral("endWeight")), end);
        // Same day: refused with the message, the prompt stays.
        test::onNextModal([&](QWidget* box) {
            badDates = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->text();
            QTest::keyClick(box, Qt::Key_Return);
        });
        clickButton(planner, QStringLiteral("Calculate Diet"));
        QVERIFY(planText->text().startsWith(QStringLiteral("Press the calculate button")));

        endDate->setDate(first.addDays(days));
        clickButton(planner, QStringLiteral("Calculate Diet"));
        shownPlan = planText->text();
        shownDifficulty = planner->findChild<QLabel*>(QStringLiteral("difficultyText"))->text();
        clickButton(planner, QStringLiteral("Accept Diet"));
    });
    clickButton(&dialog, QStringLiteral("Set Program..."));

    QCOMPARE(badDates, QStringLiteral("The end date must be later than the start date."));
    QCOMPARE(shownPlan, plan);
    QVERIFY2(shownDifficulty.startsWith(difficultyStart), qPrintable(shownDifficulty));
    QCOMPARE(user.changeWeight, std::uint8_t(0)); // not before OK

    clickButton(&dialog, QStringLiteral("OK"));
    QCOMPARE(user.changeWeight, std::uint8_t(1));
    QCOMPARE(user.dailyChange, dailyChange);
    QCOMPARE(user.planStartWeight, start.toFloat());
    QCOMPARE(user.planEndWeight, end.toFloat());
    QCOMPARE(model::CalendarDate::fromTime(user.planStart), (model::CalendarDate{2026, 3, 2}));
    const QDate last = first.addDays(days);
    QCOMPARE(model::CalendarDate::fromTime(user.planEnd),
             (model::CalendarDate{last.year(), last.month(), last.day()}));
}

void DietGoalsTest::bodyGoalsStoreTheTypedNumbers()
{
    model::User& user = m_context->m_store.journal.user;
    user.bodyGoals = {15, 46, 40, 32, 31, 38, 14, 11, 22, 15};
    const auto before = user.bodyGoals;
    analysis::DietGoalsDialog dialog(*m_context);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));

    // Cancel keeps the goals; OK with a box that is not a number stays open on the message.
    test::onNextModal([&](QWidget* body) {
        QCOMPARE(body->windowTitle(), QStringLiteral("Set Body Goals"));
        typeInto(body->findChild<QLineEdit*>(QStringLiteral("bodyGoal2")), QStringLiteral("41"));
        clickButton(body, QStringLiteral("Cancel"));
    });
    clickButton(&dialog, QStringLiteral("Set >>"));
    QCOMPARE(user.bodyGoals, before);

    bool refused = false;
    test::onNextModal([&](QWidget* body) {
        QCOMPARE(body->findChild<QLineEdit*>(QStringLiteral("bodyGoal0"))->text(),
                 QStringLiteral("15"));
        typeInto(body->findChild<QLineEdit*>(QStringLiteral("bodyGoal0")), QStringLiteral("15.5"));
        typeInto(body->findChild<QLineEdit*>(QStringLiteral("bodyGoal9")), QStringLiteral("x"));
        test::onNextModal([&](QWidget* box) {
            refused = true;
            QTest::keyClick(box, Qt::Key_Return);
            test::onNextModal([&](QWidget* again) {
                typeInto(again->findChild<QLineEdit*>(QStringLiteral("bodyGoal9")),
                         QStringLiteral("16"));
                clickButton(again, QStringLiteral("OK"));
            });
        });
        clickButton(body, QStringLiteral("OK"));
    });
    clickButton(&dialog, QStringLiteral("Set >>"));
    QVERIFY(refused);
    QCOMPARE(user.bodyGoals[0], 15.5f);
    QCOMPARE(user.bodyGoals[9], 16.0f);
    QCOMPARE(user.bodyGoals[2], before[2]);
}

void DietGoalsTest::measuredNeedFromTheJournal()
{
    // Four weeks of 2000 kcal a day while losing 400 kcal's worth of weight a day: 2400 kcal a day
    // keep the weight. The first nine days only are logged at first.
    const model::CalendarDate today{2026, 5, 31};
    const model::FixedClock clock(today.toTime() + 12 * 3600);
    model::Store& store = m_context->m_store;
    store.foods.addFood(
        test::FoodBuilder(test::standardCatalogue(), 1001, "Food").value(208, 100.0f));
    const auto journalOf = [&](int days) {
        store.journal.days.clear();
        for (int ago = days - 1; ago >= 0; --ago) {
            const model::TimeT date = analysis::dateOfDayNumber(today.dayNumber() - ago).toTime();
            model::JournalDay day = test::dayWithMeal(date, 0, {{1001, 20.0f}});
            if (ago % 3 == 0)
                day.health.weight = static_cast<float>(176.0 + ago * 400.0 / 3500.0);
            store.journal.days.push_back(day);
        }
    };
    const auto label = [](QWidget* dialog) {
        return dialog->findChild<QLabel*>(QStringLiteral("measuredEnergy"))->text();
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
    QVERIFY(label(&dialog).contains(
        QStringLiteral("from 28 logged days and 10 weigh-ins over 4 weeks")));
    QTest::mouseClick(dialog.useMeasuredButton(), Qt::LeftButton);
    QStringList cells;
    for (int row = 0; row < 6; ++row)
        cells << valueCell(&dialog, row);
    // Energy and what follows from it; the shares are not the measure's business.
    QCOMPARE(cells,
             (QStringList{QStringLiteral("2400.0"), QStringLiteral("60.0"), QStringLiteral("80.0"),
                          QStringLiteral("360.0"), QStringLiteral("33.6"), QString()}));

    // The planner tells what its daily change leaves to eat against the measured need.
    for (QRadioButton* r : dialog.findChildren<QRadioButton*>())
        if (r->text() == QStringLiteral("I wish to change my weight"))
            QTest::mouseClick(r, Qt::LeftButton);
    QString measuredText;
    test::onNextModal([&](QWidget* planner) {
        planner->findChild<QDateEdit*>(QStringLiteral("startDate"))->setDate(QDate(2026, 6, 1));
        planner->findChild<QDateEdit*>(QStringLiteral("endDate"))->setDate(QDate(2026, 8, 10));
        typeInto(planner->findChild<QLineEdit*>(QStringLiteral("startWeight")),
                 QStringLiteral("176"));
        typeInto(planner->findChild<QLineEdit*>(QStringLiteral("endWeight")),
                 QStringLiteral("166"));
        clickButton(planner, QStringLiteral("Calculate Diet"));
        measuredText = planner->findChild<QLabel*>(QStringLiteral("measuredText"))->text();
        clickButton(planner, QStringLiteral("Cancel"));
    });
    clickButton(&dialog, QStringLiteral("Set Program..."));
    QCOMPARE(measuredText, QStringLiteral("Against the 2400 kcal a day measured from your journal, "
                                          "this means eating about 1900 kcal a day."));
}

QTEST_MAIN(DietGoalsTest)
#include "test_diet_goals.moc"
