#pragma once

#include <QString>

class QLabel;
class QWidget;

// What comes from a file, a database or the user, for places that would read more into it than the
// text that it is.

/// For a tab, a menu or the label of a control: no "&" underlines a letter.
QString ZtWithoutMnemonics(QString AText);
/// For a tool tip: what looks like a tag is none.
QString ZtPlainToolTip(const QString &AText);
/// For a window title: "[*]" is not where the mark of a modified text goes.
QString ZtPlainTitle(QString AText);
/// A label that shows the text as it is, for a control.
QLabel *ZtPlainLabel(const QString &AText, QWidget *AControl);
