#include "kit/Controls.h"
#include "shell/MainMenuMDI.h"

#include <QMenu>
#include <QStatusBar>

/// What the frame does after a commit: open screens follow, and what was done can be taken back.
namespace quillary::shell {

void MainMenuMDI::FollowCommits() {
  commits_ = business_.OnCommitted([this](const Tables& written) {
    const bool writesOtherwise = written.HaveAnyOf(TablesOfCountry()) && LoadCountry(business_);
    for (int tab = 0; tab < tabs_->count(); ++tab) {
      Screen* screen = ScreenAt(tab);
      if (screen && writesOtherwise) {
        screen->TakeCommit(screen->Shows());
        continue;
      }
      // A screen shows what its own command did by itself, and loading it again under the user's
      // fingers would take the cursor out of the field that comes next.
      if (screen && screen->objectName() != runner_.RunningForm()) screen->TakeCommit(written);
    }
  });
  runner_.RunWithin([this](const QString& what) -> std::shared_ptr<void> {
    return std::make_shared<CommandScope>(business_, what);
  });
}

void MainMenuMDI::BuildUndoTool() {
  tool_undo = new QToolButton;
  tool_undo->setObjectName(QStringLiteral("tool_undo"));
  tool_undo->setText(tr(" Undo"));
  tool_undo->setAccessibleName(tr("Undo"));
  tool_undo->setIcon(QIcon::fromTheme(QStringLiteral("edit-undo")));
  tool_undo->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  tool_undo->setFocusPolicy(Qt::TabFocus);
  tool_undo->setPopupMode(QToolButton::MenuButtonPopup);
  tool_undo->setMenu(new QMenu(tool_undo));
  connect(tool_undo, &QToolButton::clicked, this, [this] { Undo(); });
  connect(tool_undo->menu(), &QMenu::triggered, this,
          [this](const QAction* action) { Undo(action->data().toInt()); });
  tools_->addWidget(tool_undo);
  AddShortcut(this, QKeySequence::Undo, tr("Takes the latest command back"), [this] { Undo(); });
  AddShortcut(this, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
              tr("Does again what was taken back"), [this] { Redo(); });
}

void MainMenuMDI::BuildLastDone() {
  lblLastDone = MakeLabel("lblLastDone", {});
  cmdUndoLast = MakeButton("cmdUndoLast", tr("Undo"), ButtonKind::Link);
  cmdUndoLast->setFocusPolicy(Qt::NoFocus);
  statusBar()->addWidget(lblLastDone);
  statusBar()->addWidget(cmdUndoLast);
  connect(cmdUndoLast, &QPushButton::clicked, this, [this] { Undo(); });
  historyChanges_ = business_.PastCommands().OnChanged([this] { ShowHistory(); });
  ShowHistory();
}

void MainMenuMDI::ShowHistory() {
  const QStringList done = business_.PastCommands().ToUndo();
  tool_undo->setEnabled(!done.isEmpty());
  tool_undo->setToolTip(done.isEmpty() ? tr("Nothing to take back")
                                       : tr("Takes back: %1 (Ctrl+Z)").arg(done.first()));
  tool_undo->menu()->clear();
  for (qsizetype at = 0; at < done.size(); ++at)
    tool_undo->menu()
        ->addAction(QString(done[at]).replace(u'&', QStringLiteral("&&")))
        ->setData(static_cast<int>(at + 1));
  lblLastDone->setText(done.isEmpty() ? QString() : done.first());
  cmdUndoLast->setVisible(!done.isEmpty());
}

void MainMenuMDI::Undo(int commands) {
  runner_.RunAside(objectName(), QStringLiteral("Undo"), [&] {
    for (int step = 0; step < commands; ++step) {
      const QStringList done = business_.PastCommands().ToUndo();
      if (done.isEmpty()) return;
      if (const auto refusal = business_.PastCommands().Undo()) {
        business_.World().prompter.Tell(Tone::Exclamation, refusal->message);
        return;
      }
      lblLastDone->setText(tr("Taken back: %1").arg(done.first()));
    }
  });
}

void MainMenuMDI::Redo() {
  runner_.RunAside(objectName(), QStringLiteral("Redo"), [&] {
    const QStringList undone = business_.PastCommands().ToRedo();
    if (undone.isEmpty()) return;
    if (const auto refusal = business_.PastCommands().Redo())
      business_.World().prompter.Tell(Tone::Exclamation, refusal->message);
    else
      lblLastDone->setText(tr("Done again: %1").arg(undone.first()));
  });
}

}  // namespace quillary::shell
