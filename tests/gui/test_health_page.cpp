// The health page driven offscreen: values stored on a change of date and shown again, BMI
// "Calc", a value that is not a number refused, "Previous Values", "De&lete Entry" and a variable
// added from the "&Add" menu.

#include <QDateEdit>
#include <QLineEdit>
#include <QMessageBox>
#include <QtTest>

#include "fitness/FitnessText.h"
#include "fitness/HealthPage.h"
#include "model/DateText.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::buttonOf;
using test::click;
using test::retype;

namespace {

const model::CalendarDate Today = model::CalendarDate::fromTime(QDateTime::currentSecsSinceEpoch());

QLineEdit* edit(QWidget& page, const char* name)
{
    return page.findChild<QLineEdit*>(QString::fromLatin1(name));
}

// Steps the date picker by its first section (the month) with the arrow keys.
void stepDate(QWidget& page, Qt::Key key)
{
    auto* date = page.findChild<QDateEdit*>(QStringLiteral("healthDate"));
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Home);
    QTest::keyClick(date, key);
}

model::CalendarDate shownDate(QWidget& page)
{
    return fitness::fromQDate(page.findChild<QDateEdit*>(QStringLiteral("healthDate"))->date());
}

model::JournalDay dayWith(const model::CalendarDate& date, const model::HealthEntry& entry)
{
    model::JournalDay day;
    day.date = date.toTime();
    day.health = entry;
    return day;
}

} // namespace

class HealthPageTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;
    std::unique_ptr<test::TestContext> m_context;

