#include "clients/ClientColumns.h"
#include "clients/screens/WordCombo.h"
#include "clients/screens/frmCreateAQuote.h"
#include "kit/ComboSearch.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QShortcut>
#include <QTabBar>

/// How the screen of quotes looks.
namespace quillary::clients {

void frmCreateAQuote::MakeClientControls() {
  const auto line = [this](const char* name, const char* column) {
    auto* field = Named(new QLineEdit, name);
    SelectAllText(field);
    LimitTo(field, ColumnWidth(business_, QStringLiteral("Clients"), column).value_or(0));
    return field;
  };
  cmbClients = Named(new ComboSearch, "cmbClients");
  cmdAddQuote = MakeButton("cmdAddQuote", QStringLiteral("Add new Q&uote client"),
                           ButtonKind::Plain, "list-add");
  lblStatus = MakeLabel("lblStatus", {}, LabelRole::Hint);
  txtFirstname = ForField("firstName", line("txtFirstname", "First_Name"));
  txtSurname = line("txtSurname", "Surname");
  txtDisplayName = line("txtDisplayName", "Display_Name");
  txtDisplayName->setPlaceholderText(tr("Formed of both names when it is empty"));
  txtStreetNumber = line("txtStreetNumber", "Street_Number");
  txtStreet = line("txtStreet", "Street");
  cmbSuburb = new WordCombo("cmbSuburb");
  LimitTo(cmbSuburb, ColumnWidth(business_, QStringLiteral("Clients"), "Suburb").value_or(0));
  txtPostCode = line("txtPostCode", "Post_Code");
  txtMap = line("txtMap", "Map");
  txtPhone1 = line("txtPhone1", "Phone_1");
  txtEmail = line("txtEmail", "Email");
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setMinimumHeight(56);
  txtNotes->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

void frmCreateAQuote::MakeQuoteControls() {
  fgExistingQuotes = new Grid(QStringLiteral("fgExistingQuotes"));
  fgExistingQuotes->setAccessibleName(tr("Quotes of this client"));
  fgExistingQuotes->SetColumns({{{}, ColumnKind::HiddenId},
                                {tr("Date"), ColumnKind::Date, 120},
                                {tr("Description"), ColumnKind::Text, 280},
                                {tr("Total"), ColumnKind::Money, 96}});
  fgExistingQuotes->SetEmptyText(tr("No quotes yet."), tr("Fill in the services below and save."));
  fgExistingQuotes->RememberIn(business_.World().settings);
  fgExistingQuotes->setMinimumHeight(88);
  fgExistingQuotes->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  cmdLoadQuote = MakeButton("cmdLoadQuote", tr("&Load quote"));
  cmdLoadQuote->setToolTip(tr("Shows the chosen quote below, to be changed or printed"));
  cmdAddNewQuote = MakeButton("cmdAddNewQuote", tr("Ne&w quote"), ButtonKind::Plain, "list-add");
  cmdRemoveQuote = MakeButton("cmdRemoveQuote", tr("Rem&ove quote…"), ButtonKind::Danger);
  lblQuote = MakeLabel("lblQuote", {}, LabelRole::Title);
  dtQuoteDate = ForField("date", Named(new DateField(business_.Today()), "dtQuoteDate"));
  dtQuoteDate->setFixedWidth(168);
}

void frmCreateAQuote::MakeServiceControls() {
  tabServices = Named(new QTabBar, "tabServices", tr("Services of the quote"));
  tabServices->setExpanding(false);
  tabServices->setDrawBase(false);
  tabServices->setUsesScrollButtons(true);
  fraService = new QWidget;
  fraService->setObjectName(QStringLiteral("fraService"));
  cmbService = ForField("service", Named(new ComboSearch, "cmbService"));
  txtPrice = Named(new CurrencyField, "txtPrice");
  txtServiceNotes = Named(new QPlainTextEdit, "txtServiceNotes");
  txtServiceNotes->setTabChangesFocus(true);
  txtServiceNotes->setMinimumHeight(48);
  txtServiceNotes->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  lblGSTInc = MakeLabel("lblGSTInc", tr("Prices include %1.").arg(business_.values.taxName),
                        LabelRole::Hint);
  lblTotal = MakeLabel("lblTotal", {}, LabelRole::Figure);
  cmdAddAService =
      MakeButton("cmdAddAService", tr("Add a ser&vice"), ButtonKind::Plain, "list-add");
  cmdRemoveService = MakeButton("cmdRemoveService", tr("Remove servi&ce"), ButtonKind::Danger);
}

void frmCreateAQuote::MakeCommands() {
  cmdMakeActive =
      MakeButton("cmdMakeActive", QStringLiteral("Make this Quote client an &Active client"));
  chkPricesExcludeGST =
      Named(new QCheckBox(QStringLiteral("Price e&xcludes ") + business_.values.taxName),
            "chkPricesExcludeGST", QStringLiteral("Price excludes ") + business_.values.taxName);
  cmdPrint = MakeButton("cmdPrint", tr("&Print quote"), ButtonKind::Plain, "document-print");
  cmdClose = MakeButton("cmdClose", tr("Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
  cmdSave = MakeButton("cmdSave", QStringLiteral("&Save"), ButtonKind::Main);
  auto* save = new QShortcut(QKeySequence::Save, this);
  save->setContext(Qt::WidgetWithChildrenShortcut);
  connect(save, &QShortcut::activated, cmdSave, &QPushButton::click);
  cmdSave->setToolTip(tr("Ctrl+S"));
}

QLayout* frmCreateAQuote::ClientColumn() {
  auto* rows = new QVBoxLayout;
  rows->setSpacing(8);
  rows->addLayout(LabelOver(cmbClients, tr("Clie&nt")));
  auto* head = new QHBoxLayout;
  head->addWidget(cmdAddQuote);
  head->addStretch(1);
  head->addWidget(lblStatus);
  rows->addLayout(head);
  rows->addLayout(InLine(
      {{LabelOver(txtFirstname, tr("&First name"))}, {LabelOver(txtSurname, tr("Surname"))}}));
  rows->addLayout(LabelOver(txtDisplayName, tr("&Billing name/Display name")));
  rows->addLayout(InLine({{LabelOver(txtStreetNumber, tr("Street no.")), 1},
                          {LabelOver(txtStreet, tr("S&treet")), 3}}));
  rows->addLayout(InLine({{LabelOver(cmbSuburb, tr("Subu&rb")), 4},
                          {LabelOver(txtPostCode, tr("Post code")), 2},
                          {LabelOver(txtMap, tr("&Map")), 2}}));
  rows->addLayout(
      InLine({{LabelOver(txtPhone1, tr("P&hone")), 2}, {LabelOver(txtEmail, tr("&Email")), 3}}));
  QBoxLayout* notes = LabelOver(txtNotes, tr("Notes on the client"));
  notes->setStretch(1, 1);
  rows->addLayout(notes, 1);
  return rows;
}

QLayout* frmCreateAQuote::QuotesArea() {
  auto* area = new QVBoxLayout;
  area->setSpacing(8);
  area->addWidget(MakeLabelFor(fgExistingQuotes, tr("&Quotes of this client")));
  area->addWidget(fgExistingQuotes, 1);
  auto* commands = new FlowLayout;
  commands->AddWidgets({cmdRemoveQuote});
  commands->AddWidgets({cmdAddNewQuote, cmdLoadQuote}, Qt::AlignRight);
  area->addLayout(commands);
  return area;
}

QLayout* frmCreateAQuote::QuoteArea() {
  auto* head = new QHBoxLayout;
  head->setSpacing(12);
  head->addWidget(lblQuote, 1);
  head->addLayout(LabelOver(dtQuoteDate, tr("&Date of the quote")));
  auto* fields = new QVBoxLayout(fraService);
  fields->setContentsMargins(0, 0, 0, 0);
  fields->setSpacing(8);
  fields->addLayout(InLine({{LabelOver(cmbService, tr("Serv&ice")), 3},
                            {LabelOver(txtPrice, tr("Price (tax included)")), 1}}));
  QBoxLayout* notes = LabelOver(txtServiceNotes, tr("Notes on the service, printed on the quote"));
  notes->setStretch(1, 1);
  fields->addLayout(notes, 1);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(cmdRemoveService);
  commands->addWidget(lblGSTInc);
  commands->addStretch(1);
  commands->addWidget(lblTotal);
  commands->addWidget(cmdAddAService);
  auto* area = new QVBoxLayout;
  area->setSpacing(8);
  area->addLayout(head);
  area->addWidget(tabServices);
  area->addWidget(fraService, 1);
  area->addLayout(commands);
  return area;
}

QLayout* frmCreateAQuote::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdMakeActive});
  line->AddWidgets({chkPricesExcludeGST, cmdPrint, cmdClose, cmdSave}, Qt::AlignRight);
  return line;
}

void frmCreateAQuote::LayOut() {
  auto* right = new QVBoxLayout;
  right->setSpacing(16);
  right->addLayout(QuotesArea(), 2);
  right->addLayout(QuoteArea(), 3);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(24);
  sides->addLayout(ClientColumn(), 2);
  sides->addLayout(right, 3);
  sides->setContentsMargins(16, 12, 16, 12);
  auto* fields = new QWidget;
  fields->setLayout(sides);
  // On a small display the fields scroll; the commands stay in sight.
  auto* room = new QScrollArea;
  room->setFrameShape(QFrame::NoFrame);
  room->setWidgetResizable(true);
  room->setWidget(fields);
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  room->setMinimumHeight(120);
  auto* commands = new QVBoxLayout;  // a line that flows has no margins of its own
  commands->setContentsMargins(16, 0, 16, 12);
  commands->addLayout(CommandLine());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addWidget(room, 1);
  column->addLayout(commands);
}

}  // namespace quillary::clients
