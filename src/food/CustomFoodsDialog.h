#pragma once

#include <QDialog>
#include <QString>

class QComboBox;
class QPushButton;
class QTableWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::food {

// "Custom Foods": defines the user's own foods, each one serving with its weight and its
// nutrients. The food on screen is stored on "New", when another food is chosen and on "Done".
class CustomFoodsDialog : public QDialog
{
    Q_OBJECT

public:
    CustomFoodsDialog(ui::AppContext& context, QWidget* parent = nullptr);

private:
    void fillFoodList(int select);
    void showFood(int position);
    // Stores the grid under the given name; returns the food's position or -1.
    int storeShown(const QString& name);
    void onFoodChosen(int index);
    void onNew();
    void onDelete();
    void onDone();
    void updateButtons();

    ui::AppContext& m_context;
    QComboBox* m_names = nullptr;
    QTableWidget* m_grid = nullptr;
    QPushButton* m_delete = nullptr;
    // The name under which the grid is stored: the chosen food's, or what the user typed since.
    QString m_shownName;
    bool m_filling = false;
};

} // namespace velmora::food
