// The journal list page driven offscreen: rows, deleting after the question, choosing columns.

#include <functional>

#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QHeaderView>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

#include "ui/AppContext.h"
#include "food/ChooseColumnsDialog.h"
#include "food/ConfigureDisplaysDialog.h"
#include "food/JournalListPage.h"
#include "model/DateText.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;

namespace {

using test::TestContext;

using test::onNextModal;

void clickButton(QWidget* dialog, const QString& text)
{
    for (QPushButton* b : dialog->findChildren<QPushButton*>())
        if (b->text() == text) {
            b->click();
            return;
        }
    QFAIL("button not found");
}

using test::buttonOf;

} // namespace

class JournalListTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void rowsShowDaysMealsAndFoods();
    void deleteRemovesAFoodOnlyAfterYes();
    void showsTheStoreWhenShown();
    void columnsChangeTheColumns();
    void resizedColumnWidthIsKept();
    void configureDisplaysEditsTheDetailsAndPies();

private:
    QTemporaryDir m_settings;
    std::unique_ptr<TestContext> m_context;
    model::TimeT m_today = 0;
    model::TimeT m_yesterday = 0;
};

void JournalListTest::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    ui::setDeleteConfirmationsEnabled(true);
}

void JournalListTest::init()
{
    m_context = std::make_unique<TestContext>();
    model::Store& store = m_context->m_store;
    const auto catalogue = test::catalogueOf({203, 204, 205, 208, 291});
    store.foods.setCatalogue(catalogue);
    store.foods.catalogue().appendComputed();
    store.foods.addFood(
        test::FoodBuilder(catalogue, 1001, "Egg").value(208, 143).value(203, 12.6f));
    store.foods.addFood(test::FoodBuilder(catalogue, 1002, "Toast").value(208, 265).value(203, 9));

    const auto now = model::CalendarDate::fromTime(QDateTime::currentSecsSinceEpoch());
    m_today = now.toTime();
    m_yesterday = m_today - 86400;
    store.journal.user.listColumns = {208, 203, -1, -1, -1, -1, -1, -1, -1, -1};
    store.journal.days.push_back(test::dayWithMeal(m_yesterday, 3, {{1002, 0.5f}}));
    store.journal.days.push_back(test::dayWithMeal(m_today, 0, {{1001, 1.0f}, {1002, 0.25f}}));
}

void JournalListTest::rowsShowDaysMealsAndFoods()
{
    food::JournalListPage page(*m_context);
    auto* tree = page.findChild<QTreeWidget*>();
    QVERIFY(tree);
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

    // Days beyond the setting are not listed.
    m_context->m_store.journal.days[0].date = m_today - 40 * 86400;
    m_context->m_store.journal.user.daysInLists = 30;
    page.refreshPage();
    QCOMPARE(tree->topLevelItemCount(), 1);
}

void JournalListTest::deleteRemovesAFoodOnlyAfterYes()
{
    food::JournalListPage page(*m_context);
    page.resize(900, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page)); // the Delete key is a shortcut
    auto* tree = page.findChild<QTreeWidget*>();
    QPushButton* del = buttonOf(&page, QStringLiteral("Delete..."));
    QVERIFY(del);
    QVERIFY(!del->isEnabled());

    test::clickItem(tree, tree->topLevelItem(0)->child(0)->child(1)); // the toast of today
    QVERIFY(del->isEnabled());

    onNextModal([](QWidget* d) { clickButton(d, QStringLiteral("No")); });
    QTest::mouseClick(del, Qt::LeftButton);
    const auto& meal = m_context->m_store.journal.days[1].meals[0];
    QCOMPARE(meal.entries.size(), std::size_t{2});
    QCOMPARE(m_context->modified, 0);

    onNextModal([](QWidget* d) { clickButton(d, QStringLiteral("Yes")); });
    QTest::mouseClick(del, Qt::LeftButton);
    QCOMPARE(m_context->m_store.journal.days[1].meals[0].entries.size(), std::size_t{1});
    QCOMPARE(m_context->m_store.journal.days[1].meals[0].entries[0].food, 1001);
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
    QCOMPARE(m_context->m_store.journal.days.size(), std::size_t{1});
    QCOMPARE(tree->topLevelItemCount(), 1);
}

void JournalListTest::showsTheStoreWhenShown()
{
    food::JournalListPage page(*m_context);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    auto* tree = page.findChild<QTreeWidget*>();
    QCOMPARE(tree->topLevelItemCount(), 2);

    // Out of view, the food page logs a lunch today and changes yesterday's amount.
    page.hide();
    model::Store& store = m_context->m_store;
    store.journal.days[1].meals.push_back(test::dayWithMeal(m_today, 2, {{1001, 2.0f}}).meals[0]);
    store.journal.days[0].meals[0].entries[0].amount = 1.0f;
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QCOMPARE(tree->topLevelItem(0)->childCount(), 2);
    QCOMPARE(tree->topLevelItem(0)->text(1), QStringLiteral("495.2")); // 209.2 + 2 x 143
    QCOMPARE(tree->topLevelItem(1)->text(1), QStringLiteral("265.0"));
}

