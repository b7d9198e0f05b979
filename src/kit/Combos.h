#pragma once

#include "base/Id.h"
#include "kit/ComboSearch.h"

#include <QComboBox>
#include <QVariant>

#include <optional>

namespace quillary {

/// Lists as the combos of all screens show them; one that is to be searched while typing is a
/// ComboSearch and is filled in the same way.
///
///   FillCombo(cmbService, ListServiceChoices(business));   // anything with words and an id
///   SelectComboItem(cmbService, line.service);
///   form.service = ComboId<Service>(cmbService);

/// Picks the entry whose data equals the value; none, and the list is at -1, when there is no such
/// entry. An empty value picks none.
bool SelectComboItem(QComboBox* combo, const QVariant& value);

template <NumberedRow Row>
bool SelectComboItem(QComboBox* combo, const std::optional<Id<Row>>& id) {
  return SelectComboItem(combo, id ? QVariant(id->Number()) : QVariant());
}

/// The data of the picked entry as a key; nothing when none is picked.
std::optional<qint64> ComboKey(const QComboBox* combo);
template <NumberedRow Row>
std::optional<Id<Row>> ComboId(const QComboBox* combo) {
  return IdFrom<Row>(ComboKey(combo));
}

/// Takes the old entries out before a list is filled again.
void EmptyCombo(QComboBox* combo);

inline qint64 KeyOf(qint64 key) {
  return key;
}
template <NumberedRow Row>
qint64 KeyOf(Id<Row> id) {
  return id.Number();
}
/// Fills the list with the words and ids of the choices and picks none.
template <typename Choices>
void FillCombo(QComboBox* combo, const Choices& choices) {
  EmptyCombo(combo);
  for (const auto& choice : choices) {
    combo->addItem(choice.words, KeyOf(choice.id));
    if constexpr (requires { choice.beside; })
      combo->setItemData(combo->count() - 1, choice.beside, ComboSearch::kBesideRole);
  }
  SelectComboItem(combo, {});
}

/// Fills the list with words alone; the data of each is its place.
void FillComboWithWords(QComboBox* combo, const QStringList& words);

}  // namespace quillary
