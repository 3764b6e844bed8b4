// The Custom Foods and Save Meal as Custom Food dialogs driven offscreen.

#include <functional>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QMessageBox>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "ui/AppContext.h"
#include "food/CustomFoodsDialog.h"
#include "food/SaveMealDialog.h"
#include "food/logic/CustomFoods.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;

namespace {

using test::TestContext;

using test::onNextModal;

using test::buttonOf;

} // namespace

class CustomFoodsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void gridShowsWeightThenStoredNutrients();
    void newEditDoneStores();
    void choosingAnotherFoodStoresTheShownOne();
    void deleteAsksAndRemoves();
    void saveMealMakesACustomFood();

private:
    QTemporaryDir m_settings;
    std::unique_ptr<TestContext> m_context;
};

void CustomFoodsTest::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    ui::setDeleteConfirmationsEnabled(true);
}

void CustomFoodsTest::init()
{
    m_context = std::make_unique<TestContext>();
    model::Store& store = m_context->m_store;
    const auto catalogue = test::catalogueOf({203, 204, 205, 208});
    store.foods.setCatalogue(catalogue);
    store.foods.catalogue().appendComputed();
    store.foods.addFood(test::FoodBuilder(catalogue, 1001, "Rice").value(208, 130).value(205, 28));
    food::storeCustomFood(store, "Granola", 55.0f, std::vector<float>{5.0f, 7.0f, 36.0f, 250.0f});
    food::storeCustomFood(store, "Smoothie", 300.0f, std::vector<float>{2.0f, 1.0f, 40.0f, 180.0f});
}

void CustomFoodsTest::gridShowsWeightThenStoredNutrients()
{
    food::CustomFoodsDialog dialog(*m_context);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Custom Foods"));
    auto* grid = dialog.findChild<QTableWidget*>();
    auto* names = dialog.findChild<QComboBox*>();
    QCOMPARE(grid->rowCount(), 5);
    QCOMPARE(grid->item(0, 0)->text(), QStringLiteral("Amount (g)"));
    QCOMPARE(grid->item(4, 0)->text(), QStringLiteral("N208"));
    QVERIFY(!(grid->item(1, 0)->flags() & Qt::ItemIsEditable));
    QVERIFY(grid->item(1, 1)->flags() & Qt::ItemIsEditable);
    QCOMPARE(grid->item(1, 0)->background().color(), QColor(200, 200, 200));
    QCOMPARE(grid->item(1, 1)->background().color(), QColor(204, 212, 227));
    QCOMPARE(grid->item(2, 1)->background().color(), QColor(Qt::white));

    // Nothing chosen: empty values.
    QCOMPARE(names->count(), 2);
    QVERIFY(grid->item(0, 1)->text().isEmpty());
    names->setCurrentIndex(1);
    QCOMPARE(grid->item(0, 1)->text(), QStringLiteral("300.0"));
    QCOMPARE(grid->item(3, 1)->text(), QStringLiteral("40.0"));
}

void CustomFoodsTest::newEditDoneStores()
{
    food::CustomFoodsDialog dialog(*m_context);
    auto* grid = dialog.findChild<QTableWidget*>();
    auto* names = dialog.findChild<QComboBox*>();

    QTest::keyClicks(names->lineEdit(), QStringLiteral("  apple pie "));
    grid->item(0, 1)->setText(QStringLiteral("125"));
    grid->item(4, 1)->setText(QStringLiteral("237.5"));
    buttonOf(&dialog, QStringLiteral("New"))->click();

    const auto& foods = m_context->m_store.shared.customFoods;
    QCOMPARE(foods.size(), std::size_t{3});
    QCOMPARE(foods[2].name, std::string("Apple pie"));
    QCOMPARE(foods[2].number, 70002);
    QCOMPARE(names->count(), 3);
    QCOMPARE(names->currentText(), QStringLiteral("Apple pie"));
    QCOMPARE(grid->item(0, 1)->text(), QStringLiteral("125.0"));

    // An edit followed by "Done" overwrites the same food; a non-numeric cell stores 0 and a
    // negative number is kept, each pointed out; an empty cell and a written 0 are plain zeros.
    grid->item(1, 1)->setText(QStringLiteral("lots"));
    grid->item(2, 1)->setText(QStringLiteral("3.5"));
    grid->item(3, 1)->setText(QStringLiteral("-2"));
    grid->item(0, 1)->setText(QStringLiteral(" 125 "));
    QString notice;
    onNextModal([&notice](QWidget* box) {
        notice = static_cast<QMessageBox*>(box)->text();
        static_cast<QMessageBox*>(box)->accept();
    });
    buttonOf(&dialog, QStringLiteral("Done"))->click();
    QVERIFY(notice.contains(QStringLiteral("\"lots\" was stored as 0")));
    QVERIFY(notice.contains(QStringLiteral("\"-2\" was stored as -2")));
    QCOMPARE(notice.count(QStringLiteral("was stored")), 2);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(foods.size(), std::size_t{3});
    QCOMPARE(foods[2].servingWeight, 125.0f);
    QCOMPARE(foods[2].valueAt(0), 0.0f);
    QCOMPARE(foods[2].valueAt(1), 3.5f);
    QCOMPARE(foods[2].valueAt(2), -2.0f);
    QCOMPARE(foods[2].valueAt(3), 237.5f);
    QVERIFY(m_context->modified > 0);
}

