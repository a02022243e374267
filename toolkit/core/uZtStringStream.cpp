#include "uZtStringStream.h"

#include "uZtException.h"
#include "uZtLineScan.h"
#include "uZtMemory.h"
#include "uZtUtf8.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QUtf8StringView>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace {

constexpr qsizetype SampleSize = 1 << 16;
constexpr size_t MaxLost = 100;

struct TEncodingRow {
    TZtEncoding Encoding;
    int CodePage;
    const char *Name;
    QByteArrayView Mark;
};

// The longer mark goes before the one that it starts with.
const std::array<TEncodingRow, 6> Encodings{{
    {TZtEncoding::teUtf8, 65001, "UTF-8", "\xEF\xBB\xBF"},
    {TZtEncoding::teUtf32LE, 12000, "UTF-32 LE", {"\xFF\xFE\0\0", 4}},
    {TZtEncoding::teUtf32BE, 12001, "UTF-32 BE", {"\0\0\xFE\xFF", 4}},
    {TZtEncoding::teUtf16LE, 1200, "UTF-16 LE", "\xFF\xFE"},
    {TZtEncoding::teUtf16BE, 1201, "UTF-16 BE", "\xFE\xFF"},
    {TZtEncoding::teWindows1252, 1252, "Windows-1252", {}},
}};

const TEncodingRow &RowOf(TZtEncoding AEncoding)
{
    return *std::find_if(Encodings.begin(), Encodings.end(),
                         [=](const TEncodingRow &row) { return row.Encoding == AEncoding; });
}

// The characters of the bytes 128 to 159; above, a byte is its own character.
constexpr std::array<char16_t, 32> Windows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsWide(TZtEncoding AEncoding)
{
    return AEncoding != TZtEncoding::teUtf8 && AEncoding != TZtEncoding::teWindows1252;
}

bool IsBigEndian(TZtEncoding AEncoding)
{
    return AEncoding == TZtEncoding::teUtf16BE || AEncoding == TZtEncoding::teUtf32BE;
}

template <typename T> T ReadUnit(const char *AFrom, bool ABigEndian)
{
    return ABigEndian ? qFromBigEndian<T>(AFrom) : qFromLittleEndian<T>(AFrom);
}

bool IsCharacter(quint32 AUnit) { return AUnit <= 0x10FFFF && !QChar::isSurrogate(AUnit); }

// Whether a UTF-32 mark is one: a character other than NUL, or nothing, comes after it.
bool StartsUtf32(QByteArrayView ABytes, bool ABigEndian)
{
    if (ABytes.size() < 8)
        return ABytes.size() == 4;
    const auto first = ReadUnit<quint32>(ABytes.data() + 4, ABigEndian);
    return first != 0 && IsCharacter(first);
}

// Whether the bytes are UTF-32 without a mark: every unit is a character and none is NUL.
bool LooksLikeUtf32(QByteArrayView ABytes, bool ABigEndian)
{
    if (ABytes.size() < 8 || ABytes.size() % 4 != 0)
        return false;
    for (qsizetype i = 0; i < ABytes.size(); i += 4) {
        const auto C = ReadUnit<quint32>(ABytes.data() + i, ABigEndian);
        if (C == 0 || !IsCharacter(C))
            return false;
    }
    return true;
}

// Whether the bytes are UTF-16 without a mark: many high bytes and hardly a low byte are NUL, as
// in any text that is largely of the first 256 characters. A short text must be of nothing else,
// as one NUL among a few other bytes says little.
bool LooksLikeUtf16(QByteArrayView ABytes, bool ABigEndian)
{
    if (ABytes.size() < 8 || ABytes.size() % 2 != 0)
        return false;
    const QByteArrayView sample = ABytes.first(std::min(ABytes.size(), SampleSize));
    std::array<qsizetype, 2> nul{};
    for (qsizetype i = 0; i < sample.size(); ++i)
        nul[size_t(i % 2)] += sample[i] == 0;
    const qsizetype high = nul[ABigEndian ? 0 : 1];
    const qsizetype low = nul[ABigEndian ? 1 : 0];
    const qsizetype units = sample.size() / 2;
    return units < 64 ? high == units && low == 0 : high * 10 >= units * 4 && low * 20 <= high;
}

// Answers how many line endings there are.
template <typename T>
qsizetype SetLineEndings(TZtTextFormat &AFormat, const T *AText, qsizetype ASize)
{
    const TZtBreakCount count = ZtCountBreaks(AText, ASize);
    const qsizetype most = std::max({count.CrLf, count.Lf, count.Cr});
    if (most == 0 || most == count.Lf)
        AFormat.LineEnding = TZtLineEnding::leLf;
    else
        AFormat.LineEnding = most == count.CrLf ? TZtLineEnding::leCrLf : TZtLineEnding::leCr;
    AFormat.MixedLineEndings = (count.CrLf > 0) + (count.Lf > 0) + (count.Cr > 0) > 1;
    AFormat.FinalLineBreak = ASize > 0 && (AText[ASize - 1] == '\n' || AText[ASize - 1] == '\r');
    return count.CrLf + count.Lf + count.Cr;
}

