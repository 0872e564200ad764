// Values of the panel's controls. A put that changes a text or a value runs the control's handler
// before it returns; a put of what the control shows already runs nothing.
#pragma once

#include <string>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollBar;

std::string TextOf(const QLineEdit* box);
void PutText(QLineEdit* box, const std::string& text);

// Puts a problem time as "t=0.25".
void PutTime(QLineEdit* box, double time);

// Shows or hides a box.
void PutVisible(QLineEdit* box, bool visible);

// A caption is also what a screen reader says.
std::string CaptionOf(const QLabel* label);
void PutCaption(QLabel* label, const std::string& caption);
void PutCaption(QPushButton* button, const std::string& caption);

// Lays a message over a label's caption, and takes it away again so that the label is as if it had
// never been there. Without a message, or once another caption has taken its place, nothing
// happens.
void ShowMessageOver(QLabel* label, const std::string& message);
void TakeMessageAway(QLabel* label);

// A bar's numbers have 16 bits; one beyond them becomes the nearest that has. A value stays within
// its bar's range, and a range that comes to exclude the value pulls it in.
int BarValue(const QScrollBar* bar);
int BarMinimum(const QScrollBar* bar);
int BarMaximum(const QScrollBar* bar);
void PutBarValue(QScrollBar* bar, int value);
void PutBarRange(QScrollBar* bar, int minimum, int maximum);
void PutBarSteps(QScrollBar* bar, int small, int large);

// The text of the chosen row, empty if there is none.
std::string TextOf(const QListWidget* list);

// Chooses the row with that text and runs the list's handler once, also if the row was chosen
// already. A text that no row has changes nothing.
void PutListText(QListWidget* list, const std::string& text);
