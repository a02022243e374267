#include "uZtDesignTime.h"

#include "uZtDbCodeEdit.h"
#include "uZtGuarded.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <algorithm>
#include <memory>

namespace {

constexpr struct {
    const char *Language;
    const char *Text;
} Examples[] = {
    {"Pascal", "// Pascal\nbegin\n  Total := Total + 1;\n  Show('sum');\nend;\n"},
    {"Visual Basic", "' Visual Basic\nSub Add()\n  total = total + 1\n  Show \"sum\"\nEnd Sub\n"},
    {"JavaScript", "// JavaScript\nfunction add() {\n  total += 1;\n  show('sum');\n}\n"},
    {"XML", "<!-- XML -->\n<sum unit=\"1\">\n  <item>total</item>\n</sum>\n"},
    {"Sql", "-- SQL\nselect name, total\nfrom sums\nwhere name = 'sum'\n"},
};

QString ExampleOf(const QString &ALanguage)
{
    for (const auto &row : Examples)
        if (ALanguage == QLatin1String(row.Language))
            return QLatin1String(row.Text);
    return ALanguage.isEmpty() ? QStringLiteral("Plain text\n") : ALanguage + u'\n';
}

constexpr struct {
    const char *Group;
    std::initializer_list<const char *> Properties;
} Groups[] = {
    {QT_TRANSLATE_NOOP("TZtDesignTime", "Text"),
     {"Language", "Text", "DataField", "ReadOnly", "Corrections", "TabIndentSize", "TabWidth",
      "UndoBytes", "UndoLoads", "UndoPosts"}},
    {QT_TRANSLATE_NOOP("TZtDesignTime", "View"),
     {"Extras", "Options", "ShowGuttor", "GuttorWidth", "ShowRightMargin", "RightMargin",
      "RightMarginColor", "Zoom", "WordMarkDelay", "BorderStyle"}},
    {QT_TRANSLATE_NOOP("TZtDesignTime", "Bevel"),
     {"BevelKind", "BevelInner", "BevelOuter", "BevelWidth", "BevelEdges", "Ctl3D"}},
};

} // namespace

void TZtDesignTime::Attach(QDesignerFormEditorInterface *ACore)
{
    if (ACore && !ACore->findChild<TZtDesignTime *>(QString(), Qt::FindDirectChildrenOnly))
        new TZtDesignTime(ACore);
}

TZtDesignTime::TZtDesignTime(QDesignerFormEditorInterface *ACore) : QObject(ACore), FCore(ACore)
{
    QDesignerFormWindowManagerInterface *forms = ACore->formWindowManager();
    connect(forms, &QDesignerFormWindowManagerInterface::formWindowAdded, this,
            &TZtDesignTime::FollowForm);
    for (int i = 0; i < forms->formWindowCount(); ++i)
        FollowForm(forms->formWindow(i));
}

void TZtDesignTime::FollowForm(QDesignerFormWindowInterface *AForm)
{
    connect(AForm, &QDesignerFormWindowInterface::widgetManaged, this,
            TZtGuarded([this](QWidget *widget) { Prepare(widget); }));
}

void TZtDesignTime::Prepare(QWidget *AWidget)
{
    auto *editor = qobject_cast<TZtCodeEdit *>(AWidget);
    if (!editor)
        return;
    Group(editor);
    if (editor->IsDesigning()) // a widget that is taken back by an undo is managed again
        return;
    editor->SetDesigning(true);
    if (auto *bound = qobject_cast<TZtDbCodeEdit *>(editor)) {
        bound->DataChange();
        connect(bound, &QObject::objectNameChanged, bound,
                TZtGuarded([bound] { bound->DataChange(); }));
        return;
    }
    const auto example = std::make_shared<QString>(); // as the editor gives it back
    const auto show = [editor, example] {
        if (editor->GetText() != *example)
            return;
        editor->SetText(ExampleOf(editor->GetLanguage()));
        *example = editor->GetText();
    };
    show();
    connect(editor, &TZtCodeEdit::languageChanged, editor, TZtGuarded(show));
}

void TZtDesignTime::Group(QWidget *AWidget)
{
    auto *sheet =
        qt_extension<QDesignerPropertySheetExtension *>(FCore->extensionManager(), AWidget);
    for (const auto &row : Groups)
        for (const char *property : row.Properties)
            if (const int index = sheet ? sheet->indexOf(QLatin1String(property)) : -1; index >= 0)
                sheet->setPropertyGroup(index, tr(row.Group));
}
