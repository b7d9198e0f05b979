#include "kit/Roles.h"
#include "kit/Theme.h"

namespace quillary {

namespace {

// The one style sheet. "@name" stands for a role, "@theme" for the name of the theme's pictures.
const char* const kWindows = R"(
QMainWindow, QDialog { background: @surface; }
QToolTip { background: @raised; color: @text; border: 1px solid @line; padding: 4px; }
QMenuBar { background: @surface; border-bottom: 1px solid @line; padding: 2px 8px; }
QMenuBar::item { padding: 5px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: @hover; }
QMenuBar::item:disabled { color: @faint; }
QMenu { background: @surface; border: 1px solid @line; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 24px; border-radius: 4px; }
QMenu::item:selected { background: @selection; }
QMenu::item:disabled { color: @faint; background: transparent; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }
QMenu::indicator { width: 14px; height: 14px; left: 5px; }
QMenu::right-arrow { image: url(:/kit/right-@theme.svg); width: 12px; height: 12px; right: 6px; }
QToolBar { background: @surface; border: none; border-bottom: 1px solid @line; padding: 2px 6px;
  spacing: 4px; }
QToolButton { border: 1px solid transparent; border-radius: 5px; padding: 5px 9px;
  background: transparent; }
QToolBar QToolButton { padding: 5px 6px; }
QToolButton:hover { background: @hover; }
QToolButton:pressed, QToolButton:checked { background: @current; }
QToolButton:focus { border-color: @accent; }
QToolButton:disabled { color: @faint; }
QToolButton::menu-indicator { image: none; }
QToolButton[popupMode="1"] { padding-right: 22px; }
QToolButton::menu-button { border: none; background: transparent; width: 20px; }
QToolButton::menu-arrow { image: url(:/kit/down-@theme.svg); width: 12px; height: 12px; }
QTabWidget::pane { border: none; background: @surface; }
QTabWidget#tabs::pane { border-top: 1px solid @line; top: -1px; }
QScrollArea#screen { border: none; background: @surface; }
QAbstractScrollArea::corner { background: @surface; border: none; }
QTabWidget#tabs { background: @strip; }
QTabWidget#tabs::tab-bar { left: 8px; }
QTabBar { background: @strip; qproperty-drawBase: 0; }
QTabBar::tab { background: transparent; color: @muted; padding: 6px 14px 5px 14px;
  border: 1px solid transparent; border-bottom: none; min-height: 18px; }
QTabWidget#tabs QTabBar::tab { padding-right: 8px; }
QTabBar::tab:selected { background: @surface; color: @text; border-color: @line;
  border-top-left-radius: 6px; border-top-right-radius: 6px; }
QTabBar::tab:hover:!selected { color: @text; }
QTabBar::close-button { image: url(:/kit/close-@theme.svg); subcontrol-position: right;
  width: 16px; height: 16px; }
QTabBar::close-button:hover { background: @hover; border-radius: 4px; }
QStatusBar { background: @raised; border-top: 1px solid @line; color: @muted; }
QStatusBar::item { border: none; }
QStatusBar QLabel { color: @muted; padding: 3px 4px; font-size: 12px; }
QSizeGrip { width: 0px; height: 0px; }
)";

const char* const kControls = R"(
QPushButton { background: @surface; border: 1px solid @line; border-radius: 5px;
  padding: 6px 14px; min-height: 18px; }
QPushButton[shape="icon"] { padding: 6px 9px; }
QPushButton[size="small"] { padding: 2px 7px; font-size: 12px; }
QPushButton:hover { background: @hover; }
QPushButton:pressed { background: @selection; }
QPushButton:focus { border-color: @accent; }
QPushButton:disabled { color: @faint; border-color: @softLine; background: @surface; }
QPushButton[kind="main"] { background: @accent; color: @onAccent; border-color: @accent;
  font-weight: 600; }
QPushButton[kind="main"]:hover { background: @accentHover; }
QPushButton[kind="main"]:focus { border-color: @text; }
QPushButton[kind="main"]:disabled { background: @hover; color: @faint; border-color: @hover; }
QPushButton[kind="danger"] { color: @danger; }
QPushButton[kind="danger"]:disabled { color: @faint; }
QPushButton[kind="link"] { border-color: transparent; color: @muted; padding: 6px 8px;
  background: transparent; }
QPushButton[kind="link"]:hover { color: @accent; }
QPushButton[kind="link"]:focus { border-color: @accent; }
QPushButton[kind="link"]:disabled { color: @faint; }
QPushButton[kind="go"] { color: @accent; background: transparent; border-color: transparent;
  border-radius: 4px; padding: 2px 4px; min-height: 0px; outline: none; }
QPushButton[kind="go"]:hover { background: @hover; }
QPushButton[kind="go"]:focus { border-color: @accent; }
QPushButton[kind="go"]:disabled { color: @faint; }
QPushButton[kind="go"][begins="true"] { padding-left: 0px; }
QPushButton[kind="go"][strong="true"] { color: @text; font-weight: 600; }
QPushButton[kind="go"][tone="muted"] { color: @muted; }
QPushButton[kind="go"][shape="headline"] { color: @text; font-size: 22px; font-weight: 700;
  border: none; padding: 0px; text-align: left; }
QPushButton[kind="go"][shape="headline"]:hover { background: transparent; color: @accent; }
QPushButton[web="true"] { color: @accent; text-decoration: underline; padding: 2px 4px; }
QLineEdit, QComboBox, QPlainTextEdit, QTextEdit { background: @surface; color: @text;
  border: 1px solid @edge; border-radius: 5px; padding: 5px 9px;
  selection-background-color: @selection; selection-color: @text; }
QLineEdit, QComboBox { min-height: 19px; }
QLineEdit:focus, QComboBox:focus, QPlainTextEdit:focus, QTextEdit:focus { border-color: @accent; }
QLineEdit:disabled, QComboBox:disabled { color: @faint; background: @raised;
  border-color: @line; }
QLineEdit:read-only, QPlainTextEdit:read-only { background: @raised; }
QLineEdit[kind="search"] { background: @strip; }
QComboBox:editable { padding: 0px 0px 0px 2px; min-height: 29px; }
QComboBox QLineEdit { border: none; background: transparent; padding: 0px 6px; min-height: 0px; }
QComboBox::drop-down { border: none; width: 24px; subcontrol-position: right center; }
QComboBox::down-arrow { image: url(:/kit/down-@theme.svg); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: @surface; border: 1px solid @line; padding: 2px;
  outline: none; selection-background-color: @selection; selection-color: @text; }
QCheckBox, QRadioButton { spacing: 6px; padding: 2px 0px; border: 1px solid transparent;
  border-radius: 4px; }
QCheckBox:focus, QRadioButton:focus { border-color: @accent; }
QCheckBox:disabled, QRadioButton:disabled { color: @faint; }
QCheckBox::indicator, QRadioButton::indicator, QTableView::indicator, QMenu::indicator {
  width: 14px; height: 14px; border: 1px solid @edge; background: @surface; border-radius: 3px; }
QRadioButton::indicator { border-radius: 8px; }
QMenu::indicator { border-radius: 8px; }
QCheckBox::indicator:checked, QTableView::indicator:checked { background: @accent;
  border-color: @accent; image: url(:/kit/tick-@theme.svg); }
QRadioButton::indicator:checked, QMenu::indicator:checked { background: @accent;
  border-color: @accent; image: url(:/kit/dot-@theme.svg); }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: @line; }
