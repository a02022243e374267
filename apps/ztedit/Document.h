#pragma once

#include "DocumentJournal.h"
#include "FileState.h"
#include "StatusTexts.h"
#include "ViewSettings.h"
#include "uZtCorrections.h"
#include "uZtDiagnostics.h"
#include "uZtLanguages.h"
#include "uZtStringStream.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class TZtCodeEdit;

/// Makes a list hold the lines of a file.
void ZtSetLines(const TZtStringStream &AStream, TStringList &ALines);

/// One tab: an editor with its lexer, the file that its text came from and how that is stored.
class TDocument : public QWidget {
    Q_OBJECT

public:
    /// An empty text that has the name `ATitle` until it is saved.
    explicit TDocument(const QString &ATitle, QWidget *AParent = nullptr);

    /// Reads a file, again or for the first time, into a new editor: what could be undone before
    /// has no meaning for the text that comes now. Raises `EStreamError` and leaves all as it was
    /// when the file cannot be read or is too large for the memory.
    void Load(const QString &APath);
    /// Gives an empty text the name of a file that is not there, which the first save makes.
    void Begin(const QString &APath);
    /// Writes `ABytes`, which are the text in `AFormat`, to a file, which becomes the document's.
    /// Answers what the file lost by that, in words. Raises `EStreamError` and leaves all as it was
    /// when it cannot be written.
    QStringList Write(const QString &APath, const QByteArray &ABytes, const TZtTextFormat &AFormat);

    /// Writes down what is changed from now on, for after a crash. For a text that is empty yet.
    void KeepJournal();
    /// To be called before the document is closed: what it did not save is not to come back.
    void DiscardJournal() { FJournal.Discard(); }
    /// Waits until all changes are written down. Answers whether they are.
    bool FlushJournal() { return FJournal.Flush(); }
    /// Makes the text another one, which is not saved and will be stored in `AFormat`.
    void Restore(const TStringList &AText, const TZtTextFormat &AFormat);

    /// The absolute path of the file; empty before the first save.
    const QString &Path() const { return FPath; }
    /// The name of the file, without its folder.
    virtual QString Title() const;
    /// The file that the text is kept in, whatever kind of file; empty before the first save.
    virtual QString Location() const { return FPath; }
    /// How the file is stored, and the next save will store it.
    const TZtTextFormat &Format() const { return FFormat; }

    TZtCodeEdit *Editor() const { return FEditor; }
    /// The editors that come from now on have no corrections, to compare.
    static void UsePlainEditors() { FCorrections = {}; }
    /// How all editors look, those that come and, after `ShowView`, those that are there.
    static void SetView(const TEditorView &AView) { FView = AView; }
    void ShowView();
    /// What a status bar says of it: where the caret is, the language, and more.
    QList<TStatusText> StatusTexts() const;
    /// Whether the text was edited since it was loaded or saved.
    virtual bool IsModified() const;
    /// What to ask before the changes could be lost; Yes saves them.
    virtual QString DiscardQuestion() const;
    /// Whether nothing was ever typed into a document without a file.
    virtual bool IsUnused() const;
    /// What became of the file since it was last loaded or saved; `AReason` says why it is not
    /// known.
    TZtFileChange ChangeOnDisk(QString &AReason) const { return FState.ChangeOf(FPath, AReason); }

    /// The text as bytes. A text that was not edited gives the very bytes that it was loaded from.
    /// Raises `std::bad_alloc` when there is no memory for them.
    QByteArray Encode(const TZtTextFormat &AFormat, std::vector<TZtLostChar> &ALost) const;

    const TZtLanguage &Language() const { return *FLanguage; }
    void SetLanguage(const TZtLanguage &ALanguage);
    /// Puts the caret into a line, counted from 1; beyond the last, into the last. So it is with
    /// the column, in UTF-16 units. The line comes into the middle of the view, unless the text
    /// begins or ends too near.
    void GoToLine(int ALine, int AColumn = 1);
    /// Marks a line, counted from 1, if there is one.
    void SetBookmark(int ALine);
    /// Shows what a compiler says of the file, instead of what was shown of it; again when the file
    /// is loaded again.
    void SetDiagnostics(const std::vector<TZtDiagnostic> &ADiagnostics);
    /// What a status bar says of the caret's place: the worst that a compiler says of it, or else
    /// of its line.
    QString StatusNote() const;

Q_SIGNALS:
    /// The text, the caret or anything that this class tells may be another now.
    void Changed();
    /// Something to be said in passing.
    void Notice(const QString &AText);
    /// Changes cannot be written down for after a crash.
    void JournalFailed(const QString &AReason);

protected:
    virtual TZtCodeEdit *CreateEditor();
    /// How what is edited is stored, for the status bar.
    virtual QList<TStatusText> StorageTexts() const;
    /// Those of all editors.
    static TZtCorrections Corrections() { return FCorrections; }
    /// The text as it is now is kept somewhere else than in a file: nothing of it needs to come
    /// back.
    void RestartJournal();
    /// Replaces the editor, and with it what could be undone.
    void NewEditor();
    void DeleteEditor();
    /// Where the editors that come from now on are put.
    void SetEditorPlace(QLayout *APlace) { FEditorPlace = APlace; }

private:
    static TZtCorrections FCorrections;
    static TEditorView FView;
    std::unique_ptr<TZtCodeEdit> EditorOf(const TZtStringStream &AStream,
                                          const TZtLanguage &ALanguage);
    void SetEditor(TZtCodeEdit *AEditor);
    TZtCodeEdit *CreateCorrectedEditor();
    void ShowDiagnostics();

    QString FTitle;
    QString FPath;
    TZtTextFormat FFormat;
    TZtFileState FState;
    TDocumentJournal FJournal;
    // What was loaded, kept only when the lines do not give it back.
    QByteArray FLoadedBytes;
    std::vector<TZtDiagnostic> FDiagnostics; // as they were said, which was of the file
    const TZtLanguage *FLanguage;
    TZtCodeEdit *FEditor = nullptr;
    QLayout *FEditorPlace;
};
