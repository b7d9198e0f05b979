#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quillary {

/// The makings of a screen, dressed by the one style sheet. Every control carries its given name
/// and a name for those who hear the screen instead of seeing it.

enum class ButtonKind { Plain, Main, Danger, Link };

/// `caption` may hold a mnemonic; `iconName` is one of the icon theme.
QPushButton* MakeButton(const char* name, const QString& caption,
                        ButtonKind kind = ButtonKind::Plain, const QString& iconName = {});

/// Gives a button that the toolkit made, such as that of a message box, the same dress.
void SetKind(QPushButton* button, ButtonKind kind);

enum class LabelRole { Plain, Muted, Hint, Title, Figure, Warning };

QLabel* MakeLabel(const char* name, const QString& text, LabelRole role = LabelRole::Plain);
/// The label of a control: its mnemonic goes there, and the control is heard under its words.
QLabel* MakeLabelFor(QWidget* control, const QString& text, LabelRole role = LabelRole::Muted);

/// The search box over a list; Ctrl+F enters it.
QLineEdit* MakeFilterBox(QWidget* screen, const char* name = "txtFilter");

/// Words without their mnemonic mark and trailing dots.
QString PlainCaption(const QString& caption);

}  // namespace quillary
