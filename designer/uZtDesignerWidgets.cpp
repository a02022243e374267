#include "uZtDesignerWidgets.h"

#include "uZtDesignTime.h"

#include "uZtDbCodeEdit.h"
#include "uZtLanguages.h"

#include <QIcon>

namespace {

struct TControl {
    const char *Class;
    const char *Base;
    const char *Title;
    const char *Name; // of the first one in a form
    const char *Language;
    const char *IncludeFile;
    const char *Icon;
    const char *ToolTip;
    const char *WhatsThis;
    QWidget *(*Create)(QWidget *AParent);
};

template <typename T> QWidget *Create(QWidget *AParent) { return new T(AParent); }

constexpr TControl Controls[] = {
    {"TZtCodeEdit", "QWidget", QT_TRANSLATE_NOOP("TZtDesignerWidgets", "Code Editor"), "codeEdit",
     "JavaScript", "uZtCodeEdit.h", ":/zt/designer/codeedit.svg",
     QT_TRANSLATE_NOOP("TZtDesignerWidgets", "An editor for source code"),
     QT_TRANSLATE_NOOP(
         "TZtDesignerWidgets",
         "Shows and edits a source text in the colours of its language. Line numbers, "
         "marks and what else stands beside the text are the Extras; what is done "
         "better than by the first version are the Corrections."),
     Create<TZtCodeEdit>},
    {"TZtDbCodeEdit", "TZtCodeEdit",
     QT_TRANSLATE_NOOP("TZtDesignerWidgets", "Database Code Editor"), "dbCodeEdit", "",
     "uZtDbCodeEdit.h", ":/zt/designer/dbcodeedit.svg",
     QT_TRANSLATE_NOOP("TZtDesignerWidgets", "An editor for source code in a field of a database"),
     QT_TRANSLATE_NOOP("TZtDesignerWidgets",
                       "Shows and edits a field (DataField) of a data source's current record. The "
                       "program sets the data source."),
     Create<TZtDbCodeEdit>},
};

// Names and texts are of the program, not of its users: no translator is asked for them.
constexpr const char *DomXml = R"(<ui language="c++" displayname="%1">
 <widget class="%2" name="%3">
  <property name="geometry"><rect><x>0</x><y>0</y><width>400</width><height>240</height></rect></property>
  %4
 </widget>
 <customwidgets>
  <customwidget>
   <class>%2</class>
   <extends>%5</extends>
   <propertyspecifications>
    <tooltip name="Language">%6</tooltip>
    <stringpropertyspecification name="Language" notr="true" type="singleline"/>
    <stringpropertyspecification name="Text" notr="true" type="multiline"/>
    <stringpropertyspecification name="DataField" notr="true" type="singleline"/>
   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>)";

QString LanguageNames()
{
    QStringList names;
    for (const TZtLanguage &language : ZtLanguages())
        if (!language.Name.isEmpty())
            names += language.Name;
    return names.join(QLatin1String(", "));
}

class TWidget final : public QDesignerCustomWidgetInterface {
public:
    explicit TWidget(const TControl &AControl) : FControl(AControl) {}

    QString name() const override { return QLatin1String(FControl.Class); }
    QString group() const override { return QStringLiteral("Zt Code Editor"); }
    QString toolTip() const override { return TZtDesignerWidgets::tr(FControl.ToolTip); }
    QString whatsThis() const override { return TZtDesignerWidgets::tr(FControl.WhatsThis); }
    QString includeFile() const override { return QLatin1String(FControl.IncludeFile); }
    QIcon icon() const override { return QIcon(QLatin1String(FControl.Icon)); }
    bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *AParent) override { return FControl.Create(AParent); }
    // For each designer in the process: the plugin is the same one for all.
    void initialize(QDesignerFormEditorInterface *ACore) override { TZtDesignTime::Attach(ACore); }
    QString domXml() const override
    {
        const QString language = QLatin1String(FControl.Language);
        const QString property =
            QStringLiteral("<property name=\"Language\" stdset=\"0\"><string notr=\"true\">%1"
                           "</string></property>")
                .arg(language);
        return QLatin1String(DomXml).arg(
            TZtDesignerWidgets::tr(FControl.Title).toHtmlEscaped(), name(),
            QLatin1String(FControl.Name), language.isEmpty() ? QString() : property,
            QLatin1String(FControl.Base),
            TZtDesignerWidgets::tr("The lexer's language: %1; empty for plain text")
                .arg(LanguageNames())
                .toHtmlEscaped());
    }

private:
    const TControl &FControl;
};

} // namespace

TZtDesignerWidgets::TZtDesignerWidgets(QObject *AParent) : QObject(AParent)
{
    for (const TControl &control : Controls)
        FWidgets.push_back(std::make_unique<TWidget>(control));
}

TZtDesignerWidgets::~TZtDesignerWidgets() = default;

QList<QDesignerCustomWidgetInterface *> TZtDesignerWidgets::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> widgets;
    for (const auto &widget : FWidgets)
        widgets += widget.get();
    return widgets;
}
