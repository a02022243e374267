#include "uZtElements.h"

#include <algorithm>

using enum TZtElementKind;

namespace {

using TName = QLatin1StringView;

// All elements that are no code.
constexpr struct {
    TName Element;
    TZtElementKind Kind;
} Kinds[] = {
    {TName("Comment"), ekRemark},   {TName("string"), ekText},
    {TName("Character"), ekText},   {TName("QuotedValues"), ekText},
    {TName("Fieldnames"), ekText},  {TName("AttributeValue"), ekText},
    {TName("ElemenValue"), ekText}, {TName("CDATA"), ekText},
};

constexpr TName Pascal[] = {TName("WhiteSpace"), TName("Reserved word"), TName("string"),
                            TName("Comment"),    TName("Identifier"),    TName("Character"),
                            TName("Number"),     TName("Symbol")};
constexpr TName Script[] = {TName("WhiteSpace"), TName("Reserved word"), TName("string"),
                            TName("Comment"),    TName("Identifier"),    TName("Symbol"),
                            TName("Symbol 2")};
constexpr TName Xml[] = {TName("WhiteSpace"),  TName("AttributeName"), TName("AttributeValue"),
                         TName("ElementName"), TName("ElemenValue"),   TName("XMLChar"),
                         TName("CDATA"),       TName("Comment")};
constexpr TName Sql[] = {TName("WhiteSpace"),   TName("Text"),    TName("KeyWords"),
                         TName("QuotedValues"), TName("Numbers"), TName("Parameters"),
                         TName("Fieldnames"),   TName("Comment")};

constexpr TZtLanguageElements Languages[] = {
    {TName("Pascal"), Pascal},     {TName("Visual Basic"), Script},
    {TName("JavaScript"), Script}, {TName("XML"), Xml},
    {TName("Sql"), Sql},
};

} // namespace

TZtElementKind ZtElementKind(QStringView AElement)
{
    for (const auto &row : Kinds)
        if (AElement == row.Element)
            return row.Kind;
    return ekCode;
}

std::span<const TZtLanguageElements> ZtLanguageElements() { return Languages; }
