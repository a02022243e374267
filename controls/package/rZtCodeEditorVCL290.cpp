#include "rZtCodeEditorVCL290.h"

#include "uZtClassRegistry.h"
#include "uZtCodeJSParser.h"
#include "uZtCodePascalParser.h"
#include "uZtCodeSqlParser.h"
#include "uZtCodeVBParser.h"
#include "uZtCodeXmlParser.h"
#include "uZtDbCodeEdit.h"

QStringList rZtCodeEditorVCL290Units()
{
    return {QStringLiteral("uZtCodeParser"),
            QStringLiteral("uZtCodePascalParser"),
            QStringLiteral("uZtCodeVBParser"),
            QStringLiteral("uZtCodeJSParser"),
            QStringLiteral("uZtCodeXmlParser"),
            QStringLiteral("uZtCodeSqlParser"),
            QStringLiteral("uZtPaintHelpers"),
            QStringLiteral("uZtCodeEdit"),
            QStringLiteral("fZtCodeEditSearchReplaceDlg"),
            QStringLiteral("uZtDbCodeEdit")};
}

// A static library gives only the units that are named; naming the classes links them.
void rZtCodeEditorVCL290Register()
{
    ZtRegisterClass<TztCodePasParser>();
    ZtRegisterClass<TZtCodeVBParser>();
    ZtRegisterClass<TZtCodeJSParser>();
    ZtRegisterClass<TZtCodeXMLParser>();
    ZtRegisterClass<TZtCodeSqlParser>();
    ZtRegisterClass<TZtCodeEdit>();
    ZtRegisterClass<TZtDbCodeEdit>();
}
