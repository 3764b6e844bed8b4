// The handheld sync dialog driven as a user drives it: a handheld user clicked in the list, a
// direction chosen (or none), "Sync", and the question or message answered. Checks which files
// each run changes and what the desktop holds afterwards.

#include <filesystem>
#include <map>
#include <set>

#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "GuiTestSupport.h"
#include "test_app_support.h"
#include "model/KorvelFiles.h"
#include "model/Store.h"
#include "model/TandryFiles.h"
#include "support/DataFolderFixture.h"
#include "support/Fixtures.h"
#include "support/TransferBytes.h"
#include "sync/SyncDialog.h"
#include "sync/logic/HandheldFolder.h"
#include "sync/logic/SyncOperation.h"
#include "ui/Messages.h"

using namespace velmora;
namespace fs = std::filesystem;

namespace {

using Snapshot = std::map<std::string, std::vector<std::uint8_t>>;

// Every file below the folder by its relative path; a file in a folder of its own other than the
// handheld's (the dated copy of an import) is named "copy/<file>".
Snapshot snapshot(const fs::path& dir)
{
    Snapshot files;
    for (const auto& e : fs::recursive_directory_iterator(dir)) {
        if (!e.is_regular_file())
            continue;
        fs::path rel = fs::relative(e.path(), dir);
        std::string name = rel.generic_string();
        if (rel.has_parent_path() && rel.parent_path() != sync::HandheldFolderName)
            name = "copy/" + rel.filename().string();
        files[name] = test::readBytes(e.path());
    }
    return files;
}

QStringList changedFiles(const Snapshot& before, const Snapshot& after)
{
    std::set<std::string> names;
    for (const auto& [name, bytes] : before)
        if (!after.count(name) || after.at(name) != bytes)
            names.insert(name);
    for (const auto& [name, bytes] : after)
        if (!before.count(name))
            names.insert(name);
    QStringList list;
    for (const std::string& n : names)
        list << QString::fromStdString(n);
    return list;
}

QStringList files(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* n : names)
        list << QString::fromLatin1(n);
    return list;
}

enum Choice
{
    Neither,
    Export,
    Import
};

} // namespace

class SyncDialogTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;