void JournalListTest::columnsChangeTheColumns()
{
    food::JournalListPage page(*m_context);
    auto* tree = page.findChild<QTreeWidget*>();
    QPushButton* columns = buttonOf(&page, QStringLiteral("Columns..."));
    QVERIFY(columns);

    bool thirdWasDisabled = false;
    onNextModal([&](QWidget* d) {
        auto* dialog = qobject_cast<food::ChooseColumnsDialog*>(d);
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Choose Columns"));
        QCOMPARE(dialog->columnList(1)->currentText(), QStringLiteral("N203"));
        QCOMPARE(dialog->columnList(0)->itemText(0), QStringLiteral(" <No Column>"));
        thirdWasDisabled = !dialog->columnList(3)->isEnabled();
        // Column 1 becomes fat, column 2 carbohydrate, column 3 fibre.
        dialog->columnList(0)->setCurrentIndex(
            dialog->columnList(0)->findText(QStringLiteral("N204")));
        dialog->columnList(1)->setCurrentIndex(
            dialog->columnList(1)->findText(QStringLiteral("N205")));
        dialog->columnList(2)->setCurrentIndex(
            dialog->columnList(2)->findText(QStringLiteral("N291")));
        dialog->accept();
    });
    columns->click();
    QVERIFY(thirdWasDisabled);
    const auto& slots_ = m_context->m_store.journal.user.listColumns;
    QCOMPARE(slots_[0], 204);
    QCOMPARE(slots_[1], 205);
    QCOMPARE(slots_[2], 291);
    QCOMPARE(slots_[3], -1);
    QCOMPARE(tree->columnCount(), 4);
    QCOMPARE(tree->headerItem()->text(3), QStringLiteral("N291"));

    // Emptying column 1 on the next visit leaves only the date column.
    onNextModal([](QWidget* d) {
        auto* dialog = qobject_cast<food::ChooseColumnsDialog*>(d);
        dialog->columnList(0)->setCurrentIndex(0);
        QVERIFY(!dialog->columnList(1)->isEnabled());
        dialog->accept();
    });
    columns->click();
    QCOMPARE(slots_[0], -1);
    QCOMPARE(slots_[2], -1);
    QCOMPARE(tree->columnCount(), 1);

    // Cancel changes nothing.
    onNextModal([](QWidget* d) {
        auto* dialog = qobject_cast<food::ChooseColumnsDialog*>(d);
        dialog->columnList(0)->setCurrentIndex(1);
        dialog->reject();
    });
    columns->click();
    QCOMPARE(slots_[0], -1);
}

void JournalListTest::resizedColumnWidthIsKept()
{
    {
        food::JournalListPage page(*m_context);
        auto* tree = page.findChild<QTreeWidget*>();
        tree->header()->resizeSection(1, 123);
        QCOMPARE(m_context->m_store.journal.user.listColumnWidths[1], 123);
    }
    food::JournalListPage again(*m_context);
    QCOMPARE(again.findChild<QTreeWidget*>()->columnWidth(1), 123);
}

void JournalListTest::configureDisplaysEditsTheDetailsAndPies()
{
    model::User& user = m_context->m_store.journal.user;
    user.setDetailsList({208, 203, 205});
    user.goalNutrients = {291, 204};
    user.pie1Mode = 1;
    food::ConfigureDisplaysDialog dialog(*m_context);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Configure Displays"));
    auto* list = dialog.findChild<QListWidget*>();
    QPushButton* up = buttonOf(&dialog, QStringLiteral("&Up"));
    QPushButton* down = buttonOf(&dialog, QStringLiteral("&Down"));
    QPushButton* remove = buttonOf(&dialog, QStringLiteral("&Remove"));
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(0)->text(), QStringLiteral("N208"));

    list->setCurrentRow(0);
    QVERIFY(!up->isEnabled());
    QVERIFY(down->isEnabled());
    QVERIFY(remove->isEnabled());
    list->setCurrentRow(2);
    QVERIFY(up->isEnabled());
    QVERIFY(!down->isEnabled());
    up->click();
    QCOMPARE(list->currentRow(), 1);
    QCOMPARE(list->item(1)->text(), QStringLiteral("N205"));

    // "&Add" offers the goal list; the second entry is fat.
    auto* timer = new QTimer(&dialog);
    timer->setInterval(10);
    connect(timer, &QTimer::timeout, [timer] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            timer->stop();
            QCOMPARE(menu->actions().size(), 2);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        }
    });
    timer->start();
    buttonOf(&dialog, QStringLiteral("&Add"))->click();
    QCOMPARE(list->count(), 4);
    QCOMPARE(list->item(3)->text(), QStringLiteral("N204"));

    for (QRadioButton* r : dialog.findChildren<QRadioButton*>())
        if (r->text() == QStringLiteral("Daily Goals Graph")) {
            r->setChecked(true); // the first group's comes first
            break;
        }
    dialog.accept();
    QCOMPARE(user.detailsList(), (std::vector<model::NutrientId>{208, 205, 203, 204}));
    QCOMPARE(user.pie1Mode, 3);
    QCOMPARE(user.pie2Mode, 2);
    QVERIFY(m_context->modified > 0);
}

QTEST_MAIN(JournalListTest)
#include "test_journal_list.moc"
