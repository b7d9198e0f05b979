#pragma once

#include "base/DateTime.h"

#include <QString>

class QWidget;

namespace quillary::shell {

/// What a report of a failure tells the people who are to mend it.
struct ErrorReport {
  QString errorLine;
  QString form;
  QString procedure;
  QString furtherInformation;
  QString activeForm;
  QString activeControl;
  QString activeValue;
  DateTime time;
};

/// The screen and control the user was at, with the control's text.
void NoteActiveControl(ErrorReport& report, const QWidget* focused, const QWidget* window);

/// The name and version of the machine's system, in one line.
QString GetSystemVersion();

QString BuildErrorDump(const ErrorReport& report);

}  // namespace quillary::shell
