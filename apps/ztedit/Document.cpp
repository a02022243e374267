#include "Document.h"

#include "FileStore.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtIndentation.h"
#include "uZtLossQuestion.h"
#include "uZtMemory.h"
#include "uZtPlatform.h"
#include "uZtTextMarks.h"

#include <QFileInfo>
#include <QVBoxLayout>

#include <algorithm>
#include <new>

namespace {

// What a line takes in memory beside its characters.
constexpr qint64 LineSize = 16;

// What is said of a line begins with its text.
void LeaveIndentOut(TZtDiagnostic &ADiagnostic, const QString &ALine)
{
    const int indent = int(ZtIndentOf(ALine));
    if (ADiagnostic.From.x() == 0 && ADiagnostic.To.x() > indent && indent < ALine.size())
        ADiagnostic.From.setX(indent);
}

// Who says what `SetDiagnostics` shows.
const QString CompilerSource = QStringLiteral("compiler");

// The bytes of a text whose characters are none of the longer ones.
qint64 LeastSize(const TStringList &ALines, const TZtTextFormat &AFormat)
{
    const int lineBreak = AFormat.LineEnding == TZtLineEnding::leCrLf ? 2 : 1;
    qint64 units = 0;
    for (int i = 0; i < ALines.GetCount(); ++i)
        units += ALines.GetLength(i) + lineBreak;
    return units * ZtUnitSize(AFormat.Encoding);
}

} // namespace

void ZtSetLines(const TZtStringStream &AStream, TStringList &ALines)
{
    if (AStream.GetFormat().Encoding == TZtEncoding::teUtf8)
        ALines.SetUtf8Text(AStream.Bytes(), AStream.Bytes().size() - AStream.Content().size());
    else
        ALines.SetText(AStream.GetWString());
}

TDocument::TDocument(const QString &ATitle, QWidget *AParent)
    : QWidget(AParent), FTitle(ATitle), FLanguage(&ZtLanguages().front())
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    FEditorPlace = layout;
    NewEditor();
}

TZtCorrections TDocument::FCorrections = ZtAllCorrections();
TEditorView TDocument::FView;

TZtCodeEdit *TDocument::CreateEditor() { return new TZtCodeEdit(this); }

TZtCodeEdit *TDocument::CreateCorrectedEditor()
{
    TZtCodeEdit *editor = CreateEditor();
    editor->SetCorrections(FCorrections);
    FView.ApplyTo(*editor);
    editor->SetOnSearchMessage([this](const QString &text) { Q_EMIT Notice(text); });
    return editor;
}

void TDocument::ShowView() { FView.ApplyTo(*FEditor); }

void TDocument::DeleteEditor() { delete std::exchange(FEditor, nullptr); }

void TDocument::NewEditor()
{
    DeleteEditor();
    SetEditor(CreateCorrectedEditor());
    SetLanguage(*FLanguage);
}

void TDocument::SetEditor(TZtCodeEdit *AEditor)
{
    DeleteEditor();
    FEditor = AEditor;
    FEditorPlace->addWidget(FEditor);
    setFocusProxy(FEditor);
    ShowDiagnostics();
    connect(FEditor, &TZtCodeEdit::textChanged, this, &TDocument::Changed);
    connect(FEditor, &TZtCodeEdit::cursorPositionChanged, this, &TDocument::Changed);
}

