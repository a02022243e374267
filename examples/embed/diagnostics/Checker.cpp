#include "Checker.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// What a script is made of, as far as the checks want to know. Comments and strings come first, so
// that nothing in them is taken for code.
const QRegularExpression &Pieces()
{
    static const QRegularExpression pieces(
        QStringLiteral(R"((?<comment>//[^\n]*|/\*[\s\S]*?(?:\*/|\z)))"
                       R"(|(?<string>"(?:\\.|[^"\\\r\n])*"?|'(?:\\.|[^'\\\r\n])*'?|`[^`]*`?))"
                       R"(|(?<bracket>[(){}\[\]]))"
                       R"(|(?<operator>[=!<>]=+))"));
    return pieces;
}

class TFinder {
public:
    explicit TFinder(const QString &AText) : FText(AText) {}

    std::vector<TZtDiagnostic> Run()
    {
        for (auto matches = Pieces().globalMatch(FText); matches.hasNext();)
            Look(matches.next());
        CloseTo(0);
        return std::move(FFound);
    }

private:
    void Look(const QRegularExpressionMatch &AMatch)
    {
        const QString text = AMatch.captured();
        const qsizetype place = AMatch.capturedStart();
        if (AMatch.hasCaptured(u"comment"))
            LookForWork(text, place);
        else if (AMatch.hasCaptured(u"bracket"))
            Pair(text.front(), place);
        else if (text == QLatin1String("==") || text == QLatin1String("!="))
            Say(place, 2, TZtSeverity::dsWarning,
                QStringLiteral("This converts what it compares; write %1=").arg(text));
        else if (AMatch.hasCaptured(u"string") && (text.size() < 2 || text.back() != text.front()))
            Say(place, text.size(), TZtSeverity::dsError, QStringLiteral("This string has no end"));
    }
    void LookForWork(const QString &AComment, qsizetype APlace)
    {
        if (const qsizetype at = AComment.indexOf(QLatin1String("TODO")); at >= 0)
            Say(APlace + at, 4, TZtSeverity::dsInformation, QStringLiteral("To be done"));
    }
    void Pair(QChar ABracket, qsizetype APlace)
    {
        static const QString opening = QStringLiteral("([{"), closing = QStringLiteral(")]}");
        if (opening.contains(ABracket))
            return FOpen.push_back(APlace);
        const QChar wanted = opening.at(closing.indexOf(ABracket));
        const auto pair = std::find_if(FOpen.rbegin(), FOpen.rend(),
                                       [&](qsizetype place) { return FText.at(place) == wanted; });
        if (pair == FOpen.rend())
            return Say(APlace, 1, TZtSeverity::dsError, QStringLiteral("This closes nothing"));
        CloseTo(size_t(FOpen.rend() - pair));
        FOpen.pop_back();
    }
    // Those behind the first so many can have no pair any more.
    void CloseTo(size_t ACount)
    {
        for (; FOpen.size() > ACount; FOpen.pop_back())
            Say(FOpen.back(), 1, TZtSeverity::dsError, QStringLiteral("This is never closed"));
    }
    void Say(qsizetype APlace, qsizetype ALength, TZtSeverity ASeverity, const QString &AMessage)
    {
        FFound.push_back({PointOf(APlace), PointOf(APlace + ALength), ASeverity, AMessage});
    }
    QPoint PointOf(qsizetype APlace) const
    {
        const QStringView before = QStringView(FText).left(APlace);
        return QPoint(int(APlace - 1 - before.lastIndexOf(u'\n')), int(before.count(u'\n')));
    }

    const QString &FText;
    std::vector<qsizetype> FOpen; // brackets that wait for their pair
    std::vector<TZtDiagnostic> FFound;
};

} // namespace

std::vector<TZtDiagnostic> FindProblems(const QString &AText) { return TFinder(AText).Run(); }
