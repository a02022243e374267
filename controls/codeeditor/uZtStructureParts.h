#pragma once

#include "uZtBrackets.h"
#include "uZtIndentGuides.h"
#include "uZtMatchMarks.h"
#include "uZtViewParts.h"

#include <QElapsedTimer>

#include <memory>
#include <optional>

/// Lines down the columns of the indentation; those around the caret stand out.
class TZtGuidesPart final : public TZtViewPart {
public:
    using TZtViewPart::TZtViewPart;
    void BeginRows(int AFirst, int ALast) override;
    void AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook) override;

private:
    int StepOf(int ALine) const;

    int FFirst = 0;
    std::vector<int> FCells; // of the lines from FFirst on
    std::vector<int> FSteps;
    TZtGuide FCurrent;
};

/// All matches of a text.
class TZtMatchesPart : public TZtViewPart {
public:
    explicit TZtMatchesPart(TZtViewHost &AEdit) : TZtViewPart(AEdit) { TextAttached(); }
    /// An empty text marks nothing.
    /// Answers whether another one is marked now.
    bool SetSearch(const QString &AText, TZtSearchFlags AFlags);
    const TZtMatchMarks &GetMarks() const { return *FMarks; }
    void AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook) override;
    void TextAttached() final;
    void TextChanged() override;
    int GetWorkDelay() const override;
    void Advance(int AMilliseconds) override;
    void Survey(std::vector<quint32> &ARows) override;

protected:
    virtual TZtViewColor Colour() const { return TZtViewColor::vcMatch; }
    virtual quint32 Bit() const { return TZtOverviewBit::Match; }

private:
    std::unique_ptr<TZtMatchMarks> FMarks;
    QString FSearch;
    TZtSearchFlags FFlags;
    bool FIsStale = false;    // the text was changed since it was looked through
    QElapsedTimer FSinceLast; // it was looked through
    int FTime = 0;            // that it took, in milliseconds
};

/// The word at the caret wherever it stands.
class TZtWordPart final : public TZtMatchesPart {
public:
    using TZtMatchesPart::TZtMatchesPart;
    void BeginRows(int AFirst, int ALast) override;
    int GetWorkDelay() const override;
    void Advance(int AMilliseconds) override;

protected:
    TZtViewColor Colour() const override { return TZtViewColor::vcWord; }
    quint32 Bit() const override { return TZtOverviewBit::Word; }

private:
    QString WordAtCaret() const;
    bool Mark();

    QString FWord;   // at the caret
    QString FMarked; // the one that is marked
    QElapsedTimer FSince;
};

/// The bracket at the caret and its pair.
class TZtBracketsPart final : public TZtViewPart {
public:
    using TZtViewPart::TZtViewPart;
    void BeginRows(int AFirst, int ALast) override;
    void AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook) override;
    void TextAttached() override;
    int GetWorkDelay() const override;
    void Advance(int AMilliseconds) override;
    /// Looks for the pair of the bracket at the caret; null without a highlighter.
    std::shared_ptr<TZtBrackets> Find();

private:
    std::shared_ptr<TZtBrackets> FBrackets; // held while the lexer runs, whose handler may end it
};
