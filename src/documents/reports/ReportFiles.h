#pragma once

#include "base/DateTime.h"

#include <QString>

/// Where documents are written and how their files are named.
namespace quillary::documents {

/// The part of a file name that comes from a client or a user, without what would end the name,
/// lead out of the folder or be refused by a file system.
QString CleanFileName(const QString& text);
/// The time in the name of a file of which earlier copies remain: "09-05-07".
QString FileTimeStamp(const DateTime& moment);
/// The folder `Report Doc` under the program's folder, made when it is missing. Throws
/// std::runtime_error with a clear text when it cannot be made.
QString ReportFolder(const QString& programFolder);

}  // namespace quillary::documents
