#include "uZtLossQuestion.h"

#include "uZtPlatform.h"
#include "uZtStringList.h"

#include <QCoreApplication>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(LossQuestion)
};

QString CharacterName(char32_t AChar)
{
    const QString code =
        QStringLiteral("U+%1").arg(quint32(AChar), 4, 16, QLatin1Char('0')).toUpper();
    if (QChar::isSurrogate(AChar) || !QChar::isPrint(AChar))
        return code;
    return QStringLiteral("%1 (%2)").arg(QString::fromUcs4(&AChar, 1), code);
}

// Half a surrogate pair, which UTF-8 lacks as well, is kept by UTF-16 alone.
TZtTextFormat RoomierFormat(TZtTextFormat AFormat)
{
    const bool narrow = AFormat.Encoding == TZtEncoding::teWindows1252;
    AFormat.Encoding = narrow ? TZtEncoding::teUtf8 : TZtEncoding::teUtf16LE;
    AFormat.Mark = !narrow;
    return AFormat;
}

bool Confirm(const QString &AText) { return ZtMsgBoxConfirm(AText, QString()) == mrYes; }

} // namespace

QByteArray ZtEncodeLines(const TStringList &ALines, const TZtTextFormat &AFormat,
                         std::vector<TZtLostChar> &ALost, qsizetype ASizeHint)
{
    TZtTextEncoder encoder(AFormat, ASizeHint);
    for (int i = 0; i < ALines.GetCount(); ++i)
        encoder.AddLine(ALines.View(i));
    QByteArray bytes = encoder.Finish();
    ALost = encoder.Lost();
    return bytes;
}

bool ZtAgreeOnEncoding(const TZtEncodeText &AEncode, const QString &AName, TZtTextFormat &AFormat,
                       QByteArray &ABytes)
{
    std::vector<TZtLostChar> lost;
    for (ABytes = AEncode(AFormat, lost); !lost.empty(); ABytes = AEncode(AFormat, lost)) {
        const TZtTextFormat other = RoomierFormat(AFormat);
        if (!Confirm(
                TTexts::tr("%1 cannot hold all characters of \"%2\"; the first is %3 in line %4, "
                           "column %5. Save it as %6 instead?")
                    .arg(ZtEncodingName(AFormat.Encoding), AName, CharacterName(lost[0].Char),
                         QString::number(lost[0].Line + 1), QString::number(lost[0].Column + 1),
                         ZtEncodingName(other.Encoding))))
            return false;
        AFormat = other;
    }
    return true;
}

bool ZtAgreeOnReplacements(const QString &AName, const TZtLostChar &AFirst)
{
    return Confirm(
        TTexts::tr("\"%1\" cannot hold all characters of the text; the first is %2 in line %3, "
                   "column %4. Store a replacement character (U+FFFD) for each?")
            .arg(AName, CharacterName(AFirst.Char), QString::number(AFirst.Line + 1),
                 QString::number(AFirst.Column + 1)));
}

bool ZtAgreeOnUndecodable(const QString &AName, const QString &AEncoding)
{
    return Confirm(
        TTexts::tr("\"%1\" holds bytes that are no %2 text. A replacement character (U+FFFD) "
                   "will be written for each. Save it?")
            .arg(AName, AEncoding));
}