// Whatever takes memory comes before the editor that is there goes.
void TDocument::Load(const QString &APath)
try {
    TZtFileState state(APath);
    TZtStringStream stream;
    stream.LoadFromFile(APath);
    state.SetContents(stream.Bytes());
    const TZtLanguage &language = FPath.isEmpty() ? ZtLanguageOfFile(APath) : *FLanguage;
    std::unique_ptr<TZtCodeEdit> editor = EditorOf(stream, language);
    QString path = QFileInfo(APath).absoluteFilePath();
    const bool focused = FEditor->hasFocus();
    if (!FPath.isEmpty() && FEditor->HasTextMarks()) // it is read again
        editor->GetTextMarks().Marks.Take(FEditor->GetTextMarks().Marks);
    editor->SetZoom(FPath.isEmpty() ? 100 : FEditor->GetZoom());
    SetEditor(editor.release());
    FLanguage = &language;
    FPath = std::move(path);
    FFormat = stream.GetFormat();
    FState = state;
    const bool exact = !FFormat.MixedLineEndings && !FFormat.Undecodable;
    FLoadedBytes = exact ? QByteArray() : stream.Bytes();
    FJournal.Begin(*FEditor->GetLines(), FPath, FFormat, stream.Bytes());
    if (focused)
        FEditor->setFocus();
    Q_EMIT Changed();
} catch (const EStreamError &) {
    throw;
} catch (...) {
    throw EStreamError(
        TDocument::tr("Cannot open \"%1\": %2").arg(APath, ZtCurrentExceptionMessage()));
}

void TDocument::Begin(const QString &APath)
{
    FPath = QFileInfo(APath).absoluteFilePath();
    FJournal.Begin(*FEditor->GetLines(), FPath, FFormat, {});
    SetLanguage(ZtLanguageOfFile(APath));
}

void TDocument::RestartJournal() { FJournal.Begin(*FEditor->GetLines(), {}, FFormat, {}); }

void TDocument::KeepJournal()
{
    FJournal.Keep([this](const QString &reason) { Q_EMIT JournalFailed(reason); });
    FJournal.Begin(*FEditor->GetLines(), FPath, FFormat, {});
}

void TDocument::Restore(const TStringList &AText, const TZtTextFormat &AFormat)
{
    TStringList *lines = FEditor->GetLines();
    lines->ReplaceText({0, 0}, lines->GetEnd(), AText.GetPiece({0, 0}, AText.GetEnd()));
    FFormat = AFormat;
    FEditor->SetModified(true);
    Q_EMIT Changed();
}

std::unique_ptr<TZtCodeEdit> TDocument::EditorOf(const TZtStringStream &AStream,
                                                 const TZtLanguage &ALanguage)
{
    if (!ZtHasMemory(AStream.LineEndings() * LineSize))
        throw std::bad_alloc();
    std::unique_ptr<TZtCodeEdit> editor(CreateCorrectedEditor());
    ZtSetLines(AStream, *editor->GetLines());
    editor->SetLanguage(ALanguage.Name);
    editor->SetModified(false);
    editor->ClearUndo();
    return editor;
}

QStringList TDocument::Write(const QString &APath, const QByteArray &ABytes,
                             const TZtTextFormat &AFormat)
{
    QStringList lost;
    FJournal.Save(ABytes, [&] { lost = ZtSaveFile(APath, ABytes); });
    if (IsModified()) {
        FLoadedBytes.clear();
        FFormat = AFormat;
        FFormat.MixedLineEndings = false;
        FFormat.Undecodable = false;
    }
    const bool byName = FLanguage == &ZtLanguageOfFile(FPath);
    FPath = QFileInfo(APath).absoluteFilePath();
    FState = TZtFileState(FPath);
    FState.SetContents(ABytes);
    FJournal.Saved(FPath, FFormat);
    if (byName && FLanguage != &ZtLanguageOfFile(FPath))
        SetLanguage(ZtLanguageOfFile(FPath));
    FEditor->SetModified(false);
    Q_EMIT Changed();
    return lost;
}

QString TDocument::Title() const { return FPath.isEmpty() ? FTitle : QFileInfo(FPath).fileName(); }

bool TDocument::IsModified() const { return FEditor->GetModified(); }

QString TDocument::DiscardQuestion() const
{
    return tr("Save the changes to \"%1\"?").arg(Title());
}

bool TDocument::IsUnused() const { return FPath.isEmpty() && !IsModified(); }