QString DecodeWindows1252(QByteArrayView ABytes)
{
    QString text = QString::fromLatin1(ABytes);
    for (QChar &C : text)
        if (C.unicode() >= 0x80 && C.unicode() < 0xA0)
            C = QChar(Windows1252High[C.unicode() - 0x80u]);
    return text;
}

QString DecodeUtf16(QByteArrayView ABytes, bool ABigEndian, bool &AUndecodable)
{
    QString text(ABytes.size() / 2, Qt::Uninitialized);
    if (ABigEndian)
        qFromBigEndian<char16_t>(ABytes.data(), text.size(), text.data());
    else
        qFromLittleEndian<char16_t>(ABytes.data(), text.size(), text.data());
    if (ABytes.size() % 2 != 0) {
        text.append(QChar(QChar::ReplacementCharacter));
        AUndecodable = true;
    }
    return text;
}

QString DecodeUtf32(QByteArrayView ABytes, bool ABigEndian, bool &AUndecodable)
{
    QString text;
    text.reserve(ABytes.size() / 4 + 1);
    qsizetype i = 0;
    for (; i + 4 <= ABytes.size(); i += 4) {
        const auto C = ReadUnit<quint32>(ABytes.data() + i, ABigEndian);
        const bool valid = IsCharacter(C);
        AUndecodable = AUndecodable || !valid;
        text.append(QStringView(QChar::fromUcs4(valid ? char32_t(C) : U'\uFFFD')));
    }
    if (i < ABytes.size()) {
        text.append(QChar(QChar::ReplacementCharacter));
        AUndecodable = true;
    }
    return text;
}

EStreamError CannotRead(const QString &AFileName, const QString &AReason)
{
    return EStreamError(QCoreApplication::translate("TZtStringStream", "Cannot read \"%1\": %2.")
                            .arg(AFileName, AReason));
}

EStreamError CannotHold(const QString &AFileName)
{
    return CannotRead(AFileName,
                      QCoreApplication::translate("TZtStringStream", "there is not enough memory"));
}

} // namespace

qsizetype ZtFindLineEndings(TZtTextFormat &AFormat, QStringView AText)
{
    return SetLineEndings(AFormat, AText.utf16(), AText.size());
}

QByteArray ZtReadFile(const QString &AFileName)
{
    const QFileInfo info(AFileName);
    if (info.isDir())
        throw CannotRead(AFileName,
                         QCoreApplication::translate("TZtStringStream", "it is a directory"));
    if (info.exists() && !info.isFile())
        throw CannotRead(
            AFileName, QCoreApplication::translate("TZtStringStream", "it is not a regular file"));
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw CannotRead(AFileName, file.errorString());
    if (!ZtHasMemory(file.size()))
        throw CannotHold(AFileName);
    try {
        QByteArray bytes = file.readAll();
        if (file.error() != QFileDevice::NoError)
            throw CannotRead(AFileName, file.errorString());
        return bytes;
    } catch (const std::bad_alloc &) {
        throw CannotHold(AFileName);
    }
}

QString ZtEncodingName(TZtEncoding AEncoding) { return QString::fromLatin1(RowOf(AEncoding).Name); }

int ZtUnitSize(TZtEncoding AEncoding)
{
    if (!IsWide(AEncoding))
        return 1;
    return AEncoding == TZtEncoding::teUtf16LE || AEncoding == TZtEncoding::teUtf16BE ? 2 : 4;
}

QString ZtLineEndingName(TZtLineEnding ALineEnding)
{
    static constexpr std::array<const char *, 3> names{"CR LF", "LF", "CR"};
    return QString::fromLatin1(names[size_t(ALineEnding)]);
}

TZtStringStream::TZtStringStream(int ACodePage, int AFlags)
{
    Q_UNUSED(AFlags)
    if (ACodePage != 1200)
        throw EStreamError(
            QStringLiteral("A string has the code page 1200, not %1.").arg(ACodePage));
}

void TZtStringStream::LoadFromFile(const QString &AFileName, int ACodePage)
{
    try {
        TZtStringStream loaded;
        loaded.LoadFromBytes(ZtReadFile(AFileName), ACodePage);
        *this = std::move(loaded);
    } catch (const std::bad_alloc &) {
        throw CannotHold(AFileName);
    }
}

