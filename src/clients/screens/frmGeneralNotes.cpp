#include "clients/screens/frmGeneralNotes.h"

#include "clients/screens/ClientFields.h"
#include "kit/Combos.h"
#include "kit/Layouts.h"
#include "kit/Roles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>

namespace quillary::clients {

frmGeneralNotes::frmGeneralNotes(Business& business, const ScreenTools& tools)
    : Dialog("frmGeneralNotes", QStringLiteral("General Notes for Invoices/Statements/Reminders"),
             business.World().prompter),
      business_(business) {
  MakeControls();
  LayOut();
  for (QComboBox* combo : {cmbFont, cmbFontSize, cmbColour})
    connect(combo, &QComboBox::currentIndexChanged, this, &frmGeneralNotes::ShowLook);
  for (QCheckBox* tick : {chkBold, chkItalic})
    connect(tick, &QCheckBox::toggled, this, &frmGeneralNotes::ShowLook);
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdClearText, &QPushButton::clicked, this, [this] {
    txtNotes->clear();
    txtNotes->setFocus();
  });
  tools.runner.OnClick(cmdOK, objectName(), [this] { Save(); });
  tools.runner.Run(objectName(), QStringLiteral("Form_Load"), [this] { Load(); });
  state_.WatchFieldsOf(this);
}

void frmGeneralNotes::MakeControls() {
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setMinimumHeight(160);
  cmbFont = Named(new QComboBox, "cmbFont");
  FillComboWithWords(cmbFont, NotesFonts());
  cmbFontSize = Named(new QComboBox, "cmbFontSize");
  FillComboWithWords(cmbFontSize, NotesSizes());
  chkBold = Named(new QCheckBox(tr("&Bold")), "chkBold", tr("Bold"));
  chkItalic = Named(new QCheckBox(tr("&Italic")), "chkItalic", tr("Italic"));
  cmbColour = Named(new QComboBox, "cmbColour");
  FillComboWithWords(cmbColour, NotesColours());
  cmdClearText = MakeButton("cmdClearText", tr("Clear te&xt"), ButtonKind::Danger);
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdOK = MakeButton("cmdOK", QStringLiteral("&Save"), ButtonKind::Main);
}

void frmGeneralNotes::LayOut() {
  auto* ticks = new QVBoxLayout;
  ticks->addStretch(1);
  auto* pair = new QHBoxLayout;
  pair->setSpacing(16);
  pair->addWidget(chkBold);
  pair->addWidget(chkItalic);
  ticks->addLayout(pair);
  ticks->addSpacing(6);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(InLine({{LabelOver(cmbFont, tr("&Font")), 2},
                            {LabelOver(cmbFontSize, tr("Si&ze")), 1},
                            {LabelOver(cmbColour, tr("C&olour")), 2},
                            {ticks, 2}}));
  auto* notes = LabelOver(txtNotes, tr("&Notes on invoices, statements and reminders"));
  notes->setStretch(1, 1);
  column->addLayout(notes, 1);
  SetContent(column);
  SetRoom({640, 400});
  AddActions({cmdClearText, cmdCancel, cmdOK});
}

void frmGeneralNotes::Load() {
  txtNotes->setPlainText(LoadGeneralNotes(business_));
  const NotesLook look = LoadNotesLook(business_.World().settings);
  // A font or a size that only another program could have set stays what it is.
  for (const auto& [combo, words] :
       {std::pair(cmbFont, look.font), {cmbFontSize, QString::number(look.size)}})
    if (combo->findText(words, Qt::MatchFixedString) < 0) combo->addItem(words, combo->count());
  ShowWords(cmbFont, look.font);
  ShowWords(cmbFontSize, QString::number(look.size));
  ShowWords(cmbColour, look.colour);
  chkBold->setChecked(look.bold);
  chkItalic->setChecked(look.italic);
  ShowLook();
}

NotesLook frmGeneralNotes::Look() const {
  return {.font = cmbFont->currentText(),
          .size = cmbFontSize->currentText().toDouble(),
          .bold = chkBold->isChecked(),
          .italic = chkItalic->isChecked(),
          .colour = cmbColour->currentText()};
}

void frmGeneralNotes::ShowLook() {
  const NotesLook look = Look();
  if (look.size <= 0) return;
  QFont font(look.font);
  font.setPointSizeF(look.size);
  font.setBold(look.bold);
  font.setItalic(look.italic && !look.bold);  // bold wins in print
  txtNotes->document()->setDefaultFont(font);
}

void frmGeneralNotes::Save() {
  SaveGeneralNotes(business_, txtNotes->toPlainText());
  SaveNotesLook(business_.World().settings, Look());
  Close(Accepted);
}

}  // namespace quillary::clients
