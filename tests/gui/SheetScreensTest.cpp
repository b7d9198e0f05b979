#include "base/ports/requests/Setup.h"
#include "gui/GuiTest.h"
#include "kit/Grid.h"

#include <QClipboard>

namespace quillary {
namespace {

/// Clients and schedules typed in at the main window, as on the first day.
class SheetScreensTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    Start();
    if (auto* splash = Window().findChild<QWidget*>("MainMenuMDI_Splash")) splash->close();
  }
  void Undo() {
    const auto refusal = business().PastCommands().Undo();
    EXPECT_FALSE(refusal) << refusal->message.toStdString();
  }
  Business& business() { return program->OpenBusiness(); }
  template <typename Request>
  Grid* Open(const Request& request, const char* grid) {
    Window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    program->MainMenu()->Tools().navigator.Open(request);
    auto* found = Find<Grid>(&Window(), grid);
    found->setFocus();
    return found;
  }
  qint64 Clients() { return business().FirstField(Sql("SELECT COUNT(*) FROM Clients")).ToLong(); }
  QString Of(const char* column, const char* name) {
    return business()
        .FirstField(Sql(
            (QByteArray("SELECT ") + column + " FROM Clients WHERE Display_Name = {}").constData(),
            name))
        .ToText();
  }
};

TEST_F(SheetScreensTest, ATypedRowIsAClientAndUndoTakesItBack) {
  Grid* grid = Open(OpenFixClientDetails{}, "grdClientDetails");
  const qint64 before = Clients();
  grid->setCurrentIndex(grid->model()->index(grid->model()->rowCount() - 1, 1));
  TypeKeys("Zoe");  // typing begins in the cell
  PressKey(Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([&] { return Clients() == before + 1; }));
  EXPECT_EQ(Of("Status", "Zoe"), "Active");
  EXPECT_EQ(grid->model()->rowCount(), static_cast<int>(before) + 2) << "and a next empty row";
  EXPECT_EQ(grid->currentIndex().siblingAtColumn(0).data().toString(), "Zoe");
  Undo();
  EXPECT_EQ(Clients(), before);
  EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());
}

TEST_F(SheetScreensTest, APastedBlockIsOneCommandAndToldByItsRows) {
  Grid* grid = Open(OpenFixClientDetails{}, "grdClientDetails");
  const qint64 before = Clients();
  grid->setCurrentIndex(grid->model()->index(grid->model()->rowCount() - 1, 0));
  QApplication::clipboard()->setText(
      "Yan Young\tYan\tYoung\tActive\nXia\tXia\t\tAsleep\nWim\tWim\tWood\n");
  PressKey(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Clients(), before + 2);
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList{"Added 2 clients.\nRow 2, Status: Please select a client status."});
  Undo();
  EXPECT_EQ(Clients(), before) << "the block as a whole";
  QApplication::clipboard()->clear();
  PressKey(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1) << "there is nothing to paste";
}

TEST_F(SheetScreensTest, ATypedPriceIsCheckedAndStaysWithItsService) {
  Grid* grid = Open(OpenScheduleClients{}, "grdSchedules");
  ASSERT_GT(grid->model()->rowCount(), 2);
  constexpr int kPrice = 6;
  const auto price = [&] { return grid->model()->index(1, kPrice).data().toString(); };
  const QString before = price();
  for (const auto& [typed, shown] :
       {std::pair{"much", before}, std::pair{"77.5", QString("$77.50")}}) {
    grid->setCurrentIndex(grid->model()->index(1, kPrice));
    TypeKeys(typed);
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return price() == shown; })) << typed;
    QTest::qWait(20);
  }
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Please enter a valid price."});
  Undo();
  EXPECT_TRUE(QTest::qWaitFor([&] { return price() == before; })) << "the sheet is live";
}

}  // namespace
}  // namespace quillary
