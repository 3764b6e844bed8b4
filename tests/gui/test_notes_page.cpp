// The journal notes page driven offscreen: "Diet" first, a note kept under its category, the
// "Previous Entries" of each category, "Clear Entry", and no day made for an empty note.

#include <QPlainTextEdit>
#include <QtTest>

#include "fitness/NotesPage.h"
#include "model/Store.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;

using test::buttonOf;
using test::onNextModal;

namespace {

// Moves the category list one line with the arrow keys.
void stepCategory(QComboBox* category, Qt::Key key)
{
    category->setFocus();
    QTest::keyClick(category, key);
}

} // namespace

class NotesPageTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;

private slots:
    void initTestCase()
    {
        test::keepSettingsIn(m_settings);
        ui::setDeleteConfirmationsEnabled(true);
    }
    void notesAreKeptPerCategory()
    {
        test::TestContext context;
        fitness::NotesPage page(context);
        page.show();
        auto* category = page.findChild<QComboBox*>(QStringLiteral("noteCategory"));
        auto* note = page.findChild<QPlainTextEdit*>(QStringLiteral("note"));
        auto* previous = page.findChild<QListWidget*>(QStringLiteral("previousEntries"));
        QPushButton* clear = buttonOf(&page, QStringLiteral("Clear Entry"));
        QCOMPARE(category->currentText(), QStringLiteral("Diet"));
        QVERIFY(!clear->isEnabled());

        // A "Fitness" note: listed under "Fitness", not under "Diet".
        stepCategory(category, Qt::Key_Down);
        QCOMPARE(category->currentText(), QStringLiteral("Fitness"));
        note->setFocus();
        QTest::keyClicks(note, QStringLiteral("Ran 5 km"));
        QVERIFY(clear->isEnabled());
        stepCategory(category, Qt::Key_Up);
        const auto& days = context.m_store.journal.days;
        QCOMPARE(days.size(), std::size_t{1});
        QCOMPARE(days[0].notes[3], std::string("Ran 5 km"));
        QVERIFY(days[0].notes[2].empty());
        QCOMPARE(note->toPlainText(), QString());
        QCOMPARE(previous->count(), 0);
        stepCategory(category, Qt::Key_Down);
        QCOMPARE(note->toPlainText(), QStringLiteral("Ran 5 km"));
        QCOMPARE(previous->count(), 1);
        QCOMPARE(previous->currentRow(), 0);

        // "Clear Entry" asks first; "No" keeps the text, "Yes" empties it, and once stored the date
        // leaves the list.
        onNextModal([](QWidget* w) { test::clickButton(w, QStringLiteral("No")); });
        test::click(clear);
        QCOMPARE(note->toPlainText(), QStringLiteral("Ran 5 km"));
        onNextModal([](QWidget* w) { test::clickButton(w, QStringLiteral("Yes")); });
        test::click(clear);
        QCOMPARE(note->toPlainText(), QString());
        QVERIFY(!clear->isEnabled());
        page.storePage();
        page.refreshPage();
        QVERIFY(days[0].notes[3].empty());
        QCOMPARE(previous->count(), 0);
    }

    void anEmptyNoteMakesNoDay()
    {
        test::TestContext context;
        fitness::NotesPage page(context);
        page.show();
        auto* date = page.findChild<QDateEdit*>(QStringLiteral("notesDate"));
        date->setFocus();
        QTest::keyClick(date, Qt::Key_Home);
        QTest::keyClick(date, Qt::Key_Down);
        page.storePage();
        QVERIFY(context.m_store.journal.days.empty());
        QCOMPARE(context.modified, 0);
    }
};

QTEST_MAIN(NotesPageTest)
#include "test_notes_page.moc"
