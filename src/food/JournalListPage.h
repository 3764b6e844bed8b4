#pragma once

#include "app/Page.h"

class QPushButton;
class QTreeWidget;

namespace velmora::food {

// Page 2: the journal as a list. A row per day with its totals, under it a row per meal, under
// that a row per food, each with the values of the user's chosen nutrient columns.
class JournalListPage : public app::Page
{
    Q_OBJECT

public:
    JournalListPage(app::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override;
    QString pageTitle() const override;

private:
    void rebuild();
    void setUpColumns();
    void onDelete();
    void onColumns();
    void onSectionResized(int column, int oldSize, int newSize);
    void updateButtons();

    QTreeWidget* m_tree = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_columns = nullptr;
    bool m_building = false;
};

} // namespace velmora::food
