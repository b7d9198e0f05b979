#pragma once

#include "clients/ClientRecord.h"

class QComboBox;
class QWidget;

namespace quillary::clients {

/// The fields of a client, so that no page has to list them: each column that a user may write is
/// edited by one control, wherever on the pages that stands.

/// Tells each control which field of the client it is for. Once, before any of the others.
void BindClientFields(QWidget* form);

void ShowClientFields(const QWidget* form, const ClientRecord& client);
void TakeClientFields(const QWidget* form, ClientRecord& client);
QList<QWidget*> ClientFieldControls(const QWidget* form);
/// No field takes more letters than its column holds.
void LimitClientFields(Business& business, const QWidget* form);

/// Picks the entry of those words, without regard to case. Without one a WordCombo shows the words
/// themselves, and any other list nothing.
void ShowWords(QComboBox* combo, const QString& words);

}  // namespace quillary::clients
