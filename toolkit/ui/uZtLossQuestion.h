#pragma once

#include "uZtExport.h"
#include "uZtStringStream.h"

#include <functional>

class TStringList;

/// Gives a text's bytes in a format, and the characters that this lacks.
using TZtEncodeText =
    std::function<QByteArray(const TZtTextFormat &AFormat, std::vector<TZtLostChar> &ALost)>;

/// The bytes of the lines, and the characters that the format lacks. Raises `std::bad_alloc` when
/// there is no memory for them, and at once when there is none for `ASizeHint` bytes.
ZT_EDITOR_EXPORT QByteArray ZtEncodeLines(const TStringList &ALines, const TZtTextFormat &AFormat,
                                          std::vector<TZtLostChar> &ALost, qsizetype ASizeHint = 0);

/// Encodes a text in `AFormat` or, where that lacks characters, in a roomier one that the user
/// agrees to and that `AFormat` becomes. False when the user does not agree. `AName` is what the
/// user knows the text by.
ZT_EDITOR_EXPORT bool ZtAgreeOnEncoding(const TZtEncodeText &AEncode, const QString &AName,
                                        TZtTextFormat &AFormat, QByteArray &ABytes);

/// Whether the user agrees to a replacement character (U+FFFD) for each one that the text called
/// `AName` cannot be stored with; `AFirst` is the first of them.
ZT_EDITOR_EXPORT bool ZtAgreeOnReplacements(const QString &AName, const TZtLostChar &AFirst);

/// Whether the user agrees to write a text whose bytes could not all be decoded.
ZT_EDITOR_EXPORT bool ZtAgreeOnUndecodable(const QString &AName, const QString &AEncoding);
