// The shell's side of keeping data safe: damaged files reported with the offer of the backup,
// saving soon after a change (also while a dialog is open) and at a signal to end, no silent loss
// when the last save fails, one program per data folder, read-only sessions, names that cannot be
// file names and dates the files cannot hold.

#include <csignal>
#include <ctime>
#include <map>

#include <QDateEdit>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include "app/Application.h"
#include "app/MainWindow.h"
#include "app/PageHost.h"
#include "app/UserSession.h"
#include "food/FoodPage.h"
#include "model/FileDates.h"
#include "model/SafeFile.h"
#include "model/UserDatabase.h"
#include "support/TestFileSystems.h"
#include "test_app_support.h"
#include "GuiTestSupport.h"
#include "ui/PageId.h"

using namespace velmora;

namespace {

std::filesystem::path fileIn(const QTemporaryDir& dir, const QString& name)
{
    return std::filesystem::path(dir.filePath(name).toStdString());
}

// A "velmora.db" with two users and a variable (the last list of the file).
std::vector<std::uint8_t> twoUsers()
{
    model::SharedData shared;
    shared.userNames = {"Anna", "Bert"};
    shared.variables.push_back({1, "Vitamin c", 500.0f, "mg", 1700000000, 0, 1, 1});
    return shared.serialize();
}

// A data folder whose "velmora.db" is cut short in its last list, with a whole backup beside it.
void damagedWithBackup(const QTemporaryDir& dir)
{
    test::writeSmallFoods(dir.path());
    const auto good = twoUsers();
    auto damaged = good;
    damaged.resize(damaged.size() - 3);
    test::writeBytes(fileIn(dir, QStringLiteral("velmora.db.bak")), good);
    test::writeBytes(fileIn(dir, QStringLiteral("velmora.db")), damaged);
}

QStringList damagedCopies(const QTemporaryDir& dir)
{
    return QDir(dir.path()).entryList({QStringLiteral("velmora.db.damaged-*")}, QDir::Files);
}

// A folder with the users Anna (current, with a journal of the given days and a custom food)
// and Bert.
void annaAndBert(const QTemporaryDir& dir, int days)
{
    test::writeSmallFoods(dir.path());
    const model::FoodDatabase foods = test::generatedFoods(20);
    model::SharedData shared;
    shared.userNames = {"Anna", "Bert"};
    model::FoodItem food = foods.foods().front();
    food.number = model::FirstCustomFoodNumber;
    food.measures.clear();
    food.servingWeight = 40.0f;
    shared.customFoods.push_back(food);
    test::writeBytes(fileIn(dir, QStringLiteral("velmora.db")), shared.serialize());
    test::JournalShape shape;
    shape.days = days;
    model::UserJournal journal;
    journal.days = test::generatedJournal(foods, shape);
    test::writeBytes(fileIn(dir, QStringLiteral("Anna.db")), journal.serialize());
}

std::size_t daysIn(const QTemporaryDir& dir, const QString& name)
{
    auto parsed = model::UserJournal::parse(test::readBytes(fileIn(dir, name)), "journal");
    return parsed ? parsed.value().days.size() : 0;
}

// Every file of the folder with its content, to see that nothing was written.
std::map<QString, QByteArray> contentOf(const QTemporaryDir& dir)
{
    std::map<QString, QByteArray> out;
    for (const QFileInfo& f : QDir(dir.path()).entryInfoList(QDir::Files | QDir::Hidden)) {
        QFile file(f.filePath());
        out[f.fileName()] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    return out;
}

// Makes the C library read TZ again.
void readZone()
{
#if defined(Q_OS_WIN)
    _tzset();
#else
    tzset();
#endif
}

// A day the journals of annaAndBert() do not have.
model::JournalDay newDay()
{
    return test::dayWithMeal(1300000000, 1, {{1003, 0.5f}});
}

} // namespace

class TestAppSafety : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_settings.isValid());
        test::usePrivateSettings(m_settings.path());
    }

    void init() { test::resetSettings(); }

    void aDamagedFileIsReportedWithItsBackupOffered_data()
    {
        QTest::addColumn<bool>("restore");
        QTest::newRow("Yes restores the backup") << true;
        QTest::newRow("No keeps what was read whole") << false;
    }

    void aDamagedFileIsReportedWithItsBackupOffered()
    {
        QFETCH(bool, restore);
        QTemporaryDir dir;
        damagedWithBackup(dir);

        test::ModalScript script;
        script.expect(QStringLiteral("Velmora"), [restore](QWidget* w) {
            test::click(w, restore ? QStringLiteral("Yes") : QStringLiteral("No"));
        });
        app::Application app(test::appOptions(dir.path(), true));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList());
        // What is kept aside and what a restore writes are the data folder's; here the question
        // names the file and its answer decides which records the program shows.
        QVERIFY(script.messages().value(0).contains(QStringLiteral("velmora.db")));
        QCOMPARE(damagedCopies(dir).size(), 1);
        if (restore) {
            QCOMPARE(app.store().shared.variables.size(), std::size_t{1});
            return;
        }
        QCOMPARE(app.store().shared.userNames, (std::vector<std::string>{"Anna", "Bert"}));
        QVERIFY(app.store().shared.variables.empty()); // the cut list is not half-applied
        // The recovered data is written back soon, next to the kept damaged copy.
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(dir.filePath(QStringLiteral("velmora.db"))),
                                 5000);
        QCOMPARE(damagedCopies(dir).size(), 1);
        app.window()->close();
    }

    void aFailedSaveAtCloseKeepsEverythingAndSaysWhatWouldBeLost()
    {
        QTemporaryDir dir;
        annaAndBert(dir, 400);
        test::FullDiskFileSystem disk;
        auto options = test::appOptions(dir.path(), false);
        options.files = &disk;
        app::Application app(options);
        QVERIFY(app.start());
        model::Store& store = app.store();
        store.shared.userNames.push_back("Carl");
        store.journal.days.push_back(newDay());
        app.window()->notifyChanged(ui::Change::Journal);
        const std::size_t days = store.journal.days.size();
        // Room for velmora.db and its backup, not for the journal.
        disk.setFreeBytes(20000);

        test::ModalScript script;
        script
            .expect(QStringLiteral("Velmora"),
                    [](QWidget* w) { test::click(w, QStringLiteral("OK")); })
            .expect(QStringLiteral("Velmora"),
                    [](QWidget* w) { test::click(w, QStringLiteral("No")); });
        QVERIFY(!app.window()->close());
        QTRY_VERIFY(script.finished());
        QVERIFY(script.messages().value(0).contains(QStringLiteral("No space left on device")));
        // The question names what would be lost (its wording is the data folder's, which also
        // checks that a failed save frees nothing).
        QVERIFY2(script.messages().value(1).contains(QStringLiteral("Anna.db")),
                 qPrintable(script.messages().value(1)));
        QVERIFY(app.window()->isVisible());
        QCOMPARE(store.journal.days.size(), days);

        // With room again, closing writes everything.
        disk.setFreeBytes(std::nullopt);
        QVERIFY(app.window()->close());
        QCOMPARE(daysIn(dir, QStringLiteral("Anna.db")), days);
    }

    void aSecondProgramOnTheFolderOpensItReadOnly()
    {
        QTemporaryDir dir;
        annaAndBert(dir, 10);
        app::Application first(test::appOptions(dir.path(), false));
        QVERIFY(first.start());

        // Declined: the second program does not start.
        {
            test::ModalScript script;
            script.expect(QStringLiteral("Velmora"),
                          [](QWidget* w) { test::click(w, QStringLiteral("No")); });
            app::Application declined(test::appOptions(dir.path(), false));
            QVERIFY(!declined.start());
            QVERIFY(script.finished());
            QVERIFY(script.messages().value(0).contains(
                QStringLiteral("(process %1 on ").arg(QCoreApplication::applicationPid())));
        }

        test::ModalScript script;
        script.expect(QStringLiteral("Velmora"),
                      [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
        app::Application second(test::appOptions(dir.path(), false));
        QVERIFY(second.start());
        QVERIFY(script.finished());
        QCOMPARE(second.window()->windowTitle(), QStringLiteral("Anna - Velmora (read-only)"));
        auto* bar = second.window()->findChild<QLabel*>(QStringLiteral("readOnlyBar"));
        QVERIFY(bar && bar->isVisible());
        QVERIFY(bar->text().contains(QStringLiteral("another Velmora (process")));

        // The second program's edit is refused and undone; the first one's is saved.
        test::ModalScript refusal;
        refusal.expect(QStringLiteral("Velmora"),
                       [](QWidget* w) { test::click(w, QStringLiteral("OK")); });
        second.store().journal.days.push_back(newDay());
        second.window()->notifyChanged(ui::Change::Journal);
        QVERIFY(refusal.finished());
        QVERIFY(refusal.messages().value(0).contains(QStringLiteral("The change is not kept.")));
        QTRY_COMPARE(second.store().journal.days.size(), std::size_t{10});
        first.store().journal.days.push_back(newDay());
        first.store().shared.userNames.push_back("Carl");
        first.window()->notifyChanged(ui::Change::Users);
        QVERIFY(second.window()->close());
        QVERIFY(first.window()->close());
        QCOMPARE(daysIn(dir, QStringLiteral("Anna.db")), std::size_t{11});
        QCOMPARE(model::SharedData::parse(
                     test::readBytes(fileIn(dir, QStringLiteral("velmora.db"))), "velmora.db")
                     .value()
                     .userNames.size(),
                 std::size_t{3});
    }

    void aFolderThatCannotBeWrittenOpensReadOnlyWithItsOwnUsers()
    {
        QTemporaryDir dir;
        annaAndBert(dir, 10);
        const auto before = contentOf(dir);
        test::ReadOnlyFileSystem readOnly(dir.path().toStdString());
        auto options = test::appOptions(dir.path(), true);
        options.files = &readOnly;
        test::ModalScript script;
        app::Application app(options);
        QVERIFY(app.start());
        QCOMPARE(app.store().shared.userNames, (std::vector<std::string>{"Anna", "Bert"}));
        QCOMPARE(app.window()->windowTitle(), QStringLiteral("Anna - Velmora (read-only)"));
        auto* bar = app.window()->findChild<QLabel*>(QStringLiteral("readOnlyBar"));
        QVERIFY(bar->isVisible());
        QVERIFY(bar->text().contains(QStringLiteral("cannot be written (Read-only file system)")));
        QCOMPARE(script.answered(), QStringList()); // no first-run setup, no message
        // An edit is refused as in any read-only session (see the second program above); closing
        // writes nothing, here or in the per-user folder.
        QVERIFY(app.window()->close());
        QVERIFY(contentOf(dir) == before);
        const QString perUser = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
        QVERIFY(!QFile::exists(QDir(perUser).filePath(QStringLiteral("velmora.db"))));
    }

    void aSignalToEndSavesAndQuits_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGTERM") << int(SIGTERM);
#if defined(SIGHUP)
        QTest::newRow("SIGHUP") << int(SIGHUP);
#endif
        QTest::newRow("SIGINT") << int(SIGINT);
    }

    void aSignalToEndSavesAndQuits()
    {
#if !defined(Q_OS_UNIX)
        QSKIP("signals end a program in order only where it has a self-pipe");
#endif
        QFETCH(int, signal);
        QTemporaryDir dir;
        annaAndBert(dir, 10);
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        // A change of a moment ago, whose save is still two seconds away.
        app.store().journal.days.push_back(newDay());
        app.window()->notifyChanged(ui::Change::Journal);
        QCOMPARE(std::raise(signal), 0);
        QTRY_VERIFY_WITH_TIMEOUT(!app.window()->isVisible(), 1500);
        QCOMPARE(daysIn(dir, QStringLiteral("Anna.db")), std::size_t{11});
    }

    // At a first start the signal comes while Initial Setup is open: the example user is saved
    // and the program ends instead of going on with an empty event loop.
    void aSignalDuringAStartUpDialogSavesAndEnds()
    {
#if !defined(Q_OS_UNIX)
        QSKIP("signals end a program in order only where it has a self-pipe");
#endif
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        test::ModalScript script;
        script.expect(QStringLiteral("Initial Setup"),
                      [](QWidget*) { QCOMPARE(std::raise(SIGTERM), 0); });
        app::Application app(test::appOptions(dir.path(), true));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList());
        QVERIFY(!app.window()->isVisible());
        QVERIFY(QFile::exists(QDir(dir.path()).filePath(QStringLiteral("Example User.db"))));
        bool loopRan = false;
        QTimer guard;
        guard.setSingleShot(true);
        connect(&guard, &QTimer::timeout, this, [&] {
            loopRan = true;
            QCoreApplication::quit();
        });
        guard.start(3000);
        QCOMPARE(app.run(), 0);
        QVERIFY(!loopRan);
    }

    void aChangeIsSavedWhileADialogIsOpen()
    {
        QTemporaryDir dir;
        annaAndBert(dir, 10);
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app.window()->show();
        bool savedWhileOpen = false;
        test::ModalScript script;
        script.expect(QStringLiteral("Options"), [&](QWidget* w) {
            app.store().journal.days.push_back(newDay());
            app.window()->notifyChanged(ui::Change::Journal);
            QTRY_VERIFY_WITH_TIMEOUT(daysIn(dir, QStringLiteral("Anna.db")) == 11, 5000);
            savedWhileOpen = w->isVisible();
            test::click(w, QStringLiteral("Cancel"));
        });
        auto* bar = app.window()->findChild<QToolBar*>(QStringLiteral("toolBar"));
        QAction* options = app.window()->findChild<QAction*>(QStringLiteral("options"));
        QTest::mouseClick(bar->widgetForAction(options), Qt::LeftButton);
        QVERIFY(script.finished());
        QVERIFY(savedWhileOpen);
    }

    void aNameThatCannotBeAFileNameIsRefusedForWhatItIs_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("problem");
        QTest::newRow("100 euro signs")
            << QString(100, QChar(0x20AC)) << QStringLiteral("too long");
        QTest::newRow("Greek") << QStringLiteral("Ωμέγα") << QStringLiteral("cannot store");
        QTest::newRow("300 letters")
            << QString(300, QLatin1Char('a')) << QStringLiteral("too long");
    }

    void aNameThatCannotBeAFileNameIsRefusedForWhatItIs()
    {
        QFETCH(QString, typed);
        QFETCH(QString, problem);
        QTemporaryDir dir;
        annaAndBert(dir, 1);
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app.window()->show();
        QString keptText;
        test::ModalScript script;
        script
            .expect(QStringLiteral("User Login"),
                    [](QWidget* w) { test::click(w, QStringLiteral("New User...")); })
            .expect(QStringLiteral("New User"),
                    [typed](QWidget* w) {
                        auto* edit = w->findChild<QLineEdit*>(QStringLiteral("userName"));
                        edit->setFocus();
                        // Typed key by key, with what each key writes (a euro sign, a Greek
                        // letter) as its text.
                        for (const QChar c : typed)
                            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(c),
                                                Qt::NoModifier);
                        test::click(w, QStringLiteral("OK"));
                    })
            .expect(QStringLiteral("Velmora"),
                    [](QWidget* w) { test::click(w, QStringLiteral("OK")); })
            .expect(QStringLiteral("New User"),
                    [&](QWidget* w) {
                        keptText = w->findChild<QLineEdit*>(QStringLiteral("userName"))->text();
                        test::click(w, QStringLiteral("Cancel"));
                    })
            .expect(QStringLiteral("User Login"),
                    [](QWidget* w) { test::click(w, QStringLiteral("Cancel")); });
        auto* bar = app.window()->findChild<QToolBar*>(QStringLiteral("toolBar"));
        QAction* login = app.window()->findChild<QAction*>(QStringLiteral("userLogin"));
        QTest::mouseClick(bar->widgetForAction(login), Qt::LeftButton);
        QVERIFY(script.finished());
        QVERIFY2(script.messages().value(0).contains(problem),
                 qPrintable(script.messages().value(0)));
        QCOMPARE(keptText, typed); // nothing cut
        QCOMPARE(app.store().shared.userNames.size(), std::size_t{2});
    }

    // The first and last dates in other time zones are the core's; in UTC they are known here.
    void datePickersOfferOnlyDatesTheFilesCanHold()
    {
        const QDate first(1970, 1, 1);
        const QByteArray previous = qgetenv("TZ");
        qputenv("TZ", "UTC");
        readZone();
        QTemporaryDir dir;
        annaAndBert(dir, 1);
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app.window()->show();
        using ui::PageId;
        for (PageId page : {PageId::Food, PageId::Health, PageId::JournalList, PageId::JournalNotes,
                            PageId::FitnessLog, PageId::Graphs})
            app.window()->showPage(page);
        const auto pickers = app.window()->pageHost()->findChildren<QDateEdit*>();
        QCOMPARE(pickers.size(), 5); // food, health and notes pages, the graphs' from and to
        for (QDateEdit* edit : pickers) {
            QCOMPARE(edit->minimumDate(), first);
            QCOMPARE(edit->maximumDate(), QDate(2106, 2, 6));
            // and each shows the widest of them whole, though its first and last are narrower
            test::enterDate(edit, QDate(2026, 12, 28));
            const auto* line = edit->findChild<QLineEdit*>();
            QVERIFY(line->fontMetrics().horizontalAdvance(line->text()) < line->width() - 4);
        }
        // Typed on the food page, 12/31/1969 does not get in.
        app.window()->showPage(PageId::Food);
        QDateEdit* date =
            static_cast<food::FoodPage*>(app.window()->pageHost()->page(PageId::Food))->dateEdit();
        app.window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(app.window()));
        date->setFocus(Qt::TabFocusReason); // tabbed into: the month is selected
        QTest::keyClicks(date, QStringLiteral("12311969"));
        QTest::keyClick(date, Qt::Key_Enter);
        QVERIFY2(date->date() >= first, qPrintable(date->date().toString(Qt::ISODate)));
        app.window()->close();
        if (previous.isEmpty())
            qunsetenv("TZ");
        else
            qputenv("TZ", previous);
        readZone();
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TestAppSafety)
#include "test_app_safety.moc"