QGroupBox { border: 1px solid @line; border-radius: 5px; margin-top: 8px; padding-top: 8px; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0px 4px; color: @muted; }
QProgressBar { background: @strip; border: none; border-radius: 4px; min-height: 8px;
  max-height: 8px; text-align: center; }
QProgressBar::chunk { background: @accent; border-radius: 4px; }
QFrame[role="card"] { background: @surface; border: 1px solid @line; border-radius: 8px; }
QLabel[role="title"] { font-size: 19px; font-weight: 700; }
QFrame[role="row"] { border: none; border-bottom: 1px solid @softLine; }
QLabel[role="heading"] { font-weight: 600; }
QLabel[role="figure"] { font-size: 17px; font-weight: 700; }
QLabel[tone="accent"] { color: @accent; }
QLabel[tone="down"] { color: @danger; }
QLabel[role="muted"] { color: @muted; }
QLabel[role="hint"] { color: @muted; font-size: 12px; }
QLabel[role="warning"] { color: @warning; }
QLabel[role="danger"] { color: @danger; font-weight: 600; }
)";

const char* const kLists = R"(
QTableView, QListView, QTreeView { background: @surface; border: 1px solid @line;
  border-radius: 5px; gridline-color: @softLine; outline: none; color: @text;
  selection-background-color: @selection; selection-color: @text; }
