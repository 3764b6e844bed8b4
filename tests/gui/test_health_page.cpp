// The health page driven offscreen: values stored on a change of date and shown again, the height
// in feet and inches, BMI "Calc", a value that is not a number refused, "Previous Values",
// "De&lete Entry" and a variable added from the "&Add" menu.

#include <QApplication>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

#include "fitness/FitnessText.h"
#include "fitness/HealthPage.h"
#include "model/DateText.h"
#include "model/Store.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;

namespace {

using test::buttonOf;
using test::onNextModal;
using test::TestContext;

const model::CalendarDate Today = model::CalendarDate::fromTime(QDateTime::currentSecsSinceEpoch());

QLineEdit* edit(QWidget& page, const char* name)
{
    auto* e = page.findChild<QLineEdit*>(QString::fromLatin1(name));
    if (!e)
        qFatal("no edit %s", name);
    return e;
}

// Types into an edit as a user does: select what it holds, then the new text.
void retype(QLineEdit* e, const QString& text)
{
    e->setFocus();
    QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(e, text);
}

// Steps the date picker by its first section (the month) with the arrow keys.
void stepDate(QDateEdit* date, Qt::Key key)
{
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Home);
    QTest::keyClick(date, key);
}

void click(QPushButton* button)
{
    QVERIFY(button);
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
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

private slots:
    void initTestCase();
    void init();
    void valuesAreStoredAndShownAgain();
    void heightShowsFeetAndInches_data();
    void heightShowsFeetAndInches();
    void calcComputesTheBmi_data();
    void calcComputesTheBmi();
    void aValueThatIsNotANumberIsRefused();
    void previousValuesAndDeleteEntry();
    void aVariableWithNothingAskedIsAddedAtOnce();

private:
    QTemporaryDir m_settings;
    std::unique_ptr<TestContext> m_context;
};

void HealthPageTest::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
}

void HealthPageTest::init()
{
    m_context = std::make_unique<TestContext>();
    ui::setDeleteConfirmationsEnabled(false);
}

void HealthPageTest::valuesAreStoredAndShownAgain()
{
    fitness::HealthPage page(*m_context);
    page.show();
    const auto& days = m_context->m_store.journal.days;
    auto* date = page.findChild<QDateEdit*>(QStringLiteral("healthDate"));
    auto* previous = page.findChild<QListWidget*>(QStringLiteral("previousEntries"));
    QCOMPARE(previous->count(), 0);
    QCOMPARE(edit(page, "weight")->text(), QStringLiteral("0"));

    retype(edit(page, "weight"), QStringLiteral("150"));
    retype(edit(page, "heightFirst"), QStringLiteral("5"));
    retype(edit(page, "heightInches"), QStringLiteral("10.5"));
    retype(edit(page, "pulse"), QStringLiteral("62"));
    stepDate(date, Qt::Key_Down);
    QVERIFY(fitness::fromQDate(date->date()) != Today);

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
    stepDate(date, Qt::Key_Up);
    QCOMPARE(days.size(), std::size_t{1});
    QCOMPARE(edit(page, "weight")->text(), QStringLiteral("150"));
    QCOMPARE(edit(page, "heightFirst")->text(), QStringLiteral("5"));
    QCOMPARE(edit(page, "heightInches")->text(), QStringLiteral("10.5"));
    QCOMPARE(previous->currentRow(), 0);
}

void HealthPageTest::heightShowsFeetAndInches_data()
{
    QTest::addColumn<float>("stored");
    QTest::addColumn<QString>("feet");
    QTest::addColumn<QString>("inches");
    QTest::newRow("70") << 70.0f << QStringLiteral("5") << QStringLiteral("10");
    QTest::newRow("70.5") << 70.5f << QStringLiteral("5") << QStringLiteral("10.5");
    QTest::newRow("71.99") << 71.99f << QStringLiteral("5") << QStringLiteral("11.99");
}

void HealthPageTest::heightShowsFeetAndInches()
{
    QFETCH(float, stored);
    model::HealthEntry entry;
    entry.height = stored;
    m_context->m_store.journal.days.push_back(dayWith(Today, entry));
    QFETCH(QString, feet);
    QFETCH(QString, inches);
    fitness::HealthPage page(*m_context);
    QCOMPARE(edit(page, "heightFirst")->text(), feet);
    QCOMPARE(edit(page, "heightInches")->text(), inches);
}

void HealthPageTest::calcComputesTheBmi_data()
{
    QTest::addColumn<bool>("metric");
    QTest::addColumn<QString>("weight");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("inches");
    QTest::addColumn<QString>("bmi");
    const auto s = [](const char* text) { return QString::fromLatin1(text); };
    QTest::newRow("150 lb, 5 ft 10 in") << false << s("150") << s("5") << s("10") << s("21.6");
    QTest::newRow("70 kg, 175 cm") << true << s("70") << s("175") << s("") << s("22.9");
    QTest::newRow("no height: unchanged") << false << s("150") << s("0") << s("0") << s("0");
}

