// The fitness log page and "Do Routine" driven offscreen: a routine done from the routine menu,
// with a value typed, a set removed and the rest renumbered; then the workout edited with a new
// date and calories, which moves it; then deleted.

#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QtTest>

#include "fitness/DoRoutineDialog.h"
#include "fitness/FitnessLogPage.h"
#include "model/DateText.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::buttonOf;
using test::click;
using test::onNextModal;

namespace {

const model::CalendarDate Today = model::CalendarDate::fromTime(QDateTime::currentSecsSinceEpoch());

QStringList texts(const QListWidget* list)
{
    QStringList out;
    for (int r = 0; r < list->count(); ++r)
        out << list->item(r)->text();
    return out;
}

QStringList childTexts(const QTreeWidgetItem* item)
{
    QStringList out;
    for (int c = 0; c < item->childCount(); ++c)
        out << item->child(c)->text(0);
    return out;
}

} // namespace

class FitnessLogTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;

private slots:
    void initTestCase() { test::keepSettingsIn(m_settings); }
    void aRoutineIsDoneThenEditedThenDeleted()
    {
        test::TestContext context;
        model::Store& store = context.m_store;
        store.shared.fields = {{1, "Reps", 0}, {2, "Weight", 0}};
        store.shared.exercises = {{10, "Press", {1, 2}}, {11, "Row", {1}}};
        store.shared.routines = {{20, 0, "Push", {10, 11, 10, 10}}};
        store.journal.user.daysInLists = 100;
        store.journal.user.fitnessColumns = {1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
        // Three days ago the first press set was 6 reps of 100.
        model::JournalDay before;
        before.date = Today.toTime() - 3 * 86400 + 7200;
        model::WorkoutEntry earlier;
        earlier.routine = 20;
        earlier.time = before.date + 3600;
        earlier.exercises = {{10, 0, 0, {{1, "6"}, {2, "100"}}}};
        before.workouts = {earlier};
        store.journal.days.push_back(before);

        fitness::FitnessLogPage page(context);
        page.show();
        auto* tree = page.findChild<QTreeWidget*>(QStringLiteral("fitnessLog"));
        QCOMPARE(tree->topLevelItemCount(), 1);
        QCOMPARE(tree->headerItem()->text(1), QStringLiteral("Reps"));
        QVERIFY(!buttonOf(&page, QStringLiteral("&Edit..."))->isEnabled());

        // Doing "Push": sets Press, Row, Press, Press numbered 1, 1, 2, 3.
        bool dialogChecked = false;
        onNextModal([&](QWidget* w) {
            auto* dialog = qobject_cast<fitness::DoRoutineDialog*>(w);
            QVERIFY(dialog);
            auto* sets = dialog->findChild<QListWidget*>(QStringLiteral("sets"));
            auto* heading = dialog->findChild<QLabel*>(QStringLiteral("setHeading"));
            auto* grid = dialog->findChild<QTableWidget*>(QStringLiteral("valueGrid"));
            QCOMPARE(texts(sets), (QStringList{QStringLiteral("Press"), QStringLiteral("Row"),
                                               QStringLiteral("Press"), QStringLiteral("Press")}));
            QCOMPARE(heading->text(), QStringLiteral("Press, Set 1"));
            QCOMPARE(grid->rowCount(), 2);
            QCOMPARE(grid->item(0, 0)->text(), QStringLiteral("Reps"));
            QCOMPARE(grid->item(0, 2)->text(), QStringLiteral("6"));
            QCOMPARE(grid->item(0, 2)->background().color(), QColor(192, 255, 192));

            test::editCell(grid, 0, 1, QStringLiteral("8")); // 8 reps typed into the first set

            test::clickRow(sets, 3);
            QCOMPARE(heading->text(), QStringLiteral("Press, Set 3"));
            QCOMPARE(grid->item(0, 2)->text(), QString());
            QCOMPARE(grid->item(0, 2)->background().color(), QColor(200, 200, 200));
            QVERIFY(!buttonOf(dialog, QStringLiteral("Do&wn"))->isEnabled());
            test::clickRow(sets, 2);
            QCOMPARE(heading->text(), QStringLiteral("Press, Set 2"));
            click(buttonOf(dialog, QStringLiteral("Re&move")));
            QCOMPARE(heading->text(), QString());
            QVERIFY(!buttonOf(dialog, QStringLiteral("Re&move"))->isEnabled());
            test::clickRow(sets, 2);
            QCOMPARE(heading->text(), QStringLiteral("Press, Set 2"));
            dialogChecked = true;
            click(buttonOf(dialog, QStringLiteral("OK")));
        });
        test::onNextMenuChoose(1);
        click(buttonOf(&page, QStringLiteral("Do &Routine...")));
        QVERIFY(dialogChecked);

        auto& days = store.journal.days;
        QCOMPARE(days.size(), std::size_t{2});
        QCOMPARE(model::CalendarDate::fromTime(days[1].date), Today);
        QCOMPARE(days[1].workouts.size(), std::size_t{1});
        const auto& sets = days[1].workouts[0].exercises;
        QCOMPARE(sets.size(), std::size_t{3});
        QCOMPARE(sets[2].setNumber, 1);
        QCOMPARE(sets[0].values[0].value, std::string("8"));

        QCOMPARE(tree->topLevelItemCount(), 2);
        QTreeWidgetItem* today = tree->topLevelItem(1);
        QVERIFY(today->text(0).endsWith(QStringLiteral(" - 0 Calories")));
        QCOMPARE(today->childCount(), 1);
        QTreeWidgetItem* workout = today->child(0);
        QVERIFY(workout->text(0).startsWith(QStringLiteral("Push @ ")));
        QCOMPARE(childTexts(workout),
                 (QStringList{QStringLiteral("Press [set 1]"), QStringLiteral("Row [set 1]"),
                              QStringLiteral("Press [set 2]")}));
        QCOMPARE(workout->child(0)->text(1), QStringLiteral("8"));

        // Edited: 360 calories and a month earlier, which moves the workout to a day of its own.
        test::clickItem(tree, workout);
        onNextModal([](QWidget* w) {
            test::retype(w->findChild<QLineEdit*>(QStringLiteral("calories")),
                         QStringLiteral("360"));
            auto* date = w->findChild<QDateEdit*>(QStringLiteral("workoutDate"));
            date->setFocus();
            QTest::keyClick(date, Qt::Key_Home);
            QTest::keyClick(date, Qt::Key_Down);
            click(buttonOf(w, QStringLiteral("OK")));
        });
        click(buttonOf(&page, QStringLiteral("&Edit...")));
        QCOMPARE(days.size(), std::size_t{3});
        QVERIFY(days[1].workouts.empty());
        QCOMPARE(days[2].workouts.size(), std::size_t{1});
        QCOMPARE(days[2].workouts[0].calories, 360);
        QCOMPARE(days[2].workouts[0].exercises.size(), std::size_t{3});
        QCOMPARE(model::CalendarDate::fromTime(days[2].workouts[0].time).month % 12,
                 (Today.month + 11) % 12);
        // The day left without a workout is no longer listed.
        QCOMPARE(tree->topLevelItemCount(), 2);
        QTreeWidgetItem* moved = tree->topLevelItem(1);
        QVERIFY(moved->text(0).endsWith(QStringLiteral(" - 360 Calories")));

        // "Delete" asks nothing.
        test::clickItem(tree, moved->child(0)->child(1));
        click(buttonOf(&page, QStringLiteral("&Delete")));
        QVERIFY(days[2].workouts.empty());
        QCOMPARE(tree->topLevelItemCount(), 1);
        QVERIFY(context.modified > 0);
    }
};

QTEST_MAIN(FitnessLogTest)
#include "test_fitness_log.moc"
