#include "ui/Page.h"

namespace velmora::ui {

Page::Page(AppContext& context, QWidget* parent) : QWidget(parent), m_context(context) {}

} // namespace velmora::ui
