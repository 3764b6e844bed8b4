#pragma once

#include <QObject>

class QTreeWidget;

namespace velmora::food {

// Keeps the two columns of a nutrient list at "Nutrient" three quarters of the list's width less
// 20 and "Value" one quarter, whenever the list is sized.
class QuarterColumns : public QObject
{
public:
    explicit QuarterColumns(QTreeWidget* list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();
    QTreeWidget* m_list;
};

} // namespace velmora::food