private slots:
    void initTestCase() { test::keepSettingsIn(m_settings); }

    void init()
    {
        m_context = std::make_unique<test::TestContext>();
        ui::setDeleteConfirmationsEnabled(false);
    }

    void valuesAreStoredAndShownAgain()
    {
        fitness::HealthPage page(*m_context);
        page.show();
        const auto& days = m_context->m_store.journal.days;
        auto* previous = page.findChild<QListWidget*>(QStringLiteral("previousEntries"));
        QCOMPARE(previous->count(), 0);

        retype(edit(page, "weight"), QStringLiteral("150"));
        retype(edit(page, "heightFirst"), QStringLiteral("5"));
        retype(edit(page, "heightInches"), QStringLiteral("10.5"));
        retype(edit(page, "pulse"), QStringLiteral("62"));
        stepDate(page, Qt::Key_Down);
        QVERIFY(shownDate(page) != Today);

        // The day that was shown now holds the values; the new day shows a fresh entry.
        QCOMPARE(days.size(), std::size_t{1});
        QCOMPARE(model::CalendarDate::fromTime(days[0].date), Today);
        QCOMPARE(days[0].health.weight, 150.0f);
        QCOMPARE(days[0].health.height, 70.5f);
        QCOMPARE(days[0].health.pulse, 62.0f);
        QCOMPARE(edit(page, "weight")->text(), QStringLiteral("0"));
        QCOMPARE(previous->count(), 1);
        QVERIFY(previous->selectedItems().isEmpty());
        QVERIFY(m_context->modified > 0);

        // An untouched empty day makes no record when left; the values come back with their day.
        stepDate(page, Qt::Key_Up);
        QCOMPARE(days.size(), std::size_t{1});
        QCOMPARE(edit(page, "weight")->text(), QStringLiteral("150"));
        QCOMPARE(edit(page, "heightFirst")->text(), QStringLiteral("5"));
        QCOMPARE(edit(page, "heightInches")->text(), QStringLiteral("10.5"));
        QCOMPARE(previous->currentRow(), 0);
    }

    void calcComputesTheBmi_data()
    {
        QTest::addColumn<bool>("metric");
        QTest::addColumn<QStringList>("typed"); // weight, height, inches
        QTest::addColumn<QString>("bmi");
        const auto s = [](const char* text) { return QString::fromLatin1(text); };
        QTest::newRow("150 lb, 5 ft 10 in")
            << false << QStringList{s("150"), s("5"), s("10")} << s("21.6");
        QTest::newRow("70 kg, 175 cm") << true << QStringList{s("70"), s("175")} << s("22.9");
        QTest::newRow("no height: unchanged")
            << false << QStringList{s("150"), s("0"), s("0")} << s("0");
    }

    void calcComputesTheBmi()
    {
        QFETCH(bool, metric);
        QFETCH(QStringList, typed);
        QFETCH(QString, bmi);
        m_context->m_store.journal.user.metric = metric ? 1 : 0;
        fitness::HealthPage page(*m_context);
        page.show();
        QCOMPARE(edit(page, "heightInches")->isVisible(), !metric);
        const char* edits[] = {"weight", "heightFirst", "heightInches"};
        for (int i = 0; i < typed.size(); ++i)
            retype(edit(page, edits[i]), typed[i]);
        click(buttonOf(&page, QStringLiteral("Calc")));
        QCOMPARE(edit(page, "bmi")->text(), bmi);
    }

    void aValueThatIsNotANumberIsRefused()
    {
        model::HealthEntry entry;
        entry.weight = 150.0f;
        const auto& days = m_context->m_store.journal.days;
        m_context->m_store.journal.days.push_back(dayWith(Today, entry));
        fitness::HealthPage page(*m_context);
        page.show();

        retype(edit(page, "pulse"), QStringLiteral("6x"));
        // A store from the shell (before a save) leaves the day as it was and says nothing.
        page.storePage();
        QCOMPARE(days[0].health.pulse, 0.0f);
        QCOMPARE(m_context->modified, 0);
        QString said;
        test::onNextModal([&](QWidget* w) {
            said = qobject_cast<QMessageBox*>(w)->text();
            QTest::keyClick(w, Qt::Key_Return);
        });
        stepDate(page, Qt::Key_Down);
        QCOMPARE(said, QStringLiteral("Please enter a number."));
        // The page stays on its day with what was typed, and the journal keeps its values.
        QCOMPARE(shownDate(page), Today);
        QCOMPARE(edit(page, "pulse")->text(), QStringLiteral("6x"));
        QCOMPARE(edit(page, "weight")->text(), QStringLiteral("150"));
        QCOMPARE(days[0].health.weight, 150.0f);
        QCOMPARE(days[0].health.pulse, 0.0f);

        retype(edit(page, "pulse"), QStringLiteral("61"));
        stepDate(page, Qt::Key_Down);
        QCOMPARE(days[0].health.pulse, 61.0f);
    }

    void previousValuesAndDeleteEntry()
    {
        model::HealthEntry earlier;
        earlier.weight = 149.0f;
        earlier.height = 70.0f;
        earlier.mood = 4;
        const auto weekAgo = model::CalendarDate::fromTime(Today.toTime() - 7 * 86400 + 3600);
        auto& days = m_context->m_store.journal.days;
        days.push_back(dayWith(weekAgo, earlier));
        days.push_back(dayWith(Today, {}));

        fitness::HealthPage page(*m_context);
        page.show();
        auto* previous = page.findChild<QListWidget*>(QStringLiteral("previousEntries"));
        QCOMPARE(previous->count(), 1);

        click(buttonOf(&page, QStringLiteral(" << &Previous Values")));
        QCOMPARE(edit(page, "weight")->text(), QStringLiteral("149"));
        QCOMPARE(edit(page, "heightFirst")->text(), QStringLiteral("5"));
        QCOMPARE(edit(page, "heightInches")->text(), QStringLiteral("10"));

        // Choosing the earlier line stores today's copied values and shows that day, the
        // earliest: "Previous Values" there changes nothing.
        test::clickRow(previous, 0);
        QCOMPARE(days[1].health.weight, 149.0f);
        QCOMPARE(previous->count(), 2);
        QCOMPARE(previous->currentRow(), 0);
        retype(edit(page, "weight"), QStringLiteral("148"));
        click(buttonOf(&page, QStringLiteral(" << &Previous Values")));
        QCOMPARE(edit(page, "weight")->text(), QStringLiteral("148"));

        // "De&lete Entry" empties the day's entry and its date leaves the list.
        click(buttonOf(&page, QStringLiteral("De&lete Entry")));
        QVERIFY(days[0].health.isEmpty());
        QCOMPARE(edit(page, "weight")->text(), QStringLiteral("0"));
        QCOMPARE(previous->count(), 1);
    }

    void aVariableWithNothingAskedIsAddedAtOnce()
    {
        m_context->m_store.shared.variables.push_back({7, "Iron", 65.0f, "tablet", 0, 0, 0, 0});
        fitness::HealthPage page(*m_context);
        page.show();
        auto* list = page.findChild<QTreeWidget*>(QStringLiteral("variables"));

        test::onNextMenuChoose(1);
        click(buttonOf(&page, QStringLiteral("&Add")));
        QCOMPARE(list->topLevelItemCount(), 1);
        const QStringList row{QStringLiteral("Iron"), QStringLiteral("65"),
                              QStringLiteral("tablet"), QString()};
        for (int c = 0; c < row.size(); ++c)
            QCOMPARE(list->topLevelItem(0)->text(c), row[c]);
        page.storePage();
        QCOMPARE(m_context->m_store.journal.days.size(), std::size_t{1});
        QCOMPARE(m_context->m_store.journal.days[0].health.variables.size(), std::size_t{1});

        // "&Remove" works on the clicked row.
        QVERIFY(!buttonOf(&page, QStringLiteral("&Remove"))->isEnabled());
        test::clickItem(list, list->topLevelItem(0));
        click(buttonOf(&page, QStringLiteral("&Remove")));
        QCOMPARE(list->topLevelItemCount(), 0);
    }
};

QTEST_MAIN(HealthPageTest)
#include "test_health_page.moc"
