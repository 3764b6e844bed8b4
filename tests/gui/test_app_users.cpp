// The users of the shell driven through the real dialogs: first start, Initial Setup, New User,
// User Login and deleting users, and what reaches the disk on the way.

#include <QComboBox>
#include <QLineEdit>
#include <QtTest>

#include "app/Application.h"
#include "app/MainWindow.h"
#include "app/UserSession.h"
#include "model/SafeFile.h"
#include "model/TextCodec.h"
#include "ui/Messages.h"
#include "test_app_support.h"
#include "GuiTestSupport.h"

using namespace velmora;
using velmora::test::click;
using velmora::test::ModalScript;

namespace {

QString fileIn(const QTemporaryDir& dir, const QString& name)
{
    return QDir(dir.path()).filePath(name);
}

model::SharedData readShared(const QTemporaryDir& dir)
{
    const auto bytes =
        model::readWholeFile(fileIn(dir, QStringLiteral("velmora.db")).toStdString());
    if (!bytes)
        return {};
    auto parsed = model::SharedData::parse(bytes.value(), "velmora.db");
    return parsed ? parsed.take() : model::SharedData{};
}

std::size_t daysInFile(const QString& path)
{
    const auto bytes = model::readWholeFile(path.toStdString());
    if (!bytes)
        return 0;
    auto parsed = model::UserJournal::parse(bytes.value(), "user");
    return parsed ? parsed.value().days.size() : 0;
}

std::vector<std::string> names(app::Application& app)
{
    return app.store().shared.userNames;
}

model::JournalDay dayNumber(int n)
{
    return test::dayWithMeal(1600000000 + 86400 * n, 0, {{1000, 1.5f}});
}

} // namespace

