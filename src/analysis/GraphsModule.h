#pragma once

class QWidget;

namespace velmora::ui {
class AppContext;
class Page;
} // namespace velmora::ui

// The entry of the graphs module, which the program looks up by this name when the graphs page
// is first shown: makes the page.
extern "C" velmora::ui::Page* velmora_graphs_create_page(velmora::ui::AppContext* context,
                                                         QWidget* parent);
