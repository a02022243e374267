#include "uZtException.h"
#include "uZtStringList.h"
#include "uZtStringStream.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Utf8 = TZtEncoding::teUtf8;
constexpr auto Win = TZtEncoding::teWindows1252;
constexpr auto Lf = TZtLineEnding::leLf;

QByteArray Raw(const char *AHex) { return QByteArray::fromHex(AHex); }

QByteArray Encode(const QString &AText, const TZtTextFormat &AFormat)
{
    TStringList lines;
    lines.SetText(AText);
    TZtTextEncoder encoder(AFormat);
    for (int i = 0; i < lines.GetCount(); ++i)
        encoder.AddLine(lines.View(i));
    return encoder.Finish();
}

// "16le bom crlf mixed final undecodable"
std::string ToText(const TZtTextFormat &AFormat)
{
    static constexpr const char *encodings[] = {"utf8", "16le", "16be", "32le", "32be", "1252"};
    static constexpr const char *endings[] = {"crlf", "lf", "cr"};
    return encodings[int(AFormat.Encoding)] + std::string(AFormat.Mark ? " bom " : " ") +
           endings[int(AFormat.LineEnding)] + (AFormat.MixedLineEndings ? " mixed" : "") +
           (AFormat.FinalLineBreak ? " final" : "") + (AFormat.Undecodable ? " undecodable" : "");
}

} // namespace

TEST(StringStream, TellsTheFormatAndGivesTheSameBytesBack)
{
    const QString smile = u"a\U0001F600\n"_s;
    const struct {
        QByteArray Bytes;
        QString Text;
        const char *Format;
    } rows[] = {
        {"", u""_s, "utf8 lf"},
        {"ab", u"ab"_s, "utf8 lf"},
        {"\n\n", u"\n\n"_s, "utf8 lf final"},
        {"a\r\nb\r\n", u"a\r\nb\r\n"_s, "utf8 crlf final"},
        {"a\rb", u"a\rb"_s, "utf8 cr"},
        {"a\r", u"a\r"_s, "utf8 cr final"},
        {Raw("6100620a"), u"a\0b\n"_s, "utf8 lf final"},
        {"\xC3\xA9\n", u"é\n"_s, "utf8 lf final"},
        {"\xEF\xBB\xBF\xC3\xA9", u"é"_s, "utf8 bom lf"},
        {"\xEF\xBB\xBF\xEF\xBB\xBF", u"\uFEFF"_s, "utf8 bom lf"},
        {"a\xF0\x9F\x98\x80\n", smile, "utf8 lf final"},
        {"\xE9\n", u"é\n"_s, "1252 lf final"},
        {"\x80\x81", u"€\u0081"_s, "1252 lf"},
        {"\xED\xA0\x80", u"í\u00A0€"_s, "1252 lf"},
        {"\xEF\xBB\xBF\xFF", u"ï»¿ÿ"_s, "1252 lf"},
        {Raw("fffe61003dd800de0a00"), smile, "16le bom lf final"},
        {Raw("feff0061d83dde00000a"), smile, "16be bom lf final"},
        {Raw("fffe00006100"), u"\0a"_s, "16le bom lf"},
        {Raw("610062000d000a00"), u"ab\r\n"_s, "16le crlf final"},
        {Raw("0061006200e90063"), u"abéc"_s, "16be lf"},
        {Raw("fffe78000a003dd8"), u"x\n"_s + QChar(0xD83D), "16le bom lf"},
        {Raw("fffe610062"), u"a\uFFFD"_s, "16le bom lf undecodable"},
        {Raw("fffe00006100000000f601000a000000"), smile, "32le bom lf final"},
        {Raw("000000610001f6000000000a"), smile, "32be lf final"},
        {Raw("0000feff00000061"), u"a"_s, "32be bom lf"},
        {Raw("fffe00006100000000001100"), u"a\uFFFD"_s, "32le bom lf undecodable"},
        {"a\nb\r\nc\r\n", u"a\nb\r\nc\r\n"_s, "utf8 crlf mixed final"},
        {"\n\r", u"\n\r"_s, "utf8 lf mixed final"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Bytes.toPercentEncoding().toStdString());
        TZtStringStream stream;
        stream.LoadFromBytes(row.Bytes);
        const TZtTextFormat format = stream.GetFormat();
        EXPECT_EQ(ToText(format), row.Format);
        EXPECT_EQ(stream.GetWString(), row.Text);
        EXPECT_EQ(stream.Bytes(), row.Bytes);
        if (!format.MixedLineEndings && !format.Undecodable) {
            EXPECT_EQ(Encode(row.Text, format), row.Bytes);
        }
    }
}

