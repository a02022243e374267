// Forms with the editors in them, as programs load them and as a form designer edits them. The test
// knows the editors by the names of their properties alone: it links none of them.

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>
#include <QtDesigner/qdesigner_components.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QUiLoader>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

inline void PrintTo(const QString &S, std::ostream *AStream)
{
    *AStream << '"' << S.toStdString() << '"';
}

namespace {

// A form with both editors, that have `AProperties` and `ADbProperties`.
QByteArray Form(const char *AProperties, const char *ADbProperties = "")
{
    return QStringLiteral(
               R"(<ui version="4.0"><class>Form</class><widget class="QWidget" name="Form">
<property name="geometry"><rect><x>0</x><y>0</y><width>500</width><height>400</height></rect></property>
<layout class="QVBoxLayout"><item><widget class="TZtCodeEdit" name="code">%1</widget></item>
<item><widget class="TZtDbCodeEdit" name="bound">%2</widget></item></layout></widget></ui>)")
        .arg(QLatin1String(AProperties), QLatin1String(ADbProperties))
        .toUtf8();
}

constexpr char Filled[] = R"(
<property name="Language" stdset="0"><string notr="true">Sql</string></property>
<property name="Text" stdset="0"><string notr="true">select 1</string></property>
<property name="RightMargin" stdset="0"><number>50</number></property>
<property name="RightMarginColor" stdset="0"><UInt>255</UInt></property>
<property name="BevelKind" stdset="0"><enum>TCustomControl::bkFlat</enum></property>
<property name="BevelEdges" stdset="0"><set>TCustomControl::beTop|TCustomControl::beLeft</set></property>)";

class TDesigner : public testing::Test {
protected:
    // QT_PLUGIN_PATH stands for another plugin than the one in the build folder.
    static void SetUpTestSuite()
    {
        if (!qEnvironmentVariableIsSet("QT_PLUGIN_PATH"))
            QCoreApplication::addLibraryPath(QStringLiteral(ZT_PLUGINS));
    }
};

QString Trimmed(const QWidget *AEditor) { return AEditor->property("Text").toString().trimmed(); }

TEST_F(TDesigner, FormsAreLoadedWithTheirEditors)
{
    QBuffer form;
    form.setData(
        Form(Filled, R"(<property name="DataField" stdset="0"><string>source</string></property>
<property name="Language" stdset="0"><string>no such language</string></property>)"));
    QUiLoader loader;
    const std::unique_ptr<QWidget> window(loader.load(&form));
    ASSERT_TRUE(window) << loader.errorString().toStdString();
    const auto *code = window->findChild<QWidget *>("code");
    const auto *bound = window->findChild<QWidget *>("bound");
    ASSERT_TRUE(code && bound);
    EXPECT_STREQ(code->metaObject()->className(), "TZtCodeEdit");
    EXPECT_STREQ(bound->metaObject()->className(), "TZtDbCodeEdit");
    EXPECT_EQ(code->property("Language"), "Sql");
    EXPECT_EQ(Trimmed(code), "select 1");
    EXPECT_EQ(code->property("RightMargin"), 50);
    EXPECT_EQ(code->property("RightMarginColor"), 255);
    EXPECT_EQ(code->property("BevelKind").toInt(), 3);
    EXPECT_EQ(code->property("BevelEdges").toInt(), 3);
    EXPECT_EQ(bound->property("DataField"), "source");
    EXPECT_EQ(bound->property("Language"), "") << "an unknown one is warned of";
    EXPECT_EQ(Trimmed(bound), "") << "no program shows what a designer does";
}

// A designer without its windows.
struct TForms : TDesigner {
    TForms()
    {
        QDesignerComponents::initializeResources();
        Core.reset(QDesignerComponents::createFormEditor(nullptr));
        new QDesignerIntegration(Core.get(), Core.get());
        QDesignerComponents::initializePlugins(Core.get());
    }
    void Open(const QByteArray &AForm)
    {
        Window = Core->formWindowManager()->createFormWindow();
        ASSERT_TRUE(Window->setContents(QString::fromUtf8(AForm)));
        Code = Window->findChild<QWidget *>("code");
        Bound = Window->findChild<QWidget *>("bound");
        ASSERT_TRUE(Code && Bound);
    }
    ~TForms() override { delete Window; }

    std::unique_ptr<QDesignerFormEditorInterface> Core;
    QDesignerFormWindowInterface *Window = nullptr;
    QWidget *Code = nullptr;
    QWidget *Bound = nullptr;
};

TEST_F(TForms, DesignedEditorsShowExamplesThatAreNotStored)
{
    Open(Form(""));
    EXPECT_EQ(Trimmed(Code), "Plain text");
    EXPECT_EQ(Trimmed(Bound), "bound");
    QDesignerFormWindowCursorInterface *cursor = Window->cursor();
    cursor->setWidgetProperty(Code, "Language", "Sql");
    EXPECT_TRUE(Trimmed(Code).startsWith("-- SQL"));
    cursor->setWidgetProperty(Bound, "objectName", "other");
    EXPECT_EQ(Trimmed(Bound), "other");

    const QString stored = Window->contents();
    EXPECT_TRUE(stored.contains("Sql")) << stored.toStdString();
    EXPECT_FALSE(stored.contains("\"Text\"")) << stored.toStdString();
    EXPECT_TRUE(stored.contains("<header>uZtDbCodeEdit.h</header>")) << stored.toStdString();
}

TEST_F(TForms, WhatWasDesignedIsStoredSoThatAProgramCanSetIt)
{
    Open(Form(Filled));
    EXPECT_EQ(Trimmed(Code), "select 1");
    QDesignerFormWindowCursorInterface *cursor = Window->cursor();
    cursor->setWidgetProperty(Code, "Text", "select 2");
    cursor->setWidgetProperty(Code, "Language", "XML");
    cursor->setWidgetProperty(Code, "RightMargin", 70);
    const QString stored = Window->contents();
    for (const char *part : {"select 2", ">XML<", "<number>70</number>", "bkFlat"})
        EXPECT_TRUE(stored.contains(part)) << part << '\n' << stored.toStdString();
    // Setters are not named as uic would name them: it has to go by the property.
    for (const char *name : {"Text", "Language", "RightMargin", "BevelKind"})
        EXPECT_TRUE(stored.contains(QStringLiteral("name=\"%1\" stdset=\"0\"").arg(name))) << name;
}

TEST_F(TForms, PropertiesStandInGroupsAndUselessOnesAreHidden)
{
    Open(Form(""));
    const auto *sheet =
        qt_extension<QDesignerPropertySheetExtension *>(Core->extensionManager(), Code);
    ASSERT_TRUE(sheet);
    const struct {
        const char *Property;
        const char *Group;
    } rows[] = {{"Language", "Text"}, {"Text", "Text"},        {"Corrections", "Text"},
                {"Extras", "View"},   {"GuttorWidth", "View"}, {"BevelKind", "Bevel"}};
    for (const auto &row : rows)
        EXPECT_EQ(sheet->propertyGroup(sheet->indexOf(row.Property)), row.Group) << row.Property;
    for (const char *name : {"Left", "Top", "Width", "Height", "Lines", "SelStart", "SelEnd",
                             "LinePos", "CharPos", "ParserLineNr", "Modified", "Font"})
        EXPECT_FALSE(sheet->isVisible(sheet->indexOf(name))) << name;
}

} // namespace
