#pragma once

#include "base/Refusal.h"
#include "base/ports/Outside.h"

#include <QString>
#include <QStringList>

#include <optional>

/// How a business begins: one file in a folder of its own, with what its first day needs.
namespace quillary::setup {

struct NewBusinessForm {
  QString companyName;
  QString natureOfBusiness;  // of the division, as the list of divisions words it
  QString country;
  QString folder;
};

/// The divisions to choose from, by what they do, in the order of their numbers.
QStringList NaturesOfBusiness();
/// A folder for the business below `documents`, named after it as far as a file may be.
QString FolderForBusiness(const QString& documents, const QString& companyName);
/// DATA.MDB in that folder.
QString FileOfNewBusiness(const QString& folder);

/// Refuses a business without name, division, country or folder, and a folder that holds a business
/// already.
std::optional<Refusal> CheckNewBusiness(const NewBusinessForm& form);

/// Writes the file: the tables of this version, the owner's company, the tax of the country, sixty
/// days of schedule, and lists to begin with, so that a first client, job and invoice need no other
/// screen. It speaks with no head office until that is switched on. The file gets its name when it
/// is whole; returns its path. Call CheckNewBusiness() first. Throws StorageFailure and
/// WriteFailed.
QString CreateNewBusiness(const Outside& outside, const NewBusinessForm& form);

}  // namespace quillary::setup
