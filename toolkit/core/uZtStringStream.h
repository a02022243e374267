#pragma once

#include "uZtExport.h"

#include <QAnyStringView>
#include <QByteArray>
#include <QString>
#include <QStringConverter>

#include <vector>

/// How the characters of a text file are stored.
enum class TZtEncoding : quint8 {
    teUtf8,
    teUtf16LE,
    teUtf16BE,
    teUtf32LE,
    teUtf32BE,
    teWindows1252
};

/// How a line ends in a file.
enum class TZtLineEnding : quint8 { leCrLf, leLf, leCr };

/// What is to be known of a text file, so that saving its lines gives back the same bytes.
struct TZtTextFormat {
    TZtEncoding Encoding = TZtEncoding::teUtf8; ///< in which the file is written
    /// Whether a byte-order mark stands in front of the text.
    bool Mark = false;
    /// The most frequent line ending; `leLf` for a text without any.
    TZtLineEnding LineEnding = TZtLineEnding::leLf;
    /// Whether the text holds other line endings as well, which its lines cannot give back.
    bool MixedLineEndings = false;
    /// Whether a line ending follows the last line.
    bool FinalLineBreak = true;
    /// Whether there are bytes that the text cannot give back.
    bool Undecodable = false;

    bool operator==(const TZtTextFormat &) const = default;
};

/// The name that people know an encoding by, such as "UTF-16 LE".
ZT_PARSERS_EXPORT QString ZtEncodingName(TZtEncoding AEncoding);
/// The bytes that a character takes at least: 1, 2 or 4.
ZT_PARSERS_EXPORT int ZtUnitSize(TZtEncoding AEncoding);
/// "CR LF", "LF" or "CR".
ZT_PARSERS_EXPORT QString ZtLineEndingName(TZtLineEnding ALineEnding);

/// Sets what is to be known of a text's line endings: which is the most frequent one, whether there
/// are others, and whether one stands at the end. Answers how many there are.
ZT_PARSERS_EXPORT qsizetype ZtFindLineEndings(TZtTextFormat &AFormat, QStringView AText);

/// The bytes of a file. Raises `EStreamError`, with the file and the reason in the message, for a
/// file that is missing, not readable, not a regular file or larger than the memory that is left.
ZT_PARSERS_EXPORT QByteArray ZtReadFile(const QString &AFileName);

/// Reads a text file of whatever encoding as a UTF-16 string.
///
/// A byte-order mark settles the encoding. Without one, UTF-16 and UTF-32 are recognised by where
/// their NUL bytes stand, and only when these leave no doubt; all else is UTF-8 if the bytes are
/// valid UTF-8, or Windows-1252, in which each of the 256 bytes is a character (the five that it
/// leaves undefined are U+0081, U+008D, U+008F, U+0090 and U+009D). NUL characters and lone
/// surrogates stay as they are.
class ZT_PARSERS_EXPORT TZtStringStream {
public:
    /// `ACodePage` names the code page of the string that is asked for; 1200 (UTF-16) is the only
    /// one, and another raises `EStreamError`. `AFlags` has no effect.
    explicit TZtStringStream(int ACodePage = 1200, int AFlags = 16);

    /// Reads the whole file. `ACodePage` is the file's code page (65001, 1200, 1201, 12000, 12001
    /// or 1252), or -1 to find it out. Raises `EStreamError` as `ZtReadFile` does, and for an
    /// unknown code page; the contents are then as before.
    void LoadFromFile(const QString &AFileName, int ACodePage = -1);
    /// `LoadFromFile` from memory. Raises `std::bad_alloc` when there is none for the text.
    void LoadFromBytes(const QByteArray &ABytes, int ACodePage = -1);

    /// The text without the byte-order mark. What cannot be decoded is U+FFFD. Raises
    /// `std::bad_alloc` when there is no memory for it.
    QString GetWString() const;

    const TZtTextFormat &GetFormat() const { return FFormat; } ///< as it was found in the bytes
    /// How often a line ends.
    qsizetype LineEndings() const { return FLineEndings; }
    /// The file as it is, with its byte-order mark.
    const QByteArray &Bytes() const { return FBytes; }
    /// The file without its byte-order mark, for one who can use the encoded text.
    QByteArrayView Content() const { return QByteArrayView(FBytes).sliced(FMarkSize); }

private:
    TZtEncoding FindEncoding(bool AUtf8) const;
    void FindLineEndings();
    void Decode(QString &AText, bool &AUndecodable) const;

    QByteArray FBytes;
    qsizetype FMarkSize = 0;
    qsizetype FLineEndings = 0;
    TZtTextFormat FFormat;
    // Filled at once only for the encodings in which line endings cannot be told from the bytes.
    QString FWideText;
};

/// A character that the encoding of a file does not have.
struct TZtLostChar {
    int Line;      ///< 0-based
    int Column;    ///< 0-based, in UTF-16 units
    char32_t Char; ///< the character that is not there
};

/// Turns lines into the bytes of a file. A character that the encoding does not have becomes a
/// question mark (U+FFFD in UTF-8, for a lone surrogate) and is listed in `Lost`.
class ZT_PARSERS_EXPORT TZtTextEncoder {
public:
    /// `ASizeHint` is the number of bytes to reserve. Raises `std::bad_alloc` when there is no
    /// memory for them.
    explicit TZtTextEncoder(const TZtTextFormat &AFormat, qsizetype ASizeHint = 0);

    /// A line without its ending. Raises `std::bad_alloc` without memory.
    void AddLine(QAnyStringView ALine);
    /// The bytes of all lines, ended as the format says. A text without lines is empty.
    QByteArray Finish();

    /// The first characters that were lost, at most 100, in the order of the text.
    const std::vector<TZtLostChar> &Lost() const { return FLost; }
    /// How many were lost in all.
    qsizetype LostCount() const { return FLostCount; }

private:
    void Lose(qsizetype AColumn, char32_t AChar);
    bool AppendAscii(QLatin1StringView S);
    bool AppendAscii(QStringView S);
    bool AppendAscii(QUtf8StringView) { return false; }
    void Append(QStringView S);
    void AppendUtf8(QStringView S);
    void AppendUtf16(QStringView S);
    void AppendUtf32(QStringView S);
    void AppendWindows1252(QStringView S);

    TZtTextFormat FFormat;
    QByteArray FBytes;
    QByteArray FLineBreak;
    QStringEncoder FUtf8;
    std::vector<TZtLostChar> FLost;
    qsizetype FLostCount = 0;
    int FLine = 0;
};
