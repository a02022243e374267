#include "uZtCodeParser.h"

#include <QIODevice>

#include <algorithm>
#include <utility>

// The plain text has neither words nor comments.
static constexpr TZtGrammar PlainText;

TZtLangParser::TZtLangParser(QObject *AOwner) : TZtLangParser(AOwner, PlainText) {}

TZtLangParser::TZtLangParser(QObject *AOwner, const TZtGrammar &AGrammar)
    : QObject(AOwner), FGrammar(AGrammar), FSpanStarts(AGrammar.SpanStarts())
{
}

TZtLangParser::~TZtLangParser()
{
    if (InputStream && OwnsStream)
        delete InputStream;
}

void TZtLangParser::SetInputStream(QIODevice *AStream, bool)
{
    if (InputStream && OwnsStream)
        delete InputStream;
    InputStream = AStream;
    LoadPushBuffer();
}

void TZtLangParser::Reset()
{
    ResetScratch.clear();
    const THold hold(*this);
    if (OnGetNewBuffer)
        OnGetNewBuffer(true, ResetScratch);
    else if (InputStream)
        InputStream->seek(0);
    ++FResets;
    LineNr = 1;
    BufferPos = 0;
    BufferLength = 0;
    Buffer.resize(0);
    FCharBeforeBuffer = 0;
    NoteToken(Buffer);
}

void TZtLangParser::ResetBuffer()
{
    Reset();
    Buffer.resize(0);
    BufferPos = 0;
    BufferLength = 0;
}

void TZtLangParser::LoadPushBuffer()
{
    if (BufferPos > 0)
        FCharBeforeBuffer = Buffer.at(BufferPos - 1).unicode();
    if (OnGetNewBuffer)
        LoadFromCallback();
    else if (InputStream)
        LoadFromStream();
}

void TZtLangParser::LoadFromCallback()
{
    // The buffer itself is handed out, emptied, so that its memory serves the next line too.
    const THold hold(*this);
    QString S = std::exchange(Buffer, QString());
    S.resize(0);
    BufferLength = 0;
    BufferPos = 0;
    if (!OnGetNewBuffer(false, S))
        S = QChar(u'\0');
    Buffer = std::move(S);
    BufferLength = int(Buffer.size());
}

void TZtLangParser::LoadFromStream()
{
    constexpr int BlockLength = 4096;
    Buffer.resize(BlockLength);
    const qint64 bytes =
        InputStream->read(reinterpret_cast<char *>(Buffer.data()), qint64(BlockLength) * 2);
    BufferLength = int(qMax<qint64>(bytes, 0) / 2);
    if (BufferLength < BlockLength)
        Buffer[BufferLength++] = u'\0';
    Buffer.resize(BufferLength);
    BufferPos = 0;
}

void TZtLangParser::AskToSkip(const QString &AEnd)
{
    // A last character that may be the first of the end's has to be looked at with what follows.
    if (ReadCurrChar() != AEnd.front().unicode())
        Fire(OnSkipTo, AEnd);
}

void TZtLangParser::PushInFront(char16_t C)
{
    Buffer.prepend(QChar(C));
    BufferLength = int(Buffer.size());
}

char16_t TZtLangParser::PeekChar()
{
    const char16_t C = ReadChar();
    PushChar(C);
    return C;
}

void TZtLangParser::PushStr(const QString &S)
{
    for (qsizetype i = S.size(); i > 0; --i)
        PushChar(S.at(i - 1).unicode());
}

char16_t TZtLangParser::ReadCurrChar() const
{
    return BufferPos > 0 ? Buffer.at(BufferPos - 1).unicode() : FCharBeforeBuffer;
}

void TZtLangParser::ReadRun(const TZtCharSet &ASet, TZtTokenText &AText)
{
    char16_t C = ReadChar();
    for (; ASet.contains(C); C = ReadChar())
        AText.append(C);
    PushChar(C);
}

void TZtLangParser::SetToken(QString &AToken, const TZtTokenText &AText)
{
    const auto *text = reinterpret_cast<const QChar *>(AText.constData());
    if (AToken.size() == AText.size())
        std::copy_n(text, AText.size(), AToken.data());
    else
        AToken.setUnicode(text, AText.size());
}

TlngToken TZtLangParser::InternalGetNextToken(QString &AToken)
{
    AToken.resize(0);
    for (;;) {
        const char16_t C = ReadChar();
        switch (C) {
        case u'\0':
            return TlngToken::tEndOfFile;
        case u'\n':
            break;
        case u'\r':
            if (AToken.isEmpty())
                return TlngToken::tLineBreak;
            PushChar(C);
            return TlngToken::tLine;
        default:
            AToken.append(QChar(C));
        }
    }
}

bool TZtLangParser::GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                                 TFontStyles &AFontStyle, bool &ALineBreak)
{
    const TlngToken kind = InternalGetNextToken(AToken);
    ABackGround = clWindow;
    ATextColor = clWindowText;
    AFontStyle = {};
    TakeSchemeStyle(ABackGround, ATextColor, AFontStyle);
    ALineBreak = kind == TlngToken::tLineBreak || kind == TlngToken::tEndOfFile;
    return kind != TlngToken::tUnknown;
}

QStringList TZtLangParser::GetElements() const { return {QStringLiteral("WhiteSpace")}; }

TZtElementKind TZtLangParser::GetElementKind(int AElement) const
{
    if (FKinds.empty())
        for (const QString &name : GetElements())
            FKinds.push_back(ZtElementKind(name));
    const bool known = AElement >= 0 && size_t(AElement) < FKinds.size();
    return known ? FKinds[size_t(AElement)] : TZtElementKind::ekCode;
}

void TZtLangParser::SetScheme(std::shared_ptr<const TZtColorScheme> Value)
{
    FStyles.reset();
    FScheme = std::move(Value);
    if (!FScheme || !FScheme->HasStyles())
        return;
    std::vector<TZtTextStyle> styles;
    for (const QString &name : GetElements())
        styles.push_back(FScheme->GetStyle(GetLanguage(), name));
    FStyles = std::make_unique<const std::vector<TZtTextStyle>>(std::move(styles));
}

void TZtLangParser::TakeSchemeStyle(TColor &ABackGround, TColor &ATextColor,
                                    TFontStyles &AFontStyle) const
{
    if (!FStyles || size_t(GetElement()) >= FStyles->size())
        return;
    const TZtTextStyle &style = (*FStyles)[size_t(GetElement())];
    ABackGround = style.Back;
    ATextColor = style.Fore;
    AFontStyle = style.Style;
}

void TZtLangParser::GetPaintInfo(const QString &AToken, TColor &ABackGround, TColor &ATextColor,
                                 TFontStyles &AFontStyle)
{
    Fire(OnPaintInfo, AToken, ABackGround, ATextColor, AFontStyle);
}

QString TZtLangParser::GetLanguage() const { return QStringLiteral("<undefined language>"); }

QString TZtLangParser::CreateMethod(QObject *, const QString &, QString &) { return {}; }

QString TZtLangParser::GetSameMethods(QObject *, const QString &) { return {}; }

int TZtLangParser::MethodLineNr(const QString &) { return -1; }
