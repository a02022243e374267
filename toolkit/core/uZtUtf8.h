#pragma once

#include <QString>
#include <QStringDecoder>

/// The string of UTF-8; a byte-order mark at its start is a character like any other. Bytes that
/// are no UTF-8 become U+FFFD.
inline QString ZtFromUtf8(QByteArrayView ABytes)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                    QStringDecoder::Flag::ConvertInitialBom);
    return decode(ABytes);
}
