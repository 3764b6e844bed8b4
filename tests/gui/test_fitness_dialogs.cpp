// Dialogs of the exercise definitions driven offscreen: the muscle chart's views and buttons, and
// "Define Exercises" making an exercise only with a checked field.

#include <QMessageBox>
#include <QtTest>

#include "fitness/DefineExercisesDialog.h"
#include "fitness/MuscleChartDialog.h"
#include "model/Store.h"
#include "GuiTestSupport.h"

using namespace velmora;

using test::buttonOf;
using test::click;
using test::onNextModal;

class FitnessDialogsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;

private slots:
    void initTestCase() { test::keepSettingsIn(m_settings); }
    void muscleChartRotatesAndTellsTheExercises()
    {
        fitness::MuscleChartDialog dialog;
        dialog.show();
        auto* first = dialog.findChild<QPushButton*>(QStringLiteral("muscle1"));
        auto* eleventh = dialog.findChild<QPushButton*>(QStringLiteral("muscle11"));
        QPushButton* rotate = buttonOf(&dialog, QStringLiteral("<< &Rotate Model >>"));
        QCOMPARE(first->text(), QStringLiteral("1: Front Deltoids"));
        QVERIFY(!eleventh->isVisible());

        click(rotate);
        QCOMPARE(first->text(), QStringLiteral("1: Triceps"));
        QVERIFY(eleventh->isVisible());
        QCOMPARE(eleventh->text(), QStringLiteral("11: Calves"));

        QString title;
        QString text;
        onNextModal([&](QWidget* w) {
            title = w->windowTitle();
            if (auto* box = qobject_cast<QMessageBox*>(w))
                text = box->text();
            QTest::keyClick(w, Qt::Key_Return);
        });
        click(first);
        QCOMPARE(title, QStringLiteral("1: Triceps"));
        QCOMPARE(text, QStringLiteral("Dips, Tricep Extention, Overhead Tricep Press"));

        click(rotate);
        QCOMPARE(first->text(), QStringLiteral("1: Front Deltoids"));
        QVERIFY(!eleventh->isVisible());
        QCOMPARE(eleventh->text(), QString());
    }

    void anExerciseIsMadeOnlyWithACheckedField()
    {
        test::TestContext context;
        auto& shared = context.m_store.shared;
        shared.fields = {{1, "Reps", 0}, {2, "Weight", 0}};
        const std::int32_t nextId = shared.counters.values[model::IdCounters::Exercise];

        for (bool checkWeight : {false, true}) {
            fitness::DefineExercisesDialog dialog(context);
            dialog.show();
            auto* names = dialog.findChild<QComboBox*>(QStringLiteral("exerciseNames"));
            auto* fields = dialog.findChild<QListWidget*>(QStringLiteral("exerciseFields"));
            click(buttonOf(&dialog, QStringLiteral("&New")));
            QTest::keyClicks(names->lineEdit(), QStringLiteral("bench curl"));
            if (checkWeight) {
                fields->setFocus();
                test::clickRow(fields, 1);
                QTest::keyClick(fields, Qt::Key_Space);
            }
            click(buttonOf(&dialog, QStringLiteral("D&one")));
            QCOMPARE(shared.exercises.size(), checkWeight ? std::size_t{1} : std::size_t{0});
        }
        QCOMPARE(shared.exercises[0].name, std::string("Bench curl"));
        QCOMPARE(shared.exercises[0].id, nextId);
        QCOMPARE(shared.exercises[0].fields, (std::vector<std::int32_t>{2}));
    }
};

QTEST_MAIN(FitnessDialogsTest)
#include "test_fitness_dialogs.moc"
