#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "clients/screens/ClientScreens.h"
#include "gui/ScreenFixture.h"
#include "kit/DateField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QTabBar>
#include <QTimer>

namespace quillary {
namespace {

/// Over quotes and quote visits. The client 1 is a prospect; "Hedging" is the default service.
class QuoteScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    clients::RegisterClientScreens(business(), {navigator, host, runner});
    navigator.Register<PrintQuote>([this](const PrintQuote& asked) {
      printed += QStringLiteral("%1 %2").arg(asked.quote.Number()).arg(asked.pricesExcludeTax);
    });
    Run(Sql("UPDATE Clients SET Status = 'Quote only' WHERE Client_ID = 1"));
    business().values.defaultService =
        Id<Service>(Number(Sql("SELECT MIN(Service_ID) FROM Services")));
  }
  Id<Entry> AddVisit() {
    return Build().Add<Entry>({{"Client_ID", 1},
                               {"Employee_ID", 1},
                               {"Status", "Q"},
                               {"Schedule_Date", business().Today()}});
  }
  static void TypePrice(const QObject* in, const char* dollars) {
    EnterField(Find<QLineEdit>(in, "txtPrice"));
    TypeKeys(dollars);
  }

  QStringList printed;
};

TEST_F(QuoteScreensTest, AVisitIsPricedPostponedAndRated) {
  const auto entry = AddVisit();
  const auto row = [&](const char* fields) {
    return Word(Sql((QByteArray("SELECT ") + fields + " FROM Diary").constData()));
  };
  const auto day = [&] {
    return Run(Sql("SELECT Schedule_Date FROM Diary")).Field(size_t{0}).ToDate();
  };
  const bool isSaved = UseDialog(EditQuoteVisit{entry}, [&](Dialog& quote) {
    EXPECT_FALSE(Find<QLabel>(&quote, "lblPaid")->isVisible());
    ClickOn(&quote, "cmdExtraWork");
    TypeChoice(&quote, "cmbService", "mow");
    TypePrice(&quote, "55");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(quote.isVisible()) << "Enter stores the line and no more";
    EXPECT_EQ(RowText(Find<Grid>(&quote, "grdServices"), 0), "MO|$55.00");
    EXPECT_EQ(row("Description & ' ' & Total_Price & ' ' & Total_GST"), "MO 55 5");
    QTimer::singleShot(0, qApp, [] {
      auto* postponed = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(postponed, nullptr);
      ASSERT_EQ(postponed->objectName(), "dlgQuotePostponed");
      ASSERT_TRUE(QTest::qWaitFor([&] {
        return postponed->isAncestorOf(QApplication::focusWidget());
      })) << "the calendar has no focus";
      PressKey(Qt::Key_Right);
      ClickOn(postponed, "cmdOK");
    });
    ClickOn(&quote, "cmdPostpone");
    EXPECT_EQ(day(), business().Today()) << "not before it is saved";
    Find<QRadioButton>(&quote, "optPending")->click();
    ClickOn(&quote, "cmdSave");
  });
  EXPECT_TRUE(isSaved);
  EXPECT_EQ(row("Status"), "QP");
  EXPECT_EQ(day(), business().Today().addDays(2))
      << "the day after tomorrow, one to the right of the day proposed";
}

TEST_F(QuoteScreensTest, AVisitWarnsOfItsPaymentAndIsDeletedOnceAsked) {
  const auto entry = AddVisit();
  Run(Sql("UPDATE Diary SET Payment_ID = 3"));
  UseDialog(EditQuoteVisit{entry}, [&](Dialog& quote) {
    EXPECT_TRUE(Find<QLabel>(&quote, "lblPaid")->isVisible());
    ClickOn(&quote, "cmdUpdate");
    EXPECT_EQ(Told(), "Please select a service.");
    outside.prompter.Expect("Are you sure you want to delete this job?", Answer::No);
    ClickOn(&quote, "cmdDeleteJob");
    EXPECT_EQ(Count("Diary"), 1);
    outside.prompter.Expect("Are you sure you want to delete this job?", Answer::Yes);
    ClickOn(&quote, "cmdDeleteJob");
    EXPECT_FALSE(quote.isVisible());
  });
  EXPECT_EQ(Count("Diary"), 0);
  EXPECT_FALSE(navigator.Open(EditQuoteVisit{entry}));
  EXPECT_EQ(Told(), "Sorry, I can't find this quote record! I won't be able to load this quote.");
}

TEST_F(QuoteScreensTest, AQuoteIsKeptPrintedAndRemoved) {
  Screen& quotes = OpenTab(OpenCreateAQuote{Id<Client>(1)});
  ClickOn(&quotes, "cmdPrint");
  ClickOn(&quotes, "cmdRemoveQuote");
  EXPECT_EQ(Told(),
            "Please select and load a quote to print.|Please load the quote first before removing "
            "it to make sure that you're removing the correct quote.");
  TypeChoice(&quotes, "cmbService", "mow");
  TypePrice(&quotes, "40");
  ClickOn(&quotes, "cmdAddAService");
  TypeChoice(&quotes, "cmbService", "hed");
  TypePrice(&quotes, "60");
  ClickOn(&quotes, "cmdSave");
  auto* stored = Find<Grid>(&quotes, "fgExistingQuotes");
  EXPECT_EQ(RowText(stored, 0).section('|', 1), "Mowing, Hedging|$100.00");

  TypePrice(&quotes, "45");
  outside.prompter.Expect("changes that are not saved", Answer::No);
  ClickOn(&quotes, "cmdAddNewQuote");
  EXPECT_EQ(Find<QLabel>(&quotes, "lblQuote")->text(), "Quote 1") << "it stays";
  Find<QCheckBox>(&quotes, "chkPricesExcludeGST")->click();
  ClickOn(&quotes, "cmdPrint");
  EXPECT_EQ(printed, QStringList("1 1"));
  EXPECT_EQ(Word(Sql("SELECT Sum(Price) FROM Quote_Services")), "85") << "as it stands on paper";

  Find<QTabBar>(&quotes, "tabServices")->setCurrentIndex(0);
  ClickOn(&quotes, "cmdRemoveService");
  EXPECT_EQ(Count("Quote_Services"), 1) << "at once";
  ClickOn(&quotes, "cmdSave");
  ClickOn(&quotes, "cmdAddNewQuote");
  outside.prompter.Expect("You did not select a quote to be made", Answer::No);
  ClickOn(&quotes, "cmdMakeActive");
  stored->SelectFirst();
  ClickOn(&quotes, "cmdLoadQuote");
  for (const auto& [answer, left] : {std::pair(Answer::No, 1), std::pair(Answer::Yes, 0)}) {
    outside.prompter.Expect("Are you sure you want to remove the selected quote.", answer);
    ClickOn(&quotes, "cmdRemoveQuote");
    EXPECT_EQ(Count("Quotes"), left);
    EXPECT_EQ(Count("Quote_Services"), left);
  }
  EXPECT_EQ(Word(Sql("SELECT Status FROM Clients WHERE Client_ID = 1")), "Quote only");
}

}  // namespace
}  // namespace quillary