void CustomFoodsTest::choosingAnotherFoodStoresTheShownOne()
{
    food::CustomFoodsDialog dialog(*m_context);
    auto* grid = dialog.findChild<QTableWidget*>();
    auto* names = dialog.findChild<QComboBox*>();
    names->setCurrentIndex(0); // Granola
    grid->item(0, 1)->setText(QStringLiteral("60"));
    names->setCurrentIndex(1); // Smoothie: Granola is stored first
    const auto& foods = m_context->m_store.shared.customFoods;
    QCOMPARE(foods[0].servingWeight, 60.0f);
    QCOMPARE(foods[1].servingWeight, 300.0f);
    QCOMPARE(grid->item(0, 1)->text(), QStringLiteral("300.0"));

    // A name typed over a chosen food and then a change of choice stores a new food under the
    // typed name, leaving the chosen one as it was.
    names->lineEdit()->selectAll();
    QTest::keyClicks(names->lineEdit(), QStringLiteral("green smoothie"));
    grid->item(0, 1)->setText(QStringLiteral("350"));
    names->setCurrentIndex(0);
    QCOMPARE(foods.size(), std::size_t{3});
    QCOMPARE(foods[2].name, std::string("Green smoothie"));
    QCOMPARE(foods[2].servingWeight, 350.0f);
    QCOMPARE(foods[1].servingWeight, 300.0f);
    QCOMPARE(names->count(), 3);
    QCOMPARE(names->currentText(), QStringLiteral("Granola"));
    QCOMPARE(grid->item(0, 1)->text(), QStringLiteral("60.0"));
}

void CustomFoodsTest::deleteAsksAndRemoves()
{
    food::CustomFoodsDialog dialog(*m_context);
    auto* names = dialog.findChild<QComboBox*>();
    auto* grid = dialog.findChild<QTableWidget*>();
    QPushButton* del = buttonOf(&dialog, QStringLiteral("Delete"));
    QVERIFY(!del->isEnabled());
    names->setCurrentIndex(0);
    QVERIFY(del->isEnabled());

    QString question;
    onNextModal([&](QWidget* d) {
        for (QLabel* l : d->findChildren<QLabel*>())
            question += l->text();
        buttonOf(d, QStringLiteral("No"))->click();
    });
    del->click();
    QCOMPARE(question, QStringLiteral("Are you sure you want to delete this custom food?"));
    QCOMPARE(m_context->m_store.shared.customFoods.size(), std::size_t{2});

    onNextModal([](QWidget* d) { buttonOf(d, QStringLiteral("Yes"))->click(); });
    del->click();
    const auto& foods = m_context->m_store.shared.customFoods;
    QCOMPARE(foods.size(), std::size_t{1});
    QCOMPARE(foods[0].name, std::string("Smoothie"));
    QCOMPARE(names->count(), 1);
    QVERIFY(names->currentText().isEmpty());
    QVERIFY(grid->item(0, 1)->text().isEmpty());

    // "Done" with nothing chosen stores nothing.
    buttonOf(&dialog, QStringLiteral("Done"))->click();
    QCOMPARE(foods.size(), std::size_t{1});
}

void CustomFoodsTest::saveMealMakesACustomFood()
{
    model::Meal meal;
    meal.entries = {{1001, 1.5f}, {70000, 1.0f}};
    food::SaveMealDialog dialog(*m_context, meal);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Save Meal as Custom Food"));
    auto* name = dialog.findChild<QLineEdit*>();

    name->setText(QStringLiteral("   "));
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Rejected)); // still open, nothing made
    QCOMPARE(m_context->m_store.shared.customFoods.size(), std::size_t{2});

    name->setText(QStringLiteral("  rice bowl "));
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    const auto& foods = m_context->m_store.shared.customFoods;
    QCOMPARE(foods.size(), std::size_t{3});
    QCOMPARE(foods[2].name, std::string("Rice bowl"));
    QCOMPARE(foods[2].servingWeight, 150.0f + 55.0f);
    QCOMPARE(foods[2].valueAt(3), 1.5f * 130.0f + 250.0f);
}

QTEST_MAIN(CustomFoodsTest)
#include "test_custom_foods.moc"
