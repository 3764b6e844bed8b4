// The entry of the graphs module.

#include "analysis/GraphsModule.h"

#include "analysis/GraphsPage.h"

extern "C" velmora::ui::Page* velmora_graphs_create_page(velmora::ui::AppContext* context,
                                                         QWidget* parent)
{
    return new velmora::analysis::GraphsPage(*context, parent);
}
