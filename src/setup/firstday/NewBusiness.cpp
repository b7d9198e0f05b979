#include "setup/firstday/NewBusiness.h"

#include "base/CountryHabits.h"
#include "base/OwnFiles.h"
#include "base/Text.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "data/schema/SeedRows.h"
#include "data/store/FileInTheMaking.h"
#include "domain/BillingWords.h"
#include "lists/Frequencies.h"
#include "lists/PaymentMethods.h"
#include "lists/Services.h"

#include <QDir>
#include <QFileInfo>

namespace quillary::setup {
namespace {

constexpr int kDaysAhead = 60;
constexpr int kFrequencies[] = {7, 14, 21, 28, 42, 56, 84};
constexpr const char* kPaymentMethods[] = {"CASH",           "CHEQUE", "CREDIT CARD",
                                           "DIRECT DEPOSIT", "EFTPOS", "ADJUSTMENT"};

struct FirstAccount {
  const char* name;
  const char* number;
  AccountType type;
};
/// The first is where the first service earns.
constexpr FirstAccount kAccounts[] = {
    {"Income from jobs", "4-1000", AccountType::Revenue},
    {"Fuel and oil", "6-1000", AccountType::Expense},
    {"Equipment repairs", "6-1100", AccountType::Expense},
    {"Franchise fees", "6-1300", AccountType::Expense},
    {"Insurance", "6-1400", AccountType::Expense},
    {"Telephone and internet", "6-1500", AccountType::Expense},
    {"Advertising", "6-1600", AccountType::Expense},
    {"Tools and equipment", "1-2000", AccountType::Asset},
};

/// "Garden care" is "GC".
QString CodeOfService(const QString& name) {
  QString code;
  for (const QString& word : name.split(u' ', Qt::SkipEmptyParts)) code += word.front().toUpper();
  return code;
}

void WriteFirstLists(Business& business, const QString& nature) {
  std::optional<Id<Account>> income;
  for (const FirstAccount& account : kAccounts) {
    const auto key = business.InsertReturningKey<Account>(
        Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Number, "
            "GL_Account_Type) VALUES ({}, {}, {})",
            account.name, account.number, account.type));
    if (!income) income = key;
  }
  lists::InsertService(business, {.name = nature,
                                  .serviceCode = CodeOfService(nature),
                                  .account = income,
                                  .regular = true,
                                  .isDefault = true});
  business.Write(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Default')"), Rows::Exactly(1));
  for (const int days : kFrequencies)
    business.Write(Sql("INSERT INTO lstFrequencies (Frequency_Days) VALUES ({})", days),
                   Rows::Exactly(1));
  for (const char* method : kPaymentMethods)
    lists::InsertPaymentMethod(business, QString::fromLatin1(method));
}

void WriteCountry(Business& business, const QString& country) {
  business.Write(Sql("UPDATE infPersonalDetails SET Country_ID = {}",
                     business.FirstField(
                         Sql("SELECT Country_ID FROM Countries WHERE Country_Name = {}", country))),
                 Rows::Exactly(1));
  const auto habits = HabitsOfCountry(country);
  if (!habits) return;
  business.Write(Sql("UPDATE infOptions SET GST_Percentage = {}", habits->taxRate),
                 Rows::Exactly(1));
  business.Write(Sql("UPDATE Countries SET Tax_Name = {}, Registration_Name = {} "
                     "WHERE Country_Name = {}",
                     habits->taxName.toString(), habits->registration.toString(), country),
                 Rows::Exactly(1));
}

void WriteFirstDay(Business& business, const NewBusinessForm& form) {
  Transaction all(business);
  business.Write(
      Sql("UPDATE infPersonalDetails SET Company_Name = {}, Division_ID = {}",
          form.companyName.trimmed(),
          business.FirstField(Sql("SELECT Division_ID FROM Divisions WHERE Nature_Of_Business = {}",
                                  form.natureOfBusiness))),
      Rows::Exactly(1));
  business.Write(Sql("UPDATE infOptions SET Days_To_Advance_Schedule = {}, "
                     "EnableOstrel4WebServices = False",
                     kDaysAhead),
                 Rows::Exactly(1));
  WriteCountry(business, form.country);
  WriteFirstLists(business, form.natureOfBusiness);
  all.Commit();
}

}  // namespace

QStringList NaturesOfBusiness() {
  return DeliveredNaturesOfBusiness();
}

QString FolderForBusiness(const QString& documents, const QString& companyName) {
  const QString name = RemoveIllegalFileCharacters(companyName).trimmed();
  return QDir(documents).filePath(name.isEmpty() ? QStringLiteral("Quillary") : name);
}

QString FileOfNewBusiness(const QString& folder) {
  return QDir(QDir::cleanPath(folder.trimmed())).filePath(QStringLiteral("DATA.MDB"));
}

std::optional<Refusal> CheckNewBusiness(const NewBusinessForm& form) {
  if (form.companyName.trimmed().isEmpty())
    return Refusal{"Please enter the name of your business.", "companyName"};
  if (form.natureOfBusiness.isEmpty())
    return Refusal{"Please select what your business does.", "natureOfBusiness"};
  if (!HabitsOfCountry(form.country)) return Refusal{"Please select a country.", "country"};
  if (form.folder.trimmed().isEmpty() || !QDir::isAbsolutePath(form.folder.trimmed()))
    return Refusal{"Please select the folder that your business is to lie in.", "folder"};
  const QString file = FileOfNewBusiness(form.folder);
  if (QFileInfo::exists(file))
    return Refusal{QStringLiteral("There is a business in that folder already: %1. Please choose "
                                  "another folder, or open that file.")
                       .arg(file),
                   "folder"};
  return std::nullopt;
}

QString CreateNewBusiness(const Outside& outside, const NewBusinessForm& form) {
  MakeOwnFolder(QDir::cleanPath(form.folder.trimmed()));
  FileInTheMaking file(FileOfNewBusiness(form.folder));
  CreateEmptyBusiness(file.Path());
  Business business(outside, file.Path());
  business.ConnectToDatabase();
  WriteFirstDay(business, form);
  business.CloseConnection();
  file.TakeItsPlace();
  return file.Target();
}

}  // namespace quillary::setup
