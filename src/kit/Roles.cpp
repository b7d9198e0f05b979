#include "kit/Roles.h"

namespace quillary {

namespace {

QColor Mix(const QColor& over, const QColor& under, double share) {
  const auto mixed = [&](int a, int b) { return qRound(a * share + b * (1 - share)); };
  return QColor(mixed(over.red(), under.red()), mixed(over.green(), under.green()),
                mixed(over.blue(), under.blue()));
}

HueColours Colours(const Roles& roles, const char* bar, const char* fill, const char* edge,
                   const char* words, double strength = 1) {
  const QColor full(bar);
  return {full, Mix(full, roles.surface, strength * (roles.dark ? 0.09 : 0.07)), QColor(fill),
          QColor(edge), QColor(words)};
}

Roles MakeLight() {
  Roles r;
  r.surface = QColor("#FFFFFF");
  r.strip = QColor("#F4F5F7");
  r.raised = QColor("#F8F9FB");
  r.line = QColor("#DCDFE4");
  r.edge = QColor("#7F8796");
  r.softLine = QColor("#ECEFF3");
  r.text = QColor("#1D2330");
  r.muted = QColor("#5C667A");
  r.faint = QColor("#A3AAB8");
  r.accent = QColor("#1F6F54");
  r.onAccent = QColor("#FFFFFF");
  r.accentHover = QColor("#185A44");
  r.selection = QColor("#DCEFE7");
  r.hover = QColor("#ECEFF3");
  r.warning = QColor("#8A5B00");
  r.danger = QColor("#A61B12");
  r.hues = {
      HueColours{Qt::transparent, r.surface, r.surface, QColor("#C8CDD6"), r.text},
      HueColours{QColor("#C8CDD6"), r.surface, r.surface, QColor("#C8CDD6"), QColor("#444954")},
      Colours(r, "#4CAF7A", "#E3F5EA", "#A5DBB9", "#136C3A"),
      Colours(r, "#5B74D6", "#E3E8FB", "#A9B6EE", "#2A3F99"),
      Colours(r, "#E0645A", "#FDECEB", "#F2B8B4", "#A61B12"),
      Colours(r, "#D9B93A", "#FFF8DC", "#E8D48A", "#7A5B00"),
      Colours(r, "#46BFD0", "#DDF6F9", "#98DCE5", "#0B5F6C"),
      Colours(r, "#00C000", "#B5E8BE", "#4FB868", "#064D1A", 2.5)};
  return r;
}

Roles MakeDark() {
  Roles r;
  r.dark = true;
  r.surface = QColor("#262A31");
  r.strip = QColor("#1E2126");
  r.raised = QColor("#2B3037");
  r.line = QColor("#3A3F48");
  r.edge = QColor("#7A8291");
  r.softLine = QColor("#2E333B");
  r.text = QColor("#E7E9EE");
  r.muted = QColor("#ABB3C1");
  r.faint = QColor("#636B79");
  r.accent = QColor("#4FB08C");
  r.onAccent = QColor("#10231B");
  r.accentHover = QColor("#63C29F");
  r.selection = QColor("#2B4A3F");
  r.hover = QColor("#343A44");
  r.warning = QColor("#F0C860");
  r.danger = QColor("#FF9A92");
  r.hues = {
      HueColours{Qt::transparent, r.surface, r.surface, QColor("#555C68"), r.text},
      HueColours{QColor("#C8CDD6"), r.surface, r.softLine, QColor("#555C68"), QColor("#D5D7DC")},
      Colours(r, "#4CAF7A", "#17382A", "#2D6B4D", "#8FE0B4"),
      Colours(r, "#5B74D6", "#212B52", "#3F4F97", "#B9C5FF"),
      Colours(r, "#E0645A", "#41201E", "#7A3733", "#FFB1AA"),
      Colours(r, "#D9B93A", "#3B3418", "#6E6128", "#F0DC8C"),
      Colours(r, "#46BFD0", "#15363C", "#2A6A75", "#95E3EF"),
      Colours(r, "#00C000", "#0B5A1E", "#2FA64B", "#C9FFD2", 2.5)};
  return r;
}

}  // namespace

Hue HueOfColour(quint32 colour) {
  switch (colour) {
    case 0x00FF00:
      return Hue::Green;
    case 0x00C000:
      return Hue::StrongGreen;
    case 0x0000FF:
      return Hue::Blue;
    case 0x80FFFF:
      return Hue::PaleBlue;
    case 0xFF0000:
      return Hue::Red;
    case 0xFFFF80:
      return Hue::Yellow;
    default:
      return Hue::Neutral;
  }
}

const Roles& LightRoles() {
  static const Roles roles = MakeLight();
  return roles;
}

const Roles& DarkRoles() {
  static const Roles roles = MakeDark();
  return roles;
}

const Roles& RolesOf(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128 ? DarkRoles() : LightRoles();
}

QPalette PaletteOf(const Roles& r) {
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, const QColor& colour, const QColor& disabled) {
    palette.setColor(QPalette::Active, role, colour);
    palette.setColor(QPalette::Inactive, role, colour);
    palette.setColor(QPalette::Disabled, role, disabled);
  };
  set(QPalette::Window, r.surface, r.surface);
  set(QPalette::Base, r.surface, r.raised);
  set(QPalette::AlternateBase, r.raised, r.raised);
  set(QPalette::Button, r.surface, r.surface);
  set(QPalette::ToolTipBase, r.raised, r.raised);
  set(QPalette::WindowText, r.text, r.faint);
  set(QPalette::Text, r.text, r.faint);
  set(QPalette::ButtonText, r.text, r.faint);
  set(QPalette::ToolTipText, r.text, r.text);
  set(QPalette::PlaceholderText, r.muted, r.faint);
  set(QPalette::BrightText, r.danger, r.faint);
  set(QPalette::Highlight, r.selection, r.softLine);
  set(QPalette::HighlightedText, r.text, r.faint);
  set(QPalette::Link, r.accent, r.faint);
  set(QPalette::LinkVisited, r.accent, r.faint);
  set(QPalette::Light, r.surface, r.surface);
  set(QPalette::Midlight, r.softLine, r.softLine);
  set(QPalette::Mid, r.line, r.line);
  set(QPalette::Dark, r.line.darker(120), r.line);
  set(QPalette::Shadow, r.line.darker(160), r.line);
  return palette;
}

}  // namespace quillary
