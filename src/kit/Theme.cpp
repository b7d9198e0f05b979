#include "kit/Theme.h"

#include "base/ports/SettingsStore.h"
#include "kit/Roles.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QStandardPaths>
#include <QStyleFactory>

// A static library keeps its resources only when somebody asks for them, and the asking has to be
// done outside any namespace.
static void LoadKitResources() {
  Q_INIT_RESOURCE(kit);
}

namespace quillary {

namespace {

constexpr QLatin1StringView kSection("Form");
constexpr QLatin1StringView kKey("Theme");

ThemeChoice ChoiceOf(const QString& word) {
  if (word.compare(u"dark", Qt::CaseInsensitive) == 0) return ThemeChoice::Dark;
  if (word.compare(u"light", Qt::CaseInsensitive) == 0) return ThemeChoice::Light;
  return ThemeChoice::System;
}

bool SystemIsDark(QApplication& application) {
  if (qEnvironmentVariable("GTK_THEME").endsWith(u":dark")) return true;
  application.setPalette(QPalette());  // gives the desktop's own palette back
  return application.palette().color(QPalette::Window).lightness() < 128;
}

/// Families with figures of one width, so that columns of money line up.
QFont HouseFont() {
  QFont font;
  font.setFamilies({QStringLiteral("Noto Sans"), QStringLiteral("Open Sans"),
                    QStringLiteral("DejaVu Sans"), QStringLiteral("sans-serif")});
  font.setPointSizeF(9.75);  // 13 px at 96 dots to the inch
  return font;
}

void UseIcons(bool dark) {
  QStringList folders = QIcon::themeSearchPaths();
  for (const QString& data :
       QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
    const QString icons = data + QStringLiteral("/icons");
    if (!folders.contains(icons)) folders += icons;
  }
  QIcon::setThemeSearchPaths(folders);
  QIcon::setThemeName(dark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
  QIcon::setFallbackThemeName(QStringLiteral("breeze"));
}

}  // namespace

ThemeChoice ReadThemeChoice(const SettingsStore& settings) {
  const ThemeChoice forced = ChoiceOf(qEnvironmentVariable("QUILLARY_THEME"));
  return forced != ThemeChoice::System ? forced : ChoiceOf(settings.Read(kSection, kKey));
}

void WriteThemeChoice(SettingsStore& settings, ThemeChoice choice) {
  settings.Write(kSection, kKey,
                 choice == ThemeChoice::Dark    ? QStringLiteral("dark")
                 : choice == ThemeChoice::Light ? QStringLiteral("light")
                                                : QStringLiteral("system"));
}

void ApplyTheme(QApplication& application, ThemeChoice choice) {
  LoadKitResources();
  const bool dark =
      choice == ThemeChoice::System ? SystemIsDark(application) : choice == ThemeChoice::Dark;
  UseIcons(dark);
  application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  application.setFont(HouseFont());
  application.setPalette(PaletteOf(dark ? DarkRoles() : LightRoles()));
  application.setStyleSheet(HouseStyleSheet(dark));
}

}  // namespace quillary
