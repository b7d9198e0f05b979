#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"
#include "domain/FixedLists.h"
#include "domain/JobType.h"

#include <gtest/gtest.h>

namespace quillary {
namespace {

TEST(EntryStatus, EachCodeHasItsKindWordsAndHue) {
  const struct {
    const char* code;
    std::optional<EntryKind> kind;
    const char* words;
    const char* folded;
    const char* listed;
    Hue hue;
  } cases[] = {
      {"J", EntryKind::Job, "Job NOT DONE", "Job NOT DONE", "Job NOT DONE", Hue::Neutral},
      {"JD", EntryKind::Job, "Job DONE", "Job DONE", "Job DONE", Hue::Green},
      {"JU", EntryKind::Job, "Job DONE NOT PAID", "Job DONE", "Job DONE NOT PAID", Hue::Green},
      {"JP", EntryKind::Job, "Job DONE AND PAID", "Job DONE", "Job DONE AND PAID", Hue::Green},
      {"JI", EntryKind::Job, "Job INVOICED", "Job INVOICED", "Job Invoiced", Hue::Green},
      {"JC", EntryKind::Job, "Job CANCELLED", "Job CANCELLED", "Job CANCELLED", Hue::Red},
      {"V", EntryKind::Visit, "Visit", "Visit", "Visit NOT DONE", Hue::Yellow},
      {"VD", EntryKind::Visit, "Visit DONE", "Visit DONE", "Visit DONE", Hue::Yellow},
      {"VC", EntryKind::Visit, "Visit CANCELLED", "Visit CANCELLED", "Visit CANCELLED",
       Hue::Yellow},
      {"Q", EntryKind::Quote, "QUOTE", "QUOTE", "QUOTE", Hue::Green},
      {"QP", EntryKind::Quote, "Quote PENDING", "Quote PENDING", "Quote PENDING", Hue::Green},
      {"QA", EntryKind::Quote, "Quote ACCEPTED", "Quote ACCEPTED", "Quote ACCEPTED", Hue::Green},
      {"QR", EntryKind::Quote, "Quote REJECTED", "Quote REJECTED", "Quote REJECTED", Hue::Green},
      // From other hands: the case does not matter, and what nobody knows shows itself.
      {"jd", EntryKind::Job, "Job DONE", "Job DONE", "Job DONE", Hue::Green},
      {"VX", EntryKind::Visit, "VX", "VX", "VX", Hue::Yellow},
      {"vx", EntryKind::Visit, "vx", "vx", "vx", Hue::Yellow},
      {"ZZ", {}, "ZZ", "ZZ", "ZZ", Hue::Green},
      {"", {}, "", "", "", Hue::Green},
  };
  for (const auto& c : cases) {
    const StoredEntryStatus status{QString(c.code)};
    EXPECT_EQ(status.Text(), c.code) << "what is stored is kept";
    EXPECT_EQ(KindOf(status), c.kind) << c.code;
    EXPECT_EQ(WordsOf(status), c.words) << c.code;
    EXPECT_EQ(FoldedWordsOf(status), c.folded) << c.code;
    EXPECT_EQ(ListedWordsOf(status), c.listed) << c.code;
    EXPECT_EQ(HueOf(status, false), c.hue) << c.code;
    EXPECT_EQ(HueOf(status, true), Hue::Blue) << c.code;
  }
  EXPECT_EQ(std::size(cases) - 5, TableOf(EntryStatus()).size()) << "a status is without a case";
}

TEST(Groups, OfAStatementHoldWhatTheyAreNamedFor) {
  const std::pair<Sql, const char*> cases[] = {
      {CodesOf(EntryGroup::WorkDone), "('JD', 'JU', 'JP', 'JI')"},
      {CodesOf(EntryGroup::LiveJobs), "('J', 'JD', 'JU', 'JP', 'JI')"},
      {CodesOf(EntryGroup::NotYetBilled), "('JD', 'JU', 'JP')"},
      {CodesOf(EntryGroup::RebuiltByRoll), "('J', 'Q')"},
      {CodesOf(EntryGroup::Finished), "('JD', 'JU', 'JP', 'JI', 'JC', 'VD', 'VC')"},
      {CodesOf(EntryGroup::OnDaySheet), "('J', 'JD', 'JU', 'JP', 'JI', 'V', 'VD')"},
      {StatusesOf(ClientGroup::Billed), "('Active', 'Billing address')"},
      {StatusesOf(ClientGroup::MayPay),
       "('Active', 'Bad debtor', 'Billing address', 'Cancelled', 'Transferred')"},
      {StatusesOf(ClientGroup::ActiveDebtors), "('Active', 'Bad debtor', 'Billing address')"},
      {StatusesOf(ClientGroup::Scheduled), "('Active', 'Quote only')"},
      {StatusesOf(ClientGroup::LosesFuture), "('Cancelled', 'Transferred')"},
      {StatusesOf(ClientGroup::NotInDebtors), "('Bad debtor', 'Cancelled', 'Transferred')"},
      {MethodsOf(PaymentGroup::BankedAsCash), "('CASH')"},
      {MethodsOf(PaymentGroup::BankedAsCheque), "('CHEQUE')"},
      {MethodsOf(PaymentGroup::BankedAsCard), "('VISA', 'MASTER', 'CREDIT', 'EFT', 'BANK CARD')"},
  };
  for (const auto& [list, text] : cases) EXPECT_EQ(list.Text(), text);
}

TEST(ClientStatus, IsReadInAnyCaseAndKeepsWhatNobodyKnows) {
  EXPECT_TRUE(StoredClientStatus(QString("bad DEBTOR")).Is(ClientStatus::BadDebtor));
  EXPECT_EQ(HueOf(StoredClientStatus(QString("quote only"))), Hue::Yellow);
  const StoredClientStatus unknown(QString("Moved away"));
  EXPECT_EQ(Value(unknown), Value("Moved away"));
  EXPECT_EQ(HueOf(unknown), Hue::Neutral);
  EXPECT_EQ(ColourOf(unknown), 0xFFFFFFU);
  EXPECT_FALSE(unknown.IsIn(ClientGroup::MayPay));
}

TEST(PaymentMethod, TakesAnyAmountToTheLetter) {
  const std::pair<const char*, bool> cases[] = {
      {"ADJUSTMENT", true}, {"CREDIT V", true}, {"Adjustment", false}, {"CREDIT", false},
      {"CASH", false},      {"BARTER", false},  {"", false},
  };
  for (const auto& [word, takes] : cases) EXPECT_EQ(TakesAnyAmount(word), takes) << word;
}

TEST(FixedLists, KeepTheirWordsAndOrder) {
  const FixedLists& lists = Lists();
  EXPECT_EQ(lists.glAccountTypes.join(u'|'), "Expense|Revenue|Asset");
  EXPECT_EQ(lists.statementTypes.join(u'|'), "Monthly|With Job|None");
  EXPECT_EQ(lists.clientStatuses.join(u'|'),
            "Active|Bad debtor|Billing address|Cancelled|Quote only|Quote rejected|Transferred");
  EXPECT_EQ(WordsIn<JobType>(JobTypeGroup::OfferedByHand).join(u'|'), "Casual|Regular|Quote only");
  ASSERT_EQ(lists.times.size(), 72);
  EXPECT_EQ(lists.times.first(), "5:00 AM");
  EXPECT_EQ(lists.times[28], "12:00 AM") << "noon keeps its mark";
  EXPECT_EQ(lists.times[32], "1:00 PM");
  EXPECT_EQ(lists.times.last(), "10:45 PM");
}

}  // namespace
}  // namespace quillary
