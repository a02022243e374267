#pragma once

#include "uZtException.h"

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <vector>

/// A text that is no JSON, or in which something else is wrong.
class EZtJson : public EZtException {
public:
    /// `APlace` is the 0-based byte at which the reason was found.
    EZtJson(qsizetype APlace, const QString &AReason) : EZtException(AReason), FPlace(APlace) {}
    qsizetype GetPlace() const { return FPlace; }

private:
    qsizetype FPlace;
};

/// A value of a JSON text, and where it stands (0-based bytes).
struct TZtJsonMember {
    QString Name;        ///< empty for the outermost value
    qsizetype NamePlace; ///< of the quote that opens the name
    qsizetype Place;     ///< of the value's first character
    QJsonValue Value;
    std::vector<TZtJsonMember> Members; ///< of an object, in the order of the text

    /// The member of that name; null for none.
    const TZtJsonMember *Find(QStringView AName) const;
};

/// Reads a text by RFC 8259, of which the outermost value is an object or an array. Raises
/// `EZtJson` for a text that is none, and for an object that has a name twice.
TZtJsonMember ZtReadJson(const QByteArray &AText);

/// A place in a text: the 1-based line, and the 1-based column in UTF-16 units.
struct TZtJsonPlace {
    int Line;
    int Column;
};
TZtJsonPlace ZtJsonPlace(const QByteArray &AText, qsizetype APlace);
