#include "clients/GeneralNotes.h"

#include <utility>

namespace quillary::clients {
namespace {

const QString kSection = QStringLiteral("Reports");

constexpr std::pair<const char*, quint32> kColours[] = {
    {"Black", 0x000000}, {"Blue", 0x0000FF},  {"Cyan", 0x00FFFF},   {"Green", 0x008000},
    {"Red", 0xFF0000},   {"White", 0xFFFFFF}, {"Yellow", 0xFFFF00},
};

/// Yes/no is kept as a number.
bool IsOn(const SettingsStore& settings, const QString& key) {
  return settings.Read(kSection, key).toDouble() != 0;
}

QString OnOrOff(bool on) {
  return on ? QStringLiteral("1") : QStringLiteral("0");
}

}  // namespace

QString LoadGeneralNotes(Business& business) {
  return business.FirstField(Sql("SELECT Invoice_Notes FROM infOptions;")).ToText();
}

void SaveGeneralNotes(Business& business, const QString& notes) {
  business.Write(Sql("UPDATE infOptions SET Invoice_Notes = {}", notes), Rows::AtLeast(1));
}

QStringList NotesColours() {
  QStringList colours;
  for (const auto& [word, value] : kColours) colours += QString::fromLatin1(word);
  return colours;
}

QStringList NotesFonts() {
  return {QStringLiteral("Arial"), QStringLiteral("Courier"), QStringLiteral("Times")};
}

QStringList NotesSizes() {
  return QString("8 9 10 11 12 14 16 18").split(u' ');
}

quint32 NotesColourValue(const QString& colour) {
  for (const auto& [word, value] : kColours)
    if (colour.compare(QLatin1StringView(word), Qt::CaseInsensitive) == 0) return value;
  return 0;
}

NotesLook LoadNotesLook(const SettingsStore& settings) {
  NotesLook look;
  look.font = settings.Read(kSection, QStringLiteral("Notes Font"), look.font);
  look.bold = IsOn(settings, QStringLiteral("Notes Bold"));
  look.italic = IsOn(settings, QStringLiteral("Notes Italic"));
  const double size = settings.Read(kSection, QStringLiteral("Notes Size")).toDouble();
  if (size > 0) look.size = size;
  look.colour = settings.Read(kSection, QStringLiteral("Notes Color"), look.colour);
  return look;
}

void SaveNotesLook(SettingsStore& settings, const NotesLook& look) {
  settings.Write(kSection, QStringLiteral("Notes Font"), look.font);
  settings.Write(kSection, QStringLiteral("Notes Bold"), OnOrOff(look.bold));
  settings.Write(kSection, QStringLiteral("Notes Italic"), OnOrOff(look.italic));
  settings.Write(kSection, QStringLiteral("Notes Size"), QString::number(look.size));
  settings.Write(kSection, QStringLiteral("Notes Color"), look.colour);
}

}  // namespace quillary::clients
