#pragma once

#include <QString>

class QApplication;

namespace quillary {

class SettingsStore;

enum class ThemeChoice { System, Light, Dark };

/// The user's choice; QUILLARY_THEME=light|dark wins over it.
ThemeChoice ReadThemeChoice(const SettingsStore& settings);
void WriteThemeChoice(SettingsStore& settings, ThemeChoice choice);

/// Dresses the whole program: style, palette, style sheet, icon theme and font. May be called
/// again at any time to change the theme.
void ApplyTheme(QApplication& application, ThemeChoice choice);

/// The style sheet of one theme.
QString HouseStyleSheet(bool dark);

}  // namespace quillary
