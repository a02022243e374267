#include "lexing.h"
#include "uZtColorScheme.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

using enum TZtViewColor;

namespace {

using TScheme = std::shared_ptr<const TZtColorScheme>;
using TLight = std::array<double, 3>; // linear red, green and blue, or the coordinates of CIE Lab
using TMatrix = std::array<TLight, 3>;

// The transfer function of IEC 61966-2-1.
TLight Linear(TColor AColor)
{
    TLight light;
    for (size_t i = 0; i < 3; ++i) {
        const double value = ((AColor >> (8 * i)) & 0xFF) / 255.0;
        light[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return light;
}

TLight operator*(const TMatrix &AMatrix, const TLight &ALight)
{
    TLight result{};
    for (size_t i = 0; i < 3; ++i)
        for (size_t k = 0; k < 3; ++k)
            result[i] += AMatrix[i][k] * ALight[k];
    return result;
}

// IEC 61966-2-1: linear sRGB in CIE XYZ. The second row is the relative luminance of WCAG 2.1.
constexpr TMatrix ToXyz{
    {{0.4124, 0.3576, 0.1805}, {0.2126, 0.7152, 0.0722}, {0.0193, 0.1192, 0.9505}}};

double Contrast(TColor A, TColor B)
{
    const double a = (ToXyz * Linear(A))[1] + 0.05;
    const double b = (ToXyz * Linear(B))[1] + 0.05;
    return std::max(a, b) / std::min(a, b);
}

// How colours are seen, in linear sRGB, without one kind of cones: Machado, Oliveira and Fernandes,
// "A Physiologically-based Model for Simulation of Color Vision Deficiency", IEEE TVCG 15(6), 2009,
// severity 1.0.
constexpr struct {
    const char *Name;
    TMatrix Matrix;
} Visions[] = {
    {"full", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protanopia",
     {{{0.152286, 1.052583, -0.204868},
       {0.114503, 0.786281, 0.099216},
       {-0.003882, -0.048116, 1.051998}}}},
    {"deuteranopia",
     {{{0.367322, 0.860646, -0.227968},
       {0.280085, 0.672501, 0.047413},
       {-0.011820, 0.042940, 0.968881}}}},
    {"tritanopia",
     {{{1.255528, -0.076749, -0.178779},
       {-0.078411, 0.930809, 0.147602},
       {0.004733, 0.691367, 0.303900}}}},
};

// CIE 15: L*a*b* for the white of D65.
TLight Lab(TColor AColor, const TMatrix &AVision)
{
    TLight seen = AVision * Linear(AColor);
    for (double &value : seen)
        value = std::clamp(value, 0.0, 1.0);
    TLight xyz = ToXyz * seen;
    constexpr TLight White{0.9505, 1.0, 1.089};
    for (size_t i = 0; i < 3; ++i) {
        const double t = xyz[i] / White[i];
        xyz[i] = t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
    }
    return {116 * xyz[1] - 16, 500 * (xyz[0] - xyz[1]), 200 * (xyz[1] - xyz[2])};
}

double Difference(TColor A, TColor B, const TMatrix &AVision)
{
    const TLight a = Lab(A, AVision);
    const TLight b = Lab(B, AVision);
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

struct BundledScheme : testing::TestWithParam<QString> {
    const TScheme Scheme = TZtColorScheme::Find(GetParam());
    TColor Of(TZtViewColor APart) const { return Scheme->GetColor(APart); }
    TZtTextStyle Style(const char *ALanguage, const char *AElement) const
    {
        return Scheme->GetStyle(ALanguage, AElement);
    }
};

INSTANTIATE_TEST_SUITE_P(All, BundledScheme,
                         testing::ValuesIn(TZtColorScheme::BundledNames().sliced(1)),
                         [](const auto &AInfo) {
                             return QString(AInfo.param).remove(' ').toStdString();
                         });

TEST_P(BundledScheme, IsReadable)
{
    ASSERT_TRUE(Scheme);
    EXPECT_EQ(Scheme->GetName(), GetParam());
    EXPECT_EQ(Scheme->IsDark(), GetParam().endsWith("Dark"));
    const double text = GetParam().startsWith("High Contrast") ? 7 : 4.5;
    constexpr double Mark = 3;
    for (const TZtLanguageElements &language : ZtLanguageElements()) {
        for (const QLatin1StringView element : language.Elements) {
            const TZtTextStyle style = Scheme->GetStyle(language.Language, element);
            EXPECT_GE(Contrast(style.Fore, style.Back), text) << element.data();
            if (style.Back != Of(vcBackground))
                continue;
            for (const TZtViewColor back :
                 {vcCurrentLine, vcReadOnly, vcMatch, vcWord, vcBracketBack})
                EXPECT_GE(Contrast(style.Fore, Of(back)), text) << element.data() << int(back);
        }
    }
    const struct {
        double Least;
        std::vector<TZtViewColor> Marks, Backs;
    } rows[] = {
        {text, {vcSelectionText}, {vcSelection}},
        {text, {vcGuttorText, vcCurrentNumber}, {vcGuttor}},
        {Mark,
         {vcChanged, vcSaved, vcBookmark, vcBreakpoint, vcStatement, vcError, vcWarning,
          vcInformation, vcUnmatched, vcBracket, vcCaret},
         {vcGuttor, vcBackground, vcRuler}},
    };
    for (const auto &row : rows)
        for (const TZtViewColor mark : row.Marks)
            for (const TZtViewColor back : row.Backs)
                EXPECT_GE(Contrast(Of(mark), Of(back)), row.Least)
                    << TZtColorScheme::ColorName(mark).toStdString();
}

TEST_P(BundledScheme, TellsNeighboursApartWhateverTheEye)
{
    const std::vector<std::pair<const char *, std::vector<const char *>>> rows = {
        {"Pascal", {"Reserved word", "string", "Comment", "Number", "Symbol", "Identifier"}},
        {"JavaScript", {"Reserved word", "string", "Comment", "Symbol", "Symbol 2", "Identifier"}},
        {"Sql", {"KeyWords", "QuotedValues", "Comment", "Numbers", "Parameters", "Text"}},
        {"XML",
         {"ElementName", "AttributeName", "AttributeValue", "XMLChar", "Comment", "ElemenValue"}},
    };
    constexpr double Apart = 10;
    for (const auto &[language, elements] : rows)
        for (const char *const one : elements)
            for (const char *const other : elements) {
                const TZtTextStyle a = Style(language, one);
                const TZtTextStyle b = Style(language, other);
                if (one == other || a.Style != b.Style)
                    continue;
                for (const auto &[name, matrix] : Visions)
                    EXPECT_GE(Difference(a.Fore, b.Fore, matrix), Apart)
                        << one << " and " << other << ", " << name;
            }
}

TEST_P(BundledScheme, DrawsALanguageAsAnother)
{
    const TZtTextStyle plain{Of(vcText), Of(vcBackground), {}};
    const char *const languages[] = {"Pascal", "Visual Basic", "JavaScript", "XML", "Sql"};
    const char *const rows[][5] = {
        {"Reserved word", "Reserved word", "Reserved word", "ElementName", "KeyWords"},
        {"string", "string", "string", "AttributeValue", "QuotedValues"},
        {"Comment", "Comment", "Comment", "Comment", "Comment"},
        {"Number", "Symbol", "Symbol", "", "Numbers"},
        {"Symbol", "Symbol 2", "Symbol 2", "XMLChar", ""},
        {"Identifier", "Identifier", "Identifier", "ElemenValue", "Text"},
    };
    for (const auto &row : rows) {
        const TZtTextStyle expected = Style("Pascal", row[0]);
        EXPECT_EQ(expected == plain, &row == &rows[5]) << row[0];
        for (size_t i = 1; i < 5; ++i) {
            EXPECT_TRUE(!*row[i] || Style(languages[i], row[i]) == expected) << row[i];
        }
    }
}

TEST(ColorScheme, TheSchemaAndTheTablesListTheSame)
{
    std::map<QString, QStringList> listed, lexed, known;
    QStringList all;
    for (const TZtLanguageElements &language : ZtLanguageElements())
        for (const QLatin1StringView element : language.Elements) {
            listed[language.Language] += element;
            if (!all.contains(element))
                all += element;
        }
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        const auto parser = language.CreateParser();
        lexed[parser->GetLanguage()] = parser->GetElements();
    }
    EXPECT_EQ(listed, lexed);

    QFile file(ZT_SOURCE_DIR "/controls/parsers/schemes/color-scheme.schema.json");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject schema = QJsonDocument::fromJson(file.readAll()).object();
    const auto names = [](const QJsonValue &AValue) {
        return AValue["properties"].toObject().keys();
    };
    listed["*"] = all;
    const QJsonValue styles = schema["properties"]["styles"];
    for (const QString &language : names(styles))
        known[language] = names(styles["properties"][language]);
    for (auto &[language, elements] : listed)
        elements.sort();
    EXPECT_EQ(known, listed);

    QStringList parts, needed;
    for (size_t i = 0; i < TZtColorScheme::ViewColorCount; ++i)
        parts += TZtColorScheme::ColorName(TZtViewColor(i));
    for (const QVariant &part :
         schema["then"]["properties"]["colors"]["required"].toVariant().toList())
        needed += part.toString();
    EXPECT_EQ(needed, parts);
    parts.sort();
    EXPECT_EQ(names(schema["properties"]["colors"]), parts);
}

TEST(ColorScheme, TheDocumentNamesAllAndItsExampleIsOne)
{
    QFile file(ZT_SOURCE_DIR "/docs/schemes.md");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString page = file.readAll();
    QStringList names = TZtColorScheme::BundledNames();
    for (size_t i = 0; i < TZtColorScheme::ViewColorCount; ++i)
        names += TZtColorScheme::ColorName(TZtViewColor(i));
    for (const TZtLanguageElements &language : ZtLanguageElements()) {
        names += language.Language;
        for (const QLatin1StringView element : language.Elements)
            names += element;
    }
    for (const QString &name : names)
        EXPECT_TRUE(page.contains(u'`' + name + u'`')) << name.toStdString();
    const QString example = page.section("```json\n", 1, 1).section("```", 0, 0);
    EXPECT_TRUE(TZtColorScheme::FromJson(example.toUtf8(), "schemes.md")->IsDark());
}

TEST(ColorScheme, IsFoundByItsName)
{
    EXPECT_EQ(TZtColorScheme::BundledNames().first(), "Classic");
    EXPECT_EQ(TZtColorScheme::Find("CLASSIC"), TZtColorScheme::Classic());
    EXPECT_EQ(TZtColorScheme::Find("high contrast dark"),
              TZtColorScheme::Find("High Contrast Dark"));
    EXPECT_FALSE(TZtColorScheme::Find("Darker"));
    EXPECT_FALSE(TZtColorScheme::Find(""));
    const TScheme classic = TZtColorScheme::Classic();
    EXPECT_FALSE(classic->IsDark() || classic->HasStyles());
}

// Each style goes over the one before it, property by property.
TEST(ColorScheme, StylesFallBack)
{
    const TScheme scheme = TZtColorScheme::FromJson(R"({
        "styles": {
            "JavaScript": { "Symbol": { "color": "#000001" }, "Symbol 2": { "bold": false } },
            "*": { "Symbol": { "color": "#123456", "bold": true, "underline": true },
                   "Symbol 2": { "background": "#0000FF" }, "Comment": { "italic": false } }
        },
        "colors": { "Text": "#010203" }, "extends": "dark", "name": "Own" })",
                                                    "own");
    EXPECT_EQ(scheme->GetName(), "Own");
    const TScheme dark = TZtColorScheme::Find("Dark");
    const TColor back = dark->GetColor(vcBackground);
    const TColor base =
        dark->GetStyle("JavaScript", "Symbol 2").Fore; // named in the base's section
    const TFontStyles both = TFontStyle::fsBold | TFontStyle::fsUnderline;
    const struct {
        const char *Language, *Element;
        TZtTextStyle Style;
    } rows[] = {
        {"Pascal", "Identifier", {0x030201, back, {}}},
        {"Pascal", "Symbol", {0x563412, back, both}},
        {"Pascal", "Comment", {dark->GetStyle("Pascal", "Comment").Fore, back, {}}},
        {"JavaScript", "Symbol", {0x010000, back, both}},
        {"JavaScript", "Symbol 2", {base, 0xFF0000, TFontStyle::fsUnderline}},
        {"A host's own", "Symbol", {0x563412, back, both}},
        {"A host's own", "Else", {0x030201, back, {}}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(scheme->GetStyle(row.Language, row.Element), row.Style)
            << row.Language << row.Element;
}

TEST(ColorScheme, FaultsAreRaisedWithTheirPlace)
{
    const struct {
        const char *Text; // with ' for "
        int Line, Column;
        const char *Reason;
    } rows[] = {
        {"", 1, 1, "illegal value"},
        {"\n  x", 2, 3, "illegal value"},
        {"[]", 1, 1, "A scheme has to be an object"},
        {"{\n'name': 'a',}", 2, 13, "missing after a comma"},
        {"{'name': 'a' 'colors': {}}", 1, 14, "unterminated object"},
        {"{'name' 1}", 1, 9, "missing name separator"},
        {"{'name': 'a'}\n\n x", 3, 2, "garbage"},
        {"{'name': '\xC3\xA4\xF0\x9F\x8E\xA8', 'x': 1}", 1, 17, "no key 'x'"},
        {"{'extends': 'Dark'}", 1, 1, "no 'name'"},
        {"{'name': ''}", 1, 10, "empty"},
        {"{'name':\n[1, ']']}", 2, 1, "'name' has to be a text"},
        {"{'name': 'a'}", 1, 1, "no colour for 'Text'"},
        {"{'name': 'a', 'colors': {'Text': '#000000'}}", 1, 25, "for 'Background'"},
        {"{'name': 'a', 'n\\u0061me': 'b'}", 1, 15, "'name' is there twice"},
        {"{'extends': 'Darker'}", 1, 13, "no scheme 'Darker'"},
        {"{'extends': 'Classic'}", 1, 13, "no scheme 'Classic'"},
        {"{'extends': true}", 1, 13, "text in quotes"},
        {"{'colors': []}", 1, 12, "'colors' has to be an object"},
        {"{'colors': {\r\n\t'text': '#000000'}}", 2, 2, "no part of the view 'text'"},
        {"{'colors': {'Text': 5}}", 1, 21, "'Text' has to be a text"},
        {"{'colors': {'Text': '#00000g'}}", 1, 21, "'#00000g' is no colour"},
        {"{'colors': {'Text': '#0000001'}}", 1, 21, "is no colour"},
        {"{'colors': {'Text': 'black'}}", 1, 21, "is no colour"},
        {"{'styles': {'Cobol': {}}}", 1, 13, "no language 'Cobol'"},
        {"{'styles': {'*': {'Coment': {}}}}", 1, 19, "no element 'Coment'"},
        {"{'styles': {'XML': {'Symbol': {}}}}", 1, 21, "no element 'Symbol'"},
        {"{'styles': {'XML': 1}}", 1, 20, "'XML' has to be an object"},
        {"{'styles': {'XML': {'CDATA': '#000000'}}}", 1, 30, "'CDATA' has to be"},
        {"{'styles': {'*': {'CDATA': {'bold': 'no'}}}}", 1, 37, "true or false"},
        {"{'styles': {'*': {'CDATA': {'colour': '#000000'}}}}", 1, 29, "no property"},
        {"{'styles': {'*': {'CDATA': {'color': '#00'}}}}", 1, 38, "is no colour"},
        {"{'styles': {'*': {'CDATA': {}, 'CDATA': {}}}}", 1, 32, "twice"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Text);
        try {
            TZtColorScheme::FromJson(QByteArray(row.Text).replace('\'', '"'), "own.json");
            ADD_FAILURE();
        } catch (const EZtColorScheme &E) {
            const auto place = QString("own.json:%1:%2: ").arg(row.Line).arg(row.Column);
            EXPECT_EQ(std::pair(E.GetLine(), E.GetColumn()), std::pair(row.Line, row.Column));
            EXPECT_TRUE(QString(E.GetReason()).replace('"', '\'').contains(row.Reason)) << E.what();
            EXPECT_EQ(E.Message(), place + E.GetReason());
        }
    }
    EXPECT_THROW(TZtColorScheme::Load("no such file"), EZtColorScheme);
}

// Whatever a file holds, it is read or its fault has a place in it.
TEST(ColorScheme, AnyTextIsReadOrRaises)
{
    QFile file(":/zt/schemes/dark.json");
    ASSERT_TRUE(TZtColorScheme::Find("Dark") && file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    constexpr QByteArrayView Marks("{}[]\",:\\ \n#u0a\0\xFF", 16);
    QRandomGenerator random(1);
    const int steps = qEnvironmentVariableIntValue("ZT_RANDOM_TEXTS") + 2000;
    int failed = 0;
    for (int i = 0; i < steps; ++i) {
        QByteArray text = whole.first(whole.size() - random.bounded(2) * random.bounded(100));
        for (int k = random.bounded(4); k >= 0; --k)
            text.replace(random.bounded(int(text.size())), random.bounded(3),
                         QByteArray(random.bounded(2), Marks[random.bounded(16)]));
        try {
            TZtColorScheme::FromJson(text, "own");
        } catch (const EZtColorScheme &E) {
            ++failed;
            const QList<QByteArray> lines = text.split('\n');
            ASSERT_TRUE(E.GetLine() >= 1 && E.GetLine() <= lines.size()) << text.data();
            ASSERT_TRUE(E.GetColumn() >= 1 && E.GetColumn() <= lines[E.GetLine() - 1].size() + 1)
                << text.data();
        }
    }
    EXPECT_TRUE(failed > steps / 2 && failed < steps);
}

// The hook sees what the scheme says; without styles of elements the table is drawn.
TEST(ColorScheme, ALexerDrawsByIt)
{
    const TScheme dark = TZtColorScheme::Find("Dark");
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        const auto lex = [&](TScheme AScheme) {
            const auto parser = language.CreateParser();
            parser->SetScheme(AScheme);
            TTextStream stream("if <a b='c' $12 /* x */ 'y' \"z\" -- 1\r\n");
            parser->SetInputStream(&stream, false);
            QString seen, token;
            TZtTextStyle style;
            bool lineBreak = false;
            parser->OnPaintInfo = [&](const QString &AToken, TColor &, TColor &AFore,
                                      TFontStyles &) { seen += AToken + QString::number(AFore); };
            while (parser->GetNextToken(token, style.Back, style.Fore, style.Style, lineBreak)) {
                seen += QStringLiteral(" %1/%2/%3")
                            .arg(style.Fore)
                            .arg(style.Back)
                            .arg(int(style.Style));
                const QString element = parser->GetElements().at(parser->GetElement());
                EXPECT_TRUE(AScheme != dark ||
                            style == dark->GetStyle(parser->GetLanguage(), element));
            }
            return seen;
        };
        const QString table = lex(nullptr);
        EXPECT_EQ(lex(TZtColorScheme::Classic()), table) << language.Name;
        EXPECT_NE(lex(dark), table) << language.Name;
    }
}

} // namespace