QList<TStatusText> TDocument::StatusTexts() const
{
    const int line = FEditor->GetLinePos() + 1;
    const int column = FEditor->GetCaretCell() + 1;
    return QList<TStatusText>{{tr("Line %1, column %2").arg(line).arg(column),
                               QStringLiteral("%1:%2").arg(line).arg(column)},
                              ZtLanguageTitle(*FLanguage)} +
           StorageTexts();
}

QList<TStatusText> TDocument::StorageTexts() const
{
    const QString encoding = ZtEncodingName(FFormat.Encoding);
    const QString ending = ZtLineEndingName(FFormat.LineEnding);
    QList<TStatusText> texts{encoding, ending};
    if (FFormat.Mark)
        texts[0] = {tr("%1 with byte-order mark").arg(encoding), encoding + tr("+BOM")};
    if (FFormat.MixedLineEndings)
        texts[1] = {tr("%1, mixed").arg(ending), tr("Mixed")};
    return texts;
}

void TDocument::SetDiagnostics(const std::vector<TZtDiagnostic> &ADiagnostics)
{
    FDiagnostics = ADiagnostics;
    ShowDiagnostics();
    Q_EMIT Changed();
}

// An editor that knows nothing of marks has none to clear.
void TDocument::ShowDiagnostics()
{
    if (FDiagnostics.empty() && !FEditor->HasTextMarks())
        return;
    std::vector<TZtDiagnostic> shown = FDiagnostics;
    for (TZtDiagnostic &said : shown)
        if (said.From.x() == 0 && said.From.y() < FEditor->GetLines()->GetCount())
            LeaveIndentOut(said, FEditor->GetLines()->GetStrings(said.From.y()));
    FEditor->GetTextMarks().Diagnostics.Set(CompilerSource, shown);
}

QString TDocument::StatusNote() const
{
    if (!FEditor->HasTextMarks() || !FEditor->HasExtra(TZtExtra::zeDiagnostics))
        return {};
    TZtDiagnostics &diagnostics = FEditor->GetTextMarks().Diagnostics;
    const QPoint caret(FEditor->GetCharPos(), FEditor->GetLinePos());
    std::vector<TZtDiagnostic> said = diagnostics.At(caret);
    if (said.empty())
        said = diagnostics.InLine(caret.y());
    if (said.empty())
        return {};
    const QString words[] = {tr("Error: %1"), tr("Warning: %1"), tr("Note: %1")}; // by severity
    return words[size_t(said.front().Severity)].arg(said.front().Message);
}

QByteArray TDocument::Encode(const TZtTextFormat &AFormat, std::vector<TZtLostChar> &ALost) const
{
    ALost.clear();
    if (!IsModified() && !FLoadedBytes.isEmpty())
        return FLoadedBytes;
    const TStringList *lines = FEditor->GetLines();
    return ZtEncodeLines(*lines, AFormat, ALost,
                         std::max(FState.Size(), LeastSize(*lines, AFormat)));
}

void TDocument::SetLanguage(const TZtLanguage &ALanguage)
{
    FLanguage = &ALanguage;
    FEditor->SetLanguage(ALanguage.Name);
    Q_EMIT Changed();
}

void TDocument::SetBookmark(int ALine)
{
    if (ALine <= FEditor->GetLines()->GetCount())
        FEditor->GetTextMarks().Marks.Set(ALine - 1, TZtLineMark::lmBookmark, true);
}

void TDocument::GoToLine(int ALine, int AColumn)
{
    FEditor->show(); // a new editor gets its place, and its bars their range, only now
    FEditorPlace->activate();
    FEditor->SetCharPos(0);
    FEditor->SetLinePos(ALine - 1);
    if (AColumn > 1)
        FEditor->SetCharPos(
            std::min(AColumn - 1, FEditor->GetLines()->GetLength(FEditor->GetLinePos())));
    TScrollBar *bar = FEditor->GetVScrollBar();
    const int last = qMax(FEditor->GetLines()->GetCount() - bar->GetPageSize(), 0);
    bar->SetPosition(qBound(0, FEditor->GetLinePos() - bar->GetPageSize() / 2, last));
}
