#pragma once

#include "ui/Page.h"

class QPushButton;
class QTreeWidget;

namespace velmora::food {

// Page 2: the journal as a list. A row per day with its totals, under it a row per meal, under
// that a row per food, each with the values of the user's chosen nutrient columns.
class JournalListPage : public ui::Page
{
    Q_OBJECT

public:
    JournalListPage(ui::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override;
    QString pageTitle() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void rebuild();
    // Without a saved width the first column takes the room the value columns leave.
    void fitFirstColumn();
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
