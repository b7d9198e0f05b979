#include "data/schema/Schema.h"
#include "documents/billing/PrintedInvoices.h"
#include "monkey/Monkey.h"
#include "setup/demo/DemoBusiness.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

/// monkey SEED MINUTES: random keys and clicks through every screen of an invented business. Ends
/// with 0 when nothing was found, otherwise with 1, seed and steps.
namespace quillary::monkey {

namespace {

int Run(unsigned seed, double minutes) {
  QTemporaryDir home;
  // Whatever is typed as the name of a file or folder stays in here.
  QDir::setCurrent(home.path());
  qputenv("QUILLARY_HOME", home.path().toUtf8());
  qputenv("HOME", home.path().toUtf8());
  Steps steps(seed, home);
  MonkeyOutside outside(steps);
  const QString file = home.filePath(QStringLiteral("DATA.MDB"));
  CreateEmptyBusiness(file);
  {
    Business business(outside.Ports(), file);
    business.ConnectToDatabase();
    setup::WriteDemoBusiness(business, {.clients = 30, .months = 2, .seed = seed});
    // Their table comes with the first document, and a change of the schema would end the history
    // that is to be taken back.
    documents::NotePrinted(business, {});
    business.CloseConnection();
  }
  Navigator navigator;
  shell::Program program(outside.Ports(), navigator, home.path());
  program.UseFile(file);
  if (!program.Start({})) {
    fprintf(stderr, "The program did not start.\n");
    return 2;
  }
  Monkey monkey(seed, program, steps);
  monkey.Run(static_cast<int>(minutes * 60));
  printf("Seed %u: %d steps, %d commands taken back and done again, nothing found.\n", seed,
         steps.Count(), monkey.CommandsReplayed());
  return 0;
}

}  // namespace

}  // namespace quillary::monkey

int main(int count, char** arguments) {
  if (count != 3) {
    fprintf(stderr, "Usage: monkey SEED MINUTES\n");
    return 2;
  }
  QApplication application(count, arguments);
  return quillary::monkey::Run(static_cast<unsigned>(strtoul(arguments[1], nullptr, 10)),
                               strtod(arguments[2], nullptr));
}
