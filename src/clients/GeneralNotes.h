#pragma once

#include "base/ports/SettingsStore.h"
#include "data/Business.h"

#include <QString>
#include <QStringList>

/// The text that is printed on all invoices, statements and reminders, and how it looks there.
namespace quillary::clients {

QString LoadGeneralNotes(Business& business);
/// An empty text clears them.
void SaveGeneralNotes(Business& business, const QString& notes);

/// How the notes are printed. It belongs to the user and not to the business, and is read when a
/// document is made.
struct NotesLook {
  QString font = QStringLiteral("Arial");
  double size = 10;  // points
  bool bold = false;
  bool italic = false;
  QString colour = QStringLiteral("Black");  // one of NotesColours()

  bool operator==(const NotesLook&) const = default;
};

/// The colours a document knows; any other word prints black.
QStringList NotesColours();
/// The fonts that every kind of document has.
QStringList NotesFonts();
/// The sizes a list offers, in points.
QStringList NotesSizes();
/// 0xRRGGBB of one of NotesColours(); black for any other word.
quint32 NotesColourValue(const QString& colour);

NotesLook LoadNotesLook(const SettingsStore& settings);
void SaveNotesLook(SettingsStore& settings, const NotesLook& look);

}  // namespace quillary::clients
