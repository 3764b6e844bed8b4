// The food page driven offscreen through its real widgets: search, choose a measure, size, add,
// read the meal list, totals and pies, remove; the keyboard path; the amount box's rules; copying
// a meal; and the food finder and food details dialogs.

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>

#include <cmath>
#include <filesystem>

#include "ui/AppContext.h"
#include "controls/AmountSpinBox.h"
#include "charts/PieChart.h"
#include "charts/BarChart.h"
#include "food/CopyMealDialog.h"
#include "food/FoodChooser.h"
#include "food/FoodDetailsDialog.h"
#include "food/FoodFinderDialog.h"
#include "food/FoodPage.h"
#include "food/MacroPanel.h"
#include "food/logic/MealEditing.h"
#include "food/logic/MeasureChoices.h"
#include "model/Store.h"
#include "test_app_support.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::FoodBuilder;

namespace {

using test::TestContext;

const std::vector<model::NutrientDef>& catalogue()
{
    static const std::vector<model::NutrientDef> c = test::standardCatalogue();
    return c;
}

void fillStore(model::Store& s)
{
    s.foods.setCatalogue(catalogue());
    s.foods.catalogue().appendComputed();
    s.foods.addGroup({100, "Dairy and Egg Products"});
    s.foods.addGroup({900, "Fruits and Fruit Juices"});
    FoodBuilder egg(catalogue(), 1123, "Egg, whole, raw, fresh");
    egg.group(100).value(203, 12.56f).value(204, 9.51f).value(205, 0.72f).value(208, 143.0f);
    egg.measure(50.0f, "large").measure(243.0f, "cup (4.86 large eggs)");
    for (const auto& row : model::IdealProtein) // an egg's protein is complete
        egg.value(row.nutrient, static_cast<float>(row.reference * 1.3 * 12.56 / 1000.0));
    s.foods.addFood(egg);
    s.foods.addFood(FoodBuilder(catalogue(), 9003, "Apples, raw, with skin")
                        .group(900)
                        .value(203, 0.26f)
                        .value(204, 0.17f)
                        .value(205, 13.81f)
                        .value(208, 52.0f)
                        .measure(182.0f, "medium"));
    s.foods.addFood(FoodBuilder(catalogue(), 4053, "Oil, olive")
                        .group(400)
                        .value(204, 100.0f)
                        .value(208, 884.0f));
    s.shared.customFoods.push_back(
        FoodBuilder(catalogue(), 70000, "Egg sandwich").value(208, 300.0f).serving(120.0f));
}

// The slice angles a pie gets for fat, carbohydrate and protein energy shares.
std::vector<int> expectedAngles(double fat, double carb, double protein)
{
    const double sum = fat + carb + protein;
    std::vector<int> out;
    for (double v : {protein, carb, fat}) {
        double degrees = v / sum * 100.0 * 3.6;
        if (degrees > 359)
            degrees = 358;
        out.push_back(static_cast<int>(degrees));
    }
    return out;
}

std::vector<int> anglesOf(const charts::PieChart* pie)
{
    std::vector<int> out;
    for (const auto& s : pie->slices())
        out.push_back(s.angle);
    return out;
}

} // namespace

class FoodPageTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void searchChooseAddRemove();
    void keyboardOnly();
    void mouseOnly();
    void staleMealIsReloadedWhenShown();
    void amountBoxRules();
    void listModesAndEnabling();
    void noMatchesSaysSo();
    void browsingCreatesNothing();
    void copyMealFromEarlierDay();
    void copyDayFromEarlierDay();
    void finderRanksAndOpensDetails();
    void finderRemembersAndShowsOnFoodPage();
    void detailsOfAHighProteinFood();

private:
    food::FoodChooser* chooser() const { return m_page->chooser(); }

    QTemporaryDir m_settings;
    std::unique_ptr<TestContext> m_context;
    std::unique_ptr<food::FoodPage> m_page;
};

void FoodPageTest::initTestCase()
{
    test::usePrivateSettings(m_settings.path());
    ui::setDeleteConfirmationsEnabled(true);
}

void FoodPageTest::init()
{
    m_context = std::make_unique<TestContext>();
    fillStore(m_context->m_store);
    m_page = std::make_unique<food::FoodPage>(*m_context);
    m_page->resize(1280, 760);
    m_page->show();
    m_page->setCurrentDate({2026, 3, 14});
    m_page->refreshPage();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get())); // mnemonics and shortcuts need it
}

void FoodPageTest::cleanup()
{
    m_page.reset();
    m_context.reset();
}

