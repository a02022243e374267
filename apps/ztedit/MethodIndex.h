#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>

class TStringList;
class TZtBufferSearch;
class TZtLangParser;
template <typename TToken> class TZtScriptLexer;

/// Hands the lines of a text, which outlives it, to a lexer, each with CR LF, a very long one in
/// pieces.
class TLineFeed {
public:
    explicit TLineFeed(const TStringList *ALines) : FLines(ALines) {}

    bool operator()(bool AReset, QString &S);
    /// How much was handed over, from 0 to 1.
    double Progress() const;

private:
    const TStringList *FLines;
    int FLine = 0;
    int FColumn = 0;
};

/// The methods of a script, in the order of the text.
///
/// They are read while the event loop has nothing else to do, in slices of about a millisecond; a
/// single token of 100,000 characters takes longer, since it is read as a whole. What was found can
/// be used before the text is read to its end. After a change of the text all is void, and the
/// reading starts again when there was no other change for a while.
class TMethodIndex : public QObject {
    Q_OBJECT

public:
    /// Reads `ALines`, which outlive the index, with a lexer for scripts; with another one there
    /// are no methods.
    TMethodIndex(const TStringList *ALines, std::unique_ptr<TZtLangParser> ALexer,
                 QObject *AOwner = nullptr);
    ~TMethodIndex() override;

    const TZtLangParser &Lexer() const { return *FLexer; }
    /// How many methods have been found.
    int Count() const { return int(FMethods.size()); }
    QString Name(int AIndex) const;
    /// The line of a method's name, counted from 1.
    int Line(int AIndex) const { return FMethods.at(AIndex).Line; }
    /// The first method from `AFrom` on whose name has a match, or -1. `ASearch` searches
    /// downwards.
    int Find(const TZtBufferSearch &ASearch, int AFrom) const;

    bool IsComplete() const { return FState == TState::Complete; }
    /// How much of the text has been read, from 0 to 1.
    double Progress() const { return FState == TState::Waiting ? 0 : FFeed.Progress(); }
    /// Reads on without waiting for a pause: to the end, until there are more than `AEnough`
    /// methods, or for some milliseconds. Answers `IsComplete`. Raises what the lexer raises, and
    /// then has no methods.
    bool ReadOn(int AMilliseconds, int AEnough = std::numeric_limits<int>::max());

    /// To be called when the text has changed.
    void TextChanged();

Q_SIGNALS:
    /// There are no methods any more; the text will be read anew.
    void Restarted();
    /// More of the text has been read.
    void Advanced();

private:
    enum class TState : quint8 { Waiting, Reading, Complete };
    struct TMethod {
        int Line;
        int NameEnd; // in `FNames`
    };

    qsizetype NameStart(int AIndex) const;
    void Start();
    template <typename TToken> void StartReading(TZtScriptLexer<TToken> &ALexer, TToken AEnd);
    void Void();
    void Work();

    std::unique_ptr<TZtLangParser> FLexer;
    TLineFeed FFeed;
    TState FState = TState::Waiting;
    QElapsedTimer FSinceChange;
    QTimer FTimer;
    // Reads a token; false at the end.
    std::function<bool()> FReadToken;
    QString FToken;
    // Millions of methods take a few bytes each: all names are in one string, a line break after
    // each.
    QString FNames;
    QList<TMethod> FMethods;
};
