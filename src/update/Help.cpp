// The online manual and the about box.

#include "update/Help.h"

#include <QDesktopServices>
#include <QMessageBox>
#include <QSettings>

#include "ui/SettingsKeys.h"
#include "update/UpdateChecker.h"

namespace velmora::update {

QUrl manualUrl()
{
    return QUrl(
        QSettings().value(ui::settings::ManualUrl, ui::settings::DefaultManualUrl).toString());
}

bool openManual()
{
    return QDesktopServices::openUrl(manualUrl());
}

QString aboutText(const QString& sourceRelease)
{
    const int version = static_cast<int>(ProgramVersion);
    const QString versionText =
        QStringLiteral("%1.%2").arg(version / 100).arg(version % 100, 2, 10, QLatin1Char('0'));
    const QString source =
        sourceRelease.isEmpty()
            ? QStringLiteral("the loaded foods.db does not record its source release")
            : sourceRelease.toHtmlEscaped();
    return QStringLiteral(
               "<h3>Velmora %1</h3>"
               "<p>A health and fitness journal: foods, health values, notes and workouts, "
               "day by day.</p>"
               "<p><b>Food data:</b> %2. The nutrient values come from the USDA National "
               "Nutrient Database for Standard Reference, a work of the United States "
               "Department of Agriculture in the public domain.</p>"
               "<p><b>Built with:</b> Qt %3, used under the GNU Lesser General Public "
               "License version 3.</p>")
        .arg(versionText, source, QString::fromLatin1(qVersion()));
}

void showAbout(QWidget* parent, const QString& sourceRelease)
{
    QMessageBox box(parent);
    box.setWindowTitle(QStringLiteral("About Velmora"));
    box.setTextFormat(Qt::RichText);
    box.setText(aboutText(sourceRelease));
    box.setIconPixmap(QPixmap(QStringLiteral(":/velmora/icons/velmora.svg"))
                          .scaled(64, 64, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

} // namespace velmora::update
