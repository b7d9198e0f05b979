#include "diary/MarkedEntries.h"
#include "roll/ScheduleTest.h"

namespace quillary::diary {
namespace {

/// A day of an open job (1), a paid one (2), an invoiced one (3), a visit (4) and a quote (5).
class MarkedEntriesTest : public ScheduleTest {
 protected:
  void SetUp() override {
    ScheduleTest::SetUp();
    AddClient();
    for (const char* status : {"J", "JD", "JI", "V", "Q"})
      AddEntry(Id<Client>(1), business().Today(), status);
    Run(Sql("UPDATE Diary SET Total_Price = 10"));
    Run(Sql("UPDATE Diary SET Payment_ID = 7 WHERE Diary_ID = 2"));
    Run(Sql("UPDATE Diary SET Invoice_ID = 8 WHERE Diary_ID = 3"));
  }
  Entries Marked(std::initializer_list<int> numbers) {
    Entries marked;
    for (const DiaryRow& row :
         LoadDiary(business(), {.days = DateRange::Of(business().Today())}).rows)
      for (const int number : numbers)
        if (row.entry.Number() == number) marked.push_back(row);
    return marked;
  }
  QString Statuses() {
    return Rows("SELECT Status, Payment_ID FROM Diary ORDER BY Diary_ID").join(u',');
  }
  QString LastDone() { return business().PastCommands().ToUndo().value(0); }
};

TEST_F(MarkedEntriesTest, EachKindIsCancelledInItsOwnForm) {
  const struct {
    const char* what;
    std::initializer_list<int> marked;
    const char* asked;  // null when nothing is
    Answer answer;
    const char* after;
  } cases[] = {
      {"a job", {1}, nullptr, Answer::No, "JC -,JD 7,JI -,V -,Q -"},
      {"a visit", {4}, nullptr, Answer::No, "J -,JD 7,JI -,VC -,Q -"},
      {"a paid one, declined",
       {2},
       "This job is invoiced or paid already.",
       Answer::No,
       "J -,JD 7,JI -,V -,Q -"},
      {"several, among them an invoiced one",
       {1, 3, 4},
       "1 of these jobs is invoiced or paid",
       Answer::Yes,
       "JC -,JD 7,JC -,VC -,Q -"},
      {"two of two",
       {2, 3},
       "These 2 jobs are invoiced or paid",
       Answer::Yes,
       "J -,JC 7,JC -,V -,Q -"},
  };
  for (const auto& c : cases) {
    Transaction trial(business());
    if (c.asked) outside.prompter.Expect(c.asked, c.answer);
    CancelEntries(business(), outside.prompter, Marked(c.marked));
    EXPECT_EQ(Statuses(), c.after) << c.what;
  }
}

TEST_F(MarkedEntriesTest, DoneTakesPaidJobsOffOnlyOnYes) {
  const struct {
    std::initializer_list<int> marked;
    const char* asked;
    Answer answer;
    const char* after;
  } cases[] = {
      {{1, 4}, nullptr, Answer::No, "JD -,JD 7,JI -,VD -,Q -"},
      {{2},
       "This job has been paid.\nPlease note that this job will only",
       Answer::No,
       "J -,JD 7,JI -,V -,Q -"},
      {{2, 3}, "This job has been paid.", Answer::Yes, "J -,JD -,JD -,V -,Q -"},
  };
  for (const auto& c : cases) {
    Transaction trial(business());
    if (c.asked) outside.prompter.Expect(c.asked, c.answer);
    EXPECT_TRUE(MarkEntriesDone(business(), outside.prompter, Marked(c.marked)));
    EXPECT_EQ(Statuses(), c.after);
  }
  EXPECT_FALSE(MarkEntriesDone(business(), outside.prompter, Marked({5})));
  EXPECT_EQ(outside.prompter.TakeTold().join(u' '),
            "A quote is decided on its own screen and stays as it is.");
}

TEST_F(MarkedEntriesTest, ACommandOnManyIsOneStepBack) {
  const QString before = Statuses();
  {
    const CommandScope command(business(), "Done Unpaid");
    MarkEntriesDone(business(), outside.prompter, Marked({1, 3, 4}));
  }
  EXPECT_EQ(LastDone(), "Done: 2 jobs, 1 visit");
  EXPECT_FALSE(business().PastCommands().Undo());
  EXPECT_EQ(Statuses(), before);
}

TEST_F(MarkedEntriesTest, WhatHasGoneMeanwhileStopsThemAll) {
  const Entries marked = Marked({1, 4});
  Run(Sql("DELETE FROM Diary WHERE Diary_ID = 4"));
  EXPECT_THROW(CancelEntries(business(), outside.prompter, marked), WriteFailed);
  EXPECT_THROW(MarkEntriesDone(business(), outside.prompter, marked), WriteFailed);
  EXPECT_THROW(MoveEntriesTo(business(), {marked[0].entry, marked[1].entry}, Day("2026-11-04")),
               WriteFailed);
  EXPECT_EQ(Statuses(), "J -,JD 7,JI -,Q -");
}

TEST_F(MarkedEntriesTest, MovedOnesComeLastOnTheirDayAndLeaveTheRhythm) {
  AddEntry(Id<Client>(1), Day("2026-11-04"), "J", 1, 5);
  AddEntry(Id<Client>(1), Day("2026-11-04"), "JC", 1, 9);
  Run(Sql("UPDATE Diary SET Estimated_Minutes = 45 WHERE Diary_ID = 6"));
  Run(
      Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Status, Frequency, Next_Visit) "
          "VALUES (1, 1, 'Regular', 7, {})",
          Day("2026-11-09")));
  business().holidays.insert(business().holidays.begin(), {"05/11", 0, true, "Fair day"});
  std::vector<DayLoad> days = LoadNextDays(business(), business().Today(), 3);
  ASSERT_EQ(days.size(), 3U);
  EXPECT_EQ(days[0].day, Day("2026-11-03"));
  EXPECT_EQ(days[1].jobs, 1U) << "what is cancelled takes no time";
  EXPECT_EQ(days[1].minutes, 45);
  EXPECT_EQ(days[2].holiday, "Fair day");
  MoveEntriesTo(business(), {Id<Entry>(4), Id<Entry>(1)}, Day("2026-11-04"));
  EXPECT_EQ(Rows("SELECT Diary_ID, [Sequence] FROM Diary WHERE Schedule_Date = #11/4/2026# "
                 "ORDER BY [Sequence]"),
            (QStringList{"6 5", "7 9", "4 10", "1 11"}));
  EXPECT_EQ(Rows("SELECT Next_Visit FROM Client_Services"), QStringList{"2026-11-09"});
  const QString movable = [&] {
    QStringList numbers;
    for (const DiaryRow& row : Marked({1, 2, 3, 4, 5}))
      if (CanMove(row)) numbers += QString::number(row.entry.Number());
    return numbers.join(u' ');
  }();
  EXPECT_EQ(movable, "5") << "what is done stays where it was done";
}

}  // namespace
}  // namespace quillary::diary
