#include "app/Page.h"

namespace velmora::app {

Page::Page(AppContext& context, QWidget* parent) : QWidget(parent), m_context(context) {}

} // namespace velmora::app
