// The journal list page driven offscreen: rows, deleting after the question, choosing columns and
// their widths, and the details and pies of "Configure Displays".

#include <QHeaderView>
#include <QtTest>

#include "food/ChooseColumnsDialog.h"
#include "food/ConfigureDisplaysDialog.h"
#include "food/JournalListPage.h"
#include "model/DateText.h"
#include "support/Builders.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::buttonOf;
using test::click;
using test::clickButton;
using test::onNextModal;

namespace {

// Chooses the entry with this text in column list k of "Choose Columns" with the keyboard.
void chooseColumn(QWidget* dialog, int k, const QString& text)
{
    QComboBox* list = qobject_cast<food::ChooseColumnsDialog*>(dialog)->columnList(k);
    test::chooseItem(list, text.isEmpty() ? 0 : list->findText(text));
}

} // namespace

class JournalListTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;
    std::unique_ptr<test::TestContext> m_context;
    model::TimeT m_today = 0;

    model::Store& store() { return m_context->m_store; }

private slots:
    void initTestCase()
    {
        test::keepSettingsIn(m_settings);
        ui::setDeleteConfirmationsEnabled(true);
    }

    void init()
    {
        m_context = std::make_unique<test::TestContext>();
        const auto catalogue = test::catalogueOf({203, 204, 205, 208, 291});
        store().foods.setCatalogue(catalogue);
        store().foods.catalogue().appendComputed();
        store().foods.addFood(
            test::FoodBuilder(catalogue, 1001, "Egg").value(208, 143).value(203, 12.6f));
        store().foods.addFood(
            test::FoodBuilder(catalogue, 1002, "Toast").value(208, 265).value(203, 9));

        m_today = model::CalendarDate::fromTime(QDateTime::currentSecsSinceEpoch()).toTime();
        store().journal.user.listColumns = {208, 203, -1, -1, -1, -1, -1, -1, -1, -1};
        store().journal.days.push_back(test::dayWithMeal(m_today - 86400, 3, {{1002, 0.5f}}));
        store().journal.days.push_back(
            test::dayWithMeal(m_today, 0, {{1001, 1.0f}, {1002, 0.25f}}));
    }

    void rowsShowDaysMealsAndFoodsAsTheStoreHasThem()
    {
        food::JournalListPage page(*m_context);
        page.show();
        auto* tree = page.findChild<QTreeWidget*>();
        QCOMPARE(tree->columnCount(), 3);
        QCOMPARE(tree->headerItem()->text(1), QStringLiteral("N208"));
        QCOMPARE(tree->topLevelItemCount(), 2);

        QTreeWidgetItem* today = tree->topLevelItem(0);
        QCOMPARE(today->text(0), QString::fromStdString(model::longDateText(m_today)));
        QCOMPARE(today->text(1), QStringLiteral("209.2")); // 143 + 66.25
        QCOMPARE(today->childCount(), 1);
        QTreeWidgetItem* breakfast = today->child(0);
        QCOMPARE(breakfast->text(0), QStringLiteral("Breakfast"));
        QCOMPARE(breakfast->childCount(), 2);
        QVERIFY(breakfast->child(0)->text(0).endsWith(QStringLiteral("Egg")));
        QCOMPARE(breakfast->child(0)->text(2), QStringLiteral("12.6"));
        QCOMPARE(tree->topLevelItem(1)->child(0)->text(0), QStringLiteral("Dinner"));
        QCOMPARE(tree->topLevelItem(1)->text(1), QStringLiteral("132.5"));

        // Out of view, the food page logs a lunch today and changes yesterday's amount; days
        // beyond the setting are not listed.
        page.hide();
        store().journal.days[1].meals.push_back(
            test::dayWithMeal(m_today, 2, {{1001, 2.0f}}).meals[0]);
        store().journal.days[0].meals[0].entries[0].amount = 1.0f;
        page.show();
        QCOMPARE(tree->topLevelItem(0)->childCount(), 2);
        QCOMPARE(tree->topLevelItem(1)->text(1), QStringLiteral("265.0")); // the sums are the rows'
        store().journal.days[0].date = m_today - 40 * 86400;
        store().journal.user.daysInLists = 30;
        page.refreshPage();
        QCOMPARE(tree->topLevelItemCount(), 1);
    }

    void deleteRemovesAFoodOnlyAfterYes()
    {
        food::JournalListPage page(*m_context);
        page.resize(900, 600);
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page)); // the Delete key is a shortcut
        auto* tree = page.findChild<QTreeWidget*>();
        QPushButton* del = buttonOf(&page, QStringLiteral("Delete..."));
        QVERIFY(!del->isEnabled());

        test::clickItem(tree, tree->topLevelItem(0)->child(0)->child(1)); // the toast of today
        onNextModal([](QWidget* d) { clickButton(d, QStringLiteral("No")); });
        click(del);
        const auto& days = store().journal.days;
        QCOMPARE(days[1].meals[0].entries.size(), std::size_t{2});
        QCOMPARE(m_context->modified, 0);

        onNextModal([](QWidget* d) { clickButton(d, QStringLiteral("Yes")); });
        click(del);
        QCOMPARE(days[1].meals[0].entries.size(), std::size_t{1});
        QCOMPARE(days[1].meals[0].entries[0].food, 1001);
        QVERIFY(m_context->modified > 0);
        QCOMPARE(tree->topLevelItem(0)->child(0)->childCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->text(1), QStringLiteral("143.0"));

        // Deleting the only food of yesterday's dinner removes the meal and the empty day.
        test::clickItem(tree, tree->topLevelItem(1)->child(0)->child(0));
        page.activateWindow(); // the offscreen platform does not give it back after a dialog
        QVERIFY(QTest::qWaitForWindowActive(&page));
        tree->setFocus();
        onNextModal([](QWidget* d) { clickButton(d, QStringLiteral("Yes")); });
        QTest::keyClick(tree, Qt::Key_Delete); // the Delete key asks the same question
        QCOMPARE(days.size(), std::size_t{1});
        QCOMPARE(tree->topLevelItemCount(), 1);
    }

    void columnsAndTheirWidthsAreKept()
    {
        auto page = std::make_unique<food::JournalListPage>(*m_context);
        page->show();
        auto* tree = page->findChild<QTreeWidget*>();
        QPushButton* columns = buttonOf(page.get(), QStringLiteral("Columns..."));
        const auto& slots_ = store().journal.user.listColumns;

        bool thirdWasDisabled = false;
        onNextModal([&](QWidget* d) {
            auto* dialog = qobject_cast<food::ChooseColumnsDialog*>(d);
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Choose Columns"));
            QCOMPARE(dialog->columnList(1)->currentText(), QStringLiteral("N203"));
            QCOMPARE(dialog->columnList(0)->itemText(0), QStringLiteral(" <No Column>"));
            thirdWasDisabled = !dialog->columnList(3)->isEnabled();
            // Column 1 becomes fat, column 2 carbohydrate, column 3 fibre.
            chooseColumn(d, 0, QStringLiteral("N204"));
            chooseColumn(d, 1, QStringLiteral("N205"));
            chooseColumn(d, 2, QStringLiteral("N291"));
            clickButton(d, QStringLiteral("OK"));
        });
        click(columns);
        QVERIFY(thirdWasDisabled);
        QCOMPARE(std::vector<std::int32_t>(slots_.begin(), slots_.begin() + 4),
                 (std::vector<std::int32_t>{204, 205, 291, -1}));
        QCOMPARE(tree->columnCount(), 4);
        QCOMPARE(tree->headerItem()->text(3), QStringLiteral("N291"));

        // A column dragged wider keeps its width on the next page made.
        QHeaderView* header = tree->header();
        const int edge = header->sectionViewportPosition(1) + header->sectionSize(1) - 1;
        const int wider = header->sectionSize(1) + 40;
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, {edge, 5});
        QTest::mouseMove(header->viewport(), {edge + 40, 5});
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, {edge + 40, 5});
        QCOMPARE(store().journal.user.listColumnWidths[1], wider);
        page = std::make_unique<food::JournalListPage>(*m_context);
        QCOMPARE(page->findChild<QTreeWidget*>()->columnWidth(1), wider);
        page->show();
        tree = page->findChild<QTreeWidget*>();
        columns = buttonOf(page.get(), QStringLiteral("Columns..."));

        // Cancel changes nothing; emptying column 1 leaves only the date column.
        onNextModal([](QWidget* d) {
            chooseColumn(d, 0, QString());
            clickButton(d, QStringLiteral("Cancel"));
        });
        click(columns);
        QCOMPARE(slots_[0], 204);
        onNextModal([](QWidget* d) {
            chooseColumn(d, 0, QString());
            QVERIFY(!qobject_cast<food::ChooseColumnsDialog*>(d)->columnList(1)->isEnabled());
            clickButton(d, QStringLiteral("OK"));
        });
        click(columns);
        QCOMPARE(slots_[0], -1); // and every later one, as the column chain stores them
        QCOMPARE(tree->columnCount(), 1);
    }

    void configureDisplaysEditsTheDetailsAndPies()
    {
        model::User& user = store().journal.user;
        user.setDetailsList({208, 203, 205});
        user.goalNutrients = {291, 204};
        user.pie1Mode = 1;
        food::ConfigureDisplaysDialog dialog(*m_context);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Configure Displays"));
        auto* list = dialog.findChild<QListWidget*>();
        QPushButton* up = buttonOf(&dialog, QStringLiteral("&Up"));
        QPushButton* down = buttonOf(&dialog, QStringLiteral("&Down"));
        QCOMPARE(list->count(), 3);
        QCOMPARE(list->item(0)->text(), QStringLiteral("N208"));

        test::clickRow(list, 0);
        QVERIFY(!up->isEnabled());
        QVERIFY(down->isEnabled());
        QVERIFY(buttonOf(&dialog, QStringLiteral("&Remove"))->isEnabled());
        test::clickRow(list, 2);
        QVERIFY(!down->isEnabled());
        click(up);
        QCOMPARE(list->currentRow(), 1);
        QCOMPARE(list->item(1)->text(), QStringLiteral("N205"));

        // "&Add" offers the goal list; the second entry is fat.
        test::onNextMenuChoose(2);
        clickButton(&dialog, QStringLiteral("&Add"));
        QCOMPARE(list->count(), 4);
        QCOMPARE(list->item(3)->text(), QStringLiteral("N204"));

        test::clickRadio(&dialog, QStringLiteral("Daily Goals Graph")); // the first group's
        clickButton(&dialog, QStringLiteral("OK"));
        QCOMPARE(user.detailsList(), (std::vector<model::NutrientId>{208, 205, 203, 204}));
        QCOMPARE(user.pie1Mode, 3);
        QCOMPARE(user.pie2Mode, 2);
        QVERIFY(m_context->modified > 0);
    }
};

QTEST_MAIN(JournalListTest)
#include "test_journal_list.moc"
