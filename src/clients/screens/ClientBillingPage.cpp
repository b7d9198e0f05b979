#include "clients/screens/ClientBillingPage.h"

#include "base/ports/requests/Clients.h"
#include "clients/ClientChoices.h"
#include "clients/screens/WordCombo.h"
#include "clients/screens/frmSetJobPricesForMonthly.h"
#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace quillary::clients {

namespace {

template <typename Control>
Control* Part(const char* name) {
  return Named(new Control, name);
}

}  // namespace

ClientBillingPage::ClientBillingPage(ClientDesk& desk) : desk_(desk) {
  MakeControls();
  MakeTicks();
  LayOut();
  ConnectControls();
}

void ClientBillingPage::MakeControls() {
  const char* const names[] = {"optBillSameAddress", "optBillExistingAddress", "optBillNewAddress"};
  const QStringList captions = {tr("B&ill the same address"), tr("Bill an &existing address"),
                                tr("Bill a ne&w address...")};
  for (int at = 0; at < 3; ++at)
    choices_[static_cast<size_t>(at)] =
        Named(new QRadioButton(captions[at]), names[at], PlainCaption(captions[at]));
  cmbInvoiceType = Part<QComboBox>("cmbInvoiceType");
  dtDebtorSince =
      ForField("debtorSince", Named(new DateField(desk_.business.Today()), "dtDebtorSince"));
  dtDebtorSince->setFixedWidth(168);
  txtCurrentlyOwing = Part<QLineEdit>("txtCurrentlyOwing");
  txtCurrentlyOwing->setReadOnly(true);
  txtCurrentlyOwing->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtSampleBillingAddress = Part<QPlainTextEdit>("txtSampleBillingAddress");
  txtSampleBillingAddress->setReadOnly(true);
  txtSampleBillingAddress->setTabChangesFocus(true);
  txtSampleBillingAddress->setFixedHeight(76);
  cmbOtherAddressToBill = ForField("payer", Part<ComboSearch>("cmbOtherAddressToBill"));
  cmbOtherAddressToBill->setMinimumContentsLength(16);
  cmdEditExisingAddress = MakeButton("cmdEditExisingAddress", tr("Edit this address..."));
  cmdSetJobPricesForMonthly =
      MakeButton("cmdSetJobPricesForMonthly", tr("Set &job prices for client who pays monthly..."));
  txtClaimNumber = Part<QLineEdit>("txtClaimNumber");
  SelectAllText(txtClaimNumber);
  cmbWorkCoverLabel = new WordCombo("cmbWorkCoverLabel");
  cmbWorkCoverLabel->setMinimumContentsLength(8);
}

void ClientBillingPage::MakeTicks() {
  const std::pair<const char*, QString> ticks[] = {
      {"chkMonthlyStatement", QStringLiteral("Print &Monthly statement?")},
      {"chkShowOutstanding", QStringLiteral("Invoice && Statement include &Outstanding amount?")},
      {"chkShowNextJobdate", QStringLiteral("Invoice shows Da&te of next job?")},
      {"chkInvoiceWithPastJobs", QStringLiteral("Invoice shows &Unpaid past jobs?")},
      {"chkInvoiceWithTelNo", QStringLiteral("Invoice shows client's &phone no.")},
      {"chkStatementWithPayments", QStringLiteral("Statement shows Pa&yments?")}};
  size_t at = 0;
  for (const auto& [name, caption] : ticks)
    ticks_[at++] = Named(new QCheckBox(caption), name, PlainCaption(caption));
}

QWidget* ClientBillingPage::SameAddressFrame() {
  fraBillSameAddress = new QWidget;
  fraBillSameAddress->setObjectName(QStringLiteral("fraBillSameAddress"));
  auto* column = new QVBoxLayout(fraBillSameAddress);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(12);
  column->addLayout(InLine({{LabelOver(cmbInvoiceType, tr("In&voice type")), 1},
                            {LabelOver(dtDebtorSince, tr("De&btor since")), 0},
                            {LabelOver(txtCurrentlyOwing, tr("Currently owin&g")), 1}}));
  column->addLayout(LabelOver(txtSampleBillingAddress, tr("Sample billing address")));
  return fraBillSameAddress;
}

QWidget* ClientBillingPage::ExistingAddressFrame() {
  fraBillExistingAddress = new QWidget;
  fraBillExistingAddress->setObjectName(QStringLiteral("fraBillExistingAddress"));
  auto* button = new QVBoxLayout;
  button->setSpacing(0);
  button->addStretch(1);
  button->addWidget(cmdEditExisingAddress);
  auto* line = InLine({{LabelOver(cmbOtherAddressToBill, tr("C&lient who pays")), 1}, {button, 0}});
  line->setContentsMargins(0, 0, 0, 0);
  fraBillExistingAddress->setLayout(line);
  return fraBillExistingAddress;
}

QBoxLayout* ClientBillingPage::DocumentColumn() {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  column->addWidget(MakeLabel("lblDocuments", tr("On invoices and statements"), LabelRole::Muted));
  for (QCheckBox* tick : ticks_) column->addWidget(tick);
  column->addSpacing(4);
  column->addLayout(InLine({{LabelOver(cmbWorkCoverLabel, tr("Label of the number")), 1},
                            {LabelOver(txtClaimNumber, tr("Wor&k cover or claim number")), 1}}));
  column->addStretch(1);
  return column;
}

