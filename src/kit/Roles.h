#pragma once

#include "domain/Hue.h"

#include <QColor>
#include <QPalette>

#include <array>

namespace quillary {

struct HueColours {
  QColor bar;    // full strength, at the left of a row
  QColor tint;   // light, across the row
  QColor fill;   // of a chip
  QColor edge;   // of a chip
  QColor words;  // of a chip
};

/// Every colour of the program, by what it is for.
struct Roles {
  QColor surface;   // screens, menus, fields
  QColor strip;     // behind the tabs
  QColor raised;    // table heads, status bar, wells
  QColor line;      // around tables and groups
  QColor edge;      // around what can be typed into or ticked: 3:1 against what is behind it
  QColor softLine;  // between rows
  QColor text;
  QColor muted;   // labels, hints
  QColor faint;   // what is disabled
  QColor accent;  // the one accent: main action, focus
  QColor onAccent;
  QColor accentHover;
  QColor selection;  // behind selected rows
  QColor hover;
  QColor warning;
  QColor danger;
  bool dark = false;

  const HueColours& Of(Hue hue) const { return hues[static_cast<size_t>(hue)]; }
  std::array<HueColours, 8> hues;
};

/// The hue that stands for a colour given as 0xRRGGBB, in either theme; neutral for white and for
/// colours without one.
Hue HueOfColour(quint32 colour);

const Roles& LightRoles();
const Roles& DarkRoles();

/// The roles that go with a palette: those of the dark theme when its windows are dark. Delegates
/// and painted controls ask with their own palette, so a change of theme reaches them at once.
const Roles& RolesOf(const QPalette& palette);

/// The roles as a palette for what the platform style draws.
QPalette PaletteOf(const Roles& roles);

}  // namespace quillary
