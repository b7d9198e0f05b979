#pragma once

#include "kit/Controls.h"

#include <QBoxLayout>

namespace quillary {

/// The pieces that screens are laid out from.
///
///   column->addLayout(InLine({LabelOver(txtName, tr("&Name")), LabelOver(dtFrom, tr("&From"))}));

/// Gives a control its name and the words under which it is heard.
template <typename Control>
Control* Named(Control* control, const char* name, const QString& heardAs = {}) {
  control->setObjectName(QLatin1StringView(name));
  if (!heardAs.isEmpty()) control->setAccessibleName(heardAs);
  return control;
}

/// A field under its label. The label takes the mnemonic there and names the field.
QBoxLayout* LabelOver(QWidget* field, const QString& label);

/// Side by side, each with its share of the width; a share of 0 takes what it needs.
struct Share {
  QBoxLayout* what;
  int share = 1;
};
QBoxLayout* InLine(const QList<Share>& parts);

/// A paragraph that breaks its lines.
QLabel* MakeParagraph(const char* name, const QString& text, LabelRole role = LabelRole::Muted);

}  // namespace quillary