void ClientBillingPage::LayOut() {
  auto* left = new QVBoxLayout;
  left->setSpacing(12);
  auto* choice = new QVBoxLayout;
  choice->setSpacing(4);
  choice->addWidget(MakeLabel("lblBillingGoesTo", tr("Billing goes to"), LabelRole::Muted));
  for (QRadioButton* option : choices_) {
    auto* line = new QHBoxLayout;
    line->addWidget(option);
    line->addStretch(1);
    choice->addLayout(line);
  }
  left->addLayout(choice);
  payerSlot_ = new QVBoxLayout;
  payerSlot_->addWidget(ExistingAddressFrame());
  left->addLayout(payerSlot_);
  left->addWidget(SameAddressFrame());
  auto* prices = new QHBoxLayout;
  prices->addWidget(cmdSetJobPricesForMonthly);
  prices->addStretch(1);
  left->addSpacing(4);
  left->addLayout(prices);
  left->addStretch(1);

  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 12, 0, 8);
  line->setSpacing(32);
  line->addLayout(left, 3);
  line->addLayout(DocumentColumn(), 2);
}

void ClientBillingPage::ConnectControls() {
  for (int at = 0; at < 3; ++at)
    connect(choices_[static_cast<size_t>(at)], &QRadioButton::clicked, this,
            [this, at] { emit billingChosen(static_cast<BillingChoice>(at)); });
  connect(cmbOtherAddressToBill, &ComboSearch::picked, this, [this](int at) {
    // A payer is not taken away by emptying the field, but by another choice.
    if (at >= 0)
      emit payerChosen(*ComboId<Client>(cmbOtherAddressToBill));
    else if (!desk_.edit.client.IsBilledTo())
      ShowBilling();
  });
  connect(cmbOtherAddressToBill, &QComboBox::currentIndexChanged, this,
          [this] { EnableCommands(); });
  desk_.OnClick(cmdEditExisingAddress, [this] { OpenPayer(); });
  desk_.OnClick(cmdSetJobPricesForMonthly, [this] { SetMonthlyPrices(); });
}

void ClientBillingPage::LoadChoices() {
  FillComboWithWords(cmbInvoiceType, InvoiceTypes());
  FillComboWithWords(cmbWorkCoverLabel, ListWorkCoverLabels(desk_.business));
  LoadPayers();
}

void ClientBillingPage::LoadPayers() {
  payers_ = ListBillableOthers(desk_.business, desk_.edit.client.clientId);
  FillCombo(cmbOtherAddressToBill, payers_);
}

void ClientBillingPage::AskForPayer() {
  choices_[static_cast<size_t>(BillingChoice::ExistingAddress)]->setChecked(true);
  fraBillSameAddress->hide();
  fraBillExistingAddress->show();
  cmbOtherAddressToBill->setFocus();
}

QWidget* ClientBillingPage::PayerFollowsInTabOrder(QWidget* field) const {
  setTabOrder(field, cmbOtherAddressToBill);
  setTabOrder(cmbOtherAddressToBill, cmdEditExisingAddress);
  return cmdEditExisingAddress;
}

QWidget* ClientBillingPage::LastChoice() const {
  return choices_.back();
}

void ClientBillingPage::ShowBilling() {
  const BillingChoice choice = BillingChoiceOf(desk_.edit.client);
  const bool same = choice == BillingChoice::SameAddress;
  choices_[static_cast<size_t>(choice)]->setChecked(true);
  fraBillSameAddress->setVisible(same);
  fraBillExistingAddress->setVisible(!same);
  SelectComboItem(cmbOtherAddressToBill, desk_.edit.client.otherPayer);
  txtSampleBillingAddress->setPlainText(SampleBillingAddress(desk_.edit.client));
  EnableCommands();
}

void ClientBillingPage::ShowDebtorSince() {
  dtDebtorSince->SetDate(desk_.edit.client.debtorSince.value_or(QDate()));
}

std::optional<Refusal> ClientBillingPage::CheckPayer() const {
  const bool another = choices_[static_cast<size_t>(BillingChoice::ExistingAddress)]->isChecked();
  if (!another || ComboId<Client>(cmbOtherAddressToBill)) return std::nullopt;
  return Refusal{QStringLiteral("Please select the client who pays."), QStringLiteral("payer")};
}

QWidget* ClientBillingPage::DebtorSinceField() const {
  return dtDebtorSince;
}

void ClientBillingPage::ShowOwing() {
  txtCurrentlyOwing->setText(desk_.edit.client.CurrentlyOwing().ToCurrencyText());
}

void ClientBillingPage::TakeDebtorSince() const {
  const QDate since = dtDebtorSince->Date();
  desk_.edit.client.debtorSince = since.isValid() ? std::optional(since) : std::nullopt;
}

void ClientBillingPage::EnableCommands() {
  cmdEditExisingAddress->setEnabled(cmbOtherAddressToBill->currentIndex() >= 0 &&
                                    desk_.tools.navigator.CanOpen<OpenClient>());
}

QString ClientBillingPage::PayerName() const {
  for (const lists::Choice<Client>& payer : payers_)
    if (payer.id == desk_.edit.client.otherPayer) return payer.words;
  return {};
}

void ClientBillingPage::Reveal(const QString& field) {
  if (field == u"statementType") fraBillSameAddress->show();
}

QList<QWidget*> ClientBillingPage::OwnFields() const {
  return {dtDebtorSince, cmbOtherAddressToBill};
}

void ClientBillingPage::OpenPayer() {
  if (const auto payer = ComboId<Client>(cmbOtherAddressToBill))
    desk_.tools.navigator.Open(OpenClient{*payer});
}

void ClientBillingPage::SetMonthlyPrices() {
  frmSetJobPricesForMonthly(desk_.business, desk_.tools, *desk_.edit.client.clientId).exec();
  desk_.loadJobs();
  desk_.showBalance();
}

}  // namespace quillary::clients
