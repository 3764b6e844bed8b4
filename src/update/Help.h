#pragma once

#include <QString>
#include <QUrl>

class QWidget;

namespace velmora::update {

// The manual's address: the setting, or the default address on the web site.
QUrl manualUrl();
// Help > Online User Manual: opens the address in the desktop's browser; false when that failed.
bool openManual();

// The text of the about box: the version, the food data's source and the licences of what the
// program uses. sourceRelease is the food database's release, empty when no database is loaded.
QString aboutText(const QString& sourceRelease);
void showAbout(QWidget* parent, const QString& sourceRelease);

} // namespace velmora::update