private slots:
    void initTestCase() { test::keepSettingsIn(m_settings); }
    void syncRun_data()
    {
        QTest::addColumn<bool>("tandry");
        QTest::addColumn<int>("choice");
        QTest::addColumn<int>("version");                        // of the handheld's shared file
        QTest::addColumn<QMessageBox::StandardButton>("answer"); // to the first box
        QTest::addColumn<int>("finished");                       // -1: the dialog stays open
        QTest::addColumn<QStringList>("changed");

        const QStringList none;
        const QStringList imported = files({"Bert.db", "Bert.db.bak", "copy/Bert.db",
                                            "copy/velmora.db", "velmora.db", "velmora.db.bak"});
        QTest::newRow("diet export")
            << true << int(Export) << 376 << QMessageBox::Yes << int(QDialog::Accepted)
            << files({"TandryFiles/Ann.db", "TandryFiles/tandry.db"});
        QTest::newRow("diet import")
            << true << int(Import) << 376 << QMessageBox::Yes << int(QDialog::Accepted) << imported;
        QTest::newRow("neither choice imports") << true << int(Neither) << 376 << QMessageBox::Yes
                                                << int(QDialog::Accepted) << imported;
        QTest::newRow("No keeps everything")
            << true << int(Export) << 376 << QMessageBox::No << -1 << none;
        // The version rule itself is the sync logic's; one refused version stands for it here.
        QTest::newRow("earlier diet version")
            << true << int(Import) << 375 << QMessageBox::Ok << int(QDialog::Rejected) << none;
        QTest::newRow("workout export")
            << false << int(Export) << 302 << QMessageBox::Yes << int(QDialog::Accepted)
            << files({"TandryFiles/Ann.dwb", "TandryFiles/korvel.dwb"});
        QTest::newRow("workout import") << false << int(Import) << 302 << QMessageBox::Yes
                                        << int(QDialog::Accepted) << imported;
    }

    void syncRun()
    {
        QFETCH(bool, tandry);
        QFETCH(int, choice);
        QFETCH(int, version);
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(int, finished);
        QFETCH(QStringList, changed);

        // Desktop users Anna and Bert (current, with days); handheld users "Ann" (with a file) and,
        // on the diet handheld, "Bob".
        test::TempDir dir;
        test::writeHandMadeFolder(dir);
        const fs::path folder = sync::handheldFolder(dir.path());
        fs::create_directory(folder);
        const auto v = static_cast<std::uint32_t>(version);
        test::writeBytes(folder / "tandry.db", test::handTandryShared(tandry ? v : 376));
        test::writeBytes(folder / "Ann.db", test::handTandryUser(376));
        test::writeBytes(folder / "korvel.dwb", test::handKorvelShared(tandry ? 302 : v));
        test::writeBytes(folder / "Ann.dwb", test::handKorvelUser(302));

        test::TestContext context;
        context.m_store = test::storeIn(dir);
        QVERIFY(context.m_store.load().errors.empty());
        model::Store& store = context.m_store;
        const Snapshot before = snapshot(dir.path());
        const std::vector<std::uint8_t> desktopJournal = store.journal.serialize();

        // What the sync logic makes of the handheld user "Ann" in the chosen direction, worked out
        // before the dialog runs: the dialog must run exactly this, for the user clicked.
        sync::SyncRequest request;
        request.handheld = tandry ? sync::Handheld::Tandry : sync::Handheld::Korvel;
        request.direction = sync::chosenDirection(choice == Export);
        request.dataDir = dir.path();
        request.userFile = *store.userFilePath(store.shared.currentUser);
        const sync::SyncOperation expected = sync::SyncOperation::prepare(
            request, store.shared, store.journal, store.foods.catalogue());

        sync::SyncDialog dialog(context, tandry ? sync::Handheld::Tandry : sync::Handheld::Korvel);
        QSignalSpy done(&dialog, &QDialog::finished);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("localUser"))->text(),
                 QStringLiteral("Bert"));

        auto* users = dialog.findChild<QListWidget*>(QStringLiteral("handheldUsers"));
        auto* sync = dialog.findChild<QPushButton*>(QStringLiteral("sync"));
        QCOMPARE(users->count(), tandry ? 2 : 1);
        QVERIFY(!sync->isEnabled()); // until a handheld user is chosen
        const QRect ann = users->visualItemRect(users->item(0));
        QTest::mouseClick(users->viewport(), Qt::LeftButton, {}, ann.center());
        QVERIFY(sync->isEnabled());
        if (choice != Neither) {
            auto* radio = dialog.findChild<QRadioButton*>(
                choice == Export ? QStringLiteral("exportChoice") : QStringLiteral("importChoice"));
            QTest::mouseClick(radio, Qt::LeftButton);
            QVERIFY(radio->isChecked());
        }

        test::ModalScript answers;
        answers.expect(QStringLiteral("*"), [answer](QWidget* w) {
            if (QAbstractButton* button = static_cast<QMessageBox*>(w)->button(answer))
                test::click(button);
            else
                w->close(); // a box without the expected button; its text tells the rest
        });
        QTest::mouseClick(sync, Qt::LeftButton);
        QTRY_VERIFY(answers.finished());
        QCOMPARE(answers.unexpected(), QStringList());

        const bool exporting = choice == Export;
        const bool refused = answer == QMessageBox::Ok;
        const int question = tandry
                                 ? (exporting ? ui::MsgSyncExportTandry : ui::MsgSyncImportTandry)
                                 : (exporting ? ui::MsgSyncExportKorvel : ui::MsgSyncImportKorvel);
        const QString shown = answers.messages().value(0);
        if (refused) {
            QCOMPARE(shown, ui::messageText(ui::MsgHandheldVersion));
        } else {
            QVERIFY2(shown.startsWith(ui::messageText(question)), qPrintable(shown));
            // An import says where the current data is kept.
            QCOMPARE(shown.contains(QStringLiteral("copy of your current data")), !exporting);
        }

        if (finished < 0) {
            QVERIFY(dialog.isVisible());
            QCOMPARE(done.count(), 0);
        } else {
            QCOMPARE(done.count(), 1);
            QCOMPARE(done.front().front().toInt(), finished);
        }
        const Snapshot after = snapshot(dir.path());
        QCOMPARE(changedFiles(before, after), changed);

        if (finished == QDialog::Accepted && exporting) {
            // The handheld user's file holds the desktop user's days.
            const std::string user = tandry ? "TandryFiles/Ann.db" : "TandryFiles/Ann.dwb";
            const std::size_t days =
                tandry ? model::TandryUser::parse(after.at(user), user).take().days.size()
                       : model::KorvelUser::parse(after.at(user), user).take().days.size();
            QCOMPARE(days, tandry ? expected.tandryExport()->user.days.size()
                                  : expected.korvelExport()->user.days.size());
            QVERIFY(days > 0);
            QCOMPARE(store.journal.serialize(), desktopJournal);
            QCOMPARE(context.modified, 0);
        } else if (finished == QDialog::Accepted) {
            // The days the logic computed, saved; what they hold and the dated copy's bytes are
            // the sync logic's.
            QCOMPARE(store.journal.days.size(), expected.importedJournal().days.size());
            QCOMPARE(after.at("Bert.db"), store.journal.serialize());
            QVERIFY(context.modified > 0);
            // The status names the folder the copy went to.
            const QStringList quoted = context.status.split(QLatin1Char('"'));
            QVERIFY2(quoted.size() == 3, qPrintable(context.status));
            QVERIFY(fs::is_regular_file(dir / quoted[1].toStdString() / "Bert.db"));
        } else {
            QCOMPARE(store.journal.serialize(), desktopJournal);
            QCOMPARE(context.modified, 0);
        }
    }
};

QTEST_MAIN(SyncDialogTest)
#include "test_sync_dialog.moc"
