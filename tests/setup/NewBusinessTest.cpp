#include "data/Business.h"
#include "data/schema/Schema.h"
#include "setup/firstday/FirstDay.h"
#include "setup/firstday/NewBusiness.h"
#include "support/BusinessTest.h"

#include <QDir>
#include <QFile>

namespace quillary {
namespace {

class NewBusinessTest : public ::testing::Test {
 protected:
  setup::NewBusinessForm Form() {
    return {.companyName = "Ash & Oak / Gardens",
            .natureOfBusiness = "Garden care",
            .country = "UK",
            .folder = setup::FolderForBusiness(folder.path(), "Ash & Oak / Gardens")};
  }
  ScriptedOutside outside;
  QTemporaryDir folder;
};

TEST_F(NewBusinessTest, IsReadyForAFirstJobAndInvoice) {
  const QString file = setup::CreateNewBusiness(outside.Ports(), Form());
  EXPECT_EQ(QFileInfo(file).absolutePath(), Form().folder);
  EXPECT_EQ(QDir(Form().folder).entryList(QDir::Files), QStringList{"DATA.MDB"}) << "nothing else";
  Business business(outside.Ports(), file);
  business.ConnectToDatabase();
  LoadSharedValues(business);
  LoadOptionFlags(business);
  EXPECT_FLOAT_EQ(business.values.gstPercentage, 0.2F);
  EXPECT_EQ(business.values.taxName, "VAT");
  EXPECT_EQ(business.values.divisionName, "Gardens");
  EXPECT_EQ(business.values.daysToAdvanceSchedule, 60);
  EXPECT_TRUE(business.values.defaultService) << "an invoice needs one";
  EXPECT_TRUE(business.values.defaultEmployee) << "a job needs one";
  EXPECT_FALSE(business.values.enableOstrel4WebServices) << "waits for no network";
  EXPECT_TRUE(outside.errors.TakeReports().isEmpty());
}

TEST_F(NewBusinessTest, TheTaxIsThatOfTheCountry) {
  const struct {
    const char* country;
    double rate;
    const char* tax;
    const char* registration;
  } cases[] = {{"Australia", 0.1, "GST", "ABN:"},
               {"New Zealand", 0.15, "GST", "GST:"},
               {"UK", 0.2, "VAT", "VAT No:"},
               {"Canada", 0.05, "GST", "GST:"},
               {"U.S.", 0, "Sales tax", "EIN:"}};
  for (const auto& each : cases) {
    setup::NewBusinessForm form = Form();
    form.country = each.country;
    form.folder = folder.filePath(each.country);
    Business business(outside.Ports(), setup::CreateNewBusiness(outside.Ports(), form));
    business.ConnectToDatabase();
    const Recordset row = business.RunSQL(
        Sql("SELECT Tax_Name, Registration_Name FROM Countries INNER JOIN infPersonalDetails ON "
            "Countries.Country_ID = infPersonalDetails.Country_ID"));
    EXPECT_DOUBLE_EQ(business.LookupField("infOptions.GST_Percentage").ToDouble(), each.rate)
        << each.country;
    EXPECT_EQ(row.Field(u"Tax_Name").ToText(), each.tax) << each.country;
    EXPECT_EQ(row.Field(u"Registration_Name").ToText(), each.registration) << each.country;
  }
}

TEST_F(NewBusinessTest, WhatIsMissingOrInTheWayIsNamedAtItsField) {
  setup::CreateNewBusiness(outside.Ports(), Form());
  const struct {
    const char* field;
    std::function<void(setup::NewBusinessForm&)> spoil;
  } cases[] = {{"companyName", [](auto& form) { form.companyName = "  "; }},
               {"natureOfBusiness", [](auto& form) { form.natureOfBusiness.clear(); }},
               {"country", [](auto& form) { form.country = "Atlantis"; }},
               {"folder", [](auto& form) { form.folder = " "; }},
               {"folder", [](auto& form) { form.folder = "beside/me"; }},
               {"folder", [](auto&) {}}};  // a business lies there already
  for (const auto& each : cases) {
    setup::NewBusinessForm form = Form();
    each.spoil(form);
    const auto refusal = setup::CheckNewBusiness(form);
    ASSERT_TRUE(refusal) << each.field;
    EXPECT_EQ(refusal->field, each.field);
  }
}

TEST_F(NewBusinessTest, OlderDataIsFoundHoweverItIsSpelt) {
  EXPECT_TRUE(setup::FindOlderData(folder.path()).IsEmpty());
  QDir drive(folder.path());
  drive.mkpath("bravantifse");
  EXPECT_TRUE(setup::FindOlderData(drive.path()).IsEmpty()) << "a folder without its database";
  const auto write = [&](const QString& name) {
    QFile file(drive.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("rows") == 4);
  };
  write("bravantifse/FseProg.mdb");
  write("OSTREL32RY1.mdb");
  drive.mkpath("VERDO398");
  const setup::OlderData found = setup::FindOlderData(drive.path());
  EXPECT_EQ(found.bravantiOne, drive.filePath("bravantifse/FseProg.mdb"));
  EXPECT_EQ(found.verdo, drive.filePath("VERDO398"));
  setup::TakeHeadOfficeFile(drive.path(), found.headOfficeFile);
  EXPECT_TRUE(drive.exists("Program Files/Bravanti/Bravanti One/data.mdb"));
  EXPECT_FALSE(drive.exists("OSTREL32RY1.mdb"));
}

}  // namespace
}  // namespace quillary