TEST(StringStream, EveryByteIsAWindows1252Character)
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(char(i));
    TZtStringStream stream;
    stream.LoadFromBytes(bytes);
    ASSERT_EQ(stream.GetFormat().Encoding, Win);
    TZtTextEncoder encoder({Win, false, Lf, false, false, false});
    encoder.AddLine(stream.GetWString());
    EXPECT_EQ(encoder.Finish(), bytes);
    EXPECT_EQ(encoder.LostCount(), 0);
}

TEST(StringStream, LineEndingsAreCountedBeyondAChunk)
{
    TZtStringStream stream;
    stream.LoadFromBytes(QByteArray("\r\n\r\n\n").repeated(1000));
    EXPECT_EQ(ToText(stream.GetFormat()), "utf8 crlf mixed final");
    stream.LoadFromBytes(QByteArray("x\r\n").repeated(3000));
    EXPECT_EQ(ToText(stream.GetFormat()), "utf8 crlf final");
}

TEST(StringStream, AGivenCodePageIsNotGuessed)
{
    TZtStringStream stream;
    stream.LoadFromBytes("\xC3\xA9", 1252);
    EXPECT_EQ(stream.GetWString(), u"Ã©"_s);
    stream.LoadFromBytes("a\xFF", 65001);
    EXPECT_EQ(stream.GetWString(), u"a\uFFFD"_s);
    EXPECT_TRUE(stream.GetFormat().Undecodable);
    EXPECT_THROW(stream.LoadFromBytes("b", 7), EStreamError);
    EXPECT_EQ(stream.Bytes(), "a\xFF");
    EXPECT_THROW(TZtStringStream(1252), EStreamError);
}

TEST(StringStream, CharactersThatAnEncodingLacksAreListed)
{
    const struct {
        TZtEncoding Encoding;
        QString Line;
        int Column;
        char32_t Char;
        QByteArray Bytes;
    } rows[] = {
        {Win, u"a\u0142b"_s, 1, U'\u0142', "x\na?b\n"},
        {Win, u"€\U0001F600"_s, 1, U'\U0001F600', "x\n\x80?\n"},
        {Win, u"\u0080"_s, 0, U'\u0080', "x\n?\n"},
        {Utf8, u"\U0001F600"_s + QChar(0xDE00), 2, 0xDE00, "x\n\xF0\x9F\x98\x80\xEF\xBF\xBD\n"},
    };
    for (const auto &row : rows) {
        TZtTextEncoder encoder({row.Encoding, false, Lf, false, true, false});
        encoder.AddLine(u"x");
        encoder.AddLine(row.Line);
        EXPECT_EQ(encoder.Finish(), row.Bytes);
        ASSERT_EQ(encoder.LostCount(), 1);
        EXPECT_EQ(encoder.Lost()[0].Line, 1);
        EXPECT_EQ(encoder.Lost()[0].Column, row.Column);
        EXPECT_EQ(encoder.Lost()[0].Char, row.Char);
    }
}

TEST(StringStream, AFileThatCannotBeReadIsNamedWithTheReason)
{
    const QTemporaryDir folder;
    std::vector<std::pair<QString, QString>> rows = {
        {folder.filePath(u"none.pas"_s), u"No such file or directory"_s},
        {folder.path(), u"it is a directory"_s},
        {u"/dev/null"_s, u"it is not a regular file"_s}};
    QFile large(folder.filePath(u"large"_s));
    if (large.open(QIODevice::WriteOnly) && large.resize(qint64(1) << 43)) // where 8 TiB may be
        rows.emplace_back(large.fileName(), u"there is not enough memory"_s);
    TZtStringStream stream;
    stream.LoadFromBytes("kept");
    for (const auto &[name, reason] : rows) {
        try {
            stream.LoadFromFile(name);
            ADD_FAILURE() << name.toStdString();
        } catch (const EStreamError &error) {
            EXPECT_EQ(error.Message(), u"Cannot read \"%1\": %2."_s.arg(name, reason));
        }
    }
    EXPECT_EQ(stream.GetWString(), u"kept"_s);
}
