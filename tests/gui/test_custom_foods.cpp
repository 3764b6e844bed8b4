// The Custom Foods and Save Meal as Custom Food dialogs driven offscreen.

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableWidget>
#include <QtTest>

#include "food/CustomFoodsDialog.h"
#include "food/SaveMealDialog.h"
#include "food/logic/CustomFoods.h"
#include "support/Builders.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::buttonOf;
using test::clickButton;
using test::onNextModal;

class CustomFoodsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_settings;
    std::unique_ptr<test::TestContext> m_context;
    std::unique_ptr<food::CustomFoodsDialog> m_dialog;
    QTableWidget* m_grid = nullptr;
    QComboBox* m_names = nullptr;

    const std::vector<model::FoodItem>& foods() { return m_context->m_store.shared.customFoods; }
    QString cell(int row) { return m_grid->item(row, 1)->text(); }
    // Types a value into a cell of the grid as a user does.
    void typeCell(int row, const QString& text) { test::editCell(m_grid, row, 1, text); }
    // Types a name over the name box's text.
    void typeName(const QString& text) { test::retype(m_names->lineEdit(), text); }

private slots:
    void initTestCase()
    {
        test::keepSettingsIn(m_settings);
        ui::setDeleteConfirmationsEnabled(true);
    }

    void init()
    {
        m_context = std::make_unique<test::TestContext>();
        model::Store& store = m_context->m_store;
        const auto catalogue = test::catalogueOf({203, 204, 205, 208});
        store.foods.setCatalogue(catalogue);
        store.foods.catalogue().appendComputed();
        store.foods.addFood(
            test::FoodBuilder(catalogue, 1001, "Rice").value(208, 130).value(205, 28));
        food::storeCustomFood(store, "Granola", 55.0f, std::vector<float>{5, 7, 36, 250});
        food::storeCustomFood(store, "Smoothie", 300.0f, std::vector<float>{2, 1, 40, 180});
        m_dialog = std::make_unique<food::CustomFoodsDialog>(*m_context);
        m_dialog->show();
        m_grid = m_dialog->findChild<QTableWidget*>();
        m_names = m_dialog->findChild<QComboBox*>();
    }

    void cleanup() { m_dialog.reset(); }

    void gridShowsWeightThenStoredNutrients()
    {
        QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Custom Foods"));
        QCOMPARE(m_grid->rowCount(), 5);
        QCOMPARE(m_grid->item(0, 0)->text(), QStringLiteral("Amount (g)"));
        QCOMPARE(m_grid->item(4, 0)->text(), QStringLiteral("N208"));
        QVERIFY(!(m_grid->item(1, 0)->flags() & Qt::ItemIsEditable));
        QVERIFY(m_grid->item(1, 1)->flags() & Qt::ItemIsEditable);
        QCOMPARE(m_grid->item(1, 0)->background().color(), QColor(200, 200, 200));
        QCOMPARE(m_grid->item(1, 1)->background().color(), QColor(204, 212, 227));
        QCOMPARE(m_grid->item(2, 1)->background().color(), QColor(Qt::white));

        // Nothing chosen: empty values.
        QCOMPARE(m_names->count(), 2);
        QVERIFY(cell(0).isEmpty());
        test::chooseItem(m_names, 1);
        QCOMPARE(cell(0), QStringLiteral("300.0"));
        QCOMPARE(cell(3), QStringLiteral("40.0"));
    }

    void newEditDoneStores()
    {
        typeName(QStringLiteral("  apple pie "));
        typeCell(0, QStringLiteral("125"));
        typeCell(4, QStringLiteral("237.5"));
        clickButton(m_dialog.get(), QStringLiteral("New"));
        QCOMPARE(foods().size(), std::size_t{3});
        QCOMPARE(foods()[2].name, std::string("Apple pie"));
        QCOMPARE(m_names->count(), 3);
        QCOMPARE(m_names->currentText(), QStringLiteral("Apple pie"));
        QCOMPARE(cell(0), QStringLiteral("125.0"));

        // An edit followed by "Done" overwrites the same food; a non-numeric cell stores 0 and a
        // negative number is kept, each pointed out; a written 0 is a plain zero.
        typeCell(1, QStringLiteral("lots"));
        typeCell(2, QStringLiteral("3.5"));
        typeCell(3, QStringLiteral("-2"));
        typeCell(0, QStringLiteral(" 125 "));
        QString notice;
        onNextModal([&notice](QWidget* box) {
            notice = qobject_cast<QMessageBox*>(box)->text();
            QTest::keyClick(box, Qt::Key_Return);
        });
        clickButton(m_dialog.get(), QStringLiteral("Done"));
        QVERIFY(notice.contains(QStringLiteral("\"lots\"")));
        QVERIFY(notice.contains(QStringLiteral("\"-2\"")));
        QCOMPARE(notice.count(QStringLiteral("was stored")), 2);
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        QCOMPARE(foods().size(), std::size_t{3});
        QCOMPARE(foods()[2].servingWeight, 125.0f);
        const std::vector<float> values{foods()[2].valueAt(0), foods()[2].valueAt(1),
                                        foods()[2].valueAt(2), foods()[2].valueAt(3)};
        QCOMPARE(values, (std::vector<float>{0.0f, 3.5f, -2.0f, 237.5f}));
        QVERIFY(m_context->modified > 0);
    }

    void choosingAnotherFoodStoresTheShownOne()
    {
        test::chooseItem(m_names, 0); // Granola
        typeCell(0, QStringLiteral("60"));
        test::chooseItem(m_names, 1); // Smoothie: Granola is stored first
        QCOMPARE(foods()[0].servingWeight, 60.0f);
        QCOMPARE(foods()[1].servingWeight, 300.0f);
        QCOMPARE(cell(0), QStringLiteral("300.0"));

        // A name typed over a chosen food and then a change of choice stores a new food under
        // the typed name, leaving the chosen one as it was.
        typeName(QStringLiteral("green smoothie"));
        typeCell(0, QStringLiteral("350"));
        test::chooseItem(m_names, 0);
        QCOMPARE(foods().size(), std::size_t{3});
        QCOMPARE(foods()[2].name, std::string("Green smoothie"));
        QCOMPARE(foods()[2].servingWeight, 350.0f);
        QCOMPARE(foods()[1].servingWeight, 300.0f);
        QCOMPARE(m_names->count(), 3);
        QCOMPARE(m_names->currentText(), QStringLiteral("Granola"));
        QCOMPARE(cell(0), QStringLiteral("60.0"));
    }

    void deleteAsksAndRemoves()
    {
        QPushButton* del = buttonOf(m_dialog.get(), QStringLiteral("Delete"));
        QVERIFY(!del->isEnabled());
        test::chooseItem(m_names, 0);

        QString question;
        onNextModal([&](QWidget* d) {
            for (QLabel* l : d->findChildren<QLabel*>())
                question += l->text();
            clickButton(d, QStringLiteral("No"));
        });
        test::click(del);
        QCOMPARE(question, ui::messageText(ui::MsgDeleteCustomFood));
        QCOMPARE(foods().size(), std::size_t{2});

        onNextModal([](QWidget* d) { clickButton(d, QStringLiteral("Yes")); });
        test::click(del);
        QCOMPARE(foods().size(), std::size_t{1});
        QCOMPARE(foods()[0].name, std::string("Smoothie"));
        QCOMPARE(m_names->count(), 1);
        QVERIFY(m_names->currentText().isEmpty());
        QVERIFY(cell(0).isEmpty());

        // "Done" with nothing chosen stores nothing.
        clickButton(m_dialog.get(), QStringLiteral("Done"));
        QCOMPARE(foods().size(), std::size_t{1});
    }

    void saveMealMakesACustomFood()
    {
        model::Meal meal;
        meal.entries = {{1001, 1.5f}, {70000, 1.0f}};
        food::SaveMealDialog dialog(*m_context, meal);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Save Meal as Custom Food"));
        auto* name = dialog.findChild<QLineEdit*>();

        test::retype(name, QStringLiteral("   "));
        clickButton(&dialog, QStringLiteral("OK"));
        QVERIFY(dialog.isVisible()); // still open, nothing made
        QCOMPARE(foods().size(), std::size_t{2});

        test::retype(name, QStringLiteral("  rice bowl "));
        clickButton(&dialog, QStringLiteral("OK"));
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(foods().size(), std::size_t{3});
        QCOMPARE(foods()[2].name, std::string("Rice bowl")); // its sums are the meal's own rule
    }
};

QTEST_MAIN(CustomFoodsTest)
#include "test_custom_foods.moc"
