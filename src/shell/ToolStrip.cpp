#include "shell/ToolStrip.h"

#include <QMenuBar>
#include <QResizeEvent>
#include <QToolButton>

#include <algorithm>

namespace quillary::shell {

namespace {

struct ToolDeclaration {
  const char* command;  // in the menus
  const char* word;
  const char* icon;
  const char* screens;
};

constexpr ToolDeclaration kTools[] = {
    {"mnuToday", "Today", "go-home", "frmToday"},
    {"mnuDiary", "Diary", "view-calendar", "frmDiary"},
    {"mnuClientFindClient", "Clients", "view-pim-contacts", "frmClientList,frmClients"},
    {"mnuClientsAddClient", "Add client", "list-add", ""},
    {"mnuQuote", "Quotes", "view-calendar-tasks", "frmCreateAQuote"},
    {"mnuInvoicesList", "Invoices", "view-financial-list", "frmInvoicesList"},
    {"mnuFinancialPaymentsReceived", "Payments", "taxes-finances", "frmPaymentsList"},
    {"mnuFinancialDebtors", "Debtors", "view-bank", "frmDebtors"},
    {"mnuReports", "Reports", "view-statistics", ""},
};

/// Whether the menu holds a command that leads somewhere; reserved places do not count.
bool LeadsSomewhere(const QMenu* menu) {
  return std::ranges::any_of(menu->actions(), [](const QAction* action) {
    if (action->menu()) return LeadsSomewhere(action->menu());
    return action->isEnabled() && action->property("opens").toBool();
  });
}

}  // namespace

ToolStrip::ToolStrip(const QMenuBar* menus) {
  setObjectName(QStringLiteral("tools"));
  setWindowTitle(tr("Toolbar"));
  setMovable(false);
  setIconSize({16, 16});
  toggleViewAction()->setEnabled(false);
  for (const ToolDeclaration& tool : kTools) {
    const QString name = QString::fromLatin1(tool.command);
    QToolButton* button = MakeTool(tool.command, QString::fromLatin1(tool.word), tool.icon);
    auto* action = menus->findChild<QAction*>(name);
    auto* menu = menus->findChild<QMenu*>(name);
    if (menu) {
      button->setMenu(menu);
      button->setPopupMode(QToolButton::InstantPopup);
    } else {
      connect(button, &QToolButton::clicked, action, &QAction::trigger);
      connect(action, &QAction::changed, this, &ToolStrip::Refresh);
    }
    tools_.push_back({button, action, menu, QString::fromLatin1(tool.screens).split(u',')});
  }
  Refresh();
}

QToolButton* ToolStrip::MakeTool(const char* name, const QString& word, const char* icon) {
  auto* button = new QToolButton;
  button->setObjectName(QStringLiteral("tool_") + QLatin1StringView(name));
  button->setText(u' ' + word);  // room between the icon and the word
  button->setAccessibleName(word);
  button->setToolTip(word);
  button->setIcon(QIcon::fromTheme(QLatin1StringView(icon)));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setFocusPolicy(Qt::TabFocus);
  addWidget(button);
  return button;
}

void ToolStrip::Refresh() {
  for (const Tool& tool : tools_)
    tool.button->setEnabled(tool.menu ? LeadsSomewhere(tool.menu) : tool.action->isEnabled());
}

void ToolStrip::MarkScreen(const QString& screen) {
  for (const Tool& tool : tools_) {
    const bool current = !screen.isEmpty() && tool.screens.contains(screen);
    // Only what can be checked can be unchecked, and only the marked one is heard as a check box.
    tool.button->setCheckable(true);
    tool.button->setChecked(current);
    tool.button->setCheckable(current);
  }
}

void ToolStrip::resizeEvent(QResizeEvent* event) {
  QToolBar::resizeEvent(event);
  constexpr int kWidthForWords = 1080;
  const auto style = event->size().width() < kWidthForWords ? Qt::ToolButtonIconOnly
                                                            : Qt::ToolButtonTextBesideIcon;
  for (const Tool& tool : tools_) tool.button->setToolButtonStyle(style);
}

void ToolStrip::AddAtEnd(QWidget* widget) {
  auto* gap = new QWidget;
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  addWidget(gap);
  addWidget(widget);
}

}  // namespace quillary::shell
