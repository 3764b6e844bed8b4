// The shell's side of keeping data safe: damaged files reported with the offer of the backup,
// saving soon after a change, and no silent loss when the last save fails.

#include <QFileInfo>
#include <QtTest>

#include "app/Application.h"
#include "app/MainWindow.h"
#include "app/UserSession.h"
#include "model/SafeFile.h"
#include "model/UserDatabase.h"
#include "test_app_support.h"

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
// Returns the backup's and the damaged file's bytes.
std::pair<std::vector<std::uint8_t>, std::vector<std::uint8_t>>
damagedWithBackup(const QTemporaryDir& dir)
{
    test::writeSmallFoods(dir.path());
    const auto good = twoUsers();
    auto damaged = good;
    damaged.resize(damaged.size() - 3);
    test::writeBytes(fileIn(dir, QStringLiteral("velmora.db.bak")), good);
    test::writeBytes(fileIn(dir, QStringLiteral("velmora.db")), damaged);
    return {good, damaged};
}

QStringList damagedCopies(const QTemporaryDir& dir)
{
    return QDir(dir.path()).entryList({QStringLiteral("velmora.db.damaged-*")}, QDir::Files);
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

    void aDamagedFileIsReportedAndItsBackupRestored()
    {
        QTemporaryDir dir;
        const auto [good, damaged] = damagedWithBackup(dir);

        test::ModalScript script;
        script.expect(QStringLiteral("Velmora"),
                      [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
        app::Application app(test::appOptions(dir.path(), true));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList());
        const QString text = script.messages().value(0);
        QVERIFY(text.contains(QStringLiteral("velmora.db is damaged at byte")));
        QVERIFY(text.contains(QStringLiteral("Restore it now?")));

        QCOMPARE(app.store().shared.variables.size(), std::size_t{1});
        QCOMPARE(test::readBytes(fileIn(dir, QStringLiteral("velmora.db"))), good);
        const QStringList copies = damagedCopies(dir);
        QCOMPARE(copies.size(), 1);
        QCOMPARE(test::readBytes(fileIn(dir, copies.first())), damaged);
    }

    void decliningTheBackupKeepsWhatWasReadWhole()
    {
        QTemporaryDir dir;
        const auto [good, damaged] = damagedWithBackup(dir);

        test::ModalScript script;
        script.expect(QStringLiteral("Velmora"),
                      [](QWidget* w) { test::click(w, QStringLiteral("No")); });
        app::Application app(test::appOptions(dir.path(), true));
        QVERIFY(app.start());
        QVERIFY(script.finished());
        QCOMPARE(app.store().shared.userNames, (std::vector<std::string>{"Anna", "Bert"}));
        QVERIFY(app.store().shared.variables.empty()); // the cut list is not half-applied
        // The recovered data is written back soon, next to the kept damaged copy.
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(dir.filePath(QStringLiteral("velmora.db"))),
                                 5000);
        QCOMPARE(damagedCopies(dir).size(), 1);
        app.window()->close();
    }

    void aStoredChangeIsSavedWithinSeconds()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app.store().journal.days.push_back(test::dayWithMeal(1600000000, 0, {{1000, 1.0f}}));
        app.window()->notifyChanged(ui::Change::Journal);
        const auto userFile = fileIn(dir, QStringLiteral("Example User.db"));
        QTRY_VERIFY_WITH_TIMEOUT(std::filesystem::exists(userFile), 5000);
        const auto saved = model::UserJournal::parse(test::readBytes(userFile), "user");
        QVERIFY(saved.ok());
        QCOMPARE(saved.value().days.size(), std::size_t{1});
    }

    void closingAfterAFailedSaveAsksFirst()
    {
        QTemporaryDir dir;
        test::writeSmallFoods(dir.path());
        app::Application app(test::appOptions(dir.path(), false));
        QVERIFY(app.start());
        app.store().shared.userNames.push_back("Anna");
        // A folder in the way of "velmora.db" makes every save of it fail.
        QVERIFY(QDir(dir.path()).mkpath(QStringLiteral("velmora.db/keep")));

        test::ModalScript script;
        script
            .expect(QStringLiteral("Velmora"),
                    [](QWidget* w) { test::click(w, QStringLiteral("OK")); })
            .expect(QStringLiteral("Velmora"),
                    [](QWidget* w) { test::click(w, QStringLiteral("No")); });
        app.window()->show();
        QVERIFY(!app.window()->close());
        QTRY_VERIFY(script.finished());
        QVERIFY(script.messages().value(0).startsWith(
            QStringLiteral("Could not save \"velmora.db\".")));
        QVERIFY(script.messages().value(1).contains(QStringLiteral("Close Velmora anyway")));
        QVERIFY(app.window()->isVisible());
        QCOMPARE(app.store().shared.userNames.size(), std::size_t{2}); // still in memory

        // Once the way is clear, closing saves and quits.
        QVERIFY(QDir(dir.filePath(QStringLiteral("velmora.db"))).removeRecursively());
        QVERIFY(app.window()->close());
        const auto shared = model::SharedData::parse(
            test::readBytes(fileIn(dir, QStringLiteral("velmora.db"))), "velmora.db");
        QVERIFY(shared.ok());
        QCOMPARE(shared.value().userNames.size(), std::size_t{2});
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(TestAppSafety)
#include "test_app_safety.moc"
