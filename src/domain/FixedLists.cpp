#include "domain/FixedLists.h"

#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"

namespace quillary {
namespace {

void AddQuarters(QStringList& times, int hour, const char* half) {
  for (const char* minutes : {"00", "15", "30", "45"}) {
    times += QStringLiteral("%1:%2 %3").arg(hour).arg(QString(minutes), QString(half));
  }
}

QStringList TimesOfDay() {
  QStringList times;
  for (int hour = 5; hour <= 12; ++hour) AddQuarters(times, hour, "AM");
  for (int hour = 1; hour <= 10; ++hour) AddQuarters(times, hour, "PM");
  return times;
}

}  // namespace

const FixedLists& Lists() {
  static const FixedLists lists = {
      {"Monthly", "7 days", "Cash"},
      AllWords<AccountType>(),
      WordsIn<StatementType>(StatementGroup::OfClients),
      AllWords<ClientStatus>(),
      {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"},
      TimesOfDay(),
      {"January", "Febuary", "March", "April", "May", "June", "July", "August", "September",
       "October", "November", "Decemeber"},
  };
  return lists;
}

}  // namespace quillary