void FoodPageTest::searchChooseAddRemove()
{
    model::Store& store = m_context->m_store;
    QCOMPARE(m_page->macroPanel()->pie(0)->title(), QStringLiteral("Meal"));
    QCOMPARE(anglesOf(m_page->macroPanel()->pie(0)), (std::vector<int>{0, 0, 0}));

    QTest::keyClicks(chooser()->searchBox(), QStringLiteral("  egg "));
    chooser()->searchButton()->click();
    QListWidget* foods = chooser()->foodList();
    QCOMPARE(foods->count(), 2);
    QCOMPARE(foods->item(0)->text(), QStringLiteral("Egg sandwich")); // custom foods first
    QCOMPARE(foods->currentRow(), 0);
    foods->setCurrentRow(1);
    QCOMPARE(chooser()->measureList()->count(), 4); // large, cup, then ounces and grams
    QCOMPARE(chooser()->measureList()->currentText(), QStringLiteral("large"));
    QVERIFY(chooser()->addButton()->isEnabled());

    chooser()->amountBox()->setValue(3.0);
    chooser()->addButton()->click();
    QListWidget* meal = m_page->mealList();
    QCOMPARE(meal->count(), 1);
    QCOMPARE(meal->item(0)->text(), QStringLiteral("3 x large - Egg, whole, raw, fresh"));
    QCOMPARE(store.journal.days.size(), std::size_t(1));
    QCOMPARE(store.journal.days[0].meals[0].entries[0].amount, 1.5f);
    QVERIFY(m_context->modified > 0);
    QCOMPARE(store.journal.user.recentFoodList().front(), 1123);

    // The meal pie and the day pie now show the egg's energy shares.
    const double fat = 9.51 * 9 / 143 * 100, carb = 0.72 * 4 / 143 * 100,
                 protein = 12.56 * 4 / 143 * 100;
    QCOMPARE(anglesOf(m_page->macroPanel()->pie(0)), expectedAngles(fat, carb, protein));
    QCOMPARE(anglesOf(m_page->macroPanel()->pie(1)), expectedAngles(fat, carb, protein));
    QCOMPARE(m_page->macroPanel()->pie(0)->slices()[1].label, QStringLiteral("Carboyhydrates"));

    // The same food again, in cups: one entry, summed.
    chooser()->measureList()->setCurrentIndex(1);
    chooser()->amountBox()->setValue(1.0);
    chooser()->addButton()->click();
    QCOMPARE(meal->count(), 1);
    QCOMPARE(store.journal.days[0].meals[0].entries[0].amount, 1.5f + 2.43f);

    // An apple makes the meal's pie differ from the egg's.
    chooser()->searchBox()->setText(QStringLiteral("apple"));
    chooser()->search();
    chooser()->addButton()->click();
    QCOMPARE(meal->count(), 2);
    QCOMPARE(meal->item(1)->text(), QStringLiteral("medium - Apples, raw, with skin"));
    const model::Meal& stored = store.journal.days[0].meals[0];
    QCOMPARE(anglesOf(m_page->macroPanel()->pie(0)),
             expectedAngles(store.value(stored, 100), store.value(stored, 101),
                            store.value(stored, 102)));
    QVERIFY(anglesOf(m_page->macroPanel()->pie(0)) != expectedAngles(fat, carb, protein));

    // Details of a meal entry: the entry's values.
    m_page->macroPanel()->detailsButton()->click();
    QVERIFY(!m_page->macroPanel()->piesShown());
    meal->setCurrentRow(1);
    QTreeWidget* details = m_page->macroPanel()->detailsList();
    QCOMPARE(details->topLevelItemCount(), 8);
    QCOMPARE(details->topLevelItem(0)->text(0), QStringLiteral("Energy"));
    QCOMPARE(details->topLevelItem(0)->text(1), QStringLiteral("94.6")); // 52 x 1.82
    QVERIFY(m_page->removeButton()->isEnabled());
    QVERIFY(m_page->saveCustomButton()->isEnabled());

    // Remove, answering the question with Yes, then the last one.
    test::ModalScript script;
    script.expect(QStringLiteral("Delete Confirmation"),
                  [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
    m_page->removeButton()->click();
    QVERIFY(script.finished());
    QCOMPARE(meal->count(), 1);
    QCOMPARE(meal->item(0)->text().endsWith(QStringLiteral("Egg, whole, raw, fresh")), true);
    script.expect(QStringLiteral("Delete Confirmation"),
                  [](QWidget* w) { test::click(w, QStringLiteral("No")); });
    meal->setCurrentRow(0);
    m_page->removeButton()->click();
    QCOMPARE(meal->count(), 1); // No keeps it
    script.expect(QStringLiteral("Delete Confirmation"),
                  [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
    meal->setCurrentRow(0);
    m_page->removeButton()->click();
    QCOMPARE(meal->count(), 0);
    QVERIFY(store.journal.days.empty()); // the emptied meal and day are gone
    QVERIFY(!m_page->saveCustomButton()->isEnabled());
    QVERIFY(!m_page->removeButton()->isEnabled());
    QCOMPARE(anglesOf(m_page->macroPanel()->pie(0)), (std::vector<int>{0, 0, 0}));
    QVERIFY(script.unexpected().isEmpty());
}

void FoodPageTest::keyboardOnly()
{
    QLineEdit* box = chooser()->searchBox();
    box->setFocus();
    QTest::keyClicks(box, QStringLiteral("egg"));
    QTest::keyClick(box, Qt::Key_Return); // Enter searches
    QCOMPARE(chooser()->foodList()->count(), 2);
    QTest::keyClick(box, Qt::Key_Down); // arrows move in the list from the search box
    QCOMPARE(chooser()->foodList()->currentRow(), 1);
    QVERIFY(chooser()->selectedFood() && chooser()->selectedFood()->number == 1123);

    // Tab reaches the amount box from the list.
    chooser()->foodList()->setFocus();
    QTest::keyClick(chooser()->foodList(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(chooser()->amountBox()));
    QTest::keyClick(chooser()->amountBox(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(chooser()->amountBox(), QStringLiteral("2"));
    QTest::keyClick(chooser()->amountBox(), Qt::Key_Return, Qt::ControlModifier); // Ctrl+Enter adds
    QCOMPARE(m_page->mealList()->count(), 1);
    QCOMPARE(m_page->mealList()->item(0)->text(),
             QStringLiteral("2 x large - Egg, whole, raw, fresh"));
    QCOMPARE(m_context->m_store.journal.days[0].meals[0].entries[0].amount, 1.0f);

    // Alt+A is the button's mnemonic (the offscreen platform delivers no mnemonics to test).
    QCOMPARE(chooser()->addButton()->shortcut(), QKeySequence(Qt::ALT | Qt::Key_A));
    // Enter on the number pad works like Return.
    QTest::keyClick(chooser()->amountBox(), Qt::Key_Enter,
                    Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(m_context->m_store.journal.days[0].meals[0].entries[0].amount, 2.0f);

    // Tab reaches the meal list with its line chosen; Delete removes it after the question.
    QListWidget* meal = m_page->mealList();
    QWidget* focus = QApplication::focusWidget();
    for (int i = 0; i < 20 && focus != meal; ++i) {
        QTest::keyClick(focus, Qt::Key_Tab);
        focus = QApplication::focusWidget();
    }
    QCOMPARE(focus, static_cast<QWidget*>(meal));
    QVERIFY(m_page->removeButton()->isEnabled());
    test::ModalScript script;
    script.expect(QStringLiteral("Delete Confirmation"),
                  [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
    QTest::keyClick(meal, Qt::Key_Delete);
    QVERIFY(script.finished());
    QCOMPARE(meal->count(), 0);
    QVERIFY(m_context->m_store.journal.days.empty());
}

void FoodPageTest::mouseOnly()
{
    // Search, then click each row in turn: every one takes up its food, not only the first.
    QTest::mouseClick(chooser()->searchBox(), Qt::LeftButton);
    QTest::keyClicks(chooser()->searchBox(), QStringLiteral("e"));
    QTest::mouseClick(chooser()->searchButton(), Qt::LeftButton);
    QListWidget* foods = chooser()->foodList();
    QVERIFY(foods->count() >= 3);
    const int rows = foods->count();
    for (int row : {rows - 1, 1, 0, rows - 1}) {
        test::clickRow(foods, row);
        const model::FoodItem* food = chooser()->selectedFood();
        QVERIFY2(food, qPrintable(QStringLiteral("row %1").arg(row)));
        QCOMPARE(food->number, foods->item(row)->data(Qt::UserRole).toInt());
        QCOMPARE(chooser()->measureList()->count(), int(food::measureChoices(*food, false).size()));
        QVERIFY(chooser()->addButton()->isEnabled());
        QVERIFY(chooser()->amountBox()->isEnabled());
    }
    // The egg, in cups, twice over.
    const int eggRow = int(
        foods->row(foods->findItems(QStringLiteral("Egg, whole"), Qt::MatchStartsWith).value(0)));
    test::clickRow(foods, eggRow);
    chooser()->measureList()->setCurrentIndex(1);
    QTest::mouseClick(chooser()->addButton(), Qt::LeftButton);
    test::clickRow(foods, eggRow); // clicking the chosen food again keeps its measure
    QCOMPARE(chooser()->measureList()->currentIndex(), 1);
    test::clickRow(foods, rows - 1);
    QTest::mouseClick(chooser()->addButton(), Qt::LeftButton);
    QListWidget* meal = m_page->mealList();
    QCOMPARE(meal->count(), 2);
    QCOMPARE(m_context->m_store.journal.days.at(0).meals.at(0).entries.at(0).amount, 2.43f);

    // A click on a meal line enables "&Remove"; Remove takes exactly that line.
    QVERIFY(!m_page->removeButton()->isEnabled());
    test::clickRow(meal, 1);
    QVERIFY(m_page->removeButton()->isEnabled());
    const int kept = meal->item(0)->data(Qt::UserRole + 1).toInt();
    test::ModalScript script;
    script.expect(QStringLiteral("Delete Confirmation"),
                  [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
    QTest::mouseClick(m_page->removeButton(), Qt::LeftButton);
    QVERIFY(script.finished());
    const auto& entries = m_context->m_store.journal.days.at(0).meals.at(0).entries;
    QCOMPARE(entries.size(), std::size_t(1));
    QCOMPARE(entries[0].food, kept);
}

void FoodPageTest::staleMealIsReloadedWhenShown()
{
    // Breakfast holds an apple and an egg; the page shows both.
    model::Store& store = m_context->m_store;
    model::Meal& breakfast = food::mealForAdding(store.journal, {2026, 3, 14}, 0, 0);
    food::addToMeal(breakfast, 9003, 1.0f);
    food::addToMeal(breakfast, 1123, 1.0f);
    m_page->setCurrentMealKind(0);
    m_page->refreshPage();
    QCOMPARE(m_page->mealList()->count(), 2);

    // Another page removes the apple while this one is out of view.
    m_page->hide();
    QVERIFY(food::removeMealEntry(store.journal, {2026, 3, 14}, 0, 0));
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    QCOMPARE(m_page->mealList()->count(), 1);
    QVERIFY(m_page->mealList()->item(0)->text().endsWith(QStringLiteral("Egg, whole, raw, fresh")));

    // Even a page that missed a change never removes a line other than the one selected.
    food::addToMeal(*model::findDay(store.journal, {2026, 3, 14})->findMeal(0), 9003, 1.0f);
    m_page->refreshPage();                                              // egg, apple
    QVERIFY(food::removeMealEntry(store.journal, {2026, 3, 14}, 0, 0)); // apple left, unseen
    test::clickRow(m_page->mealList(), 0); // the egg, as the page still shows it
    test::ModalScript script;
    script.expect(QStringLiteral("Delete Confirmation"),
                  [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
    QTest::mouseClick(m_page->removeButton(), Qt::LeftButton);
    const model::JournalDay* day = model::findDay(store.journal, {2026, 3, 14});
    QVERIFY(day);
    QCOMPARE(day->findMeal(0)->entries.at(0).food, 9003);
    QCOMPARE(m_page->mealList()->count(), 1); // and the page now shows what the store holds
}

void FoodPageTest::amountBoxRules()
{
    chooser()->searchBox()->setText(QStringLiteral("apple"));
    chooser()->search();
    controls::AmountSpinBox* amount = chooser()->amountBox();
    QVERIFY(amount->isEnabled());
    QCOMPARE(chooser()->measureList()->currentText(), QStringLiteral("medium"));

    amount->setValue(0.5);
    amount->stepDown();
    QCOMPARE(amount->value(), 0.25);
    amount->stepDown(); // spinning down from 0.25 leaves 0.25
    QCOMPARE(amount->value(), 0.25);
    amount->setValue(100.0);
    amount->stepUp();
    QCOMPARE(amount->value(), 100.0);

    // Text and numbers out of range are refused at the box with a hint.
    amount->setFocus();
    QTest::keyClick(amount, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(amount, QStringLiteral("abc"));
    QVERIFY(chooser()->amountHint()->isVisible());
    QVERIFY(chooser()->amountHint()->text().contains(QStringLiteral("0.25")));
    QTest::keyClick(amount, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(amount, QStringLiteral("250"));
    QCOMPARE(amount->text(), QStringLiteral("25")); // the 0 past the maximum was refused
    QTest::keyClick(amount, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(amount, QStringLiteral("1.5"));
    QVERIFY(!chooser()->amountHint()->isVisible());
    QTest::keyClick(amount, Qt::Key_Tab);
    QCOMPARE(amount->value(), 1.5);
    // One and a half medium apples of 182 g: 2.73 units of 100 g.
    QCOMPARE(chooser()->amountToAdd(), 1.5 * 1.82);

    // With no food selected the amount shows 1.0 again.
    chooser()->foodList()->clearSelection();
    chooser()->foodList()->setCurrentRow(-1);
    QCOMPARE(amount->value(), 1.0);
    QVERIFY(!amount->isEnabled());
    QVERIFY(!chooser()->addButton()->isEnabled());
}

void FoodPageTest::listModesAndEnabling()
{
    chooser()->searchBox()->setText(QStringLiteral("a"));
    chooser()->modeButton(food::FoodListMode::Custom)->click();
    QCOMPARE(chooser()->foodList()->count(), 1);
    QVERIFY(chooser()->searchBox()->text().isEmpty());
    QVERIFY(!chooser()->searchBox()->isEnabled());
    QVERIFY(!chooser()->groupList()->isEnabled());
    QVERIFY(!chooser()->addButton()->isEnabled()); // nothing selected yet

    // Switching to All Foods with an empty search box leaves the list empty.
    chooser()->modeButton(food::FoodListMode::All)->click();
    QCOMPARE(chooser()->foodList()->count(), 0);
    QVERIFY(chooser()->searchBox()->isEnabled());
    // A box of blanks lists every custom food and every food of the chosen group.
    chooser()->searchBox()->setText(QStringLiteral("   "));
    chooser()->groupList()->setCurrentIndex(chooser()->groupList()->findData(900));
    QCOMPARE(chooser()->groupList()->itemText(0), QStringLiteral(" <All Groups>"));
    chooser()->search();
    QCOMPARE(chooser()->foodList()->count(), 2);
    QCOMPARE(chooser()->foodList()->item(1)->text(), QStringLiteral("Apples, raw, with skin"));
    chooser()->addButton()->click(); // the custom food, in servings

    QCOMPARE(m_page->mealList()->item(0)->text(), QStringLiteral("1.00 x Egg sandwich"));
    chooser()->modeButton(food::FoodListMode::Recent)->click();
    QCOMPARE(chooser()->foodList()->count(), 1);
    QCOMPARE(chooser()->foodList()->item(0)->data(Qt::UserRole).toInt(), 70000);

    // The page keeps its list mode in the user record.
    m_page->storePage();
    QCOMPARE(m_context->m_store.journal.user.foodListMode, 1);
}

void FoodPageTest::noMatchesSaysSo()
{
    test::ModalScript script;
    script.expect(QStringLiteral("*"), [](QWidget* w) { test::click(w, QStringLiteral("OK")); });
    chooser()->searchBox()->setText(QStringLiteral("kiwi"));
    chooser()->searchButton()->click();
    QVERIFY(script.finished());
    QCOMPARE(script.messages().value(0), QStringLiteral("No matches found in database."));
    QCOMPARE(script.answered().value(0), QStringLiteral("Velmora"));
    QCOMPARE(chooser()->foodList()->count(), 0);
}

void FoodPageTest::browsingCreatesNothing()
{
    m_page->setCurrentMealKind(3);
    m_page->setCurrentDate({2026, 1, 1});
    QCOMPARE(m_page->timeEdit()->time(), QTime(18, 30)); // a new dinner starts at dinner time
    m_page->timeEdit()->setTime(QTime(19, 30));
    QVERIFY(m_context->m_store.journal.days.empty());
    QCOMPARE(m_page->macroPanel()->pie(1)->title(), QStringLiteral("1/1/2026"));

    chooser()->searchBox()->setText(QStringLiteral("apple"));
    chooser()->search();
    chooser()->addButton()->click();
    const model::JournalDay& day = m_context->m_store.journal.days.at(0);
    QCOMPARE(day.date, model::CalendarDate({2026, 1, 1}).toTime());
    QCOMPARE(day.meals.at(0).kind, std::uint8_t(3));
    QCOMPARE(day.meals.at(0).time, food::mealTimeOn({2026, 1, 1}, 19, 30));
    // A stored meal takes a new time at once.
    m_page->timeEdit()->setTime(QTime(20, 0));
    QCOMPARE(day.meals.at(0).time, food::mealTimeOn({2026, 1, 1}, 20, 0));
    // The other meals of the day stay empty and unstored.
    m_page->setCurrentMealKind(0);
    QCOMPARE(m_page->mealList()->count(), 0);
    QCOMPARE(day.meals.size(), std::size_t(1));
}

void FoodPageTest::copyMealFromEarlierDay()
{
    model::Store& store = m_context->m_store;
    store.journal.days.push_back(
        test::dayWithMeal(model::CalendarDate{2026, 3, 10}.toTime(), 0, {{1123, 1.0f}}));
    store.journal.days.push_back(test::dayWithMeal(model::CalendarDate{2026, 3, 12}.toTime(), 0,
                                                   {{9003, 1.82f}, {1123, 0.5f}}));
    // Today's breakfast already holds an egg.
    food::addToMeal(food::mealForAdding(store.journal, {2026, 3, 14}, 0, 0), 1123, 0.5f);
    m_page->setCurrentMealKind(0);
    m_page->refreshPage();
    QCOMPARE(m_page->mealList()->count(), 1);

    test::ModalScript script;
    script.expect(QStringLiteral("Copy Meal From"), [](QWidget* w) {
        auto* dialog = static_cast<food::CopyMealDialog*>(w);
        // The latest earlier breakfast is proposed, with its foods shown.
        QCOMPARE(dialog->sourceDate(), (model::CalendarDate{2026, 3, 12}));
        QCOMPARE(dialog->preview()->count(), 2);
        QCOMPARE(dialog->dateEdit()->text(), QStringLiteral("3/12/2026")); // as the page writes it
        dialog->dateEdit()->setDate(QDate(2026, 3, 11)); // nothing that day: OK is off
        QVERIFY(!dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
        dialog->dateEdit()->setDate(QDate(2026, 3, 12));
        dialog->buttons()->button(QDialogButtonBox::Ok)->click();
    });
    m_page->copyMealButton()->click();
    QVERIFY(script.finished());
    QCOMPARE(m_page->mealList()->count(), 2);
    const model::Meal& breakfast = *model::findDay(store.journal, {2026, 3, 14})->findMeal(0);
    QCOMPARE(breakfast.entries.at(0).amount, 1.0f); // 0.5 + 0.5 summed
    QCOMPARE(breakfast.entries.at(1).food, 9003);
    QCOMPARE(store.journal.days.size(), std::size_t(3));
}

void FoodPageTest::copyDayFromEarlierDay()
{
    model::Store& store = m_context->m_store;
    model::JournalDay monday =
        test::dayWithMeal(model::CalendarDate{2026, 3, 9}.toTime(), 0, {{1123, 1.0f}});
    monday.meals.push_back(test::dayWithMeal(monday.date, 3, {{9003, 1.82f}}).meals[0]);
    monday.meals.back().time = monday.date + 19 * 3600;
    store.journal.days.push_back(monday);
    food::addToMeal(food::mealForAdding(store.journal, {2026, 3, 14}, 0, 0), 1123, 0.5f);
    m_page->setCurrentMealKind(3);
    m_page->refreshPage();
    QCOMPARE(m_page->mealList()->count(), 0);

    test::ModalScript script;
    script.expect(QStringLiteral("Copy Day From"), [](QWidget* w) {
        auto* dialog = static_cast<food::CopyMealDialog*>(w);
        QCOMPARE(dialog->sourceDate(), (model::CalendarDate{2026, 3, 9}));
        QCOMPARE(dialog->preview()->item(0)->text(), QStringLiteral("Breakfast"));
        QCOMPARE(dialog->preview()->item(2)->text(), QStringLiteral("Dinner"));
        QCOMPARE(dialog->preview()->count(), 4);
        QVERIFY(!dialog->mealChoice()->isVisible());
        QPushButton* ok = dialog->buttons()->button(QDialogButtonBox::Ok);
        dialog->dateEdit()->setFocus();
        QTest::keyClick(dialog->dateEdit(), Qt::Key_Up); // a date without meals
        QVERIFY(!ok->isEnabled());
        // The page's own date would copy the day onto itself: refused.
        dialog->dateEdit()->setDate(QDate(2026, 3, 14));
        QVERIFY(!ok->isEnabled());
        dialog->dateEdit()->setDate(QDate(2026, 3, 9));
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    QTest::mouseClick(m_page->copyDayButton(), Qt::LeftButton);
    QVERIFY(script.finished());

    // Breakfast summed into today's, dinner made at its own time; the page shows the dinner.
    const model::JournalDay& today = *model::findDay(store.journal, {2026, 3, 14});
    QCOMPARE(today.findMeal(0)->entries.size(), std::size_t(1));
    QCOMPARE(today.findMeal(0)->entries[0].amount, 1.5f);
    QCOMPARE(today.findMeal(3)->time, food::mealTimeOn({2026, 3, 14}, 19, 0));
    QCOMPARE(m_page->mealList()->count(), 1);
    QCOMPARE(m_page->timeEdit()->time(), QTime(19, 0));
    QVERIFY(m_context->modified > 0);
}

void FoodPageTest::finderRanksAndOpensDetails()
{
    food::FoodFinderDialog finder(*m_context);
    finder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&finder));
    QCOMPARE(finder.windowTitle(), QStringLiteral("Food Finder"));
    QCOMPARE(finder.resultList()->topLevelItemCount(), 0); // empty before the first Find
    QCOMPARE(finder.nutrientList(0)->currentIndex(), 0);
    QCOMPARE(finder.nutrientList(1)->currentIndex(), 1);
    QVERIFY(finder.highButton(0)->isChecked());
    QVERIFY(finder.lowButton(1)->isChecked());

    finder.nutrientList(0)->setCurrentIndex(finder.nutrientList(0)->findData(203));
    finder.nutrientList(1)->setCurrentIndex(finder.nutrientList(1)->findData(204));
    finder.findButton()->click();
    QTreeWidget* results = finder.resultList();
    QCOMPARE(results->topLevelItemCount(), 3); // database foods only
    QCOMPARE(results->headerItem()->text(0), QStringLiteral("Name"));
    QCOMPARE(results->headerItem()->text(1), QStringLiteral("Protein"));
    QCOMPARE(results->columnWidth(0), 320);
    QCOMPARE(results->columnWidth(2), 112);
    QCOMPARE(results->topLevelItem(0)->text(0), QStringLiteral("Egg, whole, raw, fresh"));
    QCOMPARE(results->topLevelItem(0)->text(1), QStringLiteral("12.56"));
    QCOMPARE(results->topLevelItem(2)->text(0), QStringLiteral("Oil, olive"));

    test::ModalScript script;
    script.expect(QStringLiteral("Food Details"), [](QWidget* w) {
        QCOMPARE(static_cast<food::FoodDetailsDialog*>(w)->nameLabel()->text(),
                 QStringLiteral("Egg, whole, raw, fresh"));
        static_cast<QDialog*>(w)->accept();
    });
    const QRect egg = results->visualItemRect(results->topLevelItem(0));
    // A double-click, as the mouse gives it: a click, then the second press.
    QTest::mouseClick(results->viewport(), Qt::LeftButton, Qt::NoModifier, egg.center());
    QTest::mouseDClick(results->viewport(), Qt::LeftButton, Qt::NoModifier, egg.center());
    QVERIFY(script.finished());
}

void FoodPageTest::finderRemembersAndShowsOnFoodPage()
{
    QSettings().clear();
    const char* longName = "Cereals ready-to-eat, a name far too long for the finder's name "
                           "column of three hundred and twenty pixels";
    m_context->m_store.foods.addFood(
        FoodBuilder(catalogue(), 8001, longName).group(800).value(203, 9.0f).value(204, 1.0f));
    m_page->hide(); // the mouse rests over the finder alone
    {
        food::FoodFinderDialog finder(*m_context);
        finder.show();
        finder.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&finder)); // tool tips show in the active window
        finder.nutrientList(0)->setFocus();
        QTest::keyClicks(finder.nutrientList(0), QStringLiteral("Total"));
        finder.nutrientList(1)->setFocus();
        QTest::keyClicks(finder.nutrientList(1), QStringLiteral("Protein"));
        QTest::mouseClick(finder.lowButton(0), Qt::LeftButton);
        QTest::mouseClick(finder.highButton(1), Qt::LeftButton);
        QTest::mouseClick(finder.findButton(), Qt::LeftButton);
        QTreeWidget* results = finder.resultList();
        QCOMPARE(results->headerItem()->text(1), QStringLiteral("Total lipid (fat)"));
        QVERIFY(!finder.foodPageButton()->isEnabled()); // no food chosen yet

        // A name cut by its column shows whole when the mouse rests on it; a short one shows none.
        QTreeWidgetItem* cut =
            results->findItems(QString::fromLatin1(longName), Qt::MatchExactly)[0];
        QTest::mouseMove(results->viewport(), results->visualItemRect(cut).center());
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), QString::fromLatin1(longName));
        QTreeWidgetItem* apple =
            results->findItems(QStringLiteral("Apples, raw, with skin"), Qt::MatchExactly)[0];
        QTest::mouseMove(results->viewport(), results->visualItemRect(apple).center());
        QTRY_VERIFY(!QToolTip::isVisible());

        // The apple, low in fat and high in protein, goes to the food page.
        test::clickItem(results, apple);
        QVERIFY(finder.foodPageButton()->isEnabled());
        QTest::mouseClick(finder.foodPageButton(), Qt::LeftButton);
        QCOMPARE(finder.result(), int(QDialog::Accepted));
        QCOMPARE(finder.chosenFood(), 9003);
    }
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    // The next finder starts with the nutrients and directions used last.
    food::FoodFinderDialog again(*m_context);
    QCOMPARE(again.nutrientList(0)->currentText(), QStringLiteral("Total lipid (fat)"));
    QCOMPARE(again.nutrientList(1)->currentText(), QStringLiteral("Protein"));
    QVERIFY(again.lowButton(0)->isChecked());
    QVERIFY(again.highButton(1)->isChecked());
    QSettings().clear();

    // On the food page, in the Custom Foods list and a group that does not hold it: the page
    // turns to All Foods and all groups, with the apple first, selected and ready to add.
    chooser()->modeButton(food::FoodListMode::Custom)->click();
    chooser()->groupList()->setCurrentIndex(chooser()->groupList()->findData(100));
    m_page->showFood(9003);
    QVERIFY(chooser()->modeButton(food::FoodListMode::All)->isChecked());
    QCOMPARE(chooser()->groupList()->currentText(), QStringLiteral(" <All Groups>"));
    QCOMPARE(chooser()->searchBox()->text(), QStringLiteral("Apples, raw, with skin"));
    QCOMPARE(chooser()->foodList()->currentRow(), 0);
    QCOMPARE(chooser()->selectedFood()->number, 9003);
    QVERIFY(chooser()->addButton()->isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_page->mealList()->count(), 1);
}

void FoodPageTest::detailsOfAHighProteinFood()
{
    food::FoodDetailsDialog egg(*m_context, 1123);
    QCOMPARE(egg.windowTitle(), QStringLiteral("Food Details"));
    QCOMPARE(egg.sourceLabel()->text(), QStringLiteral("Source: USDA SR15 Database"));
    QCOMPARE(egg.nutrientList()->topLevelItemCount(),
             int(m_context->m_store.foods.catalogue().entries().size()));
    QCOMPARE(egg.chart()->categories(),
             QStringList({QStringLiteral("Tryptophan"), QStringLiteral("Histidine"),
                          QStringLiteral("Methionine"), QStringLiteral("IsoLeucine"),
                          QStringLiteral("Threonine"), QStringLiteral("Valine"),
                          QStringLiteral("Lysine"), QStringLiteral("Phenylalanine"),
                          QStringLiteral("Leucine")}));
    QCOMPARE(egg.chart()->categoryAxisLabel(), QStringLiteral("  "));
    QCOMPARE(egg.chart()->seriesName(1), QStringLiteral("Ideal Protein"));
    QCOMPARE(egg.chart()->value(1, 6), 51.0);
    QCOMPARE(egg.chart()->value(0, 6), 66.0); // 51 x 1.3 = 66.3, truncated
    QCOMPARE(egg.chart()->title(), QStringLiteral("Protein Quality Comparison"));
    QCOMPARE(egg.chart()->valueAxisLabel(), QStringLiteral("mg"));
    QCOMPARE(egg.sentenceLabel()->text(),
             QStringLiteral("This foods protein is 100.0 % complete."));

    QCOMPARE(egg.nutrientList()->headerItem()->text(1), QStringLiteral("Value per 100 g"));

    food::FoodDetailsDialog oil(*m_context, 4053);
    QVERIFY(oil.chart()->isEmpty());
    QVERIFY(oil.sentenceLabel()->isHidden());
    food::FoodDetailsDialog sandwich(*m_context, 70000);
    QCOMPARE(sandwich.sourceLabel()->text(), QStringLiteral("Source: User defined"));
    QCOMPARE(sandwich.nutrientList()->headerItem()->text(1), QStringLiteral("Value per serving"));

    // Double-clicking a meal entry opens the details of its food.
    food::addToMeal(food::mealForAdding(m_context->m_store.journal, {2026, 3, 14}, 0, 0), 9003,
                    1.0f);
    m_page->setCurrentMealKind(0);
    m_page->refreshPage();
    test::ModalScript script;
    script.expect(QStringLiteral("Food Details"), [](QWidget* w) {
        QCOMPARE(static_cast<food::FoodDetailsDialog*>(w)->nameLabel()->text(),
                 QStringLiteral("Apples, raw, with skin"));
        static_cast<QDialog*>(w)->accept();
    });
    emit m_page->mealList()->itemDoubleClicked(m_page->mealList()->item(0));
    QVERIFY(script.finished());
}

QTEST_MAIN(FoodPageTest)
#include "test_food_page.moc"
