// The File menu's export and weigh-in import dialogs driven as a user drives them: paths typed
// into the line edits, choices clicked, dates typed, Return, "Export", "Stop", "Import",
// "Cancel", and the message boxes answered. The export must write exactly what the export logic
// writes for the same choices; the import must change the journal only when confirmed.

#include <map>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest>

#include "GuiTestSupport.h"
#include "ui/DateLimits.h"
#include "app/MainWindow.h"
#include "app/PageHost.h"
#include "export-ui/ExportDialog.h"
#include "export-ui/HealthImportDialog.h"
#include "export/JournalExport.h"
#include "model/JournalEdits.h"
#include "model/UserDatabase.h"
#include "ui/Page.h"
#include "support/Builders.h"
#include "support/TempDir.h"
#include "test_app_support.h"

using namespace velmora;
using test::retype;
namespace fs = std::filesystem;

namespace {

using Files = std::map<std::string, std::vector<std::uint8_t>>;

Files filesIn(const fs::path& dir)
{
    Files files;
    std::error_code ec;
    if (!fs::is_directory(dir, ec))
        return files;
    for (const auto& e : fs::directory_iterator(dir))
        files[e.path().filename().string()] = test::readBytes(e.path());
    return files;
}

QString qPath(const fs::path& p)
{
    return QString::fromStdString(p.string());
}

// A journal of the given number of days with meals, workouts, health values and notes, over a
// small food database, for the user "Ann".
void fillStore(model::Store& store, int days)
{
    store.foods = test::generatedFoods(20);
    store.foods.catalogue().appendComputed();
    store.shared.userNames = {"Ann"};
    store.shared.currentUser = 0;
    store.shared.fields = {{1, "Reps", 0}, {2, "Weight", 0}};
    store.shared.exercises = {{1, "Bench press", {1, 2}}};
    store.shared.routines = {{1, 300, "Strength", {1}}};
    store.journal.days = test::generatedJournal(store.foods, test::JournalShape{days, 3, 3, 1, 1});
}

model::CalendarDate dateOf(const model::Store& store, std::size_t day)
{
    return model::CalendarDate::fromTime(store.journal.days[day].date);
}

QString isoText(const model::CalendarDate& d)
{
    return ui::toQDate(d).toString(Qt::ISODate);
}

template <class T> T* child(QWidget& parent, const char* name)
{
    auto* w = parent.findChild<T*>(QString::fromLatin1(name));
    if (!w)
        qFatal("no widget %s", name);
    return w;
}

void click(QAbstractButton* button)
{
    QVERIFY(button->isEnabled());
    // A check box or radio button may be wider than its box and text: a click where it shows.
    const bool box = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
    QTest::mouseClick(button, Qt::LeftButton, {},
                      box ? QPoint(8, button->height() / 2) : button->rect().center());
}

// The journal's health entry of the date; an empty one when there is no such day.
model::HealthEntry healthOn(const model::Store& store, const model::CalendarDate& date)
{
    const model::JournalDay* day = model::findDay(store.journal, date);
    return day ? day->health : model::HealthEntry{};
}

// The weigh-in file of the import tests over a journal whose first three days weigh 150, 151 and
// 152 lb and hold no body fat: line 2 repeats a weight and adds a body fat, line 3 changes a
// weight, line 4 weighs a day the journal does not have, line 5 has no real date, line 6 a
// weight that is not a number.
std::string weighIns(const model::Store& store, const model::CalendarDate& newDay)
{
    const QString text = QStringLiteral("Date,Weight (lb),Body fat (%)\n"
                                        "%1,150,20\n"
                                        "%2,155,\n"
                                        "%3,149.5,\n"
                                        "2015-02-30,150,\n"
                                        "%4,heavy,\n")
                             .arg(isoText(dateOf(store, 0)), isoText(dateOf(store, 1)),
                                  isoText(newDay), isoText(dateOf(store, 2)));
    return text.toStdString();
}

enum class Earlier
{
    None,    // the folder does not exist yet
    Replace, // it holds a servings.csv of an earlier export; "Yes" to replacing it
    Keep,    // the same; "No"
    Blocked  // the folder's path runs through a file, so it cannot be made
};

enum class Finish
{
    Cancel,
    Import,
    ReplaceAndImport
};

} // namespace

class ExportDialogsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { test::usePrivateSettings(m_settings.path()); }
    void init() { test::resetSettings(); }
    void exportWritesWhatWasChosen_data()
    {
        QTest::addColumn<bool>("someDays"); // from the third day to the sixth, typed
        QTest::addColumn<bool>("json");
        QTest::addColumn<Earlier>("earlier");
        QTest::addColumn<bool>("written");

        QTest::newRow("whole journal as CSV") << false << false << Earlier::None << true;
        QTest::newRow("typed days as JSON") << true << true << Earlier::None << true;
        QTest::newRow("earlier export replaced") << false << false << Earlier::Replace << true;
        QTest::newRow("earlier export kept") << false << false << Earlier::Keep << false;
        QTest::newRow("folder cannot be made") << false << false << Earlier::Blocked << false;
    }

    void exportWritesWhatWasChosen()
    {
        QFETCH(bool, someDays);
        QFETCH(bool, json);
        QFETCH(Earlier, earlier);
        QFETCH(bool, written);

        test::TestContext context;
        fillStore(context.m_store, 10);
        const model::Store& store = context.m_store;
        const std::vector<std::uint8_t> journalBefore = store.journal.serialize();
        test::TempDir dir;
        fs::path folder = dir / "export";
        if (earlier == Earlier::Replace || earlier == Earlier::Keep) {
            fs::create_directory(folder);
            test::writeBytes(folder / exchange::ServingsFileName, {'o', 'l', 'd'});
            test::writeBytes(folder / "mine.txt", {'m'});
        }
        if (earlier == Earlier::Blocked) {
            test::writeBytes(dir / "file", {'x'});
            folder = dir / "file" / "export";
        }
        const Files before = filesIn(folder);

        // What the export logic writes for the same choices.
        exchange::ExportOptions options;
        options.csv = !json;
        options.json = json;
        if (someDays) {
            options.from = dateOf(store, 2);
            options.to = dateOf(store, 5);
        }
        test::TempDir reference;
        QVERIFY(exchange::exportJournal(store, reference.path(), options).ok());
        Files expected = before;
        for (const auto& [name, bytes] : filesIn(reference.path()))
            expected[name] = bytes;

        exchange::ExportDialog dialog(context);
        QSignalSpy done(&dialog, &QDialog::finished);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto* progress = child<QProgressBar>(dialog, "progress");
        QSignalSpy moved(progress, &QProgressBar::valueChanged);

        retype(child<QLineEdit>(dialog, "folderPath"), qPath(folder));
        if (someDays) {
            click(child<QRadioButton>(dialog, "someDays"));
            test::enterDate(child<QDateEdit>(dialog, "fromDate"), ui::toQDate(dateOf(store, 2)));
            test::enterDate(child<QDateEdit>(dialog, "toDate"), ui::toQDate(dateOf(store, 5)));
        }
        if (json)
            click(child<QRadioButton>(dialog, "json"));

        test::ModalScript script;
        if (earlier == Earlier::Replace || earlier == Earlier::Keep) {
            script.expect(QStringLiteral("Velmora"), [earlier](QWidget* w) {
                test::click(w, earlier == Earlier::Replace ? QStringLiteral("Yes")
                                                           : QStringLiteral("No"));
            });
        }
        if (earlier != Earlier::Keep)
            script.expect(QStringLiteral("Velmora"),
                          [](QWidget* w) { test::click(w, QStringLiteral("OK")); });
        click(child<QPushButton>(dialog, "export"));
        QTRY_VERIFY(script.finished());
        QTRY_VERIFY(!dialog.running());
        QCOMPARE(script.unexpected(), QStringList());

        const Files after = filesIn(folder);
        QVERIFY(after == (written ? expected : before));
        QCOMPARE(store.journal.serialize(), journalBefore);
        if (written) {
            QTRY_COMPARE(done.count(), 1);
            QCOMPARE(done.front().front().toInt(), int(QDialog::Accepted));
            // The last message names the folder and every file written.
            const QString message = script.messages().last();
            QVERIFY2(message.contains(qPath(folder)), qPrintable(message));
            for (const auto& [name, bytes] : filesIn(reference.path()))
                QVERIFY2(message.contains(QString::fromStdString(name)), qPrintable(message));
            // The bar moved with the days and ended full.
            QVERIFY(moved.count() > 2);
            QCOMPARE(progress->value(), progress->maximum());
        } else {
            QVERIFY(dialog.isVisible());
            QCOMPARE(done.count(), 0);
            QCOMPARE(script.messages().size(), 1);
        }
    }

    void stopLeavesTheFolderAsItWas()
    {
        // Ten years take long enough that "Stop", clicked at once, comes before the end.
        test::TestContext context;
        fillStore(context.m_store, 3650);
        test::TempDir dir;
        const fs::path folder = dir / "export";

        exchange::ExportDialog dialog(context);
        QSignalSpy done(&dialog, &QDialog::finished);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        retype(child<QLineEdit>(dialog, "folderPath"), qPath(folder));
        auto* cancel = child<QPushButton>(dialog, "cancel");
        click(child<QPushButton>(dialog, "export"));
        QVERIFY(dialog.running());
        QVERIFY(!child<QPushButton>(dialog, "export")->isEnabled());
        click(cancel);
        QTRY_VERIFY_WITH_TIMEOUT(!dialog.running(), 20000);

        QVERIFY(!fs::exists(folder));
        QVERIFY(dialog.isVisible());
        QCOMPARE(done.count(), 0);
        QVERIFY(child<QPushButton>(dialog, "export")->isEnabled());
        // Once stopped, Cancel closes.
        click(cancel);
        QCOMPARE(done.count(), 1);
        QCOMPARE(done.front().front().toInt(), int(QDialog::Rejected));
    }

    void importPreviewsAndChangesOnlyWhenConfirmed_data()
    {
        QTest::addColumn<Finish>("finish");
        QTest::newRow("Cancel changes nothing") << Finish::Cancel;
        QTest::newRow("Import adds the new values") << Finish::Import;
        QTest::newRow("Import replaces when asked") << Finish::ReplaceAndImport;
    }

    void importPreviewsAndChangesOnlyWhenConfirmed()
    {
        QFETCH(Finish, finish);

        test::TestContext context;
        fillStore(context.m_store, 3);
        model::Store& store = context.m_store;
        const model::CalendarDate d0 = dateOf(store, 0), d1 = dateOf(store, 1);
        const QDate later = QDate(d0.year, d0.month, d0.day).addDays(5);
        const model::CalendarDate newDay{later.year(), later.month(), later.day()};
        const std::vector<std::uint8_t> journalBefore = store.journal.serialize();
        test::TempDir dir;
        const std::string csv = weighIns(store, newDay);
        test::writeBytes(dir / "scale.csv", std::vector<std::uint8_t>(csv.begin(), csv.end()));

        exchange::HealthImportDialog dialog(context);
        QSignalSpy done(&dialog, &QDialog::finished);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto* import = child<QPushButton>(dialog, "import");
        auto* table = child<QTableWidget>(dialog, "changes");
        QVERIFY(!import->isEnabled());

        auto* path = child<QLineEdit>(dialog, "filePath");
        retype(path, qPath(dir / "scale.csv"));
        QTest::keyClick(path, Qt::Key_Return);
        QCOMPARE(done.count(), 0); // Return previews, it does not import

        // Two new values (a body fat, a day's first weight) and one replacement, by date; the
        // weight the journal already holds is not listed.
        const char* rows[][3] = {{"Body fat", "", "20 %"}, // what, old value, new value
                                 {"Weight", "151 lb", "155 lb"},
                                 {"Weight", "", "149.5 lb"}};
        QCOMPARE(table->rowCount(), 3);
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                QCOMPARE(table->item(r, c + 1)->text(), QString::fromLatin1(rows[r][c]));
        const QString newMark = table->item(0, 4)->text();
        QCOMPARE(table->item(2, 4)->text(), newMark);
        const QString keptMark = table->item(1, 4)->text();
        QVERIFY(keptMark != newMark);
        QVERIFY(table->item(1, 0)->background() != table->item(0, 0)->background());

        auto* problems = child<QListWidget>(dialog, "problems");
        QVERIFY(problems->isVisible());
        QCOMPARE(problems->count(), 2); // lines 5 and 6, as the import logic reads them
        QVERIFY(import->isEnabled());
        QCOMPARE(store.journal.serialize(), journalBefore); // a preview writes nothing

        if (finish == Finish::ReplaceAndImport) {
            click(child<QCheckBox>(dialog, "replace"));
            const QString replacedMark = table->item(1, 4)->text();
            QVERIFY(replacedMark != keptMark && replacedMark != newMark);
        }
        click(finish == Finish::Cancel ? child<QPushButton>(dialog, "cancel") : import);
        QCOMPARE(done.count(), 1);

        if (finish == Finish::Cancel) {
            QCOMPARE(done.front().front().toInt(), int(QDialog::Rejected));
            QCOMPARE(store.journal.serialize(), journalBefore);
            QCOMPARE(context.modified, 0);
            return;
        }
        QCOMPARE(done.front().front().toInt(), int(QDialog::Accepted));
        QCOMPARE(context.modified, 1);
        QCOMPARE(healthOn(store, d0).weight, 150.0f);
        QCOMPARE(healthOn(store, d0).bodyFat, 20.0f);
        QCOMPARE(healthOn(store, newDay).weight, 149.5f);
        QCOMPARE(healthOn(store, d1).weight, finish == Finish::ReplaceAndImport ? 155.0f : 151.0f);
        QCOMPARE(dialog.written(), std::size_t(finish == Finish::ReplaceAndImport ? 3 : 2));
        QCOMPARE(store.journal.days.size(), std::size_t(4));
    }

    void importUnitsAndUnreadableFiles_data()
    {
        QTest::addColumn<QByteArray>("file"); // empty: no file at the path
        QTest::addColumn<bool>("kilograms");  // Down in the weight unit box
        QTest::addColumn<bool>("importable");

        QTest::newRow("weights without unit in pounds")
            << QByteArray("Date,Weight\nD0,70\n") << false << true;
        QTest::newRow("weights without unit in kilograms")
            << QByteArray("Date,Weight\nD0,70\n") << true << true;
        QTest::newRow("no such file") << QByteArray() << false << false;
        QTest::newRow("no date column") << QByteArray("Weight\n70\n") << false << false;
        QTest::newRow("only unreadable rows")
            << QByteArray("Date,Weight\nD0,x\n") << false << false;
    }

    void importUnitsAndUnreadableFiles()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, kilograms);
        QFETCH(bool, importable);

        test::TestContext context;
        fillStore(context.m_store, 1);
        model::Store& store = context.m_store;
        store.journal.days[0].health.weight = 0.0f;
        const model::CalendarDate d0 = dateOf(store, 0);
        const std::vector<std::uint8_t> journalBefore = store.journal.serialize();
        test::TempDir dir;
        file.replace("D0", isoText(d0).toUtf8());
        if (!file.isEmpty())
            test::writeBytes(dir / "scale.csv",
                             std::vector<std::uint8_t>(file.begin(), file.end()));

        // What the import logic plans for the chosen unit.
        exchange::HealthImportOptions options;
        options.weightUnit =
            kilograms ? exchange::WeightUnit::Kilograms : exchange::WeightUnit::Pounds;
        const auto plan = exchange::planHealthImport(file.toStdString(), store.journal, options);

        exchange::HealthImportDialog dialog(context);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto* path = child<QLineEdit>(dialog, "filePath");
        retype(path, qPath(dir / "scale.csv"));
        QTest::keyClick(path, Qt::Key_Return);
        if (kilograms) {
            auto* unit = child<QComboBox>(dialog, "weightUnit");
            unit->setFocus();
            QTest::keyClick(unit, Qt::Key_Down);
            QCOMPARE(unit->currentText(), QStringLiteral("Kilograms (kg)"));
        }
        auto* import = child<QPushButton>(dialog, "import");
        QCOMPARE(import->isEnabled(), importable);
        QCOMPARE(child<QTableWidget>(dialog, "changes")->rowCount(), importable ? 1 : 0);
        if (!importable) {
            QVERIFY(!child<QLabel>(dialog, "summary")->text().isEmpty());
            QCOMPARE(store.journal.serialize(), journalBefore);
            return;
        }
        click(import);
        QVERIFY(plan.ok());
        QCOMPARE(plan.plan->newValues.size(), std::size_t(1));
        QCOMPARE(healthOn(store, d0).weight, plan.plan->newValues.front().newValue);
    }

    void importFromTheFileMenuShowsOnTheHealthPage()
    {
        // The program with one user whose journal holds nothing yet; a weigh-in of today.
        QTemporaryDir data;
        test::writeSmallFoods(data.path());
        app::Application program(test::appOptions(data.path(), false));
        QVERIFY(program.start());
        app::MainWindow& window = *program.window();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showPage(ui::PageId::Health);
        auto* weight = window.pageHost()
                           ->page(ui::PageId::Health)
                           ->findChild<QLineEdit*>(QStringLiteral("weight"));
        QVERIFY(weight);
        QVERIFY(weight->text() != QStringLiteral("163.5"));
        test::TempDir dir;
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        const std::string csv = "Date,Weight (lb)\n" + today.toStdString() + ",163.5\n";
        test::writeBytes(dir / "scale.csv", std::vector<std::uint8_t>(csv.begin(), csv.end()));

        test::ModalScript script;
        script.expect(QStringLiteral("Import Health Values"), [&](QWidget* w) {
            auto* path = w->findChild<QLineEdit*>(QStringLiteral("filePath"));
            retype(path, qPath(dir / "scale.csv"));
            QTest::keyClick(path, Qt::Key_Return);
            QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("import")), Qt::LeftButton);
        });
        QMenuBar* bar = window.menuBar();
        QAction* fileMenu = bar->actions().front();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(fileMenu).center());
        QMenu* menu = fileMenu->menu();
        QTRY_VERIFY(menu->isVisible());
        QAction* importHealth = nullptr;
        for (QAction* a : menu->actions())
            if (a->text() == QStringLiteral("Import Health Values..."))
                importHealth = a;
        QVERIFY(importHealth);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(importHealth).center());
        QTRY_VERIFY(script.finished());
        QCOMPARE(script.unexpected(), QStringList());
        QTRY_COMPARE(weight->text(), QStringLiteral("163.5"));
        window.close();
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(ExportDialogsTest)
#include "test_export_dialogs.moc"
