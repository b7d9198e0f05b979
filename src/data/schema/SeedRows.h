#pragma once

#include "data/store/Sql.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The rows that every business begins with, as statements, for new files and for old ones whose
/// lists are made anew.
namespace quillary {

std::vector<Sql> DivisionRows();
/// What those divisions do, in the order of their numbers.
QStringList DeliveredNaturesOfBusiness();
/// Without the tax names, which a column of a later version holds.
std::vector<Sql> CountryRows();
std::vector<Sql> HolidayRows();
/// The division of window cleaners, which joined the group later than the others.
QString WindowDivisionName();
/// "[AMOUNT]" stands for the amount.
QString TermsOfTradeText();

}  // namespace quillary
