#pragma once

#include <QByteArray>

/// The two texts that the saver writes in turn, of different lengths.
inline QByteArray TextToSave(bool ASecond)
{
    return ASecond ? QByteArray("the second text\n").repeated(20000)
                   : QByteArray("first\r\n").repeated(60000);
}
