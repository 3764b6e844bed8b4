#pragma once

#include <array>

namespace velmora::ui {

// The pages of the page host, in their fixed order.
enum class PageId
{
    Food,
    Health,
    JournalList,
    JournalNotes,
    FitnessLog,
    Graphs
};

inline constexpr int PageCount = 6;

// The order in which refreshing all pages visits them; the graphs page draws when it is shown.
inline constexpr std::array<PageId, 5> RefreshOrder = {
    PageId::Health, PageId::Food, PageId::JournalList, PageId::FitnessLog, PageId::JournalNotes};

constexpr int pageIndex(PageId id)
{
    return static_cast<int>(id);
}

} // namespace velmora::ui
