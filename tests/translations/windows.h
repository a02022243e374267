#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <functional>

class QDialog;
class TMainWindow;

/// What the program shows: its window, with a script and a record of a database, and each of its
/// dialogs.
class TShownWindows {
public:
    TShownWindows();
    ~TShownWindows();

    TMainWindow &Main() { return *FMain; }
    /// Shows each dialog, with what one would have to show, and calls for it.
    void EachDialog(const std::function<void(QDialog &)> &ACall);

private:
    const QTemporaryDir FFolder;
    std::unique_ptr<TMainWindow> FMain;
};

/// The texts of the menu bar and of each menu, a list for each.
QList<QStringList> MenuTexts(TMainWindow &AWindow);
/// The same of a dialog, of what is seen in it.
QStringList LetteredTexts(const QDialog &ADialog);
/// The texts of which some is not seen.
QStringList CutTexts(const QDialog &ADialog);
