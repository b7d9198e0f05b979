#include "diary/Visits.h"

#include <array>

namespace quillary::diary {
namespace {

// In the order of VisitState.
constexpr std::array kCodes = {u"V", u"VD", u"VC"};

VisitState StateOf(const QString& status) {
  for (size_t state = 0; state < kCodes.size(); ++state) {
    if (status.compare(QStringView(kCodes[state]), Qt::CaseInsensitive) == 0) {
      return static_cast<VisitState>(state);
    }
  }
  return VisitState::NotDone;
}

qint64 InsertEmptyVisit(Business& business) {
  business.RunSQL(Sql("INSERT INTO Diary (Status) VALUES ('V');"));
  return business.FirstField(Sql("SELECT Max(Diary_ID) FROM Diary;")).ToLong();
}

}  // namespace

Visit NewVisit(Business& business, std::optional<qint64> clientId) {
  Visit visit;
  visit.clientId = clientId;
  visit.date = business.Today();
  if (const auto employee = business.values.defaultEmployee) visit.employeeId = employee->Number();
  return visit;
}

std::optional<Visit> LoadVisit(Business& business, qint64 diaryId) {
  const Recordset entry =
      business.RunSQL(Sql("SELECT * FROM Diary WHERE Diary_ID = {}; ", diaryId));
  if (entry.EndOfFile()) return std::nullopt;
  const auto choice = [&](const char16_t* column) -> std::optional<qint64> {
    const qint64 id = entry.Field(column).ToLong();
    return id == 0 ? std::nullopt : std::optional(id);
  };
  return Visit{.diaryId = diaryId,
               .clientId = choice(u"Client_ID"),
               .date = entry.Field(u"Schedule_Date").ToDate(),
               .employeeId = choice(u"Employee_ID"),
               .purpose = entry.Field(u"Description").ToText(),
               .notes = entry.Field(u"Notes").ToText(),
               .state = StateOf(entry.Field(u"Status").ToText())};
}

std::optional<Refusal> CheckVisit(const Visit& visit) {
  if (visit.employeeId) return std::nullopt;
  return Refusal{QStringLiteral("Please select an employee."), QStringLiteral("cmbEmployee")};
}

std::optional<Refusal> SaveVisit(Business& business, Visit& visit) {
  if (std::optional<Refusal> refusal = CheckVisit(visit)) return refusal;
  Transaction save(business);
  const qint64 diaryId = visit.IsNew() ? InsertEmptyVisit(business) : visit.diaryId;
  business.RunSQL(
      Sql("UPDATE Diary SET Client_ID = {}, Employee_ID = {}, Description = {}, "
          "Schedule_Date = {}, Status = {}, Notes = {} WHERE Diary_ID = {}",
          visit.clientId, visit.employeeId, visit.purpose, visit.date,
          QString::fromUtf16(kCodes[static_cast<size_t>(visit.state)]), visit.notes, diaryId));
  save.Commit();
  visit.diaryId = diaryId;
  return std::nullopt;
}

bool DeleteVisit(Business& business, Prompter& prompter, qint64 diaryId) {
  const Answer answer =
      prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this visit?"));
  if (answer != Answer::Yes) return false;
  business.RunSQL(Sql("DELETE FROM Diary WHERE Diary_ID = {}", diaryId));
  return true;
}

}  // namespace quillary::diary
