#include "domain/EntryStatus.h"

#include <array>

namespace quillary {
namespace {

constexpr auto MakeEntryStatuses() {
  using enum EntryStatus;
  using enum EntryGroup;
  using enum EntryKind;
  return std::array{
      EntryStatusFacts{JobOpen,
                       u"J",
                       Job,
                       u"Job NOT DONE",
                       u"Job NOT DONE",
                       Hue::Neutral,
                       {LiveJobs, RebuiltByRoll, OnDaySheet}},
      EntryStatusFacts{JobDone,
                       u"JD",
                       Job,
                       u"Job DONE",
                       u"Job DONE",
                       Hue::Green,
                       {WorkDone, LiveJobs, NotYetBilled, Finished, OnDaySheet}},
      EntryStatusFacts{JobDoneUnpaid,
                       u"JU",
                       Job,
                       u"Job DONE NOT PAID",
                       u"Job DONE NOT PAID",
                       Hue::Green,
                       {WorkDone, LiveJobs, NotYetBilled, Finished, OnDaySheet}},
      EntryStatusFacts{JobDonePaid,
                       u"JP",
                       Job,
                       u"Job DONE AND PAID",
                       u"Job DONE AND PAID",
                       Hue::Green,
                       {WorkDone, LiveJobs, NotYetBilled, Finished, OnDaySheet}},
      EntryStatusFacts{JobInvoiced,
                       u"JI",
                       Job,
                       u"Job INVOICED",
                       u"Job Invoiced",
                       Hue::Green,
                       {WorkDone, LiveJobs, Finished, OnDaySheet}},
      EntryStatusFacts{
          JobCancelled, u"JC", Job, u"Job CANCELLED", u"Job CANCELLED", Hue::Red, {Finished}},
      EntryStatusFacts{
          VisitOpen, u"V", Visit, u"Visit", u"Visit NOT DONE", Hue::Yellow, {OnDaySheet}},
      EntryStatusFacts{VisitDone,
                       u"VD",
                       Visit,
                       u"Visit DONE",
                       u"Visit DONE",
                       Hue::Yellow,
                       {Finished, OnDaySheet}},
      EntryStatusFacts{VisitCancelled,
                       u"VC",
                       Visit,
                       u"Visit CANCELLED",
                       u"Visit CANCELLED",
                       Hue::Yellow,
                       {Finished}},
      EntryStatusFacts{QuoteOpen, u"Q", Quote, u"QUOTE", u"QUOTE", Hue::Green, {RebuiltByRoll}},
      EntryStatusFacts{
          QuotePending, u"QP", Quote, u"Quote PENDING", u"Quote PENDING", Hue::Green, {}},
      EntryStatusFacts{
          QuoteAccepted, u"QA", Quote, u"Quote ACCEPTED", u"Quote ACCEPTED", Hue::Green, {}},
      EntryStatusFacts{
          QuoteRejected, u"QR", Quote, u"Quote REJECTED", u"Quote REJECTED", Hue::Green, {}},
  };
}
constexpr auto kEntryStatuses = MakeEntryStatuses();
static_assert(IsInOrder(kEntryStatuses));

QString WordsOr(const StoredEntryStatus& status, QStringView EntryStatusFacts::*words) {
  if (!status.Known()) return status.Text();
  return (FactsOf(*status.Known()).*words).toString();
}

}  // namespace

std::span<const EntryStatusFacts> TableOf(EntryStatus) {
  return kEntryStatuses;
}

std::optional<EntryKind> KindOf(const StoredEntryStatus& status) {
  if (status.Known()) return FactsOf(*status.Known()).kind;
  const QString letter = status.Text().left(1).toUpper();
  for (const EntryStatus open :
       {EntryStatus::JobOpen, EntryStatus::VisitOpen, EntryStatus::QuoteOpen}) {
    if (letter == TextOf(open)) return FactsOf(open).kind;
  }
  return std::nullopt;
}

StoredEntryStatus Folded(const StoredEntryStatus& status) {
  return status.IsIn(EntryGroup::NotYetBilled) ? StoredEntryStatus(EntryStatus::JobDone) : status;
}

QString WordsOf(const StoredEntryStatus& status) {
  return WordsOr(status, &EntryStatusFacts::words);
}

QString FoldedWordsOf(const StoredEntryStatus& status) {
  return WordsOf(Folded(status));
}

QString ListedWordsOf(const StoredEntryStatus& status) {
  return WordsOr(status, &EntryStatusFacts::listed);
}

Hue HueOf(const StoredEntryStatus& status, bool isPaid) {
  if (isPaid) return Hue::Blue;
  if (status.Known()) return FactsOf(*status.Known()).hue;
  return IsVisit(status) ? Hue::Yellow : Hue::Green;
}

}  // namespace quillary