void TZtStringStream::LoadFromBytes(const QByteArray &ABytes, int ACodePage)
{
    const auto *known =
        std::find_if(Encodings.begin(), Encodings.end(),
                     [=](const TEncodingRow &row) { return row.CodePage == ACodePage; });
    if (ACodePage != -1 && known == Encodings.end())
        throw EStreamError(
            QCoreApplication::translate("TZtStringStream", "There is no code page %1.")
                .arg(ACodePage));
    FBytes = ABytes;
    FFormat = {};
    const bool utf8 = FBytes.isValidUtf8();
    FFormat.Encoding = ACodePage == -1 ? FindEncoding(utf8) : known->Encoding;
    FFormat.Undecodable = FFormat.Encoding == TZtEncoding::teUtf8 && !utf8;
    const QByteArrayView mark = RowOf(FFormat.Encoding).Mark;
    FFormat.Mark = !mark.isEmpty() && FBytes.startsWith(mark);
    FMarkSize = FFormat.Mark ? mark.size() : 0;
    FindLineEndings();
}

TZtEncoding TZtStringStream::FindEncoding(bool AUtf8) const
{
    for (const TEncodingRow &row : Encodings) {
        if (row.Mark.isEmpty() || !FBytes.startsWith(row.Mark))
            continue;
        // The rest may belie a mark: bytes that are no UTF-8, or UTF-16 that begins with a NUL.
        const bool utf32 = row.Mark.size() == 4;
        if (utf32 ? StartsUtf32(FBytes, IsBigEndian(row.Encoding))
                  : (row.Encoding != TZtEncoding::teUtf8 || AUtf8))
            return row.Encoding;
    }
    using TLooksLike = bool (*)(QByteArrayView, bool);
    struct TGuess {
        TZtEncoding Encoding;
        TLooksLike LooksLike;
    };
    static constexpr std::array<TGuess, 4> guesses{{{TZtEncoding::teUtf32LE, LooksLikeUtf32},
                                                    {TZtEncoding::teUtf32BE, LooksLikeUtf32},
                                                    {TZtEncoding::teUtf16LE, LooksLikeUtf16},
                                                    {TZtEncoding::teUtf16BE, LooksLikeUtf16}}};
    for (const TGuess &guess : guesses)
        if (guess.LooksLike(FBytes, IsBigEndian(guess.Encoding)))
            return guess.Encoding;
    return AUtf8 ? TZtEncoding::teUtf8 : TZtEncoding::teWindows1252;
}

void TZtStringStream::FindLineEndings()
{
    FWideText = QString();
    if (IsWide(FFormat.Encoding)) {
        Decode(FWideText, FFormat.Undecodable);
        FLineEndings = ZtFindLineEndings(FFormat, FWideText);
        return;
    }
    const QByteArrayView content = Content();
    FLineEndings =
        SetLineEndings(FFormat, reinterpret_cast<const uchar *>(content.data()), content.size());
}

void TZtStringStream::Decode(QString &AText, bool &AUndecodable) const
{
    const QByteArrayView bytes = Content();
    const bool big = IsBigEndian(FFormat.Encoding);
    if (!ZtHasMemory(bytes.size() / ZtUnitSize(FFormat.Encoding) * qint64(sizeof(QChar))))
        throw std::bad_alloc();
    switch (FFormat.Encoding) {
    case TZtEncoding::teUtf8:
        AText = ZtFromUtf8(bytes); // behind the mark
        break;
    case TZtEncoding::teUtf16LE:
    case TZtEncoding::teUtf16BE:
        AText = DecodeUtf16(bytes, big, AUndecodable);
        break;
    case TZtEncoding::teUtf32LE:
    case TZtEncoding::teUtf32BE:
        AText = DecodeUtf32(bytes, big, AUndecodable);
        break;
    case TZtEncoding::teWindows1252:
        AText = DecodeWindows1252(bytes);
        break;
    }
}

QString TZtStringStream::GetWString() const
{
    if (IsWide(FFormat.Encoding))
        return FWideText;
    QString text;
    bool undecodable = false;
    Decode(text, undecodable);
    return text;
}

TZtTextEncoder::TZtTextEncoder(const TZtTextFormat &AFormat, qsizetype ASizeHint)
    : FFormat(AFormat), FUtf8(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless)
{
    static constexpr std::array<QStringView, 3> breaks{u"\r\n", u"\n", u"\r"};
    Append(breaks[size_t(FFormat.LineEnding)]);
    FLineBreak = std::exchange(FBytes, {});
    if (!ZtHasMemory(ASizeHint))
        throw std::bad_alloc();
    FBytes.reserve(ASizeHint);
    if (FFormat.Mark)
        FBytes.append(RowOf(FFormat.Encoding).Mark);
}

