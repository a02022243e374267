#include "Document.h"

#include "uZtCodeEdit.h"

#include <QFileInfo>
#include <QVBoxLayout>

TDocument::TDocument(const QString &ATitle, QWidget *AParent)
    : QWidget(AParent), FTitle(ATitle), FLanguage(&ZtLanguages()[0])
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    FEditorPlace = layout;
    NewEditor();
}

TZtCodeEdit *TDocument::CreateEditor() { return new TZtCodeEdit(this); }

void TDocument::DeleteEditor() { delete std::exchange(FEditor, nullptr); }

void TDocument::NewEditor()
{
    DeleteEditor();
    FEditor = CreateEditor();
    FEditorPlace->addWidget(FEditor);
    setFocusProxy(FEditor);
    connect(FEditor, &TZtCodeEdit::textChanged, this, &TDocument::Changed);
    connect(FEditor, &TZtCodeEdit::cursorPositionChanged, this, &TDocument::Changed);
    SetLanguage(*FLanguage);
}

void TDocument::Load(const QString &APath)
{
    TZtStringStream stream;
    stream.LoadFromFile(APath);
    const bool focused = FEditor->hasFocus();
    NewEditor();
    if (FPath.isEmpty())
        SetLanguage(ZtLanguageOfFile(APath));
    FPath = QFileInfo(APath).absoluteFilePath();
    FFormat = stream.GetFormat();
    FFingerprint = ZtFingerprintOf(stream.Bytes());
    const bool exact = !FFormat.MixedLineEndings && !FFormat.Undecodable;
    FLoadedBytes = exact ? QByteArray() : stream.Bytes();
    SetText(stream);
    if (focused)
        FEditor->setFocus();
    Q_EMIT Changed();
}

void TDocument::Begin(const QString &APath)
{
    FPath = QFileInfo(APath).absoluteFilePath();
    SetLanguage(ZtLanguageOfFile(APath));
}

void TDocument::SetText(const TZtStringStream &AStream)
{
    if (FFormat.Encoding == TZtEncoding::teUtf8) {
        const qsizetype mark = AStream.Bytes().size() - AStream.Content().size();
        FEditor->GetLines()->SetUtf8Text(mark ? AStream.Bytes().sliced(mark) : AStream.Bytes());
    } else {
        FEditor->GetLines()->SetText(AStream.GetWString());
    }
    FEditor->SetModified(false);
}

void TDocument::Write(const QString &APath, const QByteArray &ABytes, const TZtTextFormat &AFormat)
{
    ZtSaveFile(APath, ABytes);
    if (IsModified()) {
        FLoadedBytes.clear();
        FFormat = AFormat;
        FFormat.MixedLineEndings = false;
        FFormat.Undecodable = false;
    }
    const bool byName = FLanguage == &ZtLanguageOfFile(FPath);
    FPath = QFileInfo(APath).absoluteFilePath();
    FFingerprint = ZtFingerprintOf(ABytes);
    if (byName)
        SetLanguage(ZtLanguageOfFile(FPath));
    FEditor->SetModified(false);
    Q_EMIT Changed();
}

QString TDocument::Title() const { return FPath.isEmpty() ? FTitle : QFileInfo(FPath).fileName(); }

bool TDocument::IsModified() const { return FEditor->GetModified(); }

QString TDocument::DiscardQuestion() const
{
    return tr("Save the changes to \"%1\"?").arg(Title());
}

bool TDocument::IsUnused() const { return FPath.isEmpty() && !IsModified(); }

bool TDocument::IsChangedOnDisk() const
{
    const TZtFileFingerprint now = ZtFingerprintOfFile(FPath);
    return now.Exists && now != FFingerprint;
}

bool TDocument::IsSameOnDisk() const
{
    return FFingerprint.Exists && ZtFingerprintOfFile(FPath) == FFingerprint;
}

QByteArray TDocument::Encode(const TZtTextFormat &AFormat, std::vector<TZtLostChar> &ALost) const
{
    ALost.clear();
    if (!IsModified() && !FLoadedBytes.isEmpty())
        return FLoadedBytes;
    const TStringList *lines = FEditor->GetLines();
    TZtTextEncoder encoder(AFormat, FFingerprint.Size);
    for (int i = 0; i < lines->GetCount(); ++i)
        encoder.AddLine(lines->View(i));
    QByteArray bytes = encoder.Finish();
    ALost = encoder.Lost();
    return bytes;
}

void TDocument::SetLanguage(const TLanguage &ALanguage)
{
    FLanguage = &ALanguage;
    const bool modified = IsModified();
    // The states that the lines carry are those of the lexer before.
    TStringList *lines = FEditor->GetLines();
    lines->BeginUpdate();
    for (int i = 0; i < lines->GetCount(); ++i)
        lines->SetObjects(i, 0);
    lines->EndUpdate();
    FEditor->SetParser(ALanguage.CreateParser ? ALanguage.CreateParser(FEditor) : nullptr);
    FEditor->SetModified(modified);
    Q_EMIT Changed();
}

void TDocument::GoToLine(int ALine)
{
    FEditor->show(); // a new editor gets its place, and its bars their range, only now
    FEditorPlace->activate();
    FEditor->SetCharPos(0);
    FEditor->SetLinePos(ALine - 1);
    TScrollBar *bar = FEditor->GetVScrollBar();
    const int last = qMax(FEditor->GetLines()->GetCount() - bar->GetPageSize(), 0);
    bar->SetPosition(qBound(0, FEditor->GetLinePos() - bar->GetPageSize() / 2, last));
}
