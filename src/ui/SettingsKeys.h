#pragma once

#include <QString>

// The program's settings, kept with QSettings under the organisation "Orvane" and the application
// "Velmora".
namespace velmora::ui::settings {

inline const QString DeleteConfirmations = QStringLiteral("Options/DeleteConfirmations");
inline const QString VersionUrl = QStringLiteral("Update/VersionUrl");
inline const QString ManualUrl = QStringLiteral("Help/ManualUrl");
inline const QString TipStartUp = QStringLiteral("Tip/StartUp");
inline const QString TipFilePos = QStringLiteral("Tip/FilePos");
inline const QString TipTimeStamp = QStringLiteral("Tip/TimeStamp");
// The folder of the last export and the last weigh-in file imported.
inline const QString ExportFolder = QStringLiteral("Export/Folder");
inline const QString ImportHealthFile = QStringLiteral("Import/HealthFile");
// The food finder's last two nutrients (numbers) and directions (true for "Low").
inline const QString FinderNutrient1 = QStringLiteral("FoodFinder/Nutrient1");
inline const QString FinderNutrient2 = QStringLiteral("FoodFinder/Nutrient2");
inline const QString FinderLow1 = QStringLiteral("FoodFinder/Low1");
inline const QString FinderLow2 = QStringLiteral("FoodFinder/Low2");

inline const QString DefaultVersionUrl = QStringLiteral("https://www.velmora.example/version.txt");
inline const QString DefaultManualUrl = QStringLiteral("https://www.velmora.example/manual/");

} // namespace velmora::ui::settings