void TZtTextEncoder::AddLine(QAnyStringView ALine)
{
    if (FLine > 0)
        FBytes.append(FLineBreak);
    const bool ascii =
        !IsWide(FFormat.Encoding) && ALine.visit([this](auto view) { return AppendAscii(view); });
    if (!ascii) {
        const QString line = ALine.toString();
        Append(line);
    }
    ++FLine;
}

QByteArray TZtTextEncoder::Finish()
{
    if (FLine > 0 && FFormat.FinalLineBreak)
        FBytes.append(FLineBreak);
    return std::move(FBytes);
}

// Appends a text of nothing but ASCII, which most lines are; otherwise nothing.
bool TZtTextEncoder::AppendAscii(QLatin1StringView S)
{
    if (!QtPrivate::isAscii(S))
        return false;
    FBytes.append(S.data(), S.size());
    return true;
}

bool TZtTextEncoder::AppendAscii(QStringView S)
{
    if (!QtPrivate::isAscii(S))
        return false;
    const qsizetype at = FBytes.size();
    FBytes.resize(at + S.size());
    QStringEncoder(QStringEncoder::Latin1).appendToBuffer(FBytes.data() + at, S);
    return true;
}

void TZtTextEncoder::Lose(qsizetype AColumn, char32_t AChar)
{
    if (FLost.size() < MaxLost)
        FLost.push_back({FLine, int(AColumn), AChar});
    ++FLostCount;
}

void TZtTextEncoder::Append(QStringView S)
{
    switch (FFormat.Encoding) {
    case TZtEncoding::teUtf8:
        return AppendUtf8(S);
    case TZtEncoding::teUtf16LE:
    case TZtEncoding::teUtf16BE:
        return AppendUtf16(S);
    case TZtEncoding::teUtf32LE:
    case TZtEncoding::teUtf32BE:
        return AppendUtf32(S);
    case TZtEncoding::teWindows1252:
        return AppendWindows1252(S);
    }
}

void TZtTextEncoder::AppendUtf8(QStringView S)
{
    FUtf8.resetState();
    FBytes.append(QByteArray(FUtf8(S)));
    if (S.isValidUtf16())
        return;
    for (qsizetype i = 0; i < S.size(); ++i) {
        const bool pair = S[i].isHighSurrogate() && i + 1 < S.size() && S[i + 1].isLowSurrogate();
        if (pair)
            ++i;
        else if (S[i].isSurrogate())
            Lose(i, S[i].unicode());
    }
}

void TZtTextEncoder::AppendUtf16(QStringView S)
{
    if (S.isEmpty())
        return; // it may have no address
    const qsizetype at = FBytes.size();
    FBytes.resize(at + S.size() * 2);
    if (IsBigEndian(FFormat.Encoding))
        qToBigEndian<char16_t>(S.utf16(), S.size(), FBytes.data() + at);
    else
        qToLittleEndian<char16_t>(S.utf16(), S.size(), FBytes.data() + at);
}

void TZtTextEncoder::AppendUtf32(QStringView S)
{
    for (qsizetype i = 0; i < S.size(); ++i) {
        char32_t C = S[i].unicode();
        if (S[i].isHighSurrogate() && i + 1 < S.size() && S[i + 1].isLowSurrogate()) {
            C = QChar::surrogateToUcs4(S[i], S[i + 1]);
            ++i;
        } else if (QChar::isSurrogate(C)) {
            Lose(i, C);
            C = U'?';
        }
        const quint32 unit =
            IsBigEndian(FFormat.Encoding) ? qToBigEndian(quint32(C)) : qToLittleEndian(quint32(C));
        FBytes.append(reinterpret_cast<const char *>(&unit), 4);
    }
}

void TZtTextEncoder::AppendWindows1252(QStringView S)
{
    const qsizetype at = FBytes.size();
    FBytes.reserve(at + S.size());
    for (qsizetype i = 0; i < S.size(); ++i) {
        const char16_t C = S[i].unicode();
        if (C < 0x80 || (C >= 0xA0 && C < 0x100)) {
            FBytes.append(char(C));
            continue;
        }
        const auto *found = std::find(Windows1252High.begin(), Windows1252High.end(), C);
        if (found != Windows1252High.end()) {
            FBytes.append(char(0x80 + (found - Windows1252High.begin())));
            continue;
        }
        FBytes.append('?');
        const bool pair = S[i].isHighSurrogate() && i + 1 < S.size() && S[i + 1].isLowSurrogate();
        Lose(i, pair ? QChar::surrogateToUcs4(S[i], S[i + 1]) : char32_t(C));
        i += pair;
    }
}
