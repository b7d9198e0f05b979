#include "shell/frmODBCConnection.h"

#include "base/Text.h"
#include "kit/Controls.h"
#include "shell/DataSources.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QVBoxLayout>

namespace quillary::shell {

frmODBCConnection::frmODBCConnection(const Outside& outside, const QString& programFolder,
                                     QWidget* parent)
    : QDialog(parent), outside_(outside) {
  setObjectName(QStringLiteral("frmODBCConnection"));
  setWindowTitle(QStringLiteral("Database connection"));
  cboDSN = new QComboBox;
  cboDSN->setObjectName(QStringLiteral("cboDSN"));
  cboDSN->addItems({"RMS2", "RMS3", "RMS4", "RMS5"});
  txtFile = new QLineEdit(QDir(programFolder).filePath(QStringLiteral("DATA.MDB")));
  txtFile->setObjectName(QStringLiteral("txtFile"));
  cmdSelect = MakeButton("cmdSelect", tr("&Search..."));
  cmdCreate = MakeButton("cmdCreate", tr("C&reate"), ButtonKind::Main);
  cmdCreate->setDefault(true);
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));

  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(8);
  grid->addWidget(MakeLabelFor(cboDSN, tr("&Database connection")), 0, 0);
  grid->addWidget(cboDSN, 0, 1, Qt::AlignLeft);
  grid->addWidget(MakeLabelFor(txtFile, tr("Database &file")), 1, 0);
  grid->addWidget(txtFile, 1, 1);
  grid->addWidget(cmdSelect, 1, 2);
  grid->setColumnStretch(1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch(1);
  buttons->addWidget(cmdCancel);
  buttons->addWidget(cmdCreate);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(16);
  column->addLayout(grid);
  column->addStretch(1);
  column->addLayout(buttons);
  resize(600, sizeHint().height());

  connect(cmdSelect, &QPushButton::clicked, this, &frmODBCConnection::cmdSelect_Click);
  connect(cmdCreate, &QPushButton::clicked, this, &frmODBCConnection::cmdCreate_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmODBCConnection::cmdSelect_Click() {
  const QString chosen = QFileDialog::getOpenFileName(
      this, windowTitle(), ParentFolder(txtFile->text()), tr("Database files (*.mdb *.MDB)"));
  if (!chosen.isEmpty()) txtFile->setText(chosen);
}

void frmODBCConnection::cmdCreate_Click() {
  const QString name = cboDSN->currentText();
  const QString file = txtFile->text().trimmed();
  if (DataSourceExists(outside_.settings, name)) {
    outside_.prompter.Tell(Tone::Exclamation,
                           QStringLiteral("This database connection already exists in the ODBC "
                                          "list. Please select another one."));
    cboDSN->setFocus();
    return;
  }
  if (!QFileInfo(file).isFile()) {
    outside_.prompter.Tell(Tone::Exclamation, QStringLiteral("Please select a valid file."));
    txtFile->setFocus();
    return;
  }
  CreateDataSource(outside_.settings, name, QStringLiteral("Quillary Database"), file);
  outside_.prompter.Tell(
      Tone::Information,
      QStringLiteral("Done. \nTo use this database connection, please re-start Quillary.\nYou will "
                     "be prompted to select the connection created."));
  accept();
}

}  // namespace quillary::shell
