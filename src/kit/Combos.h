#pragma once

#include <QComboBox>
#include <QVariant>

#include <optional>

namespace quillary {

/// Lists as the combos of all screens show them; one that is to be searched while typing is a
/// ComboSearch and is filled in the same way.
///
///   FillCombo(cmbService, ListServiceChoices(business));   // anything with words and an id
///   SelectComboItem(cmbService, line.serviceId);
///   form.serviceId = ComboKey(cmbService);

/// Picks the entry whose data equals the value; none, and the list is at -1, when there is no such
/// entry. An empty value picks none.
bool SelectComboItem(QComboBox* combo, const QVariant& value);

/// The data of the picked entry as a key; nothing when none is picked.
std::optional<qint64> ComboKey(const QComboBox* combo);

/// Takes the old entries out before a list is filled again.
void EmptyCombo(QComboBox* combo);

/// Fills the list with the words and ids of the choices and picks none.
template <typename Choices>
void FillCombo(QComboBox* combo, const Choices& choices) {
  EmptyCombo(combo);
  for (const auto& choice : choices)
    combo->addItem(choice.words, QVariant::fromValue<qint64>(choice.id));
  SelectComboItem(combo, {});
}

/// Fills the list with words alone; the data of each is its place.
void FillComboWithWords(QComboBox* combo, const QStringList& words);

}  // namespace quillary
