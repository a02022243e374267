#include "SaveFlow.h"

#include "Document.h"

#include "uZtException.h"
#include "uZtPlatform.h"

#include <QCoreApplication>

namespace {

QString Tr(const char *AText) { return QCoreApplication::translate("SaveFlow", AText); }

bool Confirm(const QString &AText)
{
    return ZtMsgBoxConfirm(AText, QCoreApplication::applicationName()) == mrYes;
}

// An edited text cannot give back all of a file with mixed line endings or undecodable bytes.
bool ConfirmWhatIsLost(const TDocument &ADocument)
{
    const TZtTextFormat &format = ADocument.Format();
    if (!ADocument.IsModified())
        return true;
    if (format.MixedLineEndings &&
        !Confirm(Tr("The line endings of \"%1\" are mixed. All of them will be written as %2. "
                    "Save it?")
                     .arg(ADocument.Title(), ZtLineEndingName(format.LineEnding))))
        return false;
    return !format.Undecodable ||
           Confirm(Tr("\"%1\" holds bytes that are no %2 text. A replacement character (U+FFFD) "
                      "will be written for each. Save it?")
                       .arg(ADocument.Title(), ZtEncodingName(format.Encoding)));
}

QString CharacterName(char32_t AChar)
{
    const QString code = QStringLiteral("U+%1").arg(quint32(AChar), 4, 16, QLatin1Char('0'));
    if (QChar::isSurrogate(AChar) || !QChar::isPrint(AChar))
        return code.toUpper();
    return QStringLiteral("%1 (%2)").arg(QString::fromUcs4(&AChar, 1), code.toUpper());
}

// Half a surrogate pair, which UTF-8 lacks as well, is kept by UTF-16 alone.
TZtTextFormat RoomierFormat(TZtTextFormat AFormat)
{
    const bool narrow = AFormat.Encoding == TZtEncoding::teWindows1252;
    AFormat.Encoding = narrow ? TZtEncoding::teUtf8 : TZtEncoding::teUtf16LE;
    AFormat.Mark = !narrow;
    return AFormat;
}

// The bytes to write, in the document's encoding or in one that the user has agreed to in
// `AFormat`. False when there was no agreement.
bool EncodeAll(const TDocument &ADocument, TZtTextFormat &AFormat, QByteArray &ABytes)
{
    std::vector<TZtLostChar> lost;
    for (ABytes = ADocument.Encode(AFormat, lost); !lost.empty();
         ABytes = ADocument.Encode(AFormat, lost)) {
        const TZtTextFormat other = RoomierFormat(AFormat);
        const QString question =
            Tr("%1 cannot hold all characters of \"%2\"; the first is %3 in line %4, column %5. "
               "Save it as %6 instead?")
                .arg(ZtEncodingName(AFormat.Encoding), ADocument.Title(),
                     CharacterName(lost[0].Char), QString::number(lost[0].Line + 1),
                     QString::number(lost[0].Column + 1), ZtEncodingName(other.Encoding));
        if (!Confirm(question))
            return false;
        AFormat = other;
    }
    return true;
}

} // namespace

bool ZtSaveDocument(TDocument &ADocument)
{
    if (!ADocument.IsModified() && ADocument.IsSameOnDisk())
        return true;
    if (ADocument.IsChangedOnDisk() &&
        !Confirm(Tr("\"%1\" was changed by another program after it was read here. Overwrite "
                    "those changes?")
                     .arg(ADocument.Title())))
        return false;
    return ZtSaveDocumentAs(ADocument, ADocument.Path());
}

bool ZtSaveDocumentAs(TDocument &ADocument, const QString &APath)
{
    TZtTextFormat format = ADocument.Format();
    QByteArray bytes;
    if (!ConfirmWhatIsLost(ADocument) || !EncodeAll(ADocument, format, bytes))
        return false;
    try {
        ADocument.Write(APath, bytes, format);
    } catch (const EStreamError &error) {
        ZtMsgBoxError(error.Message(), QCoreApplication::applicationName());
        return false;
    }
    return true;
}
