#include "kit/Layouts.h"

namespace quillary {

QBoxLayout* LabelOver(QWidget* field, const QString& label) {
  auto* pair = new QVBoxLayout;
  pair->setSpacing(4);
  pair->addWidget(MakeLabelFor(field, label));
  pair->addWidget(field);
  return pair;
}

QBoxLayout* InLine(const QList<Share>& parts) {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  for (const Share& part : parts) line->addLayout(part.what, part.share);
  return line;
}

QLabel* MakeParagraph(const char* name, const QString& text, LabelRole role) {
  QLabel* label = MakeLabel(name, text, role);
  label->setWordWrap(true);
  return label;
}

}  // namespace quillary