QTableView:focus, QListView:focus, QTreeView:focus { border-color: @accent; }
QListView::item { padding: 4px 8px; border-radius: 3px; }
QListView::item:selected { background: @selection; color: @text; }
QListView::item:hover:!selected { background: @hover; }
QHeaderView { background: @surface; border: none; }
QTableCornerButton::section { background: @raised; border: none; border-bottom: 1px solid @line; }
QTableView QLineEdit, QTableView QComboBox { border: 1px solid @accent; border-radius: 3px;
  padding: 0px 8px; min-height: 0px; }
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: 12px; margin: 2px; }
QScrollBar:horizontal { height: 12px; margin: 2px; }
QScrollBar::handle { background: @scroll; border-radius: 4px; min-height: 32px; min-width: 32px; }
QScrollBar::handle:hover { background: @muted; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QCalendarWidget QWidget#qt_calendar_navigationbar { background: @raised; }
QCalendarWidget QToolButton { padding: 4px 8px; }
QCalendarWidget QAbstractItemView { border: none; border-radius: 0px; alternate-background-color:
  @raised; selection-background-color: @accent; selection-color: @onAccent; }
QCalendarWidget QToolButton#qt_calendar_prevmonth { qproperty-icon: url(:/kit/left-@theme.svg); }
QCalendarWidget QToolButton#qt_calendar_nextmonth { qproperty-icon: url(:/kit/right-@theme.svg); }
)";

}  // namespace

QString HouseStyleSheet(bool dark) {
  const Roles& r = dark ? DarkRoles() : LightRoles();
  // A name that begins with another one stands before it.
  const std::pair<const char*, QColor> colours[] = {
      {"@accentHover", r.accentHover},
      {"@accent", r.accent},
      {"@onAccent", r.onAccent},
      {"@surface", r.surface},
      {"@strip", r.strip},
      {"@raised", r.raised},
      {"@softLine", r.softLine},
      {"@line", r.line},
      {"@text", r.text},
      {"@muted", r.muted},
      {"@faint", r.faint},
      {"@selection", r.selection},
      {"@hover", r.hover},
      {"@warning", r.warning},
      {"@danger", r.danger},
      {"@current", r.dark ? r.hover : QColor("#E8ECF1")},
      {"@edge", r.edge},
      {"@scroll", r.dark ? QColor("#4A515D") : QColor("#CBD0D9")},
  };
  QString sheet =
      QString::fromLatin1(kWindows) + QString::fromLatin1(kControls) + QString::fromLatin1(kLists);
  sheet.replace(QStringLiteral("@theme"), dark ? QStringLiteral("dark") : QStringLiteral("light"));
  for (const auto& [name, colour] : colours) sheet.replace(QLatin1StringView(name), colour.name());
  return sheet;
}

}  // namespace quillary
