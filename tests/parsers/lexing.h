#pragma once

#include "uZtTokenDump.h"

#include <QBuffer>
#include <QFile>

#include <gtest/gtest.h>

/// A stream of a text's UTF-16 units, as a lexer reads it.
class TTextStream : public QBuffer {
public:
    explicit TTextStream(const QString &AText, const QByteArray &AExtra = {})
    {
        setData(QByteArray(reinterpret_cast<const char *>(AText.utf16()), AText.size() * 2) +
                AExtra);
        open(ReadOnly);
    }
};

/// What stands behind the mark of a golden's line, which has pictures of control characters.
inline QString GoldenText(const QString &ALine)
{
    QString text = ALine.mid(2);
    for (QChar &C : text)
        if (C >= u'\u2400' && C <= u'\u2421')
            C = C == u'\u2421' ? QChar(0x7F) : QChar(C.unicode() - 0x2400);
    return text;
}

/// The lines of a file in `tests/golden`.
inline QStringList GoldenLines(const QString &AName)
{
    QFile file(ZT_SOURCE_DIR "/tests/golden/" + AName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << AName.toStdString();
    return ZtTokenLines(file.readAll());
}

/// Expects the file to hold these lines. Writes them when the environment asks for that.
inline void ExpectGolden(const QString &AName, const QStringList &ALines)
{
    const std::string lines = ALines.join('\n').toStdString();
    const std::string old = GoldenLines(AName).join('\n').toStdString();
    if (QFile file(ZT_SOURCE_DIR "/tests/golden/" + AName);
        old != lines && qEnvironmentVariableIsSet("ZT_UPDATE_GOLDEN")) {
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write((lines + '\n').c_str()) > 0);
        return;
    }
    EXPECT_EQ(old, lines) << AName.toStdString();
}

/// Expects what `AShow` makes of each line under it, behind two blanks; "#" begins a remark.
template <typename TShow> void ExpectUnderEachLine(const QString &AName, TShow AShow)
{
    QStringList lines;
    for (const QString &line : GoldenLines(AName)) {
        if (!line.startsWith(' '))
            lines += line;
        if (!line.startsWith(' ') && !line.startsWith('#'))
            lines += "  " + AShow(line);
    }
    ExpectGolden(AName, lines);
}
