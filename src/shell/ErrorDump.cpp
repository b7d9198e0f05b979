#include "shell/ErrorDump.h"

#include "base/Version.h"
#include "kit/Screen.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSysInfo>

namespace quillary::shell {

namespace {

QString TextValueOf(const QWidget* control) {
  if (const auto* line = qobject_cast<const QLineEdit*>(control)) return line->text();
  if (const auto* combo = qobject_cast<const QComboBox*>(control)) return combo->currentText();
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(control)) return text->toPlainText();
  if (const auto* button = qobject_cast<const QAbstractButton*>(control)) return button->text();
  return {};
}

const QWidget* ScreenOf(const QWidget* control) {
  for (const QWidget* at = control; at; at = at->parentWidget())
    if (qobject_cast<const Screen*>(at)) return at;
  return nullptr;
}

}  // namespace

void NoteActiveControl(ErrorReport& report, const QWidget* focused, const QWidget* window) {
  const QWidget* screen = ScreenOf(focused);
  if (!screen) screen = window;
  if (screen) report.activeForm = screen->objectName();
  if (!focused) return;
  report.activeControl = focused->objectName();
  report.activeValue = TextValueOf(focused);
}

QString GetSystemVersion() {
#ifdef Q_OS_WIN
  const QString system = QStringLiteral("Windows NT");
#else
  QString system = QSysInfo::kernelType();
  system[0] = system[0].toUpper();
#endif
  const QStringList version = QSysInfo::kernelVersion().split(u'.');
  return QStringLiteral("%1 %2.%3 (Build %4)")
      .arg(system, version.value(0), version.value(1), QSysInfo::kernelVersion());
}

QString BuildErrorDump(const ErrorReport& report) {
  const QString time =
      QLocale(QLocale::English)
          .toString(QDateTime(report.time.date, report.time.time), u"d MMM yyyy h:mm:ss AP");
  return QStringList{GetSystemVersion(),
                     QStringLiteral("Version: ") + VersionText(),
                     report.errorLine,
                     QStringLiteral("Form: ") + report.form,
                     QStringLiteral("Subroutine: ") + report.procedure,
                     QStringLiteral("Activity: "),
                     QStringLiteral("Screen.ActiveForm: "),
                     QStringLiteral("    Name: ") + report.activeForm,
                     QStringLiteral("Screen.ActiveControl: "),
                     QStringLiteral("    Name: ") + report.activeControl,
                     QStringLiteral("    Value: ") + report.activeValue,
                     QStringLiteral("Time: ") + time,
                     QStringLiteral("Further information: ") + report.furtherInformation,
                     QString(),
                     QStringLiteral("Dump finished. ")}
      .join(u'\n');
}

}  // namespace quillary::shell
