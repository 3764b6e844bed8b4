#include "food/CustomFoodsDialog.h"

#include <string>
#include <vector>

#include <QBrush>
#include <QColor>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "food/logic/CustomFoods.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/UserNames.h"
#include "ui/Messages.h"
#include "ui/QtText.h"

namespace velmora::food {

namespace {

const QColor FieldBackground(200, 200, 200);
const QColor AlternateValueBackground(204, 212, 227);

} // namespace

CustomFoodsDialog::CustomFoodsDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Custom Foods"));

    m_names = new QComboBox(this);
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->lineEdit()->setPlaceholderText(QStringLiteral("Type a new name or choose a food"));
    m_names->setMinimumContentsLength(30);
    m_names->setMaxVisibleItems(20);

    const model::Store& store = m_context.store();
    const int count = storedNutrientCount(store);
    m_grid = new QTableWidget(count + 1, 2, this);
    m_grid->setHorizontalHeaderLabels({QStringLiteral("Field"), QStringLiteral("Value")});
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(m_grid->fontMetrics().height() + 6);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::AllEditTriggers);
    const auto& entries = store.foods.catalogue().entries();
    for (int row = 0; row <= count; ++row) {
        const std::string name = row == 0 ? store.foods.catalogue().nameOf(model::nutrient::Amount)
                                          : entries[static_cast<std::size_t>(row - 1)].name;
        auto* field = new QTableWidgetItem(name.empty() && row == 0 ? QStringLiteral("Amount (g)")
                                                                    : ui::toQt(name));
        field->setFlags(Qt::ItemIsEnabled);
        field->setBackground(FieldBackground);
        m_grid->setItem(row, 0, field);
        auto* value = new QTableWidgetItem();
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setBackground(row % 2 == 0 ? QColor(Qt::white) : AlternateValueBackground);
        m_grid->setItem(row, 1, value);
    }
    m_grid->resizeColumnToContents(0);
    m_grid->horizontalHeader()->setStretchLastSection(true);

    auto* newButton = new QPushButton(QStringLiteral("New"), this);
    m_delete = new QPushButton(QStringLiteral("Delete"), this);
    auto* done = new QPushButton(QStringLiteral("Done"), this);
    // Enter in the name box or a cell must not close the dialog behind the user's back.
    for (QPushButton* b : {newButton, m_delete, done}) {
        b->setAutoDefault(false);
        b->setDefault(false);
    }

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Food:"), this));
    top->addWidget(m_names, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(newButton);
    buttons->addWidget(m_delete);
    buttons->addStretch(1);
    buttons->addWidget(done);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_grid, 1);
    layout->addLayout(buttons);

    connect(m_names, &QComboBox::currentIndexChanged, this, &CustomFoodsDialog::onFoodChosen);
    connect(m_names->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        m_shownName = text;
        updateButtons();
    });
    connect(newButton, &QPushButton::clicked, this, &CustomFoodsDialog::onNew);
    connect(m_delete, &QPushButton::clicked, this, &CustomFoodsDialog::onDelete);
    connect(done, &QPushButton::clicked, this, &CustomFoodsDialog::onDone);

    fillFoodList(-1);
    showFood(-1);
    resize(480, 600);
}

void CustomFoodsDialog::fillFoodList(int select)
{
    m_filling = true;
    m_names->clear();
    const auto& foods = m_context.store().shared.customFoods;
    for (std::size_t i = 0; i < foods.size(); ++i)
        m_names->addItem(ui::toQt(foods[i].name), static_cast<int>(i));
    m_names->setCurrentIndex(select);
    if (select < 0)
        m_names->setEditText(QString());
    m_filling = false;
    m_shownName = m_names->currentText();
    updateButtons();
}

void CustomFoodsDialog::showFood(int position)
{
    const model::Store& store = m_context.store();
    std::vector<std::string> cells;
    if (position >= 0 && position < static_cast<int>(store.shared.customFoods.size()))
        cells =
            customFoodCells(store, store.shared.customFoods[static_cast<std::size_t>(position)]);
    for (int row = 0; row < m_grid->rowCount(); ++row) {
        const auto r = static_cast<std::size_t>(row);
        m_grid->item(row, 1)->setText(r < cells.size() ? QString::fromStdString(cells[r])
                                                       : QString());
    }
}

int CustomFoodsDialog::storeShown(const QString& name)
{
    // A cell still being edited is committed by moving the current cell away from it.
    m_grid->setCurrentIndex(QModelIndex());
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(m_grid->rowCount()));
    for (int row = 0; row < m_grid->rowCount(); ++row)
        cells.push_back(m_grid->item(row, 1)->text().toStdString());
    const int position = storeCustomFoodCells(m_context.store(), ui::fromQt(name), cells);
    if (position >= 0) {
        m_context.notifyChanged(ui::Change::Definitions);
        // Cells that were not numbers of 0 or more are stored all the same; say which.
        QStringList doubtful;
        for (int row = 0; row < m_grid->rowCount(); ++row) {
            const std::string& cell = cells[static_cast<std::size_t>(row)];
            if (cellNeedsNotice(cell))
                doubtful << QStringLiteral("%1: \"%2\" was stored as %3")
                                .arg(m_grid->item(row, 0)->text(),
                                     QString::fromStdString(model::trimBlanks(cell)))
                                .arg(static_cast<double>(cellValue(cell)));
        }
        if (!doubtful.isEmpty())
            QMessageBox::warning(
                this, windowTitle(),
                tr("Some values of \"%1\" were not numbers of 0 or more:\n\n%2\n\nText counts as "
                   "0.  Correct them in the list if they are wrong.")
                    .arg(ui::toQt(customFoodName(ui::fromQt(name))),
                         doubtful.join(QLatin1Char('\n'))));
    }
    return position;
}

void CustomFoodsDialog::onFoodChosen(int index)
{
    if (m_filling)
        return;
    // The grid still holds the food that was on screen before this choice: store it under the
    // name it had, then show the chosen one.
    const int position = index >= 0 ? m_names->itemData(index).toInt() : -1;
    const QString chosen = index >= 0 ? m_names->itemText(index) : QString();
    const int count = m_names->count();
    storeShown(m_shownName);
    // Storing may have appended a food: the drop list follows the custom-food list (new foods
    // go to its end, so the chosen position stays valid).
    if (static_cast<int>(m_context.store().shared.customFoods.size()) != count)
        fillFoodList(position);
    m_shownName = chosen;
    showFood(position);
    updateButtons();
}

void CustomFoodsDialog::onNew()
{
    const int position = storeShown(m_names->currentText());
    if (position < 0)
        return;
    fillFoodList(position);
    showFood(position);
}

void CustomFoodsDialog::onDelete()
{
    const QString name = m_names->currentText();
    const std::string stored = customFoodName(ui::fromQt(name));
    if (stored.empty() || findCustomFoodByName(m_context.store(), stored) < 0)
        return;
    if (!ui::confirmDelete(this, ui::MsgDeleteCustomFood))
        return;
    if (deleteCustomFood(m_context.store(), stored))
        m_context.notifyChanged(ui::Change::Definitions);
    fillFoodList(-1);
    showFood(-1);
}

void CustomFoodsDialog::onDone()
{
    storeShown(m_names->currentText());
    accept();
}

void CustomFoodsDialog::updateButtons()
{
    m_delete->setEnabled(!customFoodName(ui::fromQt(m_names->currentText())).empty());
}

} // namespace velmora::food