class TestAppUsers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_settings.isValid());
        test::usePrivateSettings(m_settings.path());
    }

    void init() { test::resetSettings(); }

    void firstStartShowsInitialSetupAndNextMakesTheNewUser()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        ModalScript script;
        script
            .expect(QStringLiteral("Initial Setup"),
                    [](QWidget* w) { click(w, QStringLiteral("Next >>")); })
            .expect(QStringLiteral("New User"),
                    [](QWidget* w) {
                        test::retype(w->findChild<QLineEdit*>(QStringLiteral("userName")),
                                     QStringLiteral("zoë"));
                        click(w, QStringLiteral("OK"));
                    })
            .expect(QStringLiteral("*"), [](QWidget* w) { w->close(); }); // the diet goals

        app::Application app(test::appOptions(dir.path(), true));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList());

        // The name is stored with its first letter upper-cased, in the files' encoding.
        const std::string zoe = model::utf8ToCp1252("Zoë");
        QCOMPARE(names(app), (std::vector<std::string>{"Example User", zoe}));
        QCOMPARE(int(app.store().shared.currentUser), 1);
        QCOMPARE(app.window()->windowTitle(), QStringLiteral("Zoë - Velmora"));

        // Both files were written before the switch: the names, and the example user's journal.
        QCOMPARE(readShared(dir).userNames, (std::vector<std::string>{"Example User", zoe}));
        QVERIFY(QFile::exists(fileIn(dir, QStringLiteral("Example User.db"))));
        const int savesBeforeExit = app.window()->session().saveCount();
        QCOMPARE(savesBeforeExit, 1);

        // Shut-down writes both files again, now with the new user current.
        app.window()->close();
        QCOMPARE(app.window()->session().saveCount(), savesBeforeExit + 1);
        QCOMPARE(int(readShared(dir).currentUser), 1);
        const auto zoeFile = app.store().userFilePath(1);
        QVERIFY(zoeFile && std::filesystem::exists(*zoeFile));
        std::filesystem::remove(*zoeFile);
    }

    // A name refused in "New User" keeps the dialog open with what was typed (see the names that
    // cannot be file names in test_app_safety); skipping the setup then writes nothing.
    void skippingTheSetupWritesNothing()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        ModalScript script;
        script.expect(QStringLiteral("Initial Setup"),
                      [](QWidget* w) { click(w, QStringLiteral("Skip")); });
        app::Application app(test::appOptions(dir.path(), true));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList());
        QCOMPARE(names(app), std::vector<std::string>{"Example User"});
        QCOMPARE(app.window()->session().saveCount(), 0);
        QVERIFY(!QFile::exists(fileIn(dir, QStringLiteral("velmora.db"))));
    }

    void newNamesAreCheckedAsFileNamesAndAgainstExistingNames_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<bool>("duplicate");
        QTest::addColumn<bool>("acceptedIgnoringCase"); // where the folder ignores case
        QTest::newRow("same name") << QStringLiteral("Example User") << false << true << false;
        QTest::newRow("lower-case first letter")
            << QStringLiteral("example User") << false << true << false;
        QTest::newRow("all capitals") << QStringLiteral("EXAMPLE USER") << true << false << false;
        QTest::newRow("one letter more")
            << QStringLiteral("Example Users") << true << false << true;
        // The file-name rules themselves are the core's; one stands for them here.
        QTest::newRow("path separator") << QStringLiteral("../evil") << false << false << false;
        QTest::newRow("accented") << QStringLiteral("émile") << true << false << true;
    }

    void newNamesAreCheckedAsFileNamesAndAgainstExistingNames()
    {
        QFETCH(QString, typed);
        QFETCH(bool, accepted);
        QFETCH(bool, duplicate);
        QFETCH(bool, acceptedIgnoringCase);
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app::UserSession& session = app.window()->session();
        session.setFileNamesIgnoreCase(false);
        QString problem = session.newNameProblem(typed);
        QCOMPARE(problem.isEmpty(), accepted);
        QCOMPARE(app::UserSession::isDuplicate(problem), duplicate);
        // Where one file name stands for every spelling in capitals and small letters, a name
        // whose file would be the example user's file is refused, and says so.
        session.setFileNamesIgnoreCase(true);
        problem = session.newNameProblem(typed);
        QCOMPARE(problem.isEmpty(), acceptedIgnoringCase);
        if (!problem.isEmpty() && !duplicate && accepted)
            QVERIFY(problem.contains(QStringLiteral("\"Example User\"")));
    }

    void the256thUserIsRefused()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app::UserSession& session = app.window()->session();
        for (int i = 1; i < 255; ++i) {
            QVERIFY(session.newNameProblem(QStringLiteral("User %1").arg(i)).isEmpty());
            session.addUser("User " + std::to_string(i));
        }
        QCOMPARE(names(app).size(), std::size_t{255});
        const QString problem = session.newNameProblem(QStringLiteral("One Too Many"));
        QVERIFY(problem.contains(QStringLiteral("255")));
        QVERIFY(!app::UserSession::isDuplicate(problem));
    }

    void loginToTheCurrentUserSavesNothingAndToAnotherSavesAndLoads()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app::UserSession& session = app.window()->session();
        model::Store& store = app.store();
        // Alice keeps one day, Bob two.
        QVERIFY(session.switchTo(session.addUser("Alice")));
        store.journal.days.push_back(dayNumber(1));
        QVERIFY(session.switchTo(session.addUser("Bob")));
        store.journal.days.push_back(dayNumber(2));
        store.journal.days.push_back(dayNumber(3));
        QVERIFY(session.switchTo(1));
        QCOMPARE(store.journal.days.size(), std::size_t{1});
        QCOMPARE(daysInFile(fileIn(dir, QStringLiteral("Bob.db"))), std::size_t{2});

        app.window()->saveNow(); // the quiet save that adding the users scheduled
        const int saves = session.saveCount();

        ModalScript same;
        same.expect(QStringLiteral("User Login"),
                    [](QWidget* w) { click(w, QStringLiteral("Login")); });
        app.window()->userLogin();
        QVERIFY(same.finished());
        QCOMPARE(session.saveCount(), saves);
        QCOMPARE(int(store.shared.currentUser), 1);
        QCOMPARE(store.journal.days.size(), std::size_t{1});

        // Alice gains a day in memory; logging in as Bob writes it and loads Bob's two days.
        store.journal.days.push_back(dayNumber(4));
        QStringList listed;
        ModalScript other;
        other.expect(QStringLiteral("User Login"), [&](QWidget* w) {
            auto* users = w->findChild<QComboBox*>(QStringLiteral("users"));
            for (int i = 0; i < users->count(); ++i)
                listed.append(users->itemText(i));
            QCOMPARE(users->currentIndex(), 1);
            test::chooseItem(users, 2);
            click(w, QStringLiteral("Login"));
        });
        app.window()->userLogin();
        QVERIFY(other.finished());
        QCOMPARE(listed, (QStringList{QStringLiteral("Example User"), QStringLiteral("Alice"),
                                      QStringLiteral("Bob")}));
        QCOMPARE(session.saveCount(), saves + 1);
        QCOMPARE(int(store.shared.currentUser), 2);
        QCOMPARE(store.journal.days.size(), std::size_t{2});
        QCOMPARE(daysInFile(fileIn(dir, QStringLiteral("Alice.db"))), std::size_t{2});
        QCOMPARE(app.window()->windowTitle(), QStringLiteral("Bob - Velmora"));
    }

    void deletingTheCurrentUserMakesTheFirstUserCurrent()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app::UserSession& session = app.window()->session();
        model::Store& store = app.store();
        QVERIFY(session.switchTo(session.addUser("Alice")));
        QVERIFY(session.switchTo(session.addUser("Bob")));
        store.journal.days.push_back(dayNumber(1));
        QVERIFY(session.switchTo(1));
        QVERIFY(session.switchTo(2));
        QVERIFY(QFile::exists(fileIn(dir, QStringLiteral("Bob.db"))));

        // "No" keeps the user; "Yes" deletes it.
        QStringList afterDelete;
        ModalScript script;
        script
            .expect(QStringLiteral("User Login"),
                    [](QWidget* w) { click(w, QStringLiteral("Delete Selected User")); })
            .expect(QStringLiteral("Velmora"), [](QWidget* w) { click(w, QStringLiteral("No")); })
            .expect(QStringLiteral("User Login"),
                    [](QWidget* w) { click(w, QStringLiteral("Delete Selected User")); })
            .expect(QStringLiteral("Velmora"), [](QWidget* w) { click(w, QStringLiteral("Yes")); })
            .expect(QStringLiteral("User Login"), [&](QWidget* w) {
                auto* users = w->findChild<QComboBox*>(QStringLiteral("users"));
                for (int i = 0; i < users->count(); ++i)
                    afterDelete.append(users->itemText(i));
                click(w, QStringLiteral("Cancel"));
            });
        app.window()->userLogin();
        QVERIFY(script.finished());
        QCOMPARE(script.messages(), QStringList(2, ui::messageText(ui::MsgDeleteUser)));
        QCOMPARE(afterDelete,
                 (QStringList{QStringLiteral("Example User"), QStringLiteral("Alice")}));
        QCOMPARE(names(app), (std::vector<std::string>{"Example User", "Alice"}));
        QCOMPARE(int(store.shared.currentUser), 0);
        QVERIFY(store.journal.days.empty());
        QVERIFY(!QFile::exists(fileIn(dir, QStringLiteral("Bob.db"))));
        QCOMPARE(app.window()->windowTitle(), QStringLiteral("Example User - Velmora"));
    }

    void deletingTheOnlyUserBringsBackTheExampleUser()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app.window()->session().deleteUser(0);
        QCOMPARE(names(app), std::vector<std::string>{"Example User"});
        QCOMPARE(int(app.store().shared.currentUser), 0);
        QVERIFY(!app.store().shared.exercises.empty());
    }

    void withoutTheFoodDatabaseTheUserIsToldAndNothingIsSaved()
    {
        QTemporaryDir dir;
        ModalScript script;
        script.expect(QStringLiteral("Velmora"),
                      [](QWidget* w) { click(w, QStringLiteral("OK")); });
        // The food database named on the command line is missing (a foods.db beside the test
        // program must not stand in for it).
        app::Application app(
            test::appOptions(dir.path(), true, dir.filePath(QStringLiteral("foods.db"))));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList()); // and no Initial Setup over an unloaded store
        QCOMPARE(script.messages().size(), 1);
        QVERIFY(script.messages().first().contains(QStringLiteral("foods.db")));
        QVERIFY(script.messages().first().contains(QDir::toNativeSeparators(dir.path())));
        app.window()->close();
        QVERIFY(!QFile::exists(fileIn(dir, QStringLiteral("velmora.db"))));
        QVERIFY(!QFile::exists(fileIn(dir, QStringLiteral("Example User.db"))));
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TestAppUsers)
#include "test_app_users.moc"