void HealthPageTest::calcComputesTheBmi()
{
    QFETCH(bool, metric);
    QFETCH(QString, weight);
    QFETCH(QString, first);
    QFETCH(QString, inches);
    QFETCH(QString, bmi);
    m_context->m_store.journal.user.metric = metric ? 1 : 0;
    fitness::HealthPage page(*m_context);
    page.show();
    QCOMPARE(edit(page, "heightInches")->isVisible(), !metric);
    retype(edit(page, "weight"), weight);
    retype(edit(page, "heightFirst"), first);
    if (!metric)
        retype(edit(page, "heightInches"), inches);
    click(buttonOf(&page, QStringLiteral("Calc")));
    QCOMPARE(edit(page, "bmi")->text(), bmi);
}

void HealthPageTest::aValueThatIsNotANumberIsRefused()
{
    model::HealthEntry entry;
    entry.weight = 150.0f;
    m_context->m_store.journal.days.push_back(dayWith(Today, entry));
    fitness::HealthPage page(*m_context);
    page.show();
    auto* date = page.findChild<QDateEdit*>(QStringLiteral("healthDate"));

    retype(edit(page, "pulse"), QStringLiteral("6x"));
    // A store from the shell (before a save) leaves the day as it was and says nothing.
    page.storePage();
    QCOMPARE(m_context->m_store.journal.days[0].health.pulse, 0.0f);
    QCOMPARE(m_context->modified, 0);
    QString said;
    onNextModal([&](QWidget* w) {
        if (auto* box = qobject_cast<QMessageBox*>(w))
            said = box->text();
        QTest::keyClick(w, Qt::Key_Return);
    });
    stepDate(date, Qt::Key_Down);
    QCOMPARE(said, QStringLiteral("Please enter a number."));
    // The page stays on its day with what was typed, and the journal keeps its values.
    QCOMPARE(fitness::fromQDate(date->date()), Today);
    QCOMPARE(edit(page, "pulse")->text(), QStringLiteral("6x"));
    QCOMPARE(edit(page, "weight")->text(), QStringLiteral("150"));
    QCOMPARE(m_context->m_store.journal.days[0].health.weight, 150.0f);
    QCOMPARE(m_context->m_store.journal.days[0].health.pulse, 0.0f);

    retype(edit(page, "pulse"), QStringLiteral("61"));
    stepDate(date, Qt::Key_Down);
    QCOMPARE(m_context->m_store.journal.days[0].health.pulse, 61.0f);
}

void HealthPageTest::previousValuesAndDeleteEntry()
{
    model::HealthEntry earlier;
    earlier.weight = 149.0f;
    earlier.height = 70.0f;
    earlier.mood = 4;
    model::CalendarDate weekAgo = model::CalendarDate::fromTime(Today.toTime() - 7 * 86400 + 3600);
    auto& days = m_context->m_store.journal.days;
    days.push_back(dayWith(weekAgo, earlier));
    days.push_back(dayWith(Today, {}));

    fitness::HealthPage page(*m_context);
    page.show();
    auto* previous = page.findChild<QListWidget*>(QStringLiteral("previousEntries"));
    QCOMPARE(previous->count(), 1);

    click(buttonOf(&page, QStringLiteral(" << &Previous Values")));
    QCOMPARE(edit(page, "weight")->text(), QStringLiteral("149"));
    QCOMPARE(edit(page, "heightInches")->text(), QStringLiteral("10"));

    // Choosing the earlier line stores today's copied values and shows that day, the earliest:
    // "Previous Values" there changes nothing.
    QTest::mouseClick(previous->viewport(), Qt::LeftButton, {},
                      previous->visualItemRect(previous->item(0)).center());
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

void HealthPageTest::aVariableWithNothingAskedIsAddedAtOnce()
{
    model::UserVariable iron{7, "Iron", 65.0f, "tablet", 0, 0, 0, 0};
    m_context->m_store.shared.variables.push_back(iron);
    fitness::HealthPage page(*m_context);
    page.show();
    auto* list = page.findChild<QTreeWidget*>(QStringLiteral("variables"));

    auto* timer = new QTimer(&page);
    timer->setInterval(10);
    connect(timer, &QTimer::timeout, [timer] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            timer->stop();
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        }
    });
    timer->start();
    click(buttonOf(&page, QStringLiteral("&Add")));
    QCOMPARE(list->topLevelItemCount(), 1);
    QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("Iron"));
    QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("65"));
    QCOMPARE(list->topLevelItem(0)->text(2), QStringLiteral("tablet"));
    QCOMPARE(list->topLevelItem(0)->text(3), QString());

    page.storePage();
    QCOMPARE(m_context->m_store.journal.days.size(), std::size_t{1});
    QCOMPARE(m_context->m_store.journal.days[0].health.variables.size(), std::size_t{1});

    // "&Remove" works on the clicked row.
    QPushButton* remove = buttonOf(&page, QStringLiteral("&Remove"));
    QVERIFY(!remove->isEnabled());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->topLevelItem(0)).center());
    click(remove);
    QCOMPARE(list->topLevelItemCount(), 0);
}

QTEST_MAIN(HealthPageTest)
#include "test_health_page.moc"
