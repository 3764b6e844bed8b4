#pragma once

#include <QListWidget>

#include <cstdint>
#include <utility>
#include <vector>

namespace velmora::food {

// The drop-down under the food page's search box: the best matches of the words typed so far. It
// floats over its parent as a child widget and never takes the keyboard focus, so typing goes on
// in the search box; the box's owner passes it the keys that move in it and choose.
class SuggestionList : public QListWidget
{
    Q_OBJECT

public:
    // box is the search box the list hangs under; parent must contain it.
    SuggestionList(QWidget* box, QWidget* parent);

    // Shows one row per (name, food number) under the box, no row current; hides when empty.
    void showRows(const std::vector<std::pair<QString, std::int32_t>>& rows);
    // Places the list under the box again (after the parent changed its size).
    void place();
    // Moves the current row: from none, Down goes to the first row and Up to the last.
    void step(int delta);
    // The food of the current row, or -1 when no row is current.
    std::int32_t currentFood() const;
    std::int32_t food(int row) const;

signals:
    void chosen(std::int32_t food);

private:
    QWidget* m_box;
};

} // namespace velmora::food
